#include "activities/compare/screen/Form6.h"
#include "common/screen/CommandButton.h"
#include "common/screen/TextBox.h"
#include "tests/gallery/Gallery.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"

namespace numbrela::testing {

namespace {

// Presses the buttons that are left, from the first to the last, until the verdict says so.
void pressUntil(Form6& form, const std::string& verdict)
{
    for (int index = 0; index < static_cast<int>(form.CbNúmero.size()); ++index) {
        if (!form.CbNúmero[static_cast<std::size_t>(index)]->isVisible()) {
            continue;
        }
        form.CbNúmero_Click(index);
        if (form.Text3->Text() == verdict) {
            return;
        }
    }
}

} // namespace

void DrawCompare(Gallery& gallery)
{
    const FixedClock clock;
    Form6 form(clock);
    ShowAndActivate(form);
    gallery.Draw(form, QStringLiteral("compare-fresh"));

    pressUntil(form, "ERROR");
    gallery.Draw(form, QStringLiteral("compare-wrong"));
    gallery.DrawMaximised(form, QStringLiteral("compare-maximised"));

    pressUntil(form, "CORRECTO");
    gallery.Draw(form, QStringLiteral("compare-right"));
}

} // namespace numbrela::testing
