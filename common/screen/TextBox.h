#pragma once

#include "common/core/Verdict.h"
#include "common/screen/BoxColours.h"

#include <QLineEdit>

#include <string>

namespace numbrela {

// A one-line text box that behaves as a number in a written calculation needs it:
// - a selection is a highlight and stays, whatever has the focus;
// - the caret position is the start of the selection;
// - a text too wide for the box is written smaller, so that it is seen whole, but no smaller than it can be read: what
//   is longer still, scrolls; boxes that stand in columns are written smaller together;
// - its colours say whether it takes typing, and of a verdict whether it is a right one;
// - a maximum length limits what is typed, never what the program writes;
// - what an input method or an on-screen keyboard writes is typed, character by character.
// What the keys mean is for the form to say (HandleKeys).
class TextBox : public QLineEdit {
    Q_OBJECT

public:
    explicit TextBox(QWidget* parent = nullptr);

    // The text as UTF-8. Writing it removes any selection.
    std::string Text() const;
    void SetText(const std::string& text);

    // Writes and announces a verdict, which keeps its colour until another text is written.
    void ShowVerdict(const Verdict& verdict);

    // Colours the box as a read-only one, for a box whose form redirects what is typed into it to another box.
    void LookReadOnly();

    // Whether what is typed into the box stays in it.
    bool TakesTyping() const { return colours_.TakesTyping(); }

    // What a screen reader adds to the name of the box when the box gets the focus. Qt's own description of a widget
    // will not do where it changes: Qt 6.4 reports the change in a form that readers fail on.
    void Describe(const QString& description) { description_ = description; }
    const QString& Description() const { return description_; }

    // The most characters that can be typed into the box.
    void SetMaximumTypedLength(int characters);

    // Writes the text no larger than if it had so many digits. Boxes of equal width and font that are given the same
    // number keep their digits under each other, however long their texts are.
    void SetLeastColumns(int digits);

    // From now on writes the text as small as necessary, even if it is hard to read: a number that is calculated with
    // must show all its digits.
    void StayWhole();

    // The position of the caret: the number of characters before it.
    int CaretPosition() const;
    void SetCaretPosition(int position);

    // After each character of a text that is written from its last one to its first.
    void StepCaretLeft();
    bool IsWrittenFromTheRight() const { return writtenFromTheRight_; }

    // Highlights the whole text.
    void SelectWholeText();

Q_SIGNALS:
    // The focus has moved here from another control of the window. It does not count when a window, menu or message box
    // gives the focus back.
    void GotFocus();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitText();
    int widthForText() const;
    bool fits(const QFont& font) const;

    BoxColours colours_ { *this };
    QString description_;
    int maximumTypedLength_;
    int leastColumns_ = 0;
    bool staysWhole_ = false;
    bool writtenFromTheRight_ = false;
};

} // namespace numbrela
