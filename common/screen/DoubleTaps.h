#pragma once

#include <QtGlobal>

#include <optional>

class QApplication;

namespace numbrela {

// Has two taps of a finger or a pen taken for a double click if they were on the same control, and as near and as fast
// as the system asks for. Qt measures the way between them from where the second itself began (6.8) or a mouse was last
// pressed (6.4), and so takes fast taps on two controls for one.
void RecogniseDoubleTaps(QApplication& application);

// Tells of the taps in one place which is the second of a double tap: one that is as fast as the system asks for.
class TapTimes {
public:
    // Of one tap after the other, in milliseconds. A third one is a first one again.
    bool IsSecond(quint64 time);

    void Forget() { last_.reset(); }

private:
    std::optional<quint64> last_;
};

} // namespace numbrela
