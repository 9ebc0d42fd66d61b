#pragma once

#include <QObject>

class QListView;

namespace numbrela {

// Lets the keys that move the selection begin at the first line of a list, or at the last one, when none is selected.
// The toolkit would begin beside its current line, which a list that has got the focus has without showing it. Belongs
// to the list, as a filter of its events.
class SelectionStart : public QObject {
public:
    explicit SelectionStart(QListView* list);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool startsBy(int key);

    QListView* list_;
};

} // namespace numbrela
