#pragma once

#include <QListWidget>

#include <optional>
#include <string>
#include <vector>

namespace numbrela {

// A list of lines of which at most one is selected, for mouse and keyboard. The keys that move the selection begin at
// the first line when none is selected. A line too long for the list goes on below, so that it is seen whole. What a
// key or a double click does is for the form to say.
class ListBox : public QListWidget {
    Q_OBJECT

public:
    explicit ListBox(QWidget* parent = nullptr);

    // Replaces all lines (UTF-8); none of the new ones is selected.
    void SetLines(const std::vector<std::string>& lines);

    // Selects one line and brings it into view; nothing happens when there is no such line.
    void SelectLine(int line);

    // The selected line, whichever of them the focus is on.
    std::optional<int> SelectedLine() const;

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

Q_SIGNALS:
    void DblClick();

protected:
    void timerEvent(QTimerEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool isLaidOut(int line) const;
    void measureLines();
    void fitLines();

    int widthOfLongestLine_ = 0; // pixels, with what is beside the text
};

} // namespace numbrela
