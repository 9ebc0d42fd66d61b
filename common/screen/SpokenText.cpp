#include "common/screen/SpokenText.h"

#include <QTextBoundaryFinder>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace numbrela {

namespace {

struct Piece {
    int Start;
    int End;
};

using Pieces = std::vector<Piece>;

// Cuts the text at the boundaries of the finder that count.
template <typename Counts>
Pieces cutAt(QTextBoundaryFinder::BoundaryType type, const QString& text, Counts counts)
{
    Pieces pieces;
    QTextBoundaryFinder finder(type, text);
    int start = 0;
    while (finder.toNextBoundary() >= 0) {
        const int end = static_cast<int>(finder.position());
        if (end > start && (end == text.size() || counts(finder))) {
            pieces.push_back({ start, end });
            start = end;
        }
    }
    return pieces;
}

// A line ends before its line break.
Pieces linesOf(const QString& text)
{
    Pieces pieces;
    int start = 0;
    for (const QString& line : text.split(u'\n')) {
        pieces.push_back({ start, start + static_cast<int>(line.size()) });
        start = pieces.back().End + 1;
    }
    return pieces;
}

// A word includes the blanks behind it.
Pieces piecesOf(const QString& text, QAccessible::TextBoundaryType kind)
{
    const auto always = [](const QTextBoundaryFinder& /*finder*/) { return true; };
    switch (kind) {
    case QAccessible::CharBoundary:
        return cutAt(QTextBoundaryFinder::Grapheme, text, always);
    case QAccessible::WordBoundary:
        return cutAt(QTextBoundaryFinder::Word, text, [](const QTextBoundaryFinder& finder) {
            return finder.boundaryReasons().testFlag(QTextBoundaryFinder::StartOfItem);
        });
    case QAccessible::SentenceBoundary:
        return cutAt(QTextBoundaryFinder::Sentence, text, always);
    case QAccessible::LineBoundary:
    case QAccessible::ParagraphBoundary:
        return linesOf(text);
    case QAccessible::NoBoundary:
        break;
    }
    return { { 0, static_cast<int>(text.size()) } };
}

} // namespace

SpokenText::SpokenText(QWidget& box, Traits traits)
    : QAccessibleWidget(&box, QAccessible::EditableText)
    , traits_(traits)
{
}

QAccessible::State SpokenText::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = takesTyping();
    state.readOnly = !takesTyping();
    state.multiLine = traits_.HasLines;
    state.selectableText = traits_.IsSelectable;
    return state;
}

QString SpokenText::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? contents() : QAccessibleWidget::text(kind);
}

void* SpokenText::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                              : QAccessibleWidget::interface_cast(type);
}

void SpokenText::selection(int selectionIndex, int* startOffset, int* endOffset) const
{
    const Range selected = selectionIndex < selectionCount() ? highlight() : Range();
    *startOffset = selected.Start;
    *endOffset = selected.End;
}

int SpokenText::selectionCount() const
{
    const Range selected = highlight();
    return widget()->hasFocus() && selected.Start < selected.End ? 1 : 0;
}

QString SpokenText::text(int startOffset, int endOffset) const
{
    return contents().mid(startOffset, endOffset - startOffset);
}

int SpokenText::characterCount() const
{
    return static_cast<int>(contents().size());
}

QString SpokenText::textBeforeOffset(
    int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const
{
    return piece(-1, offset, kind, startOffset, endOffset);
}

QString SpokenText::textAtOffset(int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const
{
    return piece(0, offset, kind, startOffset, endOffset);
}

QString SpokenText::textAfterOffset(
    int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const
{
    return piece(1, offset, kind, startOffset, endOffset);
}

// At the end of the text there is no character, but the last word, sentence and line can still be read there. An offset
// of -1 means the end of the text, and of -2 the caret.
QString SpokenText::piece(
    int steps, int offset, QAccessible::TextBoundaryType kind, int* startOffset, int* endOffset) const
{
    const QString all = contents();
    const int end = static_cast<int>(all.size());
    const int place = offset == -1 ? end : offset == -2 ? cursorPosition() : offset;
    *startOffset = -1;
    *endOffset = -1;
    if (place < 0 || place > end) {
        return {};
    }
    Pieces pieces = piecesOf(all, kind);
    if (kind == QAccessible::CharBoundary || pieces.empty()) {
        pieces.push_back({ end, end });
    }
    const auto next = std::find_if(pieces.begin(), pieces.end(), [&](const Piece& one) { return one.Start > place; });
    const auto index = std::distance(pieces.begin(), next) - 1 + steps;
    if (index < 0 || index >= static_cast<std::ptrdiff_t>(pieces.size())) {
        return {};
    }
    const Piece& found = pieces[static_cast<std::size_t>(index)];
    *startOffset = found.Start;
    *endOffset = found.End;
    return all.mid(found.Start, found.End - found.Start);
}

QString SpokenText::attributes(int /*offset*/, int* startOffset, int* endOffset) const
{
    *startOffset = 0;
    *endOffset = characterCount();
    return {};
}

} // namespace numbrela
