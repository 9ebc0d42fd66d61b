#pragma once

#include <QAccessibleWidget>

namespace numbrela {

// What assistive tools find where a box with a text is. Answers what they ask about any text: which character, word,
// sentence or line is before, at and after a position. Qt's own answers can loop for ever, at the end of a text or
// among blanks; these look at each character once. The deriving class supplies the text, its caret and its highlight.
class SpokenText : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    // What never changes about a box.
    struct Traits {
        bool HasLines = false;
        bool IsSelectable = true;
    };

    SpokenText(QWidget& box, Traits traits);

    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    // The highlight of a box without the focus is no selection to tools: nobody can do anything with it, and a reader
    // would read it out.
    void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
    int selectionCount() const override;
    void addSelection(int startOffset, int endOffset) override { setSelection(0, startOffset, endOffset); }

    QString text(int startOffset, int endOffset) const override;
    int characterCount() const override;

    QString textBeforeOffset(
        int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const override;
    QString textAtOffset(
        int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const override;
    QString textAfterOffset(
        int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const override;

    // The whole text has one set of attributes.
    QString attributes(int offset, int* startOffset, int* endOffset) const override;

protected:
    struct Range {
        int Start = 0;
        int End = 0;
    };

    virtual QString contents() const = 0;
    virtual bool takesTyping() const = 0;
    virtual Range highlight() const = 0; // empty if there is none

private:
    QString piece(int steps, int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const;

    Traits traits_;
};

} // namespace numbrela
