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
        return box == nullptr ? nullptr : new WorkingGridAccessible(*box);
    });
}

WorkingGridAccessible::WorkingGridAccessible(WorkingGridBox& box)
    : SpokenText(box, { .HasLines = true, .IsSelectable = false })
    , box_(box)
{
}

QString WorkingGridAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Description ? box_.SpokenPlace() : SpokenText::text(kind);
}

QString WorkingGridAccessible::contents() const
{
    return box_.SpokenText();
}

int WorkingGridAccessible::cursorPosition() const
{
    return box_.SpokenOffset(box_.Grid().Caret);
}

void WorkingGridAccessible::setCursorPosition(int position)
{
    box_.PutCaret(box_.CellAtSpokenOffset(position));
}

QRect WorkingGridAccessible::characterRect(int offset) const
{
    const QRect cell = box_.CellRect(box_.CellAtSpokenOffset(offset));
    return { box_.mapToGlobal(cell.topLeft()), cell.size() };
}

int WorkingGridAccessible::offsetAtPoint(const QPoint& point) const
{
    return box_.SpokenOffset(box_.CellAt(box_.mapFromGlobal(point)));
}

// Of what is longer than the box, the beginning.
void WorkingGridAccessible::scrollToSubstring(int startIndex, int endIndex)
{
    box_.ShowCell(box_.CellAtSpokenOffset(endIndex));
    box_.ShowCell(box_.CellAtSpokenOffset(startIndex));
}

} // namespace numbrela
