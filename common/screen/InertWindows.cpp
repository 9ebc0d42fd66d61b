#include "common/screen/InertWindows.h"

#include <QApplication>
#include <QWidget>

namespace numbrela {

namespace {

// The window that a box belongs to; null for a window of its own.
QWidget* windowBelow(const QWidget& window)
{
    return window.parentWidget() != nullptr ? window.parentWidget()->window() : nullptr;
}

bool isOutOfSight(const QWidget& window)
{
    const QWidget* const below = windowBelow(window);
    return window.isMinimized() || (below != nullptr && isOutOfSight(*below));
}

void bringIntoSight(QWidget& window)
{
    if (QWidget* const below = windowBelow(window); below != nullptr) {
        bringIntoSight(*below);
    }
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
}

} // namespace

void BringToFront(QWidget& window)
{
    bringIntoSight(window);
    window.raise();
    window.activateWindow();
}

void BringBackWindowBlocking(const QWidget& window)
{
    QWidget* const modal = QApplication::activeModalWidget();
    if (modal != nullptr && modal != &window && isOutOfSight(*modal)) {
        BringToFront(*modal);
    }
}

} // namespace numbrela
