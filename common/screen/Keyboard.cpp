#include "common/screen/Keyboard.h"

#include "common/screen/KeyCodes.h"
#include "common/screen/NativeKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <utility>
#include <vector>

namespace numbrela {

namespace {

// ------------------------------------------------------------------------------------- what forms say to keys

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
            return goesDown(*static_cast<QKeyEvent*>(event));
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
    // Whether the control shall not see the event.
    bool goesDown(QKeyEvent& event)
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

// A key held with Ctrl or Alt is a command. With both together the third level of a keyboard is written, because that
// is how some systems report its right Alt key.
bool isCommand(const QKeyEvent& event)
{
    return event.modifiers().testFlag(Qt::ControlModifier) != event.modifiers().testFlag(Qt::AltModifier);
}

// ---------------------------------------------------------------------------------------------------- held keys

// Sees the keys on their way from the system to the program's windows. The system asks first whether somebody claims
// the key before it is a shortcut (ShortcutOverride); then it comes as a shortcut or as a press, but the question alone
// may come more than once.
class HeldKeys : public QObject {
public:
    explicit HeldKeys(QApplication& application)
        : QObject(&application)
    {
        AskForRealReleasesOnly();
        application.installEventFilter(this);
        connect(&application, &QGuiApplication::focusWindowChanged, this, &HeldKeys::forgetKeysLetGoElsewhere);
    }

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() == QEvent::Shortcut && asked_) {
            goesDown(*std::exchange(asked_, std::nullopt));
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
            isLetGo(static_cast<QKeyEvent&>(*event));
            return false;
        default:
            return false;
        }
    }

private:
    struct PhysicalKey {
        explicit PhysicalKey(const QKeyEvent& event)
            : ScanCode(event.nativeScanCode())
            , QtKey(ScanCode == 0 ? event.key() : 0) // what a key writes changes with the modifiers
        {
        }
        bool operator==(const PhysicalKey&) const = default;

        quint32 ScanCode;
        int QtKey;
    };

    void goesDown(const PhysicalKey& key)
    {
        if (std::find(down_.begin(), down_.end(), key) == down_.end()) {
            down_.push_back(key);
        }
    }

    bool isRepeated(const QKeyEvent& press) const
    {
        return press.isAutoRepeat() || std::find(down_.begin(), down_.end(), PhysicalKey(press)) != down_.end();
    }

    // A claimed key is no shortcut.
    bool claimRepeated(QKeyEvent& question)
    {
        asked_ = PhysicalKey(question);
        question.setAccepted(isRepeated(question));
        return question.isAccepted();
    }

    // Qt asks a control once more about a press that does not come from the system, as those do that are sent
    // here in place of others.
    static bool claimMarked(QKeyEvent& question)
    {
        question.setAccepted(question.isAutoRepeat());
        return question.isAccepted();
    }

    bool replaceRepeated(QObject& window, QKeyEvent& press)
    {
        const bool repeated = isRepeated(press);
        asked_ = std::nullopt;
        goesDown(PhysicalKey(press));
        if (!repeated) {
            return false;
        }
        if (KeyCodeOf(press) == KeyCode::Enter
            || (QApplication::activePopupWidget() != nullptr && !press.text().isEmpty())) {
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

    void isLetGo(const QKeyEvent& release)
    {
        if (!release.isAutoRepeat()) {
            down_.erase(std::remove(down_.begin(), down_.end(), PhysicalKey(release)), down_.end());
        }
    }

    // The release of a key goes to the window that has the focus then, which may be none of this program's. A menu that
    // pops up hears what the window below it would.
    void forgetKeysLetGoElsewhere(const QWindow* focused)
    {
        if (focused != nullptr && focused->type() == Qt::Popup) {
            return;
        }
        down_.erase(
            std::remove_if(down_.begin(), down_.end(), [](const PhysicalKey& key) { return !IsKeyDown(key.ScanCode); }),
            down_.end());
    }

    std::vector<PhysicalKey> down_;
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
    for (const QChar character : text) {
        const int key = character.toUpper().unicode(); // so Qt names the keys that write one
        for (const auto type : { QEvent::KeyPress, QEvent::KeyRelease }) {
            QKeyEvent event(type, key, Qt::NoModifier, QString(character));
            QCoreApplication::sendEvent(&control, &event);
        }
    }
}

void RecogniseHeldKeys(QApplication& application)
{
    new HeldKeys(application);
}

} // namespace numbrela
