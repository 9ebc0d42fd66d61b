#pragma once

class QApplication;

namespace numbrela {

// Has two taps of a finger or a pen taken for a double click if they were on the same control, and as fast as the
// system asks for. Qt measures the way between them from where the second itself began (6.8) or a mouse was last
// pressed (6.4), and so takes fast taps on two controls for one.
void RecogniseDoubleTaps(QApplication& application);

} // namespace numbrela
