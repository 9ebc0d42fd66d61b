#include "activities/powers10/screen/FrmUnidad.h"
#include "tests/gallery/Gallery.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"

namespace numbrela::testing {

void DrawPowers10(Gallery& gallery)
{
    const FixedClock clock;
    FrmUnidad form(clock);
    ShowAndActivate(form);
    gallery.Draw(form, QStringLiteral("powers10-fresh"));

    Type(QStringLiteral("12,5"));
    Press(Qt::Key_Return);
    gallery.Draw(form, QStringLiteral("powers10-wrong"));

    Click(form, QStringLiteral("Command2(2)"));
    gallery.Draw(form, QStringLiteral("powers10-solution"));

    Click(form, QStringLiteral("Command1"));
    gallery.Draw(form, QStringLiteral("powers10-right"));
    gallery.DrawMaximised(form, QStringLiteral("powers10-maximised"));

    Choose(form, QStringLiteral("MnuOpcCi1Lis(3)"));
    Click(form, QStringLiteral("Command2(2)"));
    gallery.Draw(form, QStringLiteral("powers10-longest"));
}

} // namespace numbrela::testing
