#include "common/screen/WindowKeypad.h"

#include "common/screen/BoxKeypad.h"
#include "common/screen/FormWindow.h"
#include "common/screen/KeypadSwitch.h"

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QTextEdit>

#include <algorithm>
#include <iterator>
#include <utility>

namespace numbrela {

namespace {

// Keeps a place free for the button at the right end of a menu bar, large enough for a finger but no higher than the
// bar is anyway.
class FreeCorner : public QWidget {
public:
    using QWidget::QWidget;

    QSize sizeHint() const override
    {
        constexpr int aroundTheLetters = 4; // pixels, no more than the bar itself has
        const int height = fontMetrics().height() + aroundTheLetters;
        return { height * 3, height };
    }
};

std::vector<Obstacle> whatIsUnder(const QRect& place, const std::vector<Obstacle>& obstacles)
{
    std::vector<Obstacle> under;
    std::copy_if(obstacles.begin(), obstacles.end(), std::back_inserter(under),
        [&place](const Obstacle& each) { return each.Place.intersects(place); });
    return under;
}

} // namespace

// The button stands over the bar and not in it: what assistive tools find in a bar are its menus alone.
WindowKeypad::WindowKeypad(FormWindow& window, QMenuBar& menuBar, KeypadKeys keys)
    : OfferedKeypad(window, window, keys)
    , window_(window)
    , menuBar_(menuBar)
{
    menuBar.setCornerWidget(new FreeCorner(&menuBar), Qt::TopRightCorner);
}

void WindowKeypad::FollowWindow(QEvent::Type event)
{
    switch (event) {
    case QEvent::Resize:
    case QEvent::Show:
        placeSwitch();
        update();
        break;
    case QEvent::LayoutRequest: // and what is in frames is laid out after this
        placeSwitch();
        QMetaObject::invokeMethod(this, &WindowKeypad::update, Qt::QueuedConnection);
        break;
    case QEvent::WindowActivate:
        update();
        break;
    case QEvent::WindowBlocked:
    case QEvent::WindowUnblocked:
        if (Pad() != nullptr) {
            Pad()->setEnabled(event == QEvent::WindowUnblocked);
        }
        break;
    default:
        break;
    }
}

void WindowKeypad::ServeBox(QInputDialog& box)
{
    servesBox_ = true;
    update();
    new BoxKeypad(box, window_);
    connect(&box, &QObject::destroyed, this, [this] {
        servesBox_ = false;
        wantedAnyway_ = false;
        update();
    });
}

void WindowKeypad::OnChoice(bool shown)
{
    wantedAnyway_ = shown;
    if (!shown) {
        dragged_.reset();
    }
    update();
}

// As high as the bar, and up to the edge of the window, where it is easiest to hit.
void WindowKeypad::placeSwitch()
{
    QRect place = menuBar_.geometry();
    place.setLeft(place.right() + 1 - menuBar_.cornerWidget()->sizeHint().width());
    Switch().setGeometry(place);
}

// Before its first size a window has no room to place anything in.
void WindowKeypad::update()
{
    if (!window_.isVisible()) {
        return;
    }
    const bool isOfUse = IsChosen() && anyBoxTakesTyping();
    wantedAnyway_ = wantedAnyway_ && !isOfUse;
    if (isOfUse || wantedAnyway_) {
        ensurePad();
        place();
    } else {
        window_.Area().KeepRoomBeside(0);
        SetShown(false);
    }
}

void WindowKeypad::ensurePad()
{
    if (Pad() == nullptr) {
        Keypad& pad = MakePad();
        pad.LetDrag([this](QPoint to) { drag(to); }, [this] { drop(); });
        pad.OnAllUp = [this] { update(); };
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*old*/, const QWidget* now) {
            if (now != nullptr && now->window() == &window_) {
                update();
            }
        });
    }
}

// ----------------------------------------------------------------------------------------------------------- its place

// The keypad stays under the finger that holds a key, and where it is as long as that is off the box and nothing around
// or under it has changed.
void WindowKeypad::place()
{
    Keypad& pad = *Pad();
    if (pad.IsHeld()) {
        return;
    }
    const std::vector<QSize> sizes = pad.SizesWith(KeySize());
    const int keptBeside = roomToKeep(sizes);
    window_.Area().KeepRoomBeside(keptBeside);
    const std::vector<Obstacle> others = otherControls();
    const auto surroundings = [&] { return Surroundings { room(), keptBeside, whatIsUnder(pad.geometry(), others) }; };
    const bool stays = !pad.isHidden() && placedIn_ == surroundings() && IsFree(pad.geometry(), room(), boxInUse());
    std::optional<QRect> best = freeDraggedPlace(sizes);
    if (!best) {
        best = stays ? pad.geometry() : bestPlace(sizes, others);
    }
    if (best && *best != pad.geometry()) {
        pad.TakeShape(shapeOf(best->size(), sizes), KeySize());
        pad.move(best->topLeft());
    }
    pad.raise(); // controls that are new are in front
    placedIn_ = surroundings();
    if (best || servesBox_) {
        SetShown(!servesBox_);
    } else {
        HideForLackOfRoom();
    }
}

std::size_t WindowKeypad::shapeOf(QSize size, const std::vector<QSize>& sizes)
{
    return static_cast<std::size_t>(std::find(sizes.begin(), sizes.end(), size) - sizes.begin());
}

