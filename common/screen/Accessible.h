#pragma once

namespace numbrela {

// Tells assistive tools what windows, frames and text boxes are. Qt itself calls a plain window a filler and a frame a
// window, so a screen reader believes that the program is not in front and says nothing. Nothing is created before a
// tool asks for it.
void InstallAccessibility();

} // namespace numbrela
