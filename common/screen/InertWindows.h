#pragma once

#include <memory>

class QAbstractNativeEventFilter;
class QWidget;

// While a modal window is open, all others are inert: the toolkit passes nothing on of what a person does to them, and
// only asks for the focus for the modal one. A minimised window cannot have it, so that the program would look dead.
namespace numbrela {

// Puts an open window before the others and gives it the focus, also one that is minimised or stands on one that is.
void BringToFront(QWidget& window);

// A person turns to a window: clicks on it, or chooses it in a task bar. If it is inert and what they would have to go
// on with is minimised, that comes back.
void TurnTo(const QWidget& window);

// As long as what is returned lives, the program hears of it when a person turns to an inert window. Null where the
// windowing system does not tell.
std::unique_ptr<QAbstractNativeEventFilter> WatchInertWindows();

} // namespace numbrela
