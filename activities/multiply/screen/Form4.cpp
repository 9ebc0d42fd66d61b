#include "activities/multiply/screen/Form4.h"

#include "activities/multiply/core/PlaceName.h"
#include "activities/multiply/screen/Dialog.h"
#include "common/screen/Announcement.h"
#include "common/screen/Boxes.h"
#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"
#include "common/screen/KeyCodes.h"
#include "common/screen/Line.h"
#include "common/screen/OptionMenu.h"
#include "common/screen/TextBox.h"

#include <QLabel>
#include <QMenu>

#include <algorithm>

namespace numbrela {

namespace {

// All in twips. The calculation stands on the left and grows downwards; the side column, next to it, stays where it is.
constexpr int areaWidth = 9660;
constexpr int leastAreaHeight = 6600; // holds the side column, and seven rows
constexpr int marginBelow = 500;
constexpr int signLeft = 250;
constexpr int signWidth = 500;
constexpr int columnLeft = 750;
constexpr int columnWidth = 3500;
constexpr int columnRight = columnLeft + columnWidth;
constexpr int rowHeight = 500;
constexpr int firstFactorTop = 550;
constexpr int firstRowTop = 1600;
constexpr int sideLeft = 4900;
constexpr int sideWidth = 4250;
constexpr int buttonWidth = 1900;
constexpr int buttonHeight = 540;
constexpr int verdictMargin = 8; // in pixels, between the frame of its box and the verdict

constexpr FontSpec formFont { "Arial", 12 };
constexpr FontSpec headingFont { "Arial", 14.25 };
constexpr FontSpec digitFont { "Courier New", 15 };

// A control of this width in the middle of the side column.
constexpr TwipsRect sidePlace(int top, int width)
{
    return { sideLeft + (sideWidth - width) / 2, top, width, buttonHeight };
}

// A row is written from right to left: how many digits, or the blanks that stand for them, are behind the caret says
// which place is written next.
void describePlace(TextBox& row)
{
    const QString behind = row.text().mid(row.CaretPosition());
    const auto digits = behind.size() - behind.count(u',') - behind.count(u'.');
    row.Describe(QString::fromStdString(PlaceName(static_cast<int>(digits))));
}

} // namespace

Form4::Form4(const Clock& clock, std::unique_ptr<Dialog>& tables)
    : FormWindow(QStringLiteral("Form4"), QStringLiteral("Multiplicaciones"), { areaWidth, leastAreaHeight }, formFont)
    , random_(clock.Now().SeedProduct())
    , exercise_(random_)
    , tables_(tables)
{
    buildCalculation();
    buildSideColumn();
    buildMenus();
    OfferKeypad(KeypadKeys::WithBlank);
    Form_Load();
}

void Form4::Form_Load()
{
    NewMultiplication();
    TbParcial[0]->setFocus();
}

void Form4::buildCalculation()
{
    const std::array<QString, 2> factorNames { QStringLiteral("Primer factor"), QStringLiteral("Segundo factor") };
    for (int index = 0; index < 2; ++index) {
        const auto i = static_cast<std::size_t>(index);
        TbFactor[i] = addColumnBox(QStringLiteral("TbFactor(%1)").arg(index), factorNames[i],
            { columnLeft, firstFactorTop + rowHeight * index, columnWidth, rowHeight });
        TbFactor[i]->setReadOnly(true);
        HandleKeys(*TbFactor[i], { .KeyPress = [this, index](QChar) { return TbFactor_KeyPress(index); } });
    }
    LabX = AddLabel(Area(), QStringLiteral("LabX"), QStringLiteral("×"),
        { signLeft, firstFactorTop + rowHeight, signWidth, rowHeight }, digitFont);
    constexpr int underFactors = (firstFactorTop + 2 * rowHeight + firstRowTop) / 2;
    Line1 = new Line(Area(), QStringLiteral("Line1"), { columnLeft, underFactors }, { columnRight, underFactors });

    loadRow();
    Line2 = new Line(Area(), QStringLiteral("Line2"), { columnLeft, firstRowTop }, { columnRight, firstRowTop });
    labIgual = AddLabel(Area(), QStringLiteral("labIgual"), QStringLiteral("="),
        { signLeft, firstRowTop, signWidth, rowHeight }, digitFont);
    TbResultado = addColumnBox(QStringLiteral("TbResultado"), QStringLiteral("Resultado"),
        { columnLeft, firstRowTop, columnWidth, rowHeight });
    HandleKeys(*TbResultado,
        {
            .KeyDown = [this](const Key& key) { return TbResultado_KeyDown(key.Code); },
            .KeyUp = [this](int keyCode) { TbResultado_KeyUp(keyCode); },
        });
}

void Form4::buildSideColumn()
{
    TbTítulo = AddReadOnlyBox(Area(), QStringLiteral("TbTítulo"), QStringLiteral("Instrucción"),
        { sideLeft, firstFactorTop, sideWidth, 495 }, headingFont);
    TbTítulo->SetText("Realiza la siguiente operación");

    const ButtonRowDesign row {
        .Places = { sidePlace(1600, buttonWidth), sidePlace(3220, buttonWidth), sidePlace(3940, buttonWidth),
            sidePlace(4660, buttonWidth) },
        .Font = formFont,
    };
    Buttons = AddButtonRow(
        Area(), row, [this] { Command1_Click(); }, [this](int index) { Command2_Click(index); });

    // Left-aligned and almost as wide as its box, so that the leading blank that marks a repeated verdict is visible.
    Text1 = AddReadOnlyBox(Area(), QStringLiteral("Text1"), QStringLiteral("Veredicto"), sidePlace(2410, 3200),
        headingFont, Qt::AlignLeft | Qt::AlignVCenter);
    Text1->setTextMargins(verdictMargin, 0, 0, 0);
    tbResultados = AddReadOnlyBox(
        Area(), QStringLiteral("tbResultados"), QStringLiteral("Marcador"), sidePlace(5560, 3200), formFont);
    tbResultados->SetText(exercise_.Score.Line());
}

void Form4::buildMenus()
{
    QMenu* options = AddMenu(QStringLiteral("MnuOpc"), QStringLiteral("&Opciones"));
    MnuOpcCi1 = AddOptionMenu(options, QStringLiteral("MnuOpcCi1"), QStringLiteral("&Cifras factor 1"),
        CaptionsOf(Multiplication::DigitChoices), [this](int index) { MnuOpcCi1Lis_Click(index); });
    MnuOpcCi2 = AddOptionMenu(options, QStringLiteral("MnuOpcCi2"), QStringLiteral("C&ifras factor 2"),
        CaptionsOf(Multiplication::DigitChoices), [this](int index) { MnuOpcCi2Lis_Click(index); });
    MnuOpcDe1 = AddOptionMenu(options, QStringLiteral("MnuOpcDe1"), QStringLiteral("&Decimales factor 1"),
        CaptionsOf(Multiplication::DecimalChoices), [this](int index) { MnuOpcDe1Lis_Click(index); });
    MnuOpcDe2 = AddOptionMenu(options, QStringLiteral("MnuOpcDe2"), QStringLiteral("D&ecimales factor 2"),
        CaptionsOf(Multiplication::DecimalChoices), [this](int index) { MnuOpcDe2Lis_Click(index); });
    MnuOpcSel = AddOptionMenu(options, QStringLiteral("MnuOpcSel"), QStringLiteral("&Selección de cifras factor2"),
        { QStringLiteral("&Cualquiera"), QStringLiteral("&Seleccionar ()...") },
        [this](int index) { MnuOpcSelLis_Click(index); });
    MnuOpcOcu = AddMenuItem(options, QStringLiteral("MnuOpcOcu"), QStringLiteral("&Ocultar ceros intermedios (No)"),
        [this] { MnuOpcOcu_Click(); });
    AddMenuItem(
        options, QStringLiteral("MnuOpcIn1"), QStringLiteral("&Introducir Primer factor"),
        [this] { MnuOpcIn1_Click(); }, Qt::Key_F2);
    AddMenuItem(
        options, QStringLiteral("MnuOpcIn2"), QStringLiteral("I&ntroducir segundo factor"),
        [this] { MnuOpcIn2_Click(); }, Qt::Key_F3);
    AddMenuItem(options, QStringLiteral("MnuOpcSal"), QStringLiteral("S&alir (Alt-F4)"), [this] { MnuOpcSal_Click(); });
}

// A box whose digits stand in the columns of the calculation.
TextBox* Form4::addColumnBox(const QString& name, const QString& spokenName, TwipsRect place)
{
    TextBox* box = AddTextBox(Area(), name, place, digitFont, Qt::AlignRight | Qt::AlignVCenter);
    box->StayWhole();
    box->setAccessibleName(spokenName);
    connect(box, &TextBox::textChanged, this, &Form4::alignColumns);
    return box;
}

void Form4::loadRow()
{
    const int index = static_cast<int>(TbParcial.size());
    TextBox* row
        = addColumnBox(QStringLiteral("TbParcial(%1)").arg(index), QStringLiteral("Producto parcial %1").arg(index + 1),
            { columnLeft, firstRowTop + rowHeight * index, columnWidth, rowHeight });
    connect(row, &TextBox::textEdited, this, [this, index] { TbParcial_Change(index); });
    connect(row, &QLineEdit::cursorPositionChanged, this, [row] { describePlace(*row); });
    connect(row, &QLineEdit::textChanged, this, [row] { describePlace(*row); });
    describePlace(*row);
    HandleKeys(*row,
        {
            .KeyDown = [this, index](const Key& /*key*/) { return TbParcial_KeyDown(index); },
            .KeyUp = [this, index](int keyCode) { TbParcial_KeyUp(index, keyCode); },
        });
    row->show();
    TbParcial.push_back(row);
}

void Form4::unloadRow()
{
    TextBox* row = TbParcial.back();
    TbParcial.pop_back();
    if (focusWidget() == row) {
        TbParcial[0]->setFocus();
    }
    delete row;
}

void Form4::LayoutPartialRows()
{
    const int rows = exercise_.RowCount();
    while (static_cast<int>(TbParcial.size()) > std::max(rows, 1)) {
        unloadRow();
    }
    while (static_cast<int>(TbParcial.size()) < rows) {
        loadRow();
    }
    if (static_cast<int>(TbParcial.size()) != rows) {
        ShowMessage(this, "desajuste");
    }
    for (int index = 0; index < rows; ++index) {
        TbParcial[static_cast<std::size_t>(index)]->SetText("");
    }
    placeUnderRows();
}

void Form4::placeUnderRows()
{
    const int top = Area().RectOf(TbParcial.back()).Top + rowHeight;
    Line2->SetEnds({ columnLeft, top }, { columnRight, top });
    Line2->raise();
    Area().Move(TbResultado, { columnLeft, top, columnWidth, rowHeight });
    Area().Move(labIgual, { signLeft, top, signWidth, rowHeight });
    Area().SetDesignSize({ areaWidth, std::max(leastAreaHeight, top + rowHeight + marginBelow) });
    TbResultado->SetText("");
    alignColumns();

    std::vector<QWidget*> sequence { TbFactor[0], TbFactor[1] };
    sequence.insert(sequence.end(), TbParcial.begin(), TbParcial.end());
    sequence.insert(sequence.end(),
        { TbResultado, Buttons.Command1, Text1, Buttons.Command2[0], Buttons.Command2[1], Buttons.Command2[2],
            tbResultados, TbTítulo });
    SetTabSequence(sequence);
}

void Form4::NewMultiplication()
{
    exercise_.NewMultiplication();
    showNewExercise();
}

void Form4::showNewExercise()
{
    showFactors();
    Text1->SetText("");
}

void Form4::showFactors()
{
    checkOptions();
    LayoutPartialRows(); // before the new factors are shown: hidden zeros are counted in the old one
    const std::array<std::string, 2> texts = exercise_.ShowFactors();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        TbFactor[i]->SetText(texts[i]);
        TbFactor[i]->SelectWholeText();
    }
    Announce(
        *TbFactor[0], [this] { return InWords(TbFactor[0]->text() + QStringLiteral(" × ") + TbFactor[1]->text()); });
}

