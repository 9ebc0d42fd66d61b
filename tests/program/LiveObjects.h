#pragma once

#include <QObject>
#include <QPointer>

#include <map>
#include <string>
#include <vector>

namespace numbrela::testing {

// How many there are of each kind of thing.
using Census = std::map<std::string, int>;

// What has been made since one census and is still there: "QTimer ×2, Form7(Form7)"; empty when there is nothing.
std::string Growth(const Census& before, const Census& after);

// Finds all live QObjects: the application, every widget and window, and everything that belongs to one of these. An
// object without a parent is found if one of its timers has fired since this was made.
class LiveObjects : public QObject {
public:
    LiveObjects();

    // Every object by its class and, where it has one, its name.
    Census Everything() const;

    // Windows and what is in them, timers, and who has a timer running; in `kept`, windows and timers alone.
    Census WindowsAndTimers(const std::vector<const QObject*>& kept) const;

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    template <typename Look>
    void lookAtEach(Look look) const;

    std::vector<QPointer<QObject>> nobodys_;
};

} // namespace numbrela::testing
