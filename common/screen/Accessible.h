#pragma once

namespace numbrela {

// Has assistive tools find windows, frames and text boxes for what they are: Qt calls a plain window a filler and a
// frame a window, so that a screen reader takes the program for one that is not in front and says nothing. Nothing is
// made before a tool asks for it.
void InstallAccessibility();

} // namespace numbrela
