#include "common/screen/Keyboard.h"

#include "common/screen/KeyCodes.h"
#include "common/screen/NativeKeys.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace numbrela {

namespace {

// ------------------------------------------------------------------------------------- the forms' handlers

class KeyHook : public QObject {
public:
    KeyHook(QWidget& control, KeyHandlers handlers)
        : QObject(&control)
        , control_(control)
        , handlers_(std::move(handlers))
    {
        control.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress && !passingOn_) {
            return consumes(*static_cast<QKeyEvent*>(event));
        }
        if (event->type() == QEvent::KeyRelease && handlers_.KeyUp) {
            const auto& release = *static_cast<QKeyEvent*>(event);
            if (!release.isAutoRepeat()) {
                handlers_.KeyUp(KeyCodeOf(release));
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    // Asks the form about a key. Returns whether the event ends here, without the control seeing it.
    bool consumes(QKeyEvent& event)
    {
        const KeyAnswer toKey = handlers_.KeyDown
            ? handlers_.KeyDown({ .Code = KeyCodeOf(event), .Repeated = event.isAutoRepeat() })
            : KeyAnswer::GoesOn();
        const QChar typed = TypedCharacter(event);
        const QChar wanted = toKey.Or(typed);
        const KeyAnswer toCharacter = !toKey.IsConsumed() && !wanted.isNull() && handlers_.KeyPress
            ? handlers_.KeyPress(wanted)
            : KeyAnswer::GoesOn();
        if (toKey.IsConsumed() || toCharacter.IsConsumed()) {
            event.accept();
            return true;
        }
        const QChar character = toCharacter.Or(wanted);
        if (character == typed) {
            return false;
        }
        QKeyEvent replacement(QEvent::KeyPress, 0, event.modifiers(), QString(character), event.isAutoRepeat());
        passingOn_ = true;
        QCoreApplication::sendEvent(&control_, &replacement);
        passingOn_ = false;
        event.accept();
        return true;
    }

    QWidget& control_;
    KeyHandlers handlers_;
    bool passingOn_ = false;
};

// A key pressed with Ctrl or with Alt is a command. With both it types a character, because some systems report the
// right Alt key (AltGr) as Ctrl and Alt together.
bool isCommand(const QKeyEvent& event)
{
    return event.modifiers().testFlag(Qt::ControlModifier) != event.modifiers().testFlag(Qt::AltModifier);
}

// ---------------------------------------------------------------------------------------------------- held keys

// A key of the keyboard, identified as well as its event allows. The scan code decides. What the key types is compared
// only when there is no scan code, as with some input methods, because it changes with the modifiers.
struct PhysicalKey {
    explicit PhysicalKey(const QKeyEvent& event)
        : ScanCode(event.nativeScanCode())
        , QtKey(event.key())
    {
    }
    explicit PhysicalKey(quint32 scanCode)
        : ScanCode(scanCode)
    {
    }
    bool operator==(const PhysicalKey& other) const
    {
        return ScanCode != 0 && other.ScanCode != 0 ? ScanCode == other.ScanCode : QtKey == other.QtKey;
    }

    quint32 ScanCode;
    int QtKey = 0;
};

// Where a key pressed now goes: an open menu, or else the control that has the focus.
const QObject* placeOfTyping()
{
    const QObject* menu = QApplication::activePopupWidget();
    return menu != nullptr ? menu : QApplication::focusWidget();
}

// Sees the keys on their way from the system to the program's windows. For each press Qt first asks, perhaps more than
// once, whether anyone claims the key so that it is not used as a shortcut (ShortcutOverride). Then the key arrives as
// a shortcut or as a press.
class HeldKeys : public QObject {
public:
    explicit HeldKeys(QApplication& application)
        : QObject(&application)
    {
        AskForRealReleasesOnly();
        application.installEventFilter(this);
        connect(&application, &QGuiApplication::focusWindowChanged, this, &HeldKeys::lookAtKeyboard);
        connect(&application, &QGuiApplication::applicationStateChanged, this, [this] { lookAtKeyboard(nullptr); });
    }

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() == QEvent::Shortcut && asked_) {
            noteDown(*std::exchange(asked_, std::nullopt));
        }
        if (!receiver->isWindowType()) {
            return event->type() == QEvent::ShortcutOverride && claimMarked(static_cast<QKeyEvent&>(*event));
        }
        switch (event->type()) {
        case QEvent::ShortcutOverride:
            return claimRepeated(static_cast<QKeyEvent&>(*event));
        case QEvent::KeyPress:
            return replaceRepeated(*receiver, static_cast<QKeyEvent&>(*event));
        case QEvent::KeyRelease:
            return dropRelease(static_cast<QKeyEvent&>(*event));
        default:
            return false;
        }
    }

private:
    struct Down {
        PhysicalKey Key;
        const QObject* Place; // where the key went down; only compared, never used
        std::optional<QElapsedTimer> Found; // started when the key was found down, if its press was not seen
    };

    std::vector<Down>::iterator find(const PhysicalKey& key)
    {
        return std::find_if(down_.begin(), down_.end(), [&](const Down& down) { return down.Key == key; });
    }

