#pragma once

#include <QAccessible>

namespace numbrela {

// What assistive tools ask of every text: which character, word, sentence or line stands before, at and after a place.
// Qt's own answers can loop for ever, at the end of a text or among blanks; these look at each character once. What the
// text is, and where its caret, is for the class that derives from it.
class SpokenText : public QAccessibleTextInterface {
public:
    QString textBeforeOffset(
        int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const override;
    QString textAtOffset(
        int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const override;
    QString textAfterOffset(
        int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const override;

    // All characters look alike.
    QString attributes(int offset, int* startOffset, int* endOffset) const override;

private:
    QString piece(int steps, int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const;
};

} // namespace numbrela
