#include "common/screen/WindowKeypad.h"

#include "common/screen/FormWindow.h"
#include "common/screen/KeypadSwitch.h"
#include "common/screen/Screens.h"
#include "common/screen/TextBox.h"

#include <QApplication>
#include <QBoxLayout>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QWindow>

#include <algorithm>

namespace numbrela {

namespace {

constexpr int margin = 6; // pixels between the keypad and what is around it

// Qt lets input methods into its lists, too.
bool isOfList(const QWidget& control)
{
    return control.inherits("QAbstractItemView")
        || (control.parent() != nullptr && control.parent()->inherits("QAbstractItemView"));
}

bool takesTyping(const QWidget& control)
{
    const auto* box = qobject_cast<const TextBox*>(&control);
    const bool isMadeForIt
        = box != nullptr ? box->TakesTyping() : control.testAttribute(Qt::WA_InputMethodEnabled) && !isOfList(control);
    return isMadeForIt && control.isEnabled();
}

// Boxes know nothing of fingers and pens: Qt makes the events of a mouse out of theirs.
bool isTouch(const QEvent& event)
{
    const bool isPress = event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
    return isPress && static_cast<const QMouseEvent&>(event).source() != Qt::MouseEventNotSynthesized;
}

// The keypad of an input box, which has room for it in its layout.
class BoxKeypad : public QObject {
public:
    BoxKeypad(QInputDialog& box, int keySize, bool& chosen)
        : QObject(&box)
        , box_(box)
        , keySize_(keySize)
        , chosen_(chosen)
    {
        box.findChild<QLineEdit*>()->installEventFilter(this);
        if (chosen) {
            show();
        }
    }

    bool eventFilter(QObject* /*line*/, QEvent* event) override
    {
        if (isTouch(*event) && keypad_ == nullptr) {
            chosen_ = true;
            show();
            box_.layout()->activate();
            MoveOntoScreen(box_);
        }
        return false;
    }

private:
    void show()
    {
        static_cast<void>(box_.sizeHint()); // a box makes its layout when somebody asks for its size
        auto& layout = dynamic_cast<QBoxLayout&>(*box_.layout());
        keypad_ = new Keypad({}, &box_);
        keypad_->SetKeySize(keySize_);
        layout.insertWidget(layout.count() - 1, keypad_, 0, Qt::AlignHCenter); // above the buttons
        keypad_->show();
    }

    QInputDialog& box_;
    const int keySize_;
    bool& chosen_;
    Keypad* keypad_ = nullptr;
};

} // namespace

WindowKeypad::WindowKeypad(FormWindow& window, QMenuBar& menuBar, KeypadKeys keys)
    : QObject(&window)
    , window_(window)
    , menuBar_(menuBar)
    , keys_(keys)
    , switch_(new KeypadSwitch(window, menuBar))
{
    connect(switch_, &QPushButton::toggled, this, &WindowKeypad::choose);
    qApp->installEventFilter(this);
}

WindowKeypad::~WindowKeypad()
{
    delete keypad_;
}

void WindowKeypad::WindowHas(QEvent::Type event)
{
    switch (event) {
    case QEvent::Resize:
        switch_->TakePlace();
        if (keypad_ != nullptr && switch_->isChecked()) {
            placeAfresh();
        }
        break;
    case QEvent::Show:
        switch_->TakePlace();
        update();
        break;
    case QEvent::LayoutRequest: // and what is in frames is laid out after this
        switch_->TakePlace();
        QMetaObject::invokeMethod(this, &WindowKeypad::update, Qt::QueuedConnection);
        break;
    case QEvent::WindowActivate:
        update();
        break;
    case QEvent::WindowBlocked:
    case QEvent::WindowUnblocked:
        if (keypad_ != nullptr) {
            keypad_->setEnabled(event == QEvent::WindowUnblocked);
        }
        break;
    default:
        break;
    }
}

void WindowKeypad::ServeBox(QInputDialog& box)
{
    new BoxKeypad(box, Keypad::KeySizeIn(window_.height()), window_.Choices().KeypadShown);
    servesBox_ = true;
    if (keypad_ != nullptr) {
        keypad_->hide();
    }
    connect(&box, &QObject::destroyed, this, [this] {
        servesBox_ = false;
        wantedAnyway_ = false;
        update();
    });
}

bool WindowKeypad::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusAboutToChange && watched == window_.windowHandle() && keypad_ != nullptr) {
        keypad_->LetGo(); // no release arrives once another window has the focus
    }
    if (isTouch(*event) && watched->isWidgetType()) {
        const auto& control = static_cast<QWidget&>(*watched);
        if (control.window() == &window_ && takesTyping(control)) {
            choose(true);
        }
    }
    return false;
}

void WindowKeypad::choose(bool shown)
{
    window_.Choices().KeypadShown = shown;
    wantedAnyway_ = shown;
    update();
}

void WindowKeypad::update()
{
    const bool isOfUse = anyBoxTakesTyping();
    wantedAnyway_ = wantedAnyway_ && !isOfUse;
    const bool shown = window_.Choices().KeypadShown && (isOfUse || wantedAnyway_);
    {
        const QSignalBlocker nobodyChooses(switch_);
        switch_->setChecked(shown);
    }
    if (!shown) {
        if (keypad_ != nullptr) {
            keypad_->hide();
        }
        window_.Area().KeepRoomBeside(0);
    } else if (keypad_ == nullptr || keypad_->isHidden()) {
        make();
        placeAfresh();
    } else {
        goOutOfTheWay();
    }
}

