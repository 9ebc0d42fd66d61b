#include "app/Form1.h"
#include "app/ProgramRun.h"
#include "tests/gallery/Gallery.h"
#include "tests/support/Driver.h"

namespace numbrela::testing {

void DrawMenu(Gallery& gallery)
{
    ProgramRun run;
    Form1 menu(run);
    ShowAndActivate(menu);
    gallery.Draw(menu, QStringLiteral("menu"));
    gallery.DrawNextBox(QStringLiteral("menu-about"));
    Choose(menu, "MnuAce");
    gallery.DrawMaximised(menu, QStringLiteral("menu-maximised"));
}

} // namespace numbrela::testing
