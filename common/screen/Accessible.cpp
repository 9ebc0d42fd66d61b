#include "common/screen/Accessible.h"

#include "common/screen/FormWindow.h"
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

// The highlight of a box without the focus is no selection to tools: nobody can do anything with it, and a reader would
// read it out.
class LineEditAccessible : public QAccessibleWidget, public SpokenText, public QAccessibleEditableTextInterface {
public:
    explicit LineEditAccessible(QLineEdit& box)
        : QAccessibleWidget(&box, QAccessible::EditableText)
        , box_(box)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = !box_.isReadOnly();
        state.readOnly = box_.isReadOnly();
        state.selectableText = true;
        return state;
    }

    QString text(QAccessible::Text kind) const override
    {
        switch (kind) {
        case QAccessible::Value:
            return box_.text();
        case QAccessible::Description:
            if (const auto* box = qobject_cast<const TextBox*>(&box_)) {
                return box->Description();
            }
            break;
        default:
            break;
        }
        return QAccessibleWidget::text(kind);
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        switch (type) {
        case QAccessible::TextInterface:
            return static_cast<QAccessibleTextInterface*>(this);
        case QAccessible::EditableTextInterface:
            return static_cast<QAccessibleEditableTextInterface*>(this);
        default:
            return QAccessibleWidget::interface_cast(type);
        }
    }

    void selection(int selectionIndex, int* startOffset, int* endOffset) const override
    {
        const bool exists = selectionIndex < selectionCount();
        *startOffset = exists ? box_.selectionStart() : 0;
        *endOffset = exists ? box_.selectionEnd() : 0;
    }
    int selectionCount() const override { return box_.hasFocus() && box_.hasSelectedText() ? 1 : 0; }
    void addSelection(int startOffset, int endOffset) override { setSelection(0, startOffset, endOffset); }
    void removeSelection(int /*selectionIndex*/) override { box_.deselect(); }
    void setSelection(int /*selectionIndex*/, int startOffset, int endOffset) override
    {
        box_.setSelection(startOffset, endOffset - startOffset);
    }

    int cursorPosition() const override { return box_.cursorPosition(); }
    void setCursorPosition(int position) override { box_.setCursorPosition(position); }

    QString text(int startOffset, int endOffset) const override
    {
        return box_.text().mid(startOffset, endOffset - startOffset);
    }
    int characterCount() const override { return static_cast<int>(box_.text().size()); }

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
        if (!box_.isReadOnly()) {
            box_.setSelection(startOffset, endOffset - startOffset);
            box_.insert(text);
        }
    }

private:
    QLineEdit& box_;
};

// A text of several lines that is read but not written.
class TextAreaAccessible : public QAccessibleWidget, public SpokenText {
public:
    explicit TextAreaAccessible(QTextEdit& area)
        : QAccessibleWidget(&area, QAccessible::EditableText)
        , area_(area)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        state.multiLine = true;
        state.selectableText = true;
        return state;
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? area_.toPlainText() : QAccessibleWidget::text(kind);
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }

    void selection(int selectionIndex, int* startOffset, int* endOffset) const override
    {
        const QTextCursor cursor = area_.textCursor();
        const bool exists = selectionIndex < selectionCount();
        *startOffset = exists ? cursor.selectionStart() : 0;
        *endOffset = exists ? cursor.selectionEnd() : 0;
    }
    int selectionCount() const override { return area_.hasFocus() && area_.textCursor().hasSelection() ? 1 : 0; }
    void addSelection(int startOffset, int endOffset) override { setSelection(0, startOffset, endOffset); }
    void removeSelection(int /*selectionIndex*/) override { setCursorPosition(cursorPosition()); }
    void setSelection(int /*selectionIndex*/, int startOffset, int endOffset) override
    {
        QTextCursor cursor = cursorAt(startOffset);
        cursor.setPosition(bounded(endOffset), QTextCursor::KeepAnchor);
        area_.setTextCursor(cursor);
    }

    int cursorPosition() const override { return area_.textCursor().position(); }
    void setCursorPosition(int position) override { area_.setTextCursor(cursorAt(position)); }

    QString text(int startOffset, int endOffset) const override
    {
        return area_.toPlainText().mid(startOffset, endOffset - startOffset);
    }
    int characterCount() const override { return static_cast<int>(area_.toPlainText().size()); }

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
    if (className == QLatin1String("QFrame") && object->metaObject() == &QFrame::staticMetaObject) {
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
