#pragma once

class QApplication;
class QWidget;

namespace numbrela {

// Brings a window that reaches beyond its screen back onto it: smaller, if it is larger than the screen and does not
// keep its size, and to where it is seen whole. If that is nowhere, its upper left corner is seen.
void BringOntoScreen(QWidget& window);

// Brings every window back whenever a screen changes: a browser's page becomes smaller, a tablet is turned.
void KeepWindowsOnScreens(QApplication& application);

// Makes F11 fill the screen with the window, and the next F11 bring it back as it was, maximised or not.
void FillScreenByF11(QWidget& window);

} // namespace numbrela
