#pragma once

#include <cstdint>
#include <memory>

class QAbstractNativeEventFilter;
class QWidget;

// While a modal window is open, all other windows are inert: Qt drops whatever a person does to them and only asks for
// the focus for the modal one. If that one is minimised it cannot take the focus, and the program would look dead.
namespace numbrela {

// Brings an open window to the front and gives it the focus, even if it, or a window below it, is minimised.
void BringToFront(QWidget& window);

// To be called when a person turns to a window: clicks on it, or chooses it in the task bar. If a minimised modal
// window keeps it inert, brings the modal window back.
void BringBackWindowBlocking(const QWidget& window);

// Milliseconds. When a window is minimised, the system gives the focus to the next one within this time; a person who
// chooses a window takes longer.
inline constexpr std::int32_t SystemsFocusDelay = 200;

// While the returned filter lives, a minimised modal window comes back as soon as a person turns to a window that it
// keeps inert. Null where the windowing system does not report that.
std::unique_ptr<QAbstractNativeEventFilter> WatchInertWindows();

} // namespace numbrela
