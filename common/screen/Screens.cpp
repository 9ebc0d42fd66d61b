#include "common/screen/Screens.h"

#include <QApplication>
#include <QScreen>
#include <QShortcut>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace numbrela {

namespace {

// A popup goes with the window that it belongs to, and the system looks after a window that fills the screen.
bool hasPlaceOfItsOwn(const QWidget& window)
{
    constexpr auto elsewhere = Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized;
    return window.isVisible() && window.windowType() != Qt::Popup && !(window.windowState() & elsewhere);
}

} // namespace

void BringOntoScreen(QWidget& window)
{
    // Of the system's window, because Qt asks for a frame only when that has been moved or resized.
    const QMargins around = window.windowHandle() != nullptr ? window.windowHandle()->frameMargins() : QMargins();
    const QRect room = window.screen()->availableGeometry();
    window.resize(window.size().boundedTo(room.marginsRemoved(around).size()));
    const QRect frame = window.geometry().marginsAdded(around);
    const QPoint wanted(std::max(room.left(), std::min(frame.left(), room.right() + 1 - frame.width())),
        std::max(room.top(), std::min(frame.top(), room.bottom() + 1 - frame.height())));
    if (wanted != frame.topLeft()) {
        window.setGeometry(QRect(wanted, frame.size()).marginsRemoved(around)); // move() would go by Qt's frame
    }
}

void KeepWindowsOnScreens(QApplication& application)
{
    const auto watch = [&application](const QScreen* screen) {
        QObject::connect(screen, &QScreen::availableGeometryChanged, &application, [] {
            for (QWidget* window : QApplication::topLevelWidgets()) {
                if (hasPlaceOfItsOwn(*window)) {
                    BringOntoScreen(*window);
                }
            }
        });
    };
    const QList<QScreen*> screens = QGuiApplication::screens();
    std::for_each(screens.begin(), screens.end(), watch);
    QObject::connect(&application, &QGuiApplication::screenAdded, &application, watch);
}

void FillScreenByF11(QWidget& window)
{
    QObject::connect(new QShortcut(Qt::Key_F11, &window), &QShortcut::activated, &window,
        [&window] { window.setWindowState(window.windowState() ^ Qt::WindowFullScreen); });
}

} // namespace numbrela
