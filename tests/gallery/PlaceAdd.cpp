#include "activities/placeadd/screen/FormColoSuma.h"
#include "common/screen/TextBox.h"
#include "tests/gallery/Gallery.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"

namespace numbrela::testing {

namespace {

// Draws until the sum is a whole number, and shows it: the sums that are judged right.
void showWholeSum(FormColoSuma& form)
{
    do {
        form.Command2_Click(0);
        form.Command2_Click(2);
    } while (form.TbResultado->text().contains(u','));
}

} // namespace

void DrawPlaceAdd(Gallery& gallery)
{
    const FixedClock clock;
    FormColoSuma form(clock);
    ShowAndActivate(form);
    gallery.Draw(form, QStringLiteral("placeadd-fresh"));

    Type(QStringLiteral("  12,5"));
    Press(Qt::Key_Tab);
    Type(QStringLiteral("   7"));
    Click(form, QStringLiteral("Command1"));
    gallery.Draw(form, QStringLiteral("placeadd-wrong"));

    showWholeSum(form);
    form.Command1_Click();
    gallery.Draw(form, QStringLiteral("placeadd-right"));

    Choose(form, QStringLiteral("MnuOpcSumLis(4)"));
    form.Command2_Click(2);
    gallery.Draw(form, QStringLiteral("placeadd-six-addends"));
    gallery.DrawMaximised(form, QStringLiteral("placeadd-six-addends-maximised"));

    Choose(form, QStringLiteral("MnuOpcSumLis(0)"));
    form.Command2_Click(2);
    gallery.Draw(form, QStringLiteral("placeadd-two-after-six"));

    FormColoSuma two(clock);
    form.close();
    ShowAndActivate(two);
    Choose(two, QStringLiteral("MnuOpcSumLis(0)"));
    Choose(two, QStringLiteral("MnuOpcCifLis(2)"));
    two.Command2_Click(2);
    gallery.Draw(two, QStringLiteral("placeadd-two-addends"));
    gallery.DrawMaximised(two, QStringLiteral("placeadd-two-addends-maximised"));
}

} // namespace numbrela::testing
