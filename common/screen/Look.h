#pragma once

class QApplication;

namespace numbrela {

// Gives the program its one look on every machine: Fusion style with flat buttons, a light palette, fonts with
// metric-compatible substitutes, and Qt's own words in Spanish.
void ApplyLook(QApplication& application);

} // namespace numbrela
