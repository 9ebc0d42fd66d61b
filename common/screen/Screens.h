#pragma once

class QWidget;

namespace numbrela {

// Moves a window that has grown beyond its screen back onto it; the upper left corner is always visible.
void MoveOntoScreen(QWidget& window);

// Moves it back as well whenever its screen becomes smaller, as a browser's page does.
void StayOnScreen(QWidget& window);

// Makes F11 fill the screen with the window, and the next F11 bring it back as it was, maximised or not.
void FillScreenByF11(QWidget& window);

} // namespace numbrela
