#pragma once

#include "common/screen/FingerScroll.h"
#include "common/screen/Fingers.h"

#include <QListView>
#include <QStringListModel>

#include <optional>
#include <string>
#include <vector>

namespace numbrela {

// A line of a sorted list, and a number by which the form knows what the line is about.
struct ListLine {
    std::string Text; // UTF-8
    int Data = 0;
};

// A list of lines of which at most one is selected, for mouse and keyboard. The keys that move the selection begin at
// the first line, or the last one, when none is selected. A line too long for the list is wrapped, so that it can be
// read whole. The form decides what a key or a double click does.
// A finger or a pen that drags the list scrolls it. One that taps a line selects it, and a tap on the selected line is
// a double click; the tap right behind it is a part of it, so that whoever taps twice out of habit takes one thing.
class ListBox : public QListView {
public:
    explicit ListBox(QWidget* parent = nullptr);

    // Replaces all lines (UTF-8); none of the new ones is selected.
    void SetLines(const std::vector<std::string>& lines);

    // Replaces all lines, sorted as in a Spanish dictionary.
    void SetSortedLines(const std::vector<ListLine>& lines);

    // Changes the text of a line, without sorting the list again.
    void RewriteLine(int line, const std::string& text);

    int LineCount() const { return lines_.rowCount(); }

    QString TextOf(int line) const { return lines_.stringList().at(line); }

    // The number of a line of a sorted list, and the line with a number.
    int DataOf(int line) const { return data_.at(static_cast<std::size_t>(line)); }
    int LineOf(int wanted) const;

    // Selects one line and brings it into view; nothing happens when there is no such line.
    void SelectLine(int line);

    // The selected line, which need not be the one with the focus.
    std::optional<int> SelectedLine() const;

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    std::optional<int> lineToBeginAt(int key) const;
    void tellSelectedLine();
    void endDragging();
    void tap(QPoint place, quint64 time);

    QStringListModel lines_;
    std::vector<int> data_; // the number of each line of a sorted list

    FingerScroll finger_;
    TapTimes doubleClicks_;
};

} // namespace numbrela