void Form4::checkOptions()
{
    MnuOpcCi1->CheckOnly(Multiplication::DigitChoices.IndexOf(exercise_.Digits1));
    MnuOpcCi2->CheckOnly(Multiplication::DigitChoices.IndexOf(exercise_.Digits2));
    MnuOpcDe1->CheckOnly(Multiplication::DecimalChoices.IndexOf(exercise_.Decimals1));
    MnuOpcDe2->CheckOnly(Multiplication::DecimalChoices.IndexOf(exercise_.Decimals2));
    MnuOpcSel->CheckOnly(exercise_.AnyDigits ? 0 : 1);
}

void Form4::Command1_Click()
{
    try {
        const Verdict verdict = exercise_.Judge(TbResultado->Text(), Text1->Text());
        Text1->ShowVerdict(verdict);
        QWidget* next = verdict.Right ? static_cast<QWidget*>(Buttons.Command2[0]) : TbParcial[0];
        next->setFocus();
        tbResultados->SetText(exercise_.Score.Count(verdict.Right));
    } catch (const RunTimeError&) {
        ShowMessage(this, "el dato introducido  no es válido");
        TbResultado->setFocus();
    }
}

void Form4::Command2_Click(int index)
{
    switch (index) {
    case 0:
        TbParcial[0]->setFocus();
        exercise_.Continue();
        showNewExercise();
        break;
    case 1:
        clearAnswer();
        break;
    case 2:
        showSolution();
        break;
    default:
        break;
    }
}

