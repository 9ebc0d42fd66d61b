#include "activities/powers10/screen/FrmUnidad.h"

#include "common/screen/Announcement.h"
#include "common/screen/Boxes.h"
#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"
#include "common/screen/KeyCodes.h"
#include "common/screen/OptionMenu.h"
#include "common/screen/TextBox.h"

#include <QMenu>

namespace numbrela {

namespace {

constexpr TwipsSize area { 7500, 6300 };
constexpr FontSpec formFont { "Arial", 12 };
constexpr FontSpec headingFont { "Arial", 14.25 };
constexpr FontSpec arithmeticFont { "Arial", 20 };

} // namespace

FrmUnidad::FrmUnidad(const Clock& clock)
    : FormWindow(QStringLiteral("FrmUnidad"), QStringLiteral("multiplicar y dividir por 10, 100, 1000"), area, formFont)
    , random_(clock.Now().SecondsSinceMidnight)
    , exercise_(random_)
{
    buildControls();
    buildMenus();
    OfferKeypad();
    Form_Load();
}

// Both lists keep the check marks set here; a later choice shows only in the numbers.
void FrmUnidad::Form_Load()
{
    MnuOpcCi1->CheckOnly(PowersOfTen::Digits1Choices.IndexOf(exercise_.Digits1));
    MnuOpcCi2->CheckOnly(PowersOfTen::Digits2Choices.IndexOf(exercise_.Digits2Shown()));
    showNewExercise();
    TBRespuesta->setFocus();
}

// In the order in which the eye, and so the Tab key, goes through them.
void FrmUnidad::buildControls()
{
    TbInstruc = AddReadOnlyBox(
        Area(), QStringLiteral("TbInstruc"), QStringLiteral("Instrucción"), { 1500, 500, 4500, 500 }, headingFont);
    TbInstruc->SetText("Resuelve la operación");
    buildLineOfArithmetic();

    const ButtonRowDesign row {
        .Places = { { { 2750, 2700, 2000, 500 }, { 2750, 4000, 2000, 500 }, { 2750, 4650, 2000, 500 },
            { 2750, 5300, 2000, 500 } } },
        .Font = formFont,
    };
    Buttons = AddButtonRow(
        Area(), row, [this] { Command1_Click(); }, [this](int index) { Command2_Click(index); });
    TBResultado = AddReadOnlyBox(
        Area(), QStringLiteral("TBResultado"), QStringLiteral("Veredicto"), { 2250, 3350, 3000, 500 }, formFont);

    SetTabSequence({ TbInstruc, TBDatos[0], TBDatos[1], TBDatos[2], TBDatos[3], TBRespuesta, Buttons.Command1,
        TBResultado, Buttons.Command2[0], Buttons.Command2[1], Buttons.Command2[2] });
}

void FrmUnidad::buildLineOfArithmetic()
{
    constexpr int top = 1500;
    constexpr int height = 700;
    const struct {
        QString SpokenName;
        int Left;
        int Width;
    } places[] = {
        { QStringLiteral("Número"), 350, 1600 },
        { QStringLiteral("Signo"), 2050, 700 },
        { QStringLiteral("Potencia de diez"), 2850, 1300 },
        { QStringLiteral("Es igual a"), 4250, 500 },
    };
    for (std::size_t i = 0; i < TBDatos.size(); ++i) {
        const auto& [spokenName, left, width] = places[i];
        TBDatos[i] = AddReadOnlyBox(
            Area(), QStringLiteral("TBDatos(%1)").arg(i), spokenName, { left, top, width, height }, arithmeticFont);
    }
    TBDatos[3]->SetText("=");

    TBRespuesta = AddTextBox(Area(), QStringLiteral("TBRespuesta"), { 4850, top, 2300, height }, arithmeticFont);
    TBRespuesta->setAccessibleName(QStringLiteral("Resultado"));
    HandleKeys(*TBRespuesta, { .KeyPress = [this](QChar character) { return TBRespuesta_KeyPress(character); } });
    // Commands such as cutting and pasting change the text too, without typing a character.
    connect(TBRespuesta, &TextBox::textEdited, this, [this] { TBResultado->SetText(""); });
}

void FrmUnidad::buildMenus()
{
    QMenu* options = AddMenu(QStringLiteral("MnuOpc"), QStringLiteral("&Opciones"));
    MnuOpcCi1 = AddOptionMenu(options, QStringLiteral("MnuOpcCi1"), QStringLiteral("&Cifras factor 1"),
        CaptionsOf(PowersOfTen::Digits1Choices), [this](int index) { MnuOpcCi1Lis_Click(index); });
    // This list only tells how long the powers of ten can be: choosing from it does nothing.
    MnuOpcCi2 = AddOptionMenu(options, QStringLiteral("MnuOpcCi2"), QStringLiteral("&Cifras factor 2"),
        CaptionsOf(PowersOfTen::Digits2Choices), [](int) {});
    AddMenuItem(
        options, QStringLiteral("MnuOpcIn1"), QStringLiteral("&Insertar factor 1..."), [this] { MnuOpcIn1_Click(); },
        Qt::Key_F2);
    AddMenuItem(
        options, QStringLiteral("MnuOpcIn2"), QStringLiteral("&Insertar factor 2 ..."), [this] { MnuOpcIn2_Click(); },
        Qt::Key_F3);
    AddMenuItem(options, QStringLiteral("MnuOpcSal"), QStringLiteral("&Salir Alt + F4"), [this] { MnuOpcSal_Click(); });
}

void FrmUnidad::showNewExercise()
{
    exercise_.NewPowerOfTenExercise();
    TBDatos[0]->SetText(exercise_.Factor1Text());
    TBDatos[1]->SetText(exercise_.Sign());
    TBDatos[2]->SetText(exercise_.Factor2Text());
    TBRespuesta->SetText("");
    TBResultado->SetText("");
    for (TextBox* box : TBDatos) {
        box->SelectWholeText();
    }
    const QString exercise = InWords(TBDatos[0]->text() + TBDatos[1]->text() + TBDatos[2]->text());
    TBRespuesta->Describe(exercise);
    if (isVisible()) { // when the window opens, the description is heard with the focus
        Announce(*TBRespuesta, exercise);
    }
}

void FrmUnidad::Command1_Click()
{
    const Verdict verdict = exercise_.Judge(TBRespuesta->Text());
    TBResultado->ShowVerdict(verdict);
    TBResultado->SelectWholeText();
    if (verdict.Right) {
        Buttons.Command2[0]->setFocus();
    } else {
        TBRespuesta->setFocus();
    }
}

void FrmUnidad::Command2_Click(int index)
{
    switch (index) {
    case 0:
        TBRespuesta->setFocus();
        showNewExercise();
        break;
    case 1:
        TBRespuesta->setFocus();
        TBRespuesta->SetText("");
        AnnounceContents(*TBRespuesta);
        break;
    case 2:
        TBRespuesta->SetText(exercise_.Solution());
        TBRespuesta->SelectWholeText();
        AnnounceContents(*TBRespuesta);
        Buttons.Command2[0]->setFocus();
        break;
    default:
        break;
    }
}

KeyAnswer FrmUnidad::TBRespuesta_KeyPress(QChar character)
{
    TBResultado->SetText("");
    if (character.unicode() != KeyCode::Enter) {
        return KeyAnswer::GoesOn();
    }
    Command1_Click();
    return KeyAnswer::Consumed();
}

void FrmUnidad::MnuOpcCi1Lis_Click(int index)
{
    exercise_.Digits1 = PowersOfTen::Digits1Choices.ValueAt(index);
    showNewExercise();
}

// A typed factor is not shown: the line keeps the drawn numbers, while the check and the solution use the typed one.
void FrmUnidad::MnuOpcIn1_Click()
{
    exercise_.EnterFactor1(AskText(this, "Introduzca el primer factor de la multiplicación:", "Insertar factor 1"));
}

void FrmUnidad::MnuOpcIn2_Click()
{
    exercise_.EnterFactor2(AskText(this, "Introduzca el segundo factor de la multiplicación:", "Insertar factor 2"));
}

void FrmUnidad::MnuOpcSal_Click()
{
    close();
}

} // namespace numbrela
