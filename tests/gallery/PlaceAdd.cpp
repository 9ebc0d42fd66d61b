#include "activities/placeadd/screen/FormColoSuma.h"
#include "common/screen/TextBox.h"
#include "tests/gallery/Gallery.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"

namespace numbrela::testing {

namespace {

// 92,5 + 84 + 3,5 + 251 = 431: what this time of day draws, a sum without decimals, which can be judged right.
void drawWholeSum(Gallery& gallery)
{
    const FixedClock clock({ 8, 22, 33, 30153 });
    FormColoSuma form(clock);
    ShowAndActivate(form);
    gallery.Draw(form, QStringLiteral("placeadd-fresh"));
    gallery.DrawWithKeypad(form, QStringLiteral("placeadd-keypad"));

    Type("  92,5");
    Press(Qt::Key_Tab);
    Type("  84");
    Click(form, "Command1");
    gallery.Draw(form, QStringLiteral("placeadd-wrong"));
    Click(form, "TbSumando(1)");
    for (const char* rest : { "   3,5", " 251", " 431" }) {
        Press(Qt::Key_Tab);
        Type(rest);
    }
    Click(form, "Command1");
    gallery.DrawBoth(form, QStringLiteral("placeadd-right"));
}

// Draws until no digit of the solution is lost: up to three digits, so at most two decimals.
void drawSixAddends(Gallery& gallery, FormColoSuma& form)
{
    Choose(form, "MnuOpcSumLis(4)");
    Click(form, "Command2(2)");
    while (form.TbResultado->text().section(u',', 1).size() != 2) {
        Click(form, "Command2(0)");
        Click(form, "Command2(2)");
    }
    gallery.DrawBoth(form, QStringLiteral("placeadd-six-addends"));
}

// A new window with six addends of up to five digits: a solution longer than what can be typed, and what is said of
// one that does not fit. The same exercises are drawn beside it, to know which are which.
void drawFiveDigits(Gallery& gallery, const Clock& clock)
{
    FormColoSuma form(clock);
    ShowAndActivate(form);
    SeededRandom random(clock.Now().SecondsSinceMidnight);
    PlaceAndAdd drawn(random);
    drawn.NewPlaceAndAdd();
    Choose(form, "MnuOpcSumLis(4)");
    drawn.AddendCount = 6;
    drawn.NewPlaceAndAdd();
    Choose(form, "MnuOpcCifLis(3)");
    drawn.MaxDigits = 5;
    drawn.NewPlaceAndAdd();
    const auto drawUntil = [&](auto wanted) {
        while (!wanted()) {
            form.Command2_Click(0);
            drawn.NewPlaceAndAdd();
        }
    };

    constexpr float leastTooLong = 10000;
    constexpr std::size_t length = 9; // four columns, the comma and four decimals
    drawUntil([&] { return drawn.AddendSum < leastTooLong && drawn.Solution().Sum.size() == length; });
    form.Command2_Click(2);
    gallery.Draw(form, QStringLiteral("placeadd-six-addends-of-five-digits"));

    drawUntil([&] { return drawn.AddendSum >= leastTooLong; });
    gallery.DrawNextBox(QStringLiteral("placeadd-too-long"));
    form.Command2_Click(2);
}

} // namespace

void DrawPlaceAdd(Gallery& gallery)
{
    drawWholeSum(gallery);

    const FixedClock clock;
    FormColoSuma form(clock);
    ShowAndActivate(form);
    drawSixAddends(gallery, form);

    Choose(form, "MnuOpcSumLis(0)");
    form.Command2_Click(2);
    gallery.Draw(form, QStringLiteral("placeadd-two-after-six"));

    FormColoSuma two(clock);
    form.close();
    ShowAndActivate(two);
    Choose(two, "MnuOpcSumLis(0)");
    Choose(two, "MnuOpcCifLis(2)");
    two.Command2_Click(2);
    gallery.DrawBoth(two, QStringLiteral("placeadd-two-addends"));
    two.close();

    drawFiveDigits(gallery, clock);
}

} // namespace numbrela::testing
