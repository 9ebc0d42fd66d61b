#include "common/screen/TextBox.h"

#include "common/screen/Announcement.h"
#include "common/screen/Keyboard.h"
#include "common/screen/TwipsLayout.h"

#include <QKeyEvent>
#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>

namespace numbrela {

namespace {

// At the design size of a window, 11 pixels and 6.
constexpr double smallestReadablePoints = 8.25;
constexpr double smallestWholePoints = 4.5;

} // namespace

TextBox::TextBox(QWidget* parent)
    : QLineEdit(parent)
    , maximumTypedLength_(maxLength())
{
    setCursorPosition(0); // or Qt tells screen readers, when the box first gets the focus, that the caret moves there
    setInputMethodHints(Qt::ImhNoPredictiveText); // no suggestions: pupils are to write by themselves
    connect(this, &QLineEdit::textChanged, this, &TextBox::fitText);
    connect(this, &QLineEdit::selectionChanged, this, [this] { colours_.SetHighlighted(hasSelectedText()); });
    // When the program has written a text longer than the limit, deleting from it makes no room for typing.
    connect(this, &QLineEdit::textEdited, this, [this] { SetMaximumTypedLength(maximumTypedLength_); });
}

std::string TextBox::Text() const
{
    return text().toStdString();
}

void TextBox::SetText(const std::string& text)
{
    const QString newText = QString::fromStdString(text);
    if (newText.size() > maxLength()) {
        QLineEdit::setMaxLength(static_cast<int>(newText.size())); // writes the old text again, and tells readers so
    }
    setText(newText);
    SetMaximumTypedLength(maximumTypedLength_);
    colours_.ShowNoVerdict();
}

void TextBox::ShowVerdict(const Verdict& verdict)
{
    SetText(verdict.Text);
    colours_.ShowVerdict(verdict.Right);
    Announce(*this, text());
}

void TextBox::LookReadOnly()
{
    colours_.SetTakesTyping(false);
}

void TextBox::SetMaximumTypedLength(int characters)
{
    maximumTypedLength_ = characters;
    const int length = std::max(characters, static_cast<int>(text().size()));
    if (length != maxLength()) {
        const int start = selectionStart();
        const int selected = selectionLength();
        const int caret = cursorPosition();
        setMaxLength(length); // drops the selection
        if (start >= 0) {
            setSelection(start, selected);
        } else {
            SetCaretPosition(caret);
        }
    }
}

void TextBox::SetLeastColumns(int digits)
{
    if (digits != leastColumns_) {
        leastColumns_ = digits;
        fitText();
    }
}

void TextBox::StayWhole()
{
    staysWhole_ = true;
    fitText();
}

int TextBox::CaretPosition() const
{
    return hasSelectedText() ? selectionStart() : cursorPosition();
}

void TextBox::SetCaretPosition(int position)
{
    setCursorPosition(std::clamp(position, 0, static_cast<int>(text().size()))); // clears the selection, too
}

void TextBox::StepCaretLeft()
{
    writtenFromTheRight_ = true;
    if (CaretPosition() > 0) {
        SetCaretPosition(CaretPosition() - 1);
    }
}

void TextBox::SelectWholeText()
{
    setSelection(0, static_cast<int>(text().size()));
}

// A line edit drops its highlight when its window becomes active and the focus is elsewhere; ours keeps it.
bool TextBox::event(QEvent* event)
{
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): QLineEdit's handler is skipped on purpose
    return event->type() == QEvent::WindowActivate ? QWidget::event(event) : QLineEdit::event(event);
}

void TextBox::keyPressEvent(QKeyEvent* event)
{
    if (event->modifiers().testFlag(Qt::AltModifier) && TypedCharacter(*event).isNull()) {
        event->ignore(); // a line edit would type the letter of an access key
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

// Text that an input method has finished is typed. What it replaces and what it is still composing are left to
// QLineEdit, the former before the typing and the latter after it.
void TextBox::inputMethodEvent(QInputMethodEvent* event)
{
    if (event->commitString().isEmpty()) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent removal;
    removal.setCommitString({}, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&removal);
    TypeInto(*this, event->commitString());
    QInputMethodEvent composing(event->preeditString(), event->attributes());
    QLineEdit::inputMethodEvent(&composing);
}

// Selects nothing, as a line edit would for the Tab key, not even for a moment: a screen reader that hears of a caret
// before it hears of the focus does not say what has got it.
void TextBox::focusInEvent(QFocusEvent* event)
{
    QFocusEvent keepingTheSelection(QEvent::FocusIn, Qt::OtherFocusReason);
    QLineEdit::focusInEvent(&keepingTheSelection);
    switch (event->reason()) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
        break;
    default:
        Q_EMIT GotFocus();
    }
}

void TextBox::focusOutEvent(QFocusEvent* event)
{
    QFocusEvent keepingTheSelection(
        QEvent::FocusOut, event->reason() == Qt::PopupFocusReason ? event->reason() : Qt::ActiveWindowFocusReason);
    QLineEdit::focusOutEvent(&keepingTheSelection);
}

void TextBox::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        fitText();
    } else if (event->type() == QEvent::ReadOnlyChange) {
        colours_.SetTakesTyping(!isReadOnly());
    }
}

void TextBox::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    fitText();
}

int TextBox::widthForText() const
{
    constexpr int innerMargins = 2 * 2; // what a line edit keeps free on both sides of its text
    constexpr int caretWidth = 1;
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QRect contents = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
    return contents.width() - textMargins().left() - textMargins().right() - innerMargins - caretWidth;
}

bool TextBox::fits(const QFont& font) const
{
    const QFontMetrics metrics(font);
    const int width
        = std::max(metrics.horizontalAdvance(text()), metrics.horizontalAdvance(QString(leastColumns_, u'0')));
    return width <= widthForText();
}

// Follows the scale of the area that the box is in, as all fonts do. Outside an area, the font is taken as given.
void TextBox::fitText()
{
    const QWidget* around = parentWidget();
    const auto* area = around == nullptr ? nullptr : dynamic_cast<const TwipsLayout*>(around->layout());
    if (area == nullptr) {
        return;
    }
    const int smallest = area->FontPixels(staysWhole_ ? smallestWholePoints : smallestReadablePoints);
    QFont fitted = font();
    fitted.setPixelSize(area->FontPixels(area->FontOf(this).Points));
    while (fitted.pixelSize() > smallest && !fits(fitted)) {
        fitted.setPixelSize(fitted.pixelSize() - 1);
    }
    setFont(fitted);
}

} // namespace numbrela
