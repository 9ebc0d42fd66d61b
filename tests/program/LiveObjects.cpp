#include "tests/program/LiveObjects.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QStyle>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <mutex>
#include <stdexcept>
#include <unordered_set>

// The toolkit's hooks for tools that look into a running program: it calls the functions that are put there for each
// object that is made and destroyed. No header declares them; the places in the table are the same in all of Qt 6.
// NOLINTNEXTLINE(modernize-avoid-c-arrays): so it is
extern Q_CORE_EXPORT quintptr qtHookData[];

namespace numbrela::testing {

namespace {

constexpr int addObjectHook = 3;
constexpr int removeObjectHook = 4;

struct Registry {
    std::mutex Lock; // the toolkit may have threads of its own
    std::unordered_set<const QObject*> Objects;
};

Registry& registry()
{
    static Registry theRegistry;
    return theRegistry;
}

void add(QObject* object)
{
    const std::lock_guard guard(registry().Lock);
    registry().Objects.insert(object);
}

void remove(QObject* object)
{
    const std::lock_guard guard(registry().Lock);
    registry().Objects.erase(object);
}

std::string nameOf(const QObject& object)
{
    const std::string type = object.metaObject()->className();
    std::string own = object.objectName().isEmpty() ? type : type + "(" + object.objectName().toStdString() + ")";
    return object.parent() == nullptr ? own : own + " of " + nameOf(*object.parent());
}

bool isWithin(const QObject* object, const std::vector<const QObject*>& roots)
{
    while (object != nullptr && std::find(roots.begin(), roots.end(), object) == roots.end()) {
        object = object->parent();
    }
    return object != nullptr;
}

bool isWindowOrTimer(const QObject& object)
{
    const auto* widget = qobject_cast<const QWidget*>(&object);
    const bool isWindow
        = widget != nullptr && (widget->windowType() == Qt::Window || widget->windowType() == Qt::Dialog);
    return isWindow || qobject_cast<const QTimer*>(&object) != nullptr;
}

// The toolkit makes and removes parts of what stays, and lets them wait for a moment: buttons that go up again, menus.
bool isPartOf(const std::vector<const QObject*>& kept, const QObject& object)
{
    return isWithin(object.parent(), kept) && !isWindowOrTimer(object);
}

// The ground of the screen is a widget too, made when it is first asked for.
bool isGround(const QObject& object)
{
    const auto* widget = qobject_cast<const QWidget*>(&object);
    return widget != nullptr && widget->windowType() == Qt::Desktop;
}

// The toolkit's caches of fonts and pictures, which are nobody's children, empty themselves now and then, and its
// application object waits with the tool tip of what is under the pointer, and until it is forgotten.
bool isTheToolkitsOwn(const QAbstractEventDispatcher::TimerInfo& timer, const QObject& owner)
{
    constexpr int shortestOfCaches = 10000; // milliseconds
    const bool isCache = owner.parent() == nullptr && !owner.isWidgetType() && timer.interval >= shortestOfCaches;
    const bool isToolTip = &owner == QCoreApplication::instance()
        && (timer.interval == QApplication::style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay)
            || timer.interval == QApplication::style()->styleHint(QStyle::SH_ToolTip_FallAsleepDelay));
    return isCache || isToolTip;
}

template <typename Look>
void lookAtEach(Look look)
{
    const std::lock_guard guard(registry().Lock);
    for (const QObject* object : registry().Objects) {
        look(*object);
    }
}

} // namespace

std::string Growth(const Census& before, const Census& after)
{
    std::string growth;
    for (const auto& [name, count] : after) {
        const auto known = before.find(name);
        const int more = count - (known == before.end() ? 0 : known->second);
        if (more > 0) {
            growth += (growth.empty() ? "" : ", ") + name + (more > 1 ? " ×" + std::to_string(more) : "");
        }
    }
    return growth;
}

LiveObjects::LiveObjects()
{
    if (qtHookData[addObjectHook] != 0) {
        throw std::logic_error("somebody is watching the objects already");
    }
    qtHookData[addObjectHook] = reinterpret_cast<quintptr>(&add);
    qtHookData[removeObjectHook] = reinterpret_cast<quintptr>(&remove);
}

LiveObjects::~LiveObjects()
{
    qtHookData[addObjectHook] = 0;
    qtHookData[removeObjectHook] = 0;
    registry().Objects.clear();
}

Census LiveObjects::Everything()
{
    Census census;
    lookAtEach([&census](const QObject& object) { ++census[nameOf(object)]; });
    return census;
}

Census LiveObjects::WindowsAndTimers(const std::vector<const QObject*>& kept)
{
    Census census;
    lookAtEach([&census, &kept](const QObject& object) {
        if (isPartOf(kept, object) || isGround(object)) {
            return;
        }
        if (object.isWidgetType() || qobject_cast<const QTimer*>(&object) != nullptr) {
            ++census[nameOf(object)];
        }
        auto* owner = const_cast<QObject*>(&object); // it is only asked, but the dispatcher wants it so
        for (const auto& timer : QAbstractEventDispatcher::instance()->registeredTimers(owner)) {
            if (!isTheToolkitsOwn(timer, object)) {
                ++census["a timer of " + std::to_string(timer.interval) + " ms of " + nameOf(object)];
            }
        }
    });
    return census;
}

} // namespace numbrela::testing
