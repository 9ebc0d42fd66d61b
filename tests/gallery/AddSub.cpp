#include "activities/addsub/screen/ColumnForm.h"
#include "common/screen/CommandButton.h"
#include "common/screen/TextBox.h"
#include "tests/gallery/Gallery.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/Shown.h"

#include <QLabel>

namespace numbrela::testing {

namespace {

void typeOperands(const QString& title, const QString& first, const QString& second)
{
    const QString prompt = QStringLiteral("Introduzca el nuevo valor:");
    ExpectInput(title, prompt, first);
    Press(Qt::Key_F2);
    ExpectInput(title, prompt, second);
    Press(Qt::Key_F3);
}

void drawMistake(Gallery& gallery, const QString& prefix, ColumnForm& form)
{
    ShowAndActivate(form);
    gallery.Draw(form, prefix + QStringLiteral("fresh"));
    gallery.DrawWithKeypad(form, prefix + QStringLiteral("keypad"));

    Type("5");
    Press(Qt::Key_Return);
    gallery.Draw(form, prefix + QStringLiteral("wrong"));

    Click(form, "Command2(2)");
    gallery.Draw(form, prefix + QStringLiteral("solution"));

    gallery.DrawNextBox(prefix + QStringLiteral("entry"));
    Press(Qt::Key_F2);
    SwitchKeypad(form);
    gallery.DrawNextBox(prefix + QStringLiteral("entry-keypad"));
    Press(Qt::Key_F2);
    SwitchKeypad(form);
    form.close();
}

// Right at once, so that the score is that of one exercise.
void drawRight(Gallery& gallery, const QString& prefix, ColumnForm& form, const QString& title, const QString& answer)
{
    ShowAndActivate(form);
    typeOperands(title, QStringLiteral("1234,5"), QStringLiteral("905,16"));
    gallery.Draw(form, prefix + QStringLiteral("typed"));

    Click(form, "Text3");
    TypeResult(answer);
    Press(Qt::Key_Return);
    gallery.Draw(form, prefix + QStringLiteral("right"));
    const QRect working = PlaceIn(form, form.Text2[0]) | PlaceIn(form, form.Text2[1]) | PlaceIn(form, form.Text3)
        | PlaceIn(form, form.Label1) | PlaceIn(form, form.Text4) | PlaceIn(form, form.Buttons.Command2[2]);
    gallery.DrawAround(form, working, prefix + QStringLiteral("right-part"));
    gallery.DrawMaximised(form, prefix + QStringLiteral("maximised"));

    Choose(form, "MnuOpcCifLis(6)");
    Choose(form, "MnuOpcDecLis(6)");
    Click(form, "Command2(2)");
    gallery.Draw(form, prefix + QStringLiteral("longest"));
}

template <typename Form>
void drawStates(Gallery& gallery, const QString& prefix, const QString& title, const QString& answer)
{
    const FixedClock clock;
    Form first(clock);
    drawMistake(gallery, prefix, first);
    Form second(clock);
    drawRight(gallery, prefix, second, title, answer);
}

} // namespace

void DrawAddSub(Gallery& gallery)
{
    drawStates<Form2>(gallery, QStringLiteral("addition-"), QStringLiteral("Sumas"), QStringLiteral("2139,66"));
    drawStates<Form3>(gallery, QStringLiteral("subtraction-"), QStringLiteral("Restas"), QStringLiteral("329,34"));
}

} // namespace numbrela::testing
