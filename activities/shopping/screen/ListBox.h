#pragma once

#include <QListView>
#include <QStringListModel>

#include <optional>
#include <string>
#include <vector>

namespace numbrela {

// A line of a sorted list, and what it is about, as a number of the form's own.
struct ListLine {
    std::string Text; // UTF-8
    int Data = 0;
};

// A list of lines of which at most one is selected, for mouse and keyboard. The keys that move the selection begin at
// the first line, or the last one, when none is selected. A line too long for the list goes on below, so that it is
// seen whole. What a key or a double click does is for the form to say.
class ListBox : public QListView {
public:
    explicit ListBox(QWidget* parent = nullptr);

    // Replaces all lines (UTF-8); none of the new ones is selected.
    void SetLines(const std::vector<std::string>& lines);

    // Does the same with lines that stand as a Spanish dictionary sorts them, ñ behind n, case of no weight, accents
    // only where the letters are the same. Equal ones stay in their order.
    void SetSortedLines(const std::vector<ListLine>& lines);

    // Gives a line another text, and leaves it where it is.
    void RewriteLine(int line, const std::string& text);

    int LineCount() const { return lines_.rowCount(); }

    // What a line of a sorted list is about, and which line is about it.
    int DataOf(int line) const { return data_.at(static_cast<std::size_t>(line)); }
    int LineOf(int wanted) const;

    // Selects one line and brings it into view; nothing happens when there is no such line.
    void SelectLine(int line);

    // The selected line, whichever of them the focus is on.
    std::optional<int> SelectedLine() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    std::optional<int> lineToBeginAt(int key) const;

    QStringListModel lines_;
    std::vector<int> data_; // of each line of a sorted list
};

} // namespace numbrela
