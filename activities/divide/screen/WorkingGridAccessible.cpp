#include "activities/divide/screen/WorkingGridAccessible.h"

#include "activities/divide/core/WorkingGrid.h"
#include "activities/divide/screen/WorkingGridBox.h"

#include <algorithm>

namespace numbrela {

SpokenChange ChangeBetween(const QString& before, const QString& now)
{
    const auto same = std::mismatch(before.begin(), before.end(), now.begin(), now.end());
    const auto sameAtEnd = std::mismatch(
        before.rbegin(), std::make_reverse_iterator(same.first), now.rbegin(), std::make_reverse_iterator(same.second));
    return { static_cast<int>(same.first - before.begin()),
        QString(same.first, static_cast<int>(sameAtEnd.first.base() - same.first)),
        QString(same.second, static_cast<int>(sameAtEnd.second.base() - same.second)) };
}

void WorkingGridAccessible::Install()
{
    QAccessible::installFactory([](const QString& /*className*/, QObject* object) -> QAccessibleInterface* {
        auto* box = qobject_cast<WorkingGridBox*>(object);
        return box == nullptr ? nullptr : new WorkingGridAccessible(box);
    });
}

WorkingGridAccessible::WorkingGridAccessible(WorkingGridBox* box)
    : QAccessibleWidget(box, QAccessible::EditableText)
{
}

WorkingGridBox& WorkingGridAccessible::box() const
{
    return *static_cast<WorkingGridBox*>(widget());
}

QAccessible::State WorkingGridAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = true;
    state.multiLine = true;
    return state;
}

QString WorkingGridAccessible::text(QAccessible::Text kind) const
{
    switch (kind) {
    case QAccessible::Value:
        return box().SpokenText();
    case QAccessible::Description:
        return box().SpokenPlace();
    default:
        return QAccessibleWidget::text(kind);
    }
}

void* WorkingGridAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                              : QAccessibleWidget::interface_cast(type);
}

void WorkingGridAccessible::selection(int /*selectionIndex*/, int* startOffset, int* endOffset) const
{
    *startOffset = 0;
    *endOffset = 0;
}

int WorkingGridAccessible::cursorPosition() const
{
    return box().SpokenOffset(box().Grid().Caret);
}

void WorkingGridAccessible::setCursorPosition(int position)
{
    box().PutCaret(box().CellAtSpokenOffset(position));
}

QString WorkingGridAccessible::text(int startOffset, int endOffset) const
{
    return box().SpokenText().mid(startOffset, endOffset - startOffset);
}

int WorkingGridAccessible::characterCount() const
{
    return static_cast<int>(box().SpokenText().size());
}

QRect WorkingGridAccessible::characterRect(int offset) const
{
    const QRect cell = box().CellRect(box().CellAtSpokenOffset(offset));
    return { box().mapToGlobal(cell.topLeft()), cell.size() };
}

int WorkingGridAccessible::offsetAtPoint(const QPoint& point) const
{
    return box().SpokenOffset(box().CellAt(box().mapFromGlobal(point)));
}

// Of what is longer than the box, the beginning.
void WorkingGridAccessible::scrollToSubstring(int startIndex, int endIndex)
{
    box().ShowCell(box().CellAtSpokenOffset(endIndex));
    box().ShowCell(box().CellAtSpokenOffset(startIndex));
}

} // namespace numbrela
