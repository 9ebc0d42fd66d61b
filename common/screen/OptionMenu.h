#pragma once

#include "common/core/OptionList.h"

#include <QMenu>

#include <functional>
#include <vector>

namespace numbrela {

// The captions of the items of an option list, one for each value.
std::vector<QString> CaptionsOf(const OptionList& options);

// A submenu of checkable items. A click does not move the check mark by itself: the form moves it when it answers the
// click.
class OptionMenu : public QMenu {
public:
    // Named `name`, its items "<name>Lis(0)", "<name>Lis(1)", … `choose` is called with the index of a clicked item.
    OptionMenu(const QString& name, const QString& caption, const std::vector<QString>& itemCaptions,
        const std::function<void(int)>& choose, QWidget* parent);

    // Checks the item with this index alone; none of them when there is no such item.
    void CheckOnly(int index);

    // Sets or clears the mark of one item; nothing happens when there is no such item.
    void SetChecked(int index, bool checked);

    const std::vector<QAction*>& Items() const { return items_; }

private:
    std::vector<QAction*> items_;
};

} // namespace numbrela
