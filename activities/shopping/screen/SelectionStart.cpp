#include "activities/shopping/screen/SelectionStart.h"

#include "common/screen/KeyCodes.h"
#include "common/screen/Keyboard.h"

#include <QListView>

namespace numbrela {

namespace {

KeyAnswer selectAnEnd(QListView& list, int keyCode)
{
    const int lines = list.model()->rowCount();
    if (lines == 0 || list.selectionModel()->hasSelection()) {
        return KeyAnswer::GoesOn();
    }
    switch (keyCode) {
    case KeyCode::Up:
    case KeyCode::Down:
    case KeyCode::Home:
    case KeyCode::PageUp:
    case KeyCode::Space:
        list.setCurrentIndex(list.model()->index(0, 0));
        return KeyAnswer::Consumed();
    case KeyCode::End:
    case KeyCode::PageDown:
        list.setCurrentIndex(list.model()->index(lines - 1, 0));
        return KeyAnswer::Consumed();
    default:
        return KeyAnswer::GoesOn();
    }
}

} // namespace

void BeginSelectionAtAnEnd(QListView& list)
{
    HandleKeys(list, { .KeyDown = [&list](const Key& key) { return selectAnEnd(list, key.Code); } });
}

} // namespace numbrela
