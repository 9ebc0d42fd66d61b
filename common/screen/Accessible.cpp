#include "common/screen/Accessible.h"

#include "common/screen/FormWindow.h"
#include "common/screen/Keypad.h"
#include "common/screen/SpokenText.h"
#include "common/screen/TextBox.h"

#include <QAccessibleWidget>
#include <QFrame>
#include <QLineEdit>
#include <QTextCursor>
#include <QTextEdit>

#include <algorithm>

namespace numbrela {

namespace {

class LineEditAccessible : public SpokenText, public QAccessibleEditableTextInterface {
public:
    explicit LineEditAccessible(QLineEdit& box)
        : SpokenText(box, {})
        , box_(box)
    {
    }

    using SpokenText::text;
    QString text(QAccessible::Text kind) const override
    {
        const auto* box = qobject_cast<const TextBox*>(&box_);
        return kind == QAccessible::Description && box != nullptr ? box->Description() : SpokenText::text(kind);
    }

    // On Windows, a tool writes the whole text or nothing.
    void setText(QAccessible::Text kind, const QString& text) override
    {
        if (kind == QAccessible::Value) {
            replaceText(0, characterCount(), text);
        }
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::EditableTextInterface ? static_cast<QAccessibleEditableTextInterface*>(this)
                                                          : SpokenText::interface_cast(type);
    }

    void removeSelection(int /*selectionIndex*/) override { box_.deselect(); }
    void setSelection(int /*selectionIndex*/, int startOffset, int endOffset) override
    {
        box_.setSelection(startOffset, endOffset - startOffset);
    }

    int cursorPosition() const override { return box_.cursorPosition(); }
    void setCursorPosition(int position) override { box_.setCursorPosition(position); }

    // A line edit knows where its caret is, and which character is at a point.
    QRect characterRect(int offset) const override
    {
        const QFontMetrics metrics(box_.font());
        const int toCaret = metrics.horizontalAdvance(box_.text().left(box_.cursorPosition()));
        const int toOffset = metrics.horizontalAdvance(box_.text().left(offset));
        const QRect caret = box_.inputMethodQuery(Qt::ImCursorRectangle).toRect();
        const int width = metrics.horizontalAdvance(box_.text().mid(offset, 1));
        const QPoint corner = box_.mapToGlobal(QPoint(caret.x() + toOffset - toCaret, caret.y()));
        return { corner, QSize(width, caret.height()) };
    }
    int offsetAtPoint(const QPoint& point) const override { return box_.cursorPositionAt(box_.mapFromGlobal(point)); }
    void scrollToSubstring(int startIndex, int endIndex) override
    {
        box_.setCursorPosition(endIndex);
        box_.setCursorPosition(startIndex);
    }

    void deleteText(int startOffset, int endOffset) override { replaceText(startOffset, endOffset, {}); }
    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
    void replaceText(int startOffset, int endOffset, const QString& text) override
    {
        if (takesTyping()) {
            box_.setSelection(startOffset, endOffset - startOffset);
            box_.insert(text);
        }
    }

private:
    QString contents() const override { return box_.text(); }
    bool takesTyping() const override { return !box_.isReadOnly(); }
    Range highlight() const override { return { box_.selectionStart(), box_.selectionEnd() }; }

    QLineEdit& box_;
};

// A text of several lines that is read but not written.
class TextAreaAccessible : public SpokenText {
public:
    explicit TextAreaAccessible(QTextEdit& area)
        : SpokenText(area, { .HasLines = true })
        , area_(area)
    {
    }

    void removeSelection(int /*selectionIndex*/) override { setCursorPosition(cursorPosition()); }
    void setSelection(int /*selectionIndex*/, int startOffset, int endOffset) override
    {
        QTextCursor cursor = cursorAt(startOffset);
        cursor.setPosition(bounded(endOffset), QTextCursor::KeepAnchor);
        area_.setTextCursor(cursor);
    }

    int cursorPosition() const override { return area_.textCursor().position(); }
    void setCursorPosition(int position) override { area_.setTextCursor(cursorAt(position)); }

    QRect characterRect(int offset) const override
    {
        const QRect start = area_.cursorRect(cursorAt(offset));
        const QRect end = area_.cursorRect(cursorAt(offset + 1));
        const int width = end.top() == start.top() ? end.left() - start.left() : start.width();
        return { area_.viewport()->mapToGlobal(start.topLeft()), QSize(width, start.height()) };
    }
    int offsetAtPoint(const QPoint& point) const override
    {
        return area_.cursorForPosition(area_.viewport()->mapFromGlobal(point)).position();
    }
    void scrollToSubstring(int startIndex, int /*endIndex*/) override { setCursorPosition(startIndex); }

private:
    QString contents() const override { return area_.toPlainText(); }
    bool takesTyping() const override { return false; }
    Range highlight() const override
    {
        const QTextCursor cursor = area_.textCursor();
        return { cursor.selectionStart(), cursor.selectionEnd() };
    }

    int bounded(int offset) const { return std::clamp(offset, 0, characterCount()); }

    QTextCursor cursorAt(int offset) const
    {
        QTextCursor cursor(area_.document());
        cursor.setPosition(bounded(offset));
        return cursor;
    }

    QTextEdit& area_;
};

// Asked for each class of an object in turn, the object's own first.
QAccessibleInterface* makeAccessible(const QString& className, QObject* object)
{
    if (className == QLatin1String("QLineEdit")) {
        return new LineEditAccessible(static_cast<QLineEdit&>(*object));
    }
    if (className == QLatin1String("QTextEdit")) {
        return new TextAreaAccessible(static_cast<QTextEdit&>(*object));
    }
    const bool isGroup
        = object->metaObject() == &QFrame::staticMetaObject || object->metaObject() == &Keypad::staticMetaObject;
    if (isGroup) {
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Grouping);
    }
    if (className == QLatin1String("QWidget") && dynamic_cast<FormWindow*>(object) != nullptr) {
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Window);
    }
    return nullptr;
}

} // namespace

void InstallAccessibility()
{
    QAccessible::installFactory(&makeAccessible);
}

} // namespace numbrela
