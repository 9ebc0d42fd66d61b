#include "activities/addsub/screen/ColumnForm.h"

#include "common/screen/Announcement.h"
#include "common/screen/Boxes.h"
#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"
#include "common/screen/KeyCodes.h"
#include "common/screen/OptionMenu.h"
#include "common/screen/TextBox.h"

#include <QLabel>
#include <QMenu>

namespace numbrela {

namespace {

constexpr int areaWidth = 4875; // twips
constexpr FontSpec formFont { "Arial", 12 };
constexpr FontSpec headingFont { "Arial", 14.25 };
constexpr FontSpec buttonFont { "Arial", 9.75 };

const ColumnFormDesign sums {
    .Kind = Operation::Addition,
    .Name = "Form2",
    .Caption = "SUMAS",
    .AreaHeight = 7695,
    .OperandPoints = 15,
    .Heading = "Realiza la siguiente suma",
    .HeadingReadOnly = false,
    .Sign = "+",
    .OperandNames = { "Primer sumando", "Segundo sumando" },
    .Result = "Suma",
    .InputTitle = "Sumas",
    .EnterOperand1 = "&Introducir primer sumando",
    .EnterOperand2 = "I&ntroducir segundo sumando",
    .Exit = "&Salir (Alt - F4)",
};

const ColumnFormDesign differences {
    .Kind = Operation::Subtraction,
    .Name = "Form3",
    .Caption = "RESTAS",
    .AreaHeight = 7500, // with as much room below the score line as above the heading
    .OperandPoints = 12,
    .Heading = "Realiza la siguiente resta",
    .HeadingReadOnly = true,
    .Sign = "-",
    .OperandNames = { "Minuendo", "Sustraendo" },
    .Result = "Diferencia",
    .InputTitle = "Restas",
    .EnterOperand1 = "&Introducir minuendo",
    .EnterOperand2 = "I&ntroducir sustraendo",
    .Exit = "&Salir (Alt-F4)",
};

QString spanish(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

Form2::Form2(const Clock& clock)
    : ColumnForm(sums, clock)
{
}

Form3::Form3(const Clock& clock)
    : ColumnForm(differences, clock)
{
}

ColumnForm::ColumnForm(const ColumnFormDesign& design, const Clock& clock)
    : FormWindow(spanish(design.Name), spanish(design.Caption), { areaWidth, design.AreaHeight }, formFont)
    , design_(design)
    , random_(clock.Now().SeedProduct())
    , exercise_(design.Kind, random_)
{
    buildControls();
    buildMenus();
    OfferKeypad();
    Form_Load();
}

void ColumnForm::Form_Load()
{
    MnuOpcCif->CheckOnly(ColumnExercise::DigitChoices.IndexOf(exercise_.Digits));
    MnuOpcDec->CheckOnly(ColumnExercise::DecimalChoices.IndexOf(exercise_.Decimals));
    drawExercise();
    Text3->setFocus();
}

void ColumnForm::drawExercise()
{
    exercise_.Generate();
    showNewExercise(exercise_.DrawnTexts());
}

// In the order in which the eye, and so the Tab key, goes through them.
void ColumnForm::buildControls()
{
    const FontSpec operandFont { "Courier", design_.OperandPoints };

    Text1 = AddTextBox(Area(), QStringLiteral("Text1"), { 500, 500, 4000, 495 }, headingFont, Qt::AlignCenter);
    Text1->SetText(design_.Heading);
    Text1->setReadOnly(design_.HeadingReadOnly);
    Text1->LookReadOnly();
    Text1->setAccessibleName(QStringLiteral("Instrucción"));
    HandleKeys(*Text1, { .KeyPress = [this](QChar) { return Text1_KeyPress(); } });
    // A box that is not read-only allows cutting and pasting; this keeps the heading as it is.
    connect(Text1, &TextBox::textEdited, this, [this] { Text1->SetText(design_.Heading); });

    for (int index = 0; index < 2; ++index) {
        const auto i = static_cast<std::size_t>(index);
        Text2[i] = AddReadOnlyBox(Area(), QStringLiteral("Text2(%1)").arg(index), spanish(design_.OperandNames[i]),
            { 1500, 1500 + 500 * index, 2000, 495 }, operandFont, Qt::AlignRight | Qt::AlignVCenter);
        Text2[i]->StayWhole();
        Text2[i]->setFocusPolicy(Qt::ClickFocus);
        HandleKeys(*Text2[i], { .KeyPress = [this, index](QChar) { return Text2_KeyPress(index); } });
    }
    Label1 = AddLabel(Area(), QStringLiteral("Label1"), spanish(design_.Sign), { 1000, 2000, 500, 495 }, formFont);

    Text3 = AddTextBox(
        Area(), QStringLiteral("Text3"), { 1500, 2500, 2000, 495 }, formFont, Qt::AlignRight | Qt::AlignVCenter);
    Text3->StayWhole();
    Text3->setAccessibleName(spanish(design_.Result));
    HandleKeys(*Text3,
        {
            .KeyDown = [this](const Key& key) { return Text3_KeyDown(key.Code); },
            .KeyUp = [this](int keyCode) { Text3_KeyUp(keyCode); },
        });

    const ButtonRowDesign row {
        .Places = { { { 1750, 3500, 1500, 495 }, { 1750, 4500, 1500, 495 }, { 1750, 5000, 1500, 495 },
            { 1750, 5500, 1500, 495 } } },
        .Font = buttonFont,
    };
    Buttons = AddButtonRow(
        Area(), row, [this] { Command1_Click(); }, [this](int index) { Command2_Click(index); });

    Text4 = AddReadOnlyBox(
        Area(), QStringLiteral("Text4"), QStringLiteral("Veredicto"), { 1500, 4000, 2000, 495 }, buttonFont);
    tbResultados = AddReadOnlyBox(
        Area(), QStringLiteral("tbResultados"), QStringLiteral("Marcador"), { 1000, 6500, 3000, 495 }, formFont);
    tbResultados->SetText(exercise_.Score.Line());

    SetTabSequence({ Text1, Text3, Buttons.Command1, Text4, Buttons.Command2[0], Buttons.Command2[1],
        Buttons.Command2[2], tbResultados });
}

void ColumnForm::buildMenus()
{
    QMenu* options = AddMenu(QStringLiteral("MnuOpc"), QStringLiteral("&Opciones"));
    MnuOpcCif = AddOptionMenu(options, QStringLiteral("MnuOpcCif"), QStringLiteral("&Cifras"),
        CaptionsOf(ColumnExercise::DigitChoices), [this](int index) { MnuOpcCifLis_Click(index); });
    MnuOpcDec = AddOptionMenu(options, QStringLiteral("MnuOpcDec"), QStringLiteral("&Decimales"),
        CaptionsOf(ColumnExercise::DecimalChoices), [this](int index) { MnuOpcDeCLis_Click(index); });
    AddMenuItem(
        options, QStringLiteral("MnuOpcIn1"), spanish(design_.EnterOperand1), [this] { MnuOpcIn1_Click(); },
        Qt::Key_F2);
    AddMenuItem(
        options, QStringLiteral("MnuOpcIn2"), spanish(design_.EnterOperand2), [this] { MnuOpcIn2_Click(); },
        Qt::Key_F3);
    AddMenuItem(options, QStringLiteral("MnuOpcSal"), spanish(design_.Exit), [this] { MnuOpcSal_Click(); });
}

void ColumnForm::showNewExercise(const OperandTexts& texts)
{
    Text3->SetText("");
    Text2[0]->SetText(texts.Upper);
    Text2[1]->SetText(texts.Lower);
    Text2[0]->SelectWholeText();
    Text2[1]->SelectWholeText();
    Text4->SetText("");
    const QString exercise
        = InWords(Text2[0]->text().trimmed() + u' ' + Label1->text() + u' ' + Text2[1]->text().trimmed());
    Text3->Describe(exercise); // because the Tab key skips the operands
    if (isVisible()) { // when the window opens, the description is heard with the focus
        Announce(*Text3, exercise);
    }
}

void ColumnForm::Command1_Click()
{
    const Verdict verdict = exercise_.Judge(Text3->Text());
    Text4->ShowVerdict(verdict);
    Text4->SelectWholeText();
    if (verdict.Right) {
        Buttons.Command2[0]->setFocus();
    } else {
        Text3->setFocus();
    }
    tbResultados->SetText(exercise_.Score.Count(verdict.Right));
}

void ColumnForm::Command2_Click(int index)
{
    switch (index) {
    case 0:
        Text3->setFocus();
        exercise_.Continue();
        showNewExercise(exercise_.DrawnTexts());
        break;
    case 1:
        Text3->setFocus();
        Text3->SetText("");
        AnnounceContents(*Text3);
        break;
    case 2:
        Text3->SetText(exercise_.ShowSolution());
        Text3->SelectWholeText();
        AnnounceContents(*Text3);
        Buttons.Command2[0]->setFocus();
        break;
    default:
        break;
    }
}

void ColumnForm::MnuOpcCifLis_Click(int index)
{
    MnuOpcCif->CheckOnly(index);
    exercise_.Digits = ColumnExercise::DigitChoices.ValueAt(index);
    drawExercise();
}

void ColumnForm::MnuOpcDeCLis_Click(int index)
{
    MnuOpcDec->CheckOnly(index);
    exercise_.Decimals = ColumnExercise::DecimalChoices.ValueAt(index);
    drawExercise();
}

void ColumnForm::MnuOpcIn1_Click()
{
    takeOperand(&ColumnExercise::EnterOperand1);
}

void ColumnForm::MnuOpcIn2_Click()
{
    takeOperand(&ColumnExercise::EnterOperand2);
}

void ColumnForm::takeOperand(OperandEntry (ColumnExercise::*enter)(std::string_view))
{
    const std::string typed = AskText(this, "Introduzca el nuevo valor:", design_.InputTitle);
    const OperandEntry entry = (exercise_.*enter)(typed);
    if (entry.Accepted) {
        showNewExercise(exercise_.AlignedTexts());
    } else if (!entry.Message.empty()) {
        ShowMessage(this, entry.Message, entry.MessageTitle);
    }
}

void ColumnForm::MnuOpcSal_Click()
{
    close();
}

KeyAnswer ColumnForm::Text1_KeyPress()
{
    Text3->setFocus();
    return KeyAnswer::Consumed(); // what is typed here was meant for the answer, so the heading does not take it
}

KeyAnswer ColumnForm::Text2_KeyPress(int /*index*/)
{
    Text3->setFocus();
    return KeyAnswer::GoesOn();
}

KeyAnswer ColumnForm::Text3_KeyDown(int keyCode)
{
    if (keyCode == KeyCode::Enter) {
        Command1_Click();
    }
    return KeyAnswer::GoesOn();
}

void ColumnForm::Text3_KeyUp(int keyCode)
{
    if (WritesDigitOrComma(keyCode)) {
        Text3->StepCaretLeft();
    }
}

} // namespace numbrela