void WindowKeypad::make()
{
    if (keypad_ == nullptr) {
        keypad_ = new Keypad(keys_, &window_);
        keypad_->LetDrag([this](QPoint place) { drag(place); });
        keypad_->hide();
        keypad_->OnLetGo = [this] { goOutOfTheWay(); };
        connect(qApp, &QApplication::focusChanged, this, &WindowKeypad::goOutOfTheWay);
    }
}

void WindowKeypad::placeAfresh()
{
    keypad_->SetKeySize(Keypad::KeySizeIn(window_.height()));
    const QRect calculation = window_.Area().Drawing();
    const int needed = keypad_->width() + 2 * margin;
    window_.Area().KeepRoomBeside(room().width() - calculation.width() >= needed ? needed : 0);
    tryPlaces();
}

// The keypad stays where it is as long as it can, and under the finger that holds a key.
void WindowKeypad::goOutOfTheWay()
{
    if (keypad_->isHidden() || keypad_->IsHeld()) {
        return;
    }
    keypad_->raise(); // controls that are new are in front
    if (!IsFree(keypad_->geometry(), room(), boxInUse())) {
        tryPlaces();
    }
}

// Where a hand has brought it, beside the calculation, or where it covers least.
void WindowKeypad::tryPlaces()
{
    const QRect all = room();
    const QSize size = keypad_->size();
    std::optional<QPoint> place;
    if (dragged_) {
        place = QPoint(all.x() + qRound(dragged_->x() * (all.width() - size.width())),
            all.y() + qRound(dragged_->y() * (all.height() - size.height())));
    } else if (const QRect beside = besideCalculation(); beside.width() >= size.width()) {
        place = beside.center() - QRect({}, size).center();
    }
    if (!place || !IsFree(QRect(*place, size), all, boxInUse())) {
        place = FreePlace(all, size, boxInUse(), otherControls());
    }
    if (place) {
        keypad_->move(*place);
        keypad_->raise();
    }
    keypad_->setVisible(place && !servesBox_);
}

void WindowKeypad::drag(QPoint place)
{
    const QRect all = room();
    const QPoint last = all.bottomRight() - keypad_->rect().bottomRight();
    const QPoint within(std::clamp(place.x(), all.x(), std::max(all.x(), last.x())),
        std::clamp(place.y(), all.y(), std::max(all.y(), last.y())));
    if (IsFree(QRect(within, keypad_->size()), all, boxInUse())) {
        keypad_->move(within);
        const QPoint free = last - all.topLeft();
        const QPoint from = within - all.topLeft();
        dragged_ = QPointF(free.x() > 0 ? static_cast<double>(from.x()) / free.x() : 0,
            free.y() > 0 ? static_cast<double>(from.y()) / free.y() : 0);
    }
}

bool WindowKeypad::anyBoxTakesTyping() const
{
    const QList<QWidget*> controls = window_.findChildren<QWidget*>();
    return std::any_of(controls.begin(), controls.end(), [this](const QWidget* control) {
        return control->window() == &window_ && control->isVisibleTo(&window_) && takesTyping(*control);
    });
}

// What is below the menu bar.
QRect WindowKeypad::room() const
{
    const int top = menuBar_.isHidden() ? 0 : menuBar_.height();
    return window_.rect().adjusted(0, top, 0, 0).marginsRemoved({ margin, margin, margin, margin });
}

QRect WindowKeypad::boxInUse() const
{
    const QWidget* box = window_.focusWidget();
    if (box == nullptr || !takesTyping(*box)) {
        return {};
    }
    return placeOf(*box).marginsAdded({ margin, margin, margin, margin });
}

QRect WindowKeypad::besideCalculation() const
{
    QRect beside = room();
    beside.setLeft(window_.Area().Drawing().right() + 1);
    return beside;
}

// The nearer to the box, the more a control matters: above it stand the operands, below it the button that has the
// answer checked. A list shows as much elsewhere when it is scrolled, and a sign is only looked at. What is in a frame
// or a list is counted, or is not, by itself.
std::vector<Obstacle> WindowKeypad::otherControls() const
{
    constexpr double mostWeight = 8;
    constexpr int leastWeight = 3;
    const QPoint box = boxInUse().center();
    std::vector<Obstacle> obstacles;
    for (const QWidget* control : window_.findChildren<QWidget*>()) {
        const bool stands = dynamic_cast<TwipsLayout*>(control->parentWidget()->layout()) != nullptr;
        const bool isFrame = control->layout() != nullptr;
        if (stands && !isFrame && control != keypad_ && control->window() == &window_
            && control->isVisibleTo(&window_)) {
            const QRect place = placeOf(*control);
            const bool isMinor = control->inherits("QAbstractItemView") || control->inherits("QLabel");
            const double nearness = 1 - 2.0 * (place.center() - box).manhattanLength() / window_.height();
            obstacles.push_back({ place, isMinor ? 1 : std::max(leastWeight, qRound(mostWeight * nearness)) });
        }
    }
    return obstacles;
}

QRect WindowKeypad::placeOf(const QWidget& control) const
{
    return { control.mapTo(&window_, QPoint()), control.size() };
}

} // namespace numbrela
