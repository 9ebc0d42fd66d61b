#include "common/screen/NativeAnnouncement.h"

#include "common/screen/Announcer.h"
#include "common/screen/windows/UiAutomation.h"

#include <QWidget>

namespace numbrela {

// Qt's own bridge to UI Automation passes nothing on that is not about a control.
void TellAssistiveTools(Announcer& announcer)
{
    static const UiAutomation system = FindUiAutomation();
    Notify(system, reinterpret_cast<HWND>(announcer.Window().winId()), announcer.Said());
}

} // namespace numbrela