    void noteDown(const PhysicalKey& key)
    {
        if (find(key) == down_.end()) {
            down_.push_back({ key, placeOfTyping(), std::nullopt });
        }
    }

    // A key that was found down may have been pressed in another program. But if it was pressed in this one, which only
    // hears of it now, this is the press that was not seen, and not a repetition.
    bool isRepeated(const QKeyEvent& press)
    {
        const auto down = find(PhysicalKey(press));
        if (down != down_.end() && down->Found && !press.isAutoRepeat() && WasPressedBefore(press, *down->Found)) {
            down_.erase(down);
            return false;
        }
        return press.isAutoRepeat() || down != down_.end();
    }

    // Claims a repeated key, so that it is not used as a shortcut.
    bool claimRepeated(QKeyEvent& question)
    {
        asked_ = PhysicalKey(question);
        question.setAccepted(isRepeated(question));
        return question.isAccepted();
    }

    // For a press that the program itself sends, as replaceRepeated() does, Qt asks the control instead of the window.
    static bool claimMarked(QKeyEvent& question)
    {
        question.setAccepted(question.isAutoRepeat());
        return question.isAccepted();
    }

    // Passes a repeated press on marked as such, or not at all. Returns whether the original press ends here.
    bool replaceRepeated(QObject& window, QKeyEvent& press)
    {
        const bool repeated = isRepeated(press);
        asked_ = std::nullopt;
        noteDown(PhysicalKey(press));
        if (!repeated) {
            return false;
        }
        if (writesOnlyOnce(press)) {
            press.accept();
            return true;
        }
        if (press.isAutoRepeat()) {
            return false;
        }
        QKeyEvent marked(QEvent::KeyPress, press.key(), press.modifiers(), press.nativeScanCode(),
            press.nativeVirtualKey(), press.nativeModifiers(), press.text(), true, static_cast<quint16>(press.count()));
        marked.setTimestamp(press.timestamp());
        QCoreApplication::sendEvent(&window, &marked);
        press.setAccepted(marked.isAccepted());
        return true;
    }

    // Whether the repeats of this key are dropped: those of Enter, which checks an answer or presses a button; of a
    // letter in a menu, which chooses an item; and of a key that types, once the focus has moved to another control.
    bool writesOnlyOnce(const QKeyEvent& press)
    {
        const bool writes = !TypedCharacter(press).isNull();
        const bool inMenu = QApplication::activePopupWidget() != nullptr && !press.text().isEmpty();
        return KeyCodeOf(press) == KeyCode::Enter || inMenu
            || (writes && find(PhysicalKey(press))->Place != placeOfTyping());
    }

    // Returns whether the release ends here. A release without a press belongs to a key whose press an input method
    // kept, sending a text instead.
    bool dropRelease(const QKeyEvent& release)
    {
        if (release.isAutoRepeat()) {
            return false;
        }
        const auto down = find(PhysicalKey(release));
        if (down == down_.end()) {
            return true;
        }
        down_.erase(down);
        return false;
    }

    // While another program has the focus, this one misses presses and releases; so it asks which keys are down when
    // the focus returns. A menu that pops up does not take the focus from its window. In a page that loses the keys,
    // the window keeps the focus, and only the program becomes inactive.
    void lookAtKeyboard(const QWindow* focused)
    {
        if (focused != nullptr && focused->type() == Qt::Popup) {
            return;
        }
        std::vector<quint32> known;
        std::transform(
            down_.begin(), down_.end(), std::back_inserter(known), [](const Down& down) { return down.Key.ScanCode; });
        std::vector<Down> stillDown;
        QElapsedTimer now;
        now.start();
        for (const quint32 scanCode : KeysDown(known)) {
            const PhysicalKey key(scanCode);
            const auto before = find(key);
            stillDown.push_back(before != down_.end() ? *before : Down { key, nullptr, now });
        }
        down_ = std::move(stillDown);
    }

    std::vector<Down> down_;
    std::optional<PhysicalKey> asked_;
};

} // namespace

void HandleKeys(QWidget& control, KeyHandlers handlers)
{
    new KeyHook(control, std::move(handlers));
}

QChar TypedCharacter(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return QChar(KeyCode::Enter);
    case Qt::Key_Backspace:
        return QChar(KeyCode::Backspace);
    case Qt::Key_Escape:
        return QChar(KeyCode::Escape);
    default:
        break;
    }
    const QString text = event.text();
    return isCommand(event) || text.isEmpty() || !text.front().isPrint() ? QChar() : text.front();
}

void TypeInto(QWidget& control, const QString& text)
{
    const bool followsFocus = control.hasFocus();
    for (const QChar character : text) {
        const int key = character.toUpper().unicode(); // Qt's code of the key that types it
        for (const auto type : { QEvent::KeyPress, QEvent::KeyRelease }) {
            QKeyEvent event(type, key, Qt::NoModifier, QString(character));
            QWidget* focused = QApplication::focusWidget();
            QCoreApplication::sendEvent(followsFocus && focused != nullptr ? focused : &control, &event);
        }
    }
}

void RecogniseHeldKeys(QApplication& application)
{
    new HeldKeys(application);
}

} // namespace numbrela
