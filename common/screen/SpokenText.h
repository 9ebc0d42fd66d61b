#pragma once

#include <QAccessible>

namespace numbrela {

// Answers what assistive tools ask about any text: which character, word, sentence or line is before, at and after a
// position. Qt's own answers can loop for ever, at the end of a text or among blanks; these look at each character
// once. The deriving class supplies the text and its caret.
class SpokenText : public QAccessibleTextInterface {
public:
    QString textBeforeOffset(
        int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const override;
    QString textAtOffset(
        int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const override;
    QString textAfterOffset(
        int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const override;

    // The whole text has one set of attributes.
    QString attributes(int offset, int* startOffset, int* endOffset) const override;

private:
    QString piece(int steps, int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const;
};

} // namespace numbrela
