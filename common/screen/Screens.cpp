#include "common/screen/Screens.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace numbrela {

void MoveOntoScreen(QWidget& window)
{
    const QRect room = window.screen()->availableGeometry();
    const QRect frame = window.frameGeometry();
    const QPoint wanted(std::max(room.left(), std::min(frame.left(), room.right() + 1 - frame.width())),
        std::max(room.top(), std::min(frame.top(), room.bottom() + 1 - frame.height())));
    if (wanted != frame.topLeft()) {
        window.move(wanted);
    }
}

} // namespace numbrela
