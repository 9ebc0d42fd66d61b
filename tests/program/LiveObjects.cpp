#include "tests/program/LiveObjects.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QStyle>
#include <QTimer>
#include <QWidget>

#include <QWindow>

#include <algorithm>
#include <set>

namespace numbrela::testing {

namespace {

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

// Qt makes and deletes some parts of permanent objects with a short delay: buttons that come up again, menus.
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

// Qt's caches of fonts and pictures, which are nobody's children, empty themselves now and then, and its
// application object waits with the tool tip of what is under the pointer, and until it is forgotten.
bool isQtsOwn(const QAbstractEventDispatcher::TimerInfo& timer, const QObject& owner)
{
    constexpr int shortestOfCaches = 10000; // milliseconds
    const bool isCache = owner.parent() == nullptr && !owner.isWidgetType() && timer.interval >= shortestOfCaches;
    const bool isToolTip = &owner == QCoreApplication::instance()
        && (timer.interval == QApplication::style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay)
            || timer.interval == QApplication::style()->styleHint(QStyle::SH_ToolTip_FallAsleepDelay));
    return isCache || isToolTip;
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
    qApp->installEventFilter(this);
}

bool LiveObjects::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() == QEvent::Timer && receiver->parent() == nullptr && !receiver->isWidgetType()
        && std::find(nobodys_.begin(), nobodys_.end(), receiver) == nobodys_.end()) {
        nobodys_.erase(std::remove(nobodys_.begin(), nobodys_.end(), nullptr), nobodys_.end());
        nobodys_.emplace_back(receiver);
    }
    return false;
}

template <typename Look>
void LiveObjects::lookAtEach(Look look) const
{
    std::vector<QObject*> roots { qApp, QAbstractEventDispatcher::instance() };
    const QWidgetList widgets = QApplication::allWidgets();
    roots.insert(roots.end(), widgets.begin(), widgets.end());
    const QWindowList windows = QGuiApplication::allWindows();
    roots.insert(roots.end(), windows.begin(), windows.end());
    std::copy_if(nobodys_.begin(), nobodys_.end(), std::back_inserter(roots),
        [](const QObject* object) { return object != nullptr; });
    std::set<QObject*> seen;
    for (QObject* root : roots) {
        if (seen.insert(root).second) {
            look(*root);
            for (QObject* object : root->findChildren<QObject*>()) {
                if (seen.insert(object).second) {
                    look(*object);
                }
            }
        }
    }
}

Census LiveObjects::Everything() const
{
    Census census;
    lookAtEach([&census](const QObject& object) { ++census[nameOf(object)]; });
    return census;
}

Census LiveObjects::WindowsAndTimers(const std::vector<const QObject*>& kept) const
{
    Census census;
    lookAtEach([&census, &kept](QObject& object) {
        if (isPartOf(kept, object) || isGround(object)) {
            return;
        }
        if (object.isWidgetType() || qobject_cast<const QTimer*>(&object) != nullptr) {
            ++census[nameOf(object)];
        }
        for (const auto& timer : QAbstractEventDispatcher::instance()->registeredTimers(&object)) {
            if (!isQtsOwn(timer, object)) {
                ++census["a timer of " + std::to_string(timer.interval) + " ms of " + nameOf(object)];
            }
        }
    });
    return census;
}

} // namespace numbrela::testing
