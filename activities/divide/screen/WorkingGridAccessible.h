#pragma once

#include "common/screen/SpokenText.h"

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
class WorkingGridAccessible : public SpokenText {
public:
    // Registers this with Qt. Further calls change nothing, because Qt keeps a factory only once.
    static void Install();

    explicit WorkingGridAccessible(WorkingGridBox& box);

    using SpokenText::text;
    QString text(QAccessible::Text kind) const override;

    void removeSelection(int /*selectionIndex*/) override { }
    void setSelection(int /*selectionIndex*/, int /*startOffset*/, int /*endOffset*/) override { }
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int startIndex, int endIndex) override;

private:
    QString contents() const override;
    bool takesTyping() const override { return true; }
    Range highlight() const override { return {}; }

    WorkingGridBox& box_;
};

} // namespace numbrela
