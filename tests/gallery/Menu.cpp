#include "app/Form1.h"
#include "tests/gallery/Gallery.h"
#include "tests/support/Driver.h"

namespace numbrela::testing {

void DrawMenu(Gallery& gallery)
{
    const SystemClock clock;
    Form1 menu(clock);
    ShowAndActivate(menu);
    gallery.Draw(menu, QStringLiteral("menu"));
    gallery.DrawNextBox(QStringLiteral("menu-about"));
    Choose(menu, QStringLiteral("MnuAce"));
    gallery.DrawMaximised(menu, QStringLiteral("menu-maximised"));
}

} // namespace numbrela::testing
