#include "activities/addsub/screen/ColumnForm.h"
#include "tests/gallery/Gallery.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"

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

template <typename Form>
void drawStates(Gallery& gallery, const QString& prefix, const QString& title, const QString& rightToLeftAnswer)
{
    const FixedClock clock;
    Form form(clock);
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
    Click(form, "CbTeclado");
    gallery.DrawNextBox(prefix + QStringLiteral("entry-keypad"));
    Press(Qt::Key_F2);
    Click(form, "CbTeclado");
    typeOperands(title, QStringLiteral("1234,5"), QStringLiteral("905,16"));
    gallery.Draw(form, prefix + QStringLiteral("typed"));

    Click(form, "Text3");
    Type(rightToLeftAnswer);
    Press(Qt::Key_Return);
    gallery.Draw(form, prefix + QStringLiteral("right"));
    gallery.DrawMaximised(form, prefix + QStringLiteral("maximised"));

    Choose(form, "MnuOpcCifLis(6)");
    Choose(form, "MnuOpcDecLis(6)");
    Click(form, "Command2(2)");
    gallery.Draw(form, prefix + QStringLiteral("longest"));
}

} // namespace

void DrawAddSub(Gallery& gallery)
{
    drawStates<Form2>(gallery, QStringLiteral("addition-"), QStringLiteral("Sumas"), QStringLiteral("66,9312"));
    drawStates<Form3>(gallery, QStringLiteral("subtraction-"), QStringLiteral("Restas"), QStringLiteral("43,923"));
}

} // namespace numbrela::testing
