#include "common/screen/NativeKeys.h"

#include "common/screen/KeyCodes.h"

#include <QGuiApplication>
#include <QKeyEvent>

#include <emscripten/dom_pk_codes.h>

namespace numbrela {

// A browser names the places on the keyboard, and emscripten numbers them: the digit row and, on many keyboards, the
// comma stand where they do on an American one. The number is 0 if the browser names no place, as for a keyboard on the
// screen.
int NativeKeyCode(const QKeyEvent& event)
{
    const quint32 place = event.nativeScanCode();
    if (place >= DOM_PK_0 && place <= DOM_PK_9) {
        return KeyCode::Digit0 + static_cast<int>(place - DOM_PK_0);
    }
    return place == DOM_PK_COMMA && WritesWhatCommaDoesWithShift(event) ? KeyCode::Comma : 0;
}

// A browser repeats only the press of a held key, and says that it is a repetition.
void AskForRealReleasesOnly() { }

// A page hears of every release as long as it has the keys, and of none otherwise.
std::vector<quint32> KeysDown(const std::vector<quint32>& known)
{
    std::vector<quint32> keys;
    if (QGuiApplication::applicationState() == Qt::ApplicationActive) {
        keys = known;
        std::erase(keys, 0U); // what has no place is no key that could be found again
    }
    return keys;
}

// Asked of keys that were found down and not known before, of which there are none here.
bool WasPressedBefore(const QKeyEvent& /*press*/, const QElapsedTimer& /*timer*/)
{
    return true;
}

} // namespace numbrela