void Form4::clearAnswer()
{
    TbParcial[0]->setFocus();
    for (TextBox* row : TbParcial) {
        row->SetText("");
    }
    TbResultado->SetText("");
    AnnounceContents(*TbParcial[0]);
}

void Form4::showSolution()
{
    const Multiplication::WorkedSolution solution = exercise_.ShowSolution();
    TbResultado->SetText(solution.Result);
    const std::size_t rows = std::min(solution.Rows.size(), TbParcial.size());
    for (std::size_t i = 0; i < rows; ++i) {
        TbParcial[i]->SetText(solution.Rows[i]);
    }
    TbResultado->SelectWholeText();
    AnnounceContents(*TbResultado);
    Buttons.Command2[0]->setFocus();
}

void Form4::MnuOpcCi1Lis_Click(int index)
{
    exercise_.Digits1 = Multiplication::DigitChoices.ValueAt(index);
    NewMultiplication();
}

void Form4::MnuOpcCi2Lis_Click(int index)
{
    exercise_.Digits2 = Multiplication::DigitChoices.ValueAt(index);
    NewMultiplication();
}

void Form4::MnuOpcDe1Lis_Click(int index)
{
    exercise_.Decimals1 = Multiplication::DecimalChoices.ValueAt(index);
    NewMultiplication();
}

