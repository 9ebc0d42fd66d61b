#include "common/screen/NativeAnnouncement.h"

#include "common/core/web/Page.h"
#include "common/screen/Announcer.h"

namespace numbrela {

// Qt passes no notifications on to the page.
void TellAssistiveTools(Announcer& announcer)
{
    Page::Announce(announcer.Said().toStdString());
}

} // namespace numbrela
