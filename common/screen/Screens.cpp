#include "common/screen/Screens.h"

#include <QScreen>
#include <QShortcut>
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

void StayOnScreen(QWidget& window)
{
    QObject::connect(window.screen(), &QScreen::availableGeometryChanged, &window, [&window] {
        constexpr auto filling = Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized;
        if (window.isVisible() && !(window.windowState() & filling)) {
            MoveOntoScreen(window);
        }
    });
}

void FillScreenByF11(QWidget& window)
{
    QObject::connect(new QShortcut(Qt::Key_F11, &window), &QShortcut::activated, &window,
        [&window] { window.setWindowState(window.windowState() ^ Qt::WindowFullScreen); });
}

} // namespace numbrela