void Form4::MnuOpcDe2Lis_Click(int index)
{
    exercise_.Decimals2 = Multiplication::DecimalChoices.ValueAt(index);
    NewMultiplication();
}

void Form4::MnuOpcSelLis_Click(int index)
{
    if (index == 1) {
        if (tables_ == nullptr) {
            tables_ = std::make_unique<Dialog>();
        }
        tables_->ShowModally(*this);
        exercise_.ChooseTables(tables_->TablasSeleccionadas);
    } else {
        exercise_.AllowAnyDigits();
    }
    MnuOpcSel->Items()[1]->setText(
        QStringLiteral("&Seleccionar (%1) ...").arg(QString::fromStdString(exercise_.SelectedTables)));
    NewMultiplication();
}

void Form4::MnuOpcOcu_Click()
{
    exercise_.HideZeros = !exercise_.HideZeros;
    MnuOpcOcu->setText(exercise_.HideZeros ? QStringLiteral("&Ocultar ceros intermedios (Si)")
                                           : QStringLiteral("&Ocultar ceros intermedios (no)"));
    NewMultiplication();
}

void Form4::MnuOpcIn1_Click()
{
    showTyped(exercise_.EnterFactor1(askForFactor("Introducir primer factor")));
}

void Form4::MnuOpcIn2_Click()
{
    showTyped(exercise_.EnterFactor2(askForFactor("Introducir segundo factor")));
}

std::string Form4::askForFactor(const std::string& title)
{
    return AskText(this, "Escriba el nuevo valor:", title);
}

void Form4::showTyped(const Multiplication::FactorEntry& entry)
{
    if (entry.Accepted) {
        showFactors();
    } else {
        ShowMessage(this, entry.Message);
    }
}

void Form4::MnuOpcSal_Click()
{
    close();
}

KeyAnswer Form4::TbFactor_KeyPress(int /*index*/)
{
    TbParcial[0]->setFocus();
    return KeyAnswer::GoesOn();
}

// Called only when the pupil changes a row: when the solution writes the only row, the result stays as the solution
// wrote it.
void Form4::TbParcial_Change(int index)
{
    if (index == 0 && exercise_.HasSingleRow()) {
        TbResultado->SetText(TbParcial[0]->Text());
    }
}

KeyAnswer Form4::TbParcial_KeyDown(int index)
{
    pressedIn_ = index;
    placeAtPress_ = TbParcial[static_cast<std::size_t>(index)]->Description();
    return KeyAnswer::GoesOn();
}

// A key that has moved the caret to another place is followed by the name of that place.
void Form4::TbParcial_KeyUp(int index, int keyCode)
{
    TextBox& row = *TbParcial[static_cast<std::size_t>(index)];
    if (keyCode == KeyCode::Space || keyCode >= KeyCode::Digit0) {
        row.StepCaretLeft();
    }
    if (index == pressedIn_ && row.Description() != placeAtPress_) {
        Announce(row, row.Description());
    }
}

KeyAnswer Form4::TbResultado_KeyDown(int keyCode)
{
    if (keyCode == KeyCode::Enter) {
        Command1_Click();
    }
    return KeyAnswer::GoesOn();
}

void Form4::TbResultado_KeyUp(int keyCode)
{
    if (WritesDigitOrComma(keyCode)) {
        TbResultado->StepCaretLeft();
    }
}

// Writes factors and rows all as small as the longest of them needs, so that digits stay under digits, and the result
// no larger. A longer result, with its points between thousands, makes only itself smaller.
void Form4::alignColumns()
{
    std::vector<TextBox*> boxes = columnBoxes();
    int columns = 0;
    for (const TextBox* box : boxes) {
        columns = std::max(columns, static_cast<int>(box->text().size()));
    }
    boxes.push_back(TbResultado);
    for (TextBox* box : boxes) {
        box->SetLeastColumns(columns);
    }
}

std::vector<TextBox*> Form4::columnBoxes() const
{
    std::vector<TextBox*> boxes = TbParcial;
    boxes.insert(boxes.end(), { TbFactor[0], TbFactor[1] });
    return boxes;
}

} // namespace numbrela
