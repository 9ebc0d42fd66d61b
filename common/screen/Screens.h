#pragma once

class QWidget;

namespace numbrela {

// Moves a window that has grown beyond its screen back onto it; the upper left corner is always visible.
void MoveOntoScreen(QWidget& window);

} // namespace numbrela
