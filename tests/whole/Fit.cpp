#include "tests/whole/Fit.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>

namespace numbrela::testing {

namespace {

std::string lack(const QString& text, QSize needed, QSize room)
{
    if (needed.width() <= room.width() && needed.height() <= room.height()) {
        return {};
    }
    return QStringLiteral("\"%1\" needs %2 x %3 and has %4 x %5")
        .arg(text)
        .arg(needed.width())
        .arg(needed.height())
        .arg(room.width())
        .arg(room.height())
        .toStdString();
}

std::string lackOfButton(const QAbstractButton& button, QStyle::SubElement contents)
{
    if (button.text().isEmpty()) {
        return {}; // it has a sign, as large as there is room
    }
    QStyleOptionButton option;
    option.initFrom(&button);
    const QSize room = button.style()->subElementRect(contents, &option, &button).size();
    return lack(button.text(), button.fontMetrics().size(Qt::TextShowMnemonic, button.text()), room);
}

std::string lackOfLabel(const QLabel& label)
{
    if (label.text().isEmpty()) {
        return {}; // some versions of Qt show less than the height of a line of it
    }
    const QSize room = label.contentsRect().size();
    const int flags = Qt::TextShowMnemonic | (label.wordWrap() ? Qt::TextWordWrap : 0);
    const QRect needed
        = label.fontMetrics().boundingRect(QRect(0, 0, label.wordWrap() ? room.width() : 0, 0), flags, label.text());
    return lack(label.text(), needed.size(), room);
}

std::string lackOfLine(const QLineEdit& box)
{
    constexpr QMargins insideOfLineEdit(2, 1, 2, 1);
    QStyleOptionFrame option;
    option.initFrom(&box);
    option.lineWidth = box.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &box);
    const QRect contents = box.style()->subElementRect(QStyle::SE_LineEditContents, &option, &box);
    return lack(box.displayText(), box.fontMetrics().size(0, box.displayText()),
        contents.marginsRemoved(insideOfLineEdit).size());
}

std::string lackOfText(const QTextEdit& area)
{
    const QSize room = area.viewport()->size();
    QSizeF needed(0, area.document()->size().height());
    for (QTextBlock block = area.document()->begin(); block.isValid(); block = block.next()) {
        for (int line = 0; line < block.layout()->lineCount(); ++line) {
            needed.rwidth() = std::max(needed.width(), block.layout()->lineAt(line).naturalTextWidth());
        }
    }
    if (area.horizontalScrollBarPolicy() != Qt::ScrollBarAlwaysOff) {
        needed.rwidth() = 0;
    }
    if (area.verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff) {
        needed.rheight() = 0;
    }
    return lack(area.toPlainText(), needed.toSize(), room);
}

std::string lackOfList(const QAbstractItemView& list)
{
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        const QModelIndex index = list.model()->index(row, 0);
        std::string missing
            = lack(index.data().toString(), list.sizeHintForIndex(index), list.visualRect(index).size());
        if (!missing.empty()) {
            return missing;
        }
    }
    return {};
}

// A control that paints a text of its own, character by character, and tells assistive tools where each of them stands.
// Only the ink counts: a cell may be narrower than the character with the space that the font leaves around it.
std::string lackOfCells(const QWidget& control)
{
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&control));
    QAccessibleTextInterface* text = spoken == nullptr ? nullptr : spoken->textInterface();
    for (int place = 0; text != nullptr && place < text->characterCount(); ++place) {
        const QString character = text->text(place, place + 1);
        std::string missing = character == u'\n' || character == u' '
            ? std::string()
            : lack(character, control.fontMetrics().tightBoundingRect(character).size(),
                text->characterRect(place).size());
        if (!missing.empty()) {
            return missing;
        }
    }
    return {};
}

std::string lackOfMenuBar(const QMenuBar& bar)
{
    for (QAction* item : bar.actions()) {
        const QRect place = bar.actionGeometry(item);
        if (place.isEmpty() || !bar.rect().contains(place)) {
            return "no room for \"" + item->text().toStdString() + '"';
        }
    }
    return {};
}

} // namespace

std::string CutOffText(const QWidget& control)
{
    if (const auto* box = qobject_cast<const QCheckBox*>(&control)) {
        return lackOfButton(*box, QStyle::SE_CheckBoxContents);
    }
    if (const auto* button = qobject_cast<const QPushButton*>(&control)) {
        return lackOfButton(*button, QStyle::SE_PushButtonContents);
    }
    if (const auto* label = qobject_cast<const QLabel*>(&control)) {
        return lackOfLabel(*label);
    }
    if (const auto* box = qobject_cast<const QLineEdit*>(&control)) {
        return lackOfLine(*box);
    }
    if (const auto* area = qobject_cast<const QTextEdit*>(&control)) {
        return lackOfText(*area);
    }
    if (const auto* list = qobject_cast<const QAbstractItemView*>(&control)) {
        return lackOfList(*list);
    }
    if (const auto* bar = qobject_cast<const QMenuBar*>(&control)) {
        return lackOfMenuBar(*bar);
    }
    return lackOfCells(control);
}

} // namespace numbrela::testing
