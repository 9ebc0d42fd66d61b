#pragma once

namespace numbrela {

class Announcer;

// Tells assistive tools what a window has announced, in the way that the operating system has for it.
void TellAssistiveTools(Announcer& announcer);

} // namespace numbrela
