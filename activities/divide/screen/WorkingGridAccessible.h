#pragma once

#include "common/screen/SpokenText.h"

#include <QAccessibleWidget>

namespace numbrela {

class WorkingGridBox;

// A change of a text: from this position on, one part has been replaced by another.
struct SpokenChange {
    int Position = 0;
    QString Removed;
    QString Inserted;
};

// The shortest change that turns one text into another.
SpokenChange ChangeBetween(const QString& before, const QString& now);

// What a screen reader finds where a working grid is: a text of several lines with a caret, as in a text box.
class WorkingGridAccessible : public QAccessibleWidget, public SpokenText {
public:
    // Registers this with Qt. Further calls change nothing, because Qt keeps a factory only once.
    static void Install();

    explicit WorkingGridAccessible(WorkingGridBox* box);

    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
    int selectionCount() const override { return 0; }
    void addSelection(int /*startOffset*/, int /*endOffset*/) override { }
    void removeSelection(int /*selectionIndex*/) override { }
    void setSelection(int /*selectionIndex*/, int /*startOffset*/, int /*endOffset*/) override { }
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int startOffset, int endOffset) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int startIndex, int endIndex) override;

private:
    WorkingGridBox& box() const;
};

} // namespace numbrela
