#include "common/screen/OfferedKeypad.h"

#include "common/screen/FormWindow.h"
#include "common/screen/KeypadSwitch.h"
#include "common/screen/TextBox.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QMouseEvent>
#include <QSignalBlocker>

namespace numbrela {

namespace {

// Boxes know nothing of fingers and pens: the events of a mouse are made out of theirs. The button of a pen's tip is
// the left one.
bool isTouch(const QMouseEvent& event)
{
    return event.source() != Qt::MouseEventNotSynthesized && event.button() == Qt::LeftButton;
}

// Qt lets input methods into its lists, too.
bool isOfList(const QWidget& control)
{
    return qobject_cast<const QAbstractItemView*>(&control) != nullptr
        || qobject_cast<const QAbstractItemView*>(control.parent()) != nullptr;
}

} // namespace

bool TakesTyping(const QWidget& control)
{
    const auto* box = qobject_cast<const TextBox*>(&control);
    return box != nullptr ? box->TakesTyping() : control.testAttribute(Qt::WA_InputMethodEnabled) && !isOfList(control);
}

OfferedKeypad::OfferedKeypad(QWidget& window, const FormWindow& form, KeypadKeys keys)
    : QObject(&window)
    , window_(window)
    , form_(form)
    , keys_(keys)
    , switch_(new KeypadSwitch(&window))
{
    connect(switch_, &QPushButton::toggled, this, [this](bool shown) { choose(shown && !lacksRoom_); });
    qApp->installEventFilter(this);
}

bool OfferedKeypad::eventFilter(QObject* watched, QEvent* event)
{
    if (!watched->isWidgetType()) {
        return false;
    }
    const auto* mouse = dynamic_cast<const QMouseEvent*>(event);
    if (mouse == nullptr || !isTouch(*mouse)) {
        return false;
    }
    const auto& control = static_cast<const QWidget&>(*watched);
    if (mouse->type() == QEvent::MouseButtonPress || mouse->type() == QEvent::MouseButtonDblClick) {
        if (control.window() == &window_ && TakesTyping(control)) {
            touched_ = watched;
        }
    } else if (mouse->type() == QEvent::MouseButtonRelease && touched_ == watched) {
        touched_ = nullptr;
        if (control.rect().contains(mouse->pos())) {
            choose(true); // not before, because the box may move when the keypad comes
        }
    }
    return false;
}

Keypad& OfferedKeypad::MakePad()
{
    keypad_ = new Keypad(keys_, &window_);
    keypad_->hide();
    return *keypad_;
}

int OfferedKeypad::KeySize() const
{
    return Keypad::KeySizeIn(form_.height());
}

void OfferedKeypad::SetShown(bool shown)
{
    lacksRoom_ = false;
    if (keypad_ != nullptr) {
        keypad_->setVisible(shown);
    }
    const QSignalBlocker nobodyChooses(switch_);
    switch_->setChecked(shown);
}

void OfferedKeypad::HideForLackOfRoom()
{
    SetShown(false);
    lacksRoom_ = true;
}

bool OfferedKeypad::IsChosen() const
{
    return form_.Choices().KeypadShown;
}

void OfferedKeypad::choose(bool shown)
{
    form_.Choices().KeypadShown = shown;
    OnChoice(shown);
}

} // namespace numbrela
