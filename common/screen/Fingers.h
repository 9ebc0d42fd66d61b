#pragma once

#include <QtGlobal>

#include <optional>

class QApplication;

namespace numbrela {

// Lets fingers and pens work the controls as a mouse does. Qt makes a mouse of pens, but of the first finger only, and
// of none while any finger is on a control that hears of fingers itself (Qt::WA_AcceptTouchEvents). Here each such
// control gets a mouse of its own, made of the finger that came down on it first, even if others lie elsewhere; no
// other counts there as long as any is on it. They share the focus, so that a button comes up when a finger gives the
// focus to another control, and which tap was the last. Buttons and lines to type into are such controls; others ask
// for it by the attribute. The mouse is marked as synthesised, as Qt's is.
//
// Two taps of a finger or a pen are a double click if they were on the same control, and as near and as fast as the
// system asks for; on a button, wherever on it. If the first has brought another control there, that hears of no second
// one. Qt measures the way between them from where the second itself began (6.8) or a mouse was last pressed (6.4), and
// so takes fast taps on two controls for one.
void RecogniseFingers(QApplication& application);

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
