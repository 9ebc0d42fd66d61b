#include "activities/multiply/screen/Dialog.h"
#include "activities/multiply/screen/Form4.h"
#include "common/screen/CommandButton.h"
#include "common/screen/TextBox.h"
#include "tests/gallery/Gallery.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/Shown.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDialog>

namespace numbrela::testing {

namespace {

void typeFactors(const QString& first, const QString& second)
{
    const QString prompt = QStringLiteral("Escriba el nuevo valor:");
    ExpectInput(QStringLiteral("Introducir primer factor"), prompt, first);
    Press(Qt::Key_F2);
    ExpectInput(QStringLiteral("Introducir segundo factor"), prompt, second);
    Press(Qt::Key_F3);
}

// A key of the input box is held down; that of the window behind the message cannot be.
void drawBoxesOnPanel(Gallery& gallery, Form4& form)
{
    const QSize before = form.size();
    form.resize(1920, 1080);
    SwitchKeypad(form);
    ExpectDialog([&gallery](QDialog& entry) {
        QCoreApplication::processEvents(); // the box gets the focus, and what is held then comes up
        FingerDown(Find<QWidget>(entry, QStringLiteral("Tecla(5)")));
        gallery.Draw(entry, QStringLiteral("multiplication-entry-keypad-1920x1080"));
        LiftFinger();
        entry.reject();
    });
    ExpectDialog([&gallery, &form](QDialog& message) {
        gallery.Draw(form, QStringLiteral("multiplication-keypad-behind-message-1920x1080"));
        gallery.Draw(message, QStringLiteral("multiplication-refused-1920x1080"));
        message.accept();
    });
    Press(Qt::Key_F2);
    SwitchKeypad(form);
    form.resize(before);
}

void drawWork(Gallery& gallery, Form4& form)
{
    gallery.Draw(form, QStringLiteral("multiplication-fresh"));
    gallery.DrawWithKeypad(form, QStringLiteral("multiplication-keypad"));
    gallery.DrawNextBox(QStringLiteral("multiplication-entry"));
    gallery.DrawNextBox(QStringLiteral("multiplication-refused"));
    Press(Qt::Key_F2);
    drawBoxesOnPanel(gallery, form);
    typeFactors(QStringLiteral("73,4"), QStringLiteral("4,6"));
    form.TbParcial[0]->setFocus();
    Type("4044");
    Press(Qt::Key_Tab);
    Type(" 63");
    gallery.Draw(form, QStringLiteral("multiplication-half-worked"));

    Type("92");
    Press(Qt::Key_Tab);
    Type("46,743");
    Press(Qt::Key_Return);
    gallery.Draw(form, QStringLiteral("multiplication-wrong"));

    form.TbResultado->SetText("");
    form.TbResultado->setFocus();
    Type("46,733");
    Press(Qt::Key_Return);
    gallery.Draw(form, QStringLiteral("multiplication-right"));
    Click(form, "Command1");
    gallery.Draw(form, QStringLiteral("multiplication-right-again"));
    gallery.DrawMaximised(form, QStringLiteral("multiplication-maximised"));
}

void drawSolutions(Gallery& gallery, Form4& form)
{
    ShowAndActivate(form);
    const auto drawSolution = [&](const char* name) {
        Click(form, "Command2(2)");
        gallery.Draw(form, QStringLiteral("multiplication-") + QString::fromLatin1(name));
    };
    typeFactors(QStringLiteral("7"), QStringLiteral("8"));
    drawSolution("one-row");
    gallery.DrawMaximised(form, QStringLiteral("multiplication-one-row-maximised"));
    typeFactors(QStringLiteral("987,65"), QStringLiteral("120,5"));
    drawSolution("solution");
    constexpr int sign = 28; // pixels that × and = take before the boxes
    const QRect columns = PlaceIn(form, form.TbFactor[0]) | PlaceIn(form, form.TbResultado);
    gallery.DrawAround(form, columns.adjusted(-sign, 0, 0, 0), QStringLiteral("multiplication-solution-part"));

    Choose(form, "MnuOpcOcu");
    typeFactors(QStringLiteral("987,65"), QStringLiteral("12005"));
    typeFactors(QStringLiteral("987,65"), QStringLiteral("12005"));
    drawSolution("hidden-zeros");
    Choose(form, "MnuOpcOcu");

    typeFactors(QStringLiteral("12345"), QStringLiteral("67891"));
    drawSolution("five-rows");
    typeFactors(QStringLiteral("1234567890"), QStringLiteral("9876543219"));
    drawSolution("ten-rows");
    for (const char* option : { "MnuOpcCi1Lis(9)", "MnuOpcCi2Lis(9)", "MnuOpcDe1Lis(5)", "MnuOpcDe2Lis(5)" }) {
        Choose(form, option);
    }
    gallery.Draw(form, QStringLiteral("multiplication-fifteen-rows-fresh"));
    drawSolution("fifteen-rows");
    gallery.DrawMaximised(form, QStringLiteral("multiplication-fifteen-rows-maximised"));
    typeFactors(QStringLiteral("-7,5"), QStringLiteral("12345678901234567890"));
    drawSolution("twenty-digits");
}

void drawTables(Gallery& gallery, Form4& form)
{
    const auto tick = [&gallery](const QString& name) {
        ExpectDialog([&gallery, name](QDialog& box) {
            auto& dialog = dynamic_cast<Dialog&>(box);
            for (const std::size_t index : { 1U, 2U, 6U }) {
                dialog.Check1[index]->setChecked(true);
            }
            gallery.Draw(dialog, name);
            dialog.OKButton->click();
        });
    };
    tick(QStringLiteral("tables"));
    Choose(form, "MnuOpcSelLis(1)");
    const QSize before = form.size();
    form.resize(1280, 800);
    QCoreApplication::processEvents();
    tick(QStringLiteral("tables-maximised"));
    Choose(form, "MnuOpcSelLis(1)");
    form.resize(before);
}

} // namespace

void DrawMultiply(Gallery& gallery)
{
    const FixedClock clock;
    std::unique_ptr<Dialog> tables;
    Form4 form(clock, tables);
    ShowAndActivate(form);
    drawWork(gallery, form);
    form.close();

    Form4 solved(clock, tables); // with no verdict of an earlier answer
    drawSolutions(gallery, solved);
    solved.close();

    Form4 another(clock, tables);
    ShowAndActivate(another);
    drawTables(gallery, another);
}

} // namespace numbrela::testing
