#pragma once

#include <QObject>

#include <map>
#include <string>
#include <vector>

namespace numbrela::testing {

// How many there are of each kind of thing.
using Census = std::map<std::string, int>;

// What has been made since one census and is still there: "QTimer ×2, Form7(Form7)"; empty when there is nothing.
std::string Growth(const Census& before, const Census& after);

// Knows every object of the toolkit's that is alive, also those that have no parent. There is one at a time.
class LiveObjects {
public:
    LiveObjects();
    ~LiveObjects();
    LiveObjects(const LiveObjects&) = delete;
    LiveObjects& operator=(const LiveObjects&) = delete;

    // Every object by its class and, where it has one, its name.
    static Census Everything();

    // Windows and what is in them, timers, and who has a timer running; in `kept`, windows and timers alone.
    static Census WindowsAndTimers(const std::vector<const QObject*>& kept);
};

} // namespace numbrela::testing
