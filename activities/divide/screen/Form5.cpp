#include "activities/divide/screen/Form5.h"

#include "activities/divide/screen/StatementBox.h"
#include "activities/divide/screen/WorkingGridBox.h"
#include "common/core/RunTimeError.h"
#include "common/screen/Announcement.h"
#include "common/screen/Boxes.h"
#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"
#include "common/screen/KeyCodes.h"
#include "common/screen/Line.h"
#include "common/screen/OptionMenu.h"
#include "common/screen/TextBox.h"

#include <QMenu>
#include <QShortcut>

namespace numbrela {

namespace {

// In twips. Both bars of the bracket meet left of the quotient.
constexpr TwipsSize area { 6000, 8505 };
constexpr int bracketLeft = 2600;
constexpr int bracketTop = 500;
constexpr int bracketWidth = 2100;
constexpr int bracketRow = 435;
constexpr int gapLeftOfBar = 5;
constexpr int margin = 300; // beside a grid too wide for the area

constexpr FontSpec digitFont { "Courier New", 14.25 };
constexpr FontSpec formFont { "Arial", 12 };
constexpr FontSpec buttonFont { "Arial", 9.75 };

} // namespace

Form5::Form5(const Clock& clock, bool& commaShift)
    : FormWindow(QStringLiteral("Form5"), QStringLiteral("DIVISIONES"), area, formFont)
    , random_(clock.Now().SeedProduct())
    , exercise_(random_, commaShift)
{
    Area().SetMargin(margin);
    buildBracket();
    buildRest();
    buildMenus();
    OfferKeypad(KeypadKeys::WithBlankAndArrows);
    for (const auto modifier : { Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier }) {
        connect(new QShortcut(modifier | Qt::Key_F5, this), &QShortcut::activated, this, &Form5::Form_KeyDown);
    }
    Form_Load();
}

void Form5::Form_Load()
{
    checkOptions();
    GenerateDivision();
    Text1->setFocus();
}

// In the order in which the eye, and so the Tab key, goes through them.
void Form5::buildBracket()
{
    Text1 = new WorkingGridBox(exercise_.Grid, this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setAccessibleName(QStringLiteral("Dividendo y operaciones"));
    HandleKeys(*Text1,
        {
            .KeyDown = [this](const Key& key) { return Text1_KeyDown(key.Code); },
            .KeyPress = [this](QChar character) { return Text1_KeyPress(character); },
        });

    Text2 = AddReadOnlyBox(Area(), QStringLiteral("Text2"), QStringLiteral("Divisor"),
        { bracketLeft, bracketTop, bracketWidth, bracketRow }, digitFont, Qt::AlignLeft | Qt::AlignVCenter);
    Text2->StayWhole();
    connect(Text2, &TextBox::GotFocus, this, &Form5::Text2_GotFocus);

    Text3 = AddTextBox(Area(), QStringLiteral("Text3"),
        { bracketLeft, bracketTop + bracketRow, bracketWidth, bracketRow }, digitFont,
        Qt::AlignLeft | Qt::AlignVCenter);
    Text3->StayWhole();
    Text3->setAccessibleName(QStringLiteral("Cociente"));
    connect(Text3, &TextBox::GotFocus, this, &Form5::Text3_GotFocus);

    const TwipsPoint corner { bracketLeft, bracketTop + bracketRow };
    Line1 = new Line(Area(), QStringLiteral("Line1"), { bracketLeft, bracketTop }, corner);
    Line2 = new Line(Area(), QStringLiteral("Line2"), corner, { bracketLeft + bracketWidth, corner.Y });
}

void Form5::buildRest()
{
    const ButtonRowDesign row {
        .Places = { { { 3000, 2000, 2000, 495 }, { 3000, 3000, 2000, 495 }, { 3000, 3500, 2000, 495 },
            { 3000, 4000, 2000, 495 } } },
        .Font = buttonFont,
        .SolutionCaption = QStringLiteral("&Ver solucióm"),
    };
    Buttons = AddButtonRow(
        Area(), row, [this] { Command1_Click(); }, [this](int index) { Command2_Click(index); });

    Text4 = AddControl(Area(), new StatementBox(this), QStringLiteral("Text4"), { 3000, 2500, 2000, 495 }, buttonFont);
    Text4->setAccessibleName(QStringLiteral("Enunciado y veredicto"));
    tbResultados = AddReadOnlyBox(
        Area(), QStringLiteral("tbResultados"), QStringLiteral("Marcador"), { 2700, 7500, 2800, 495 }, formFont);
    tbResultados->SetText(exercise_.Score.Line());

    SetTabSequence({ Text1, Text2, Text3, Buttons.Command1, Text4, Buttons.Command2[0], Buttons.Command2[1],
        Buttons.Command2[2], tbResultados });
}

void Form5::buildMenus()
{
    QMenu* options = AddMenu(QStringLiteral("MnuOpc"), QStringLiteral("&Opciones"));
    MnuOpcDiv = AddOptionMenu(options, QStringLiteral("MnuOpcDiv"), QStringLiteral("&Cifras del dividendo"),
        CaptionsOf(DivisionExercise::DividendDigitChoices), [this](int index) { MnuOpcDivLis_Click(index); });
    MnuOpcDeD = AddOptionMenu(options, QStringLiteral("MnuOpcDeD"), QStringLiteral("&Decimales del dividendo"),
        CaptionsOf(DivisionExercise::DividendDecimalChoices), [this](int index) { MnuOpcDeDLis_Click(index); });
    MnuOpcDis = AddOptionMenu(options, QStringLiteral("MnuOpcDis"), QStringLiteral("C&ifras del divisor"),
        CaptionsOf(DivisionExercise::DivisorDigitChoices), [this](int index) { MnuOpcDisLis_Click(index); });
    MnuOpcDeC = AddOptionMenu(options, QStringLiteral("MnuOpcDeC"), QStringLiteral("&Decimales del cociente"),
        CaptionsOf(DivisionExercise::QuotientDecimalChoices), [this](int index) { MnuOpcDeCLis_Click(index); });
    MnuOpcRes = AddMenuItem(options, QStringLiteral("MnuOpcRes"), QStringLiteral("&Restas intermedias (No)"),
        [this] { MnuOpcRes_Click(); });
    AddMenuItem(
        options, QStringLiteral("MnuOpcInt"), QStringLiteral("I&ntroducir dividendo"), [this] { MnuOpcInt_Click(); },
        Qt::Key_F2);
    AddMenuItem(
        options, QStringLiteral("MnuOpcInd"), QStringLiteral("In&troducir divisor"), [this] { MnuOpcInd_Click(); },
        Qt::Key_F3);
    AddMenuItem(
        options, QStringLiteral("MnuOpcSal"), QStringLiteral("&Salir (Alt - F4)"), [this] { MnuOpcSal_Click(); });
}

void Form5::checkOptions()
{
    MnuOpcDiv->CheckOnly(DivisionExercise::DividendDigitChoices.IndexOf(exercise_.DividendDigits));
    MnuOpcDeD->CheckOnly(DivisionExercise::DividendDecimalChoices.IndexOf(exercise_.DividendDecimals));
    MnuOpcDis->CheckOnly(DivisionExercise::DivisorDigitChoices.IndexOf(exercise_.DivisorDigits));
    MnuOpcDeC->CheckOnly(DivisionExercise::QuotientDecimalChoices.IndexOf(exercise_.QuotientDecimals));
}

// This activity survives every run-time error: it shows the message and keeps what was there.
void Form5::showErrorsAsMessages(const std::function<void()>& action)
{
    try {
        action();
    } catch (const RunTimeError& error) {
        ShowMessage(this, error.what());
    }
}

void Form5::GenerateDivision()
{
    showErrorsAsMessages([this] {
        exercise_.GenerateDivision();
        placeGrid();
        Text2->SetText(exercise_.DivisorText());
        Text3->SetText("");
        showStatement();
    });
}

void Form5::showStatement()
{
    Text4->SetText(exercise_.Statement());
    const QString exercise = InWords(Text4->toPlainText());
    Text3->Describe(exercise); // because visiting the quotient takes the statement away
    Announce(*Text4, exercise);
}

// The grid ends just left of the bar, however wide it is.
void Form5::placeGrid()
{
    const int width = exercise_.Grid.LineWidth * WorkingGridBox::CellWidth;
    Area().Place(Text1, { bracketLeft - width - gapLeftOfBar, bracketTop, width, WorkingGridBox::Height }, digitFont);
    Text1->ShowGrid();
}

void Form5::Command1_Click()
{
    showErrorsAsMessages([this] {
        const std::optional<Verdict> verdict = exercise_.Judge(Text3->Text());
        if (!verdict) {
            ShowMessage(this, DivisionExercise::WhyNotJudged);
            return;
        }
        Text4->ShowVerdict(*verdict);
        if (verdict->Right) {
            Buttons.Command2[0]->setFocus();
        }
        tbResultados->SetText(exercise_.Score.Count(verdict->Right));
    });
}

void Form5::Command2_Click(int index)
{
    switch (index) {
    case 0:
        GenerateDivision();
        Text1->setFocus();
        break;
    case 1:
        Text3->SetText("");
        exercise_.ClearWorking();
        Text1->ShowGrid();
        Text1->setFocus();
        Announce(*Text1, QStringLiteral("Operaciones: en blanco"));
        AnnounceContents(*Text3);
        break;
    case 2:
        showErrorsAsMessages([this] { showSolution(); });
        break;
    default:
        break;
    }
}

void Form5::showSolution()
{
    Text3->SetText(exercise_.ShowDivisionSolution());
    Text4->SetText("");
    Text1->ShowGrid();
    AnnounceContents(*Text3);
    Announce(*Text1, [this] { return QStringLiteral("Operaciones: %1 filas").arg(exercise_.Grid.WrittenRows() - 1); });
    Buttons.Command2[0]->setFocus();
}

void Form5::MnuOpcDivLis_Click(int index)
{
    MnuOpcDiv->CheckOnly(index);
    exercise_.DividendDigits = DivisionExercise::DividendDigitChoices.ValueAt(index);
    GenerateDivision();
}

void Form5::MnuOpcDeDLis_Click(int index)
{
    MnuOpcDeD->CheckOnly(index);
    exercise_.DividendDecimals = DivisionExercise::DividendDecimalChoices.ValueAt(index);
    GenerateDivision();
}

void Form5::MnuOpcDisLis_Click(int index)
{
    MnuOpcDis->CheckOnly(index);
    exercise_.DivisorDigits = DivisionExercise::DivisorDigitChoices.ValueAt(index);
    GenerateDivision();
}

void Form5::MnuOpcDeCLis_Click(int index)
{
    MnuOpcDeC->CheckOnly(index);
    exercise_.QuotientDecimals = DivisionExercise::QuotientDecimalChoices.ValueAt(index);
    GenerateDivision();
}

void Form5::MnuOpcRes_Click()
{
    exercise_.ShowSubtractions = !exercise_.ShowSubtractions;
    MnuOpcRes->setText(exercise_.ShowSubtractions ? QStringLiteral("Restas intermedias (Si)")
                                                  : QStringLiteral("Restas intermedias (No)"));
    GenerateDivision();
}

void Form5::MnuOpcInt_Click()
{
    const std::string typed = AskText(this, "", "Introducir dividendo", exercise_.DividendText());
    showErrorsAsMessages([&] {
        if (exercise_.EnterDividend(typed)) {
            MnuOpcDiv->CheckOnly(DivisionExercise::DividendDigitChoices.IndexOf(exercise_.DividendDigits));
            placeGrid();
            showStatement();
        }
    });
}

void Form5::MnuOpcInd_Click()
{
    const std::string typed = AskText(this, "", "Introducir divisor", exercise_.DivisorText());
    showErrorsAsMessages([&] {
        if (exercise_.EnterDivisor(typed)) {
            MnuOpcDis->CheckOnly(DivisionExercise::DivisorDigitChoices.IndexOf(exercise_.DivisorDigits));
            Text2->SetText(exercise_.DivisorText());
            showStatement();
        }
    });
}

void Form5::MnuOpcSal_Click()
{
    close();
}

// F5 reads out where on the paper the caret is.
void Form5::Form_KeyDown()
{
    Text4->SetText(std::to_string(exercise_.Grid.Caret) + " / " + std::to_string(exercise_.Grid.LineWidth));
    Announce(*Text4, Text4->toPlainText());
}

KeyAnswer Form5::Text1_KeyDown(int keyCode)
{
    switch (keyCode) {
    case KeyCode::Backspace:
    case KeyCode::Delete:
        return KeyAnswer::Replaced(u' '); // nothing is ever deleted, so that the cells keep their places
    case KeyCode::Right:
        exercise_.Grid.StepRight();
        break;
    case KeyCode::Left:
        if (exercise_.Grid.Caret == 0) {
            return KeyAnswer::GoesOn();
        }
        exercise_.Grid.StepLeft();
        break;
    default:
        return KeyAnswer::GoesOn();
    }
    Text1->ShowGrid();
    return KeyAnswer::Consumed();
}

KeyAnswer Form5::Text1_KeyPress(QChar character)
{
    if (!character.isPrint()) {
        return KeyAnswer::GoesOn();
    }
    const int caret = exercise_.Grid.Caret;
    exercise_.Grid.TypeCharacter(character.unicode());
    if (exercise_.Grid.Caret != caret) { // else the row of the dividend has refused it
        Announce(*Text1, [character] {
            const bool isBlank = character == u' ' || character == u'.';
            return isBlank ? QStringLiteral("borrado") : QStringLiteral("escrito ") + character;
        });
    }
    Text1->ShowGrid();
    return KeyAnswer::Consumed();
}

void Form5::Text2_GotFocus()
{
    Text4->SetText("Divisor");
}

void Form5::Text3_GotFocus()
{
    Text4->SetText("Cociente");
}

} // namespace numbrela
