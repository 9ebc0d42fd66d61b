#include "activities/powers10/screen/FrmUnidad.h"
#include "common/screen/TextBox.h"
#include "tests/gallery/Gallery.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"

#include <QDialog>
#include <QLineEdit>

namespace numbrela::testing {

namespace {

// Draws until the solution is as long as they come, and shows it: "0,0001234".
void showLongest(FrmUnidad& form)
{
    do {
        form.Command2_Click(0);
        form.Command2_Click(2);
    } while (form.TBRespuesta->text().size() < 9);
}

// The same exercise in a new window, worked by the numbers that are seen.
void drawWorked(Gallery& gallery, const Clock& clock)
{
    FrmUnidad form(clock);
    ShowAndActivate(form);
    Click(form, "Command2(2)");
    Click(form, "Command1");
    gallery.Draw(form, QStringLiteral("powers10-worked"));
}

} // namespace

void DrawPowers10(Gallery& gallery)
{
    const FixedClock clock;
    FrmUnidad form(clock);
    ShowAndActivate(form);
    gallery.Draw(form, QStringLiteral("powers10-fresh"));
    gallery.DrawWithKeypad(form, QStringLiteral("powers10-keypad"));
    ExpectDialog([&gallery](QDialog& box) {
        gallery.Draw(box, QStringLiteral("powers10-entry"));
        box.findChild<QLineEdit*>()->setText(QStringLiteral("12,5")); // without a number the program would end
        box.accept();
    });
    Choose(form, "MnuOpcIn1");

    Type("12,5");
    Press(Qt::Key_Return);
    gallery.Draw(form, QStringLiteral("powers10-wrong"));

    Click(form, "Command2(2)");
    gallery.Draw(form, QStringLiteral("powers10-solution"));

    Click(form, "Command1");
    gallery.Draw(form, QStringLiteral("powers10-right"));
    gallery.DrawMaximised(form, QStringLiteral("powers10-maximised"));

    Choose(form, "MnuOpcCi1Lis(3)");
    showLongest(form);
    gallery.Draw(form, QStringLiteral("powers10-longest"));
    form.close();

    drawWorked(gallery, clock);
}

} // namespace numbrela::testing
