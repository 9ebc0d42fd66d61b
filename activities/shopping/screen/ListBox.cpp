#include "activities/shopping/screen/ListBox.h"

#include "activities/shopping/screen/SelectionStart.h"
#include "common/screen/KeyCodes.h"

#include <QKeyEvent>

namespace numbrela {

ListBox::ListBox(QWidget* parent)
    : QListWidget(parent)
{
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    installEventFilter(new SelectionStart(this));
}

void ListBox::SetLines(const std::vector<std::string>& lines)
{
    QStringList texts;
    for (const std::string& line : lines) {
        texts << QString::fromStdString(line);
    }
    clear();
    addItems(texts);
}

void ListBox::SelectLine(int line)
{
    setCurrentRow(line);
}

std::optional<int> ListBox::SelectedLine() const
{
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? std::nullopt : std::optional(selected.front().row());
}

void ListBox::keyPressEvent(QKeyEvent* event)
{
    const int keyCode = KeyCodeOf(*event);
    if (keyCode == KeyCode::Enter || keyCode == KeyCode::Delete) {
        event->accept();
        if (!event->isAutoRepeat() && KeyDown) {
            KeyDown(keyCode);
        }
        return;
    }
    QListWidget::keyPressEvent(event);
}

// The toolkit's own answer would be about the line under the mouse, which the form's answer may have taken away.
void ListBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() == Qt::LeftButton && DblClick) {
        DblClick();
    }
}

} // namespace numbrela