// Beside the calculation, for the first shape that fits there, in pixels; none where a hand has dragged the keypad
// away.
int WindowKeypad::roomToKeep(const std::vector<QSize>& sizes) const
{
    const int beside = window_.width() - window_.Area().Drawing().width();
    const auto fitting = std::find_if(sizes.begin(), sizes.end(),
        [&](QSize size) { return size.width() + 2 * AroundKeypad <= beside && size.height() <= room().height(); });
    const bool isAway = dragged_ && !dragged_->KeepsRoom;
    return isAway || fitting == sizes.end() ? 0 : fitting->width() + 2 * AroundKeypad;
}

// In the middle beside the calculation, or where it covers least.
std::optional<QRect> WindowKeypad::bestPlace(const std::vector<QSize>& sizes, const std::vector<Obstacle>& others) const
{
    const QRect all = room();
    QRect beside = all;
    beside.setLeft(window_.Area().Drawing().right() + 1);
    return FreePlace(all, sizes, beside.center(), boxInUse(), others);
}

// ------------------------------------------------------------------------------------------------------------ dragging

// Under the hand, the calculation stays where it is. The keypad is not dragged while a key is held or while there is no
// room for it: it may still have a size that none of its shapes has in a window that was resized meanwhile.
void WindowKeypad::drag(QPoint to)
{
    if (Pad()->IsHeld() || Pad()->isHidden()) {
        return;
    }
    const QRect all = room();
    const std::vector<QSize> sizes = Pad()->SizesWith(KeySize());
    const QPoint last = all.bottomRight() - Pad()->rect().bottomRight();
    const auto share = [](int place, int first, int end) {
        return end > first ? std::clamp(static_cast<double>(place - first) / (end - first), 0.0, 1.0) : 0;
    };
    const Dragged now { { share(to.x(), all.x(), last.x()), share(to.y(), all.y(), last.y()) },
        shapeOf(Pad()->size(), sizes), placedIn_.KeptBeside > 0 };
    const std::optional<Dragged> before = std::exchange(dragged_, now);
    if (!freeDraggedPlace(sizes)) {
        dragged_ = before;
    }
    update();
}

// The calculation goes back to the middle, unless its box would come under the keypad there.
void WindowKeypad::drop()
{
    if (dragged_ && dragged_->KeepsRoom) {
        window_.Area().KeepRoomBeside(0);
        dragged_->KeepsRoom = !freeDraggedPlace(Pad()->SizesWith(KeySize()));
        update();
    }
}

// Where a hand has brought it, if nobody writes there.
std::optional<QRect> WindowKeypad::freeDraggedPlace(const std::vector<QSize>& sizes) const
{
    if (!dragged_) {
        return std::nullopt;
    }
    const QRect all = room();
    const QSize size = sizes[dragged_->Shape];
    const QPoint inRoom(qRound(dragged_->Share.x() * (all.width() - size.width())),
        qRound(dragged_->Share.y() * (all.height() - size.height())));
    const QRect place(all.topLeft() + inRoom, size);
    return IsFree(place, all, boxInUse()) ? std::optional(place) : std::nullopt;
}

// ----------------------------------------------------------------------------------------------------- what is there

bool WindowKeypad::anyBoxTakesTyping() const
{
    const QList<QWidget*> controls = window_.findChildren<QWidget*>();
    return std::any_of(controls.begin(), controls.end(),
        [this](const QWidget* control) { return isInSight(*control) && TakesTyping(*control); });
}

// Also below a message, but not in a dialog that has been opened by the window.
bool WindowKeypad::isInSight(const QWidget& control) const
{
    return control.window() == &window_ && control.isVisibleTo(&window_);
}

// What is below the menu bar.
QRect WindowKeypad::room() const
{
    return window_.rect().adjusted(0, menuBar_.height(), 0, 0);
}

QRect WindowKeypad::boxInUse() const
{
    const QWidget* box = window_.focusWidget();
    return box != nullptr && TakesTyping(*box)
        ? placeOf(*box).adjusted(-AroundKeypad, -AroundKeypad, AroundKeypad, AroundKeypad)
        : QRect();
}

// A button that is covered cannot be pressed, a text in a box not be read. A list shows as much elsewhere when it is
// scrolled, and a sign is only looked at. What is in a frame is counted by itself.
std::vector<Obstacle> WindowKeypad::otherControls() const
{
    std::vector<Obstacle> obstacles;
    for (const QWidget* control : window_.findChildren<QWidget*>()) {
        const bool stands = dynamic_cast<TwipsLayout*>(control->parentWidget()->layout()) != nullptr;
        const bool isFrame = control->layout() != nullptr;
        if (stands && !isFrame && control != Pad() && isInSight(*control)) {
            const bool isButton = qobject_cast<const QAbstractButton*>(control) != nullptr;
            const bool isText = qobject_cast<const QLineEdit*>(control) != nullptr
                || qobject_cast<const QTextEdit*>(control) != nullptr;
            obstacles.push_back({ placeOf(*control), isButton ? 8 : isText ? 4 : 1 });
        }
    }
    return obstacles;
}

QRect WindowKeypad::placeOf(const QWidget& control) const
{
    return { control.mapTo(&window_, QPoint()), control.size() };
}

} // namespace numbrela
