#include "app/Form1.h"
#include "tests/gallery/Gallery.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"

#include <QDialog>

namespace numbrela::testing {

void DrawMenu(Gallery& gallery)
{
    const SystemClock clock;
    Form1 menu(clock);
    ShowAndActivate(menu);
    gallery.Draw(menu, QStringLiteral("menu"));
    ExpectDialog([&gallery](QDialog& box) {
        gallery.Draw(box, QStringLiteral("menu-about"));
        box.accept();
    });
    Choose(menu, QStringLiteral("MnuAce"));
    gallery.DrawMaximised(menu, QStringLiteral("menu-maximised"));
}

} // namespace numbrela::testing
