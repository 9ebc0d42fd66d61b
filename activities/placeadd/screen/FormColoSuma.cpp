#include "activities/placeadd/screen/FormColoSuma.h"

#include "common/core/RunTimeError.h"
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

#include <cmath>

namespace numbrela {

namespace {

constexpr TwipsSize area { 12000, 8100 };
constexpr FontSpec formFont { "Courier New", 12 };
constexpr FontSpec headingFont { "Arial", 12 };
constexpr FontSpec columnFont { "Courier New", 14.25 };
constexpr FontSpec frameFont { "Arial", 9.75 };

constexpr int addendLength = 8; // characters
constexpr int sumLength = 7;

constexpr int boxHeight = 600; // twips
constexpr int firstRowTop = 1500;
constexpr int signLeft = 900;

// Where the rows of a written addition stand: the boxes of the addends and, below them with its line, that of the sum
// share 6000 twips from the first row's top on.
class Rows {
public:
    explicit Rows(int addendCount)
        : addendCount_(addendCount)
        , height_(6000.0 / (addendCount + 1))
    {
    }

    int AddendTop(int index) const { return rounded(addendTop(index)); }
    int LineTop() const { return rounded(lineTop()); }
    int SumTop() const { return rounded(lineTop() + spare() + 100); }

private:
    static int rounded(double twips) { return static_cast<int>(std::lround(twips)); }

    double spare() const { return (height_ - boxHeight) / 2; } // above and below the box of a row
    double addendTop(int index) const { return index * height_ + firstRowTop + spare(); }
    double lineTop() const { return addendTop(addendCount_ - 1) + spare() + boxHeight + 100; }

    int addendCount_;
    double height_;
};

constexpr TwipsRect boxPlace(int top)
{
    return { 1500, top, 5000, boxHeight };
}

constexpr TwipsRect signPlace(int top)
{
    return { signLeft, top, 600, boxHeight };
}

std::string blanks(int count)
{
    return std::string(static_cast<std::size_t>(count), ' ');
}

// Puts the caret before the first character, where reading and typing over begin.
void write(TextBox& box, const std::string& text)
{
    box.SetText(text);
    box.SetCaretPosition(0);
}

void replaceAtCaret(TextBox& box, QChar character)
{
    const int caret = box.CaretPosition();
    QString text = box.text();
    if (caret < text.size()) {
        text[caret] = character;
        box.SetText(text.toStdString());
        box.SetCaretPosition(caret);
    }
}

KeyAnswer deleteByBlank(TextBox& box, int keyCode)
{
    if (keyCode != KeyCode::Delete) {
        return KeyAnswer::GoesOn();
    }
    replaceAtCaret(box, u' ');
    return KeyAnswer::Consumed();
}

// A character typed into a column replaces the one at the caret. The box then inserts it as well unless it is full, so
// this is overtyping only because a full box refuses it. Other characters are left to the box: a short text, as the
// solution writes it, takes them as any box does, replacing its highlight if it has one. A full box is to refuse them,
// so its highlight is removed first, which they would otherwise replace.
KeyAnswer overtype(TextBox& box, QChar typed)
{
    const QChar character = typed == QChar(KeyCode::Backspace) ? QChar(u' ') : typed;
    const bool writesColumn = (character >= u'0' && character <= u'9') || character == u' ' || character == u',';
    const int caret = box.CaretPosition();
    if (writesColumn && caret < box.text().size()) {
        replaceAtCaret(box, character);
        box.SetCaretPosition(caret + 1);
    } else if (character.isPrint() && box.text().size() >= box.maxLength()) {
        box.SetCaretPosition(caret);
    }
    return KeyAnswer::Replaced(character);
}

} // namespace

FormColoSuma::FormColoSuma(const Clock& clock)
    : FormWindow(QStringLiteral("FormColoSuma"), QStringLiteral("COLOCA Y SUMA"), area, formFont)
    , random_(clock.Now().SecondsSinceMidnight)
    , exercise_(random_)
{
    buildControls();
    buildMenus();
    OfferKeypad(KeypadKeys::WithBlank);
    Form_Load();
}

void FormColoSuma::Form_Load()
{
    MnuOpcSum->CheckOnly(PlaceAndAdd::AddendCountChoices.IndexOf(exercise_.AddendCount));
    MnuOpcCif->CheckOnly(PlaceAndAdd::MaxDigitsChoices.IndexOf(exercise_.MaxDigits));
    showNewPlaceAndAdd();
    TbSumando[0]->setFocus();
}

void FormColoSuma::buildControls()
{
    TBInstruc = AddReadOnlyBox(
        Area(), QStringLiteral("TBInstruc"), QStringLiteral("Instrucción"), { 0, 0, 12000, 495 }, headingFont);
    TBInstruc->SetText("Coloca los números en vertical y súmalos");
    TBDatos = AddReadOnlyBox(
        Area(), QStringLiteral("TBDatos"), QStringLiteral("Sumandos"), { 0, 500, 12000, 495 }, headingFont);

    Line1 = new Line(Area(), QStringLiteral("Line1"), {}, {});
    TbResultado
        = AddTextBox(Area(), QStringLiteral("TbResultado"), boxPlace(0), columnFont, Qt::AlignLeft | Qt::AlignVCenter);
    TbResultado->setAccessibleName(QStringLiteral("Suma"));
    TbResultado->SetMaximumTypedLength(sumLength);
    HandleKeys(*TbResultado,
        {
            .KeyDown = [this](const Key& key) { return TbResultado_KeyDown(key.Code); },
            .KeyPress = [this](QChar character) { return TbResultado_KeyPress(character); },
        });
    buildFrame();
}

void FormColoSuma::buildFrame()
{
    TwipsLayout* frame = AddFrame(Area(), QStringLiteral("Frame1"), { 8500, 3840, 3000, 3100 }, frameFont);
    Frame1 = frame->parentWidget();
    const ButtonRowDesign row {
        .Places
        = { { { 500, 100, 2000, 400 }, { 500, 1400, 2000, 400 }, { 500, 2000, 2000, 400 }, { 500, 2600, 2000, 400 } } },
        .Font = frameFont,
    };
    Buttons = AddButtonRow(
        *frame, row, [this] { Command1_Click(); }, [this](int index) { Command2_Click(index); });
    Text1 = AddReadOnlyBox(
        *frame, QStringLiteral("Text1"), QStringLiteral("Veredicto"), { 50, 700, 2900, 500 }, frameFont);
}

void FormColoSuma::buildMenus()
{
    QMenu* options = AddMenu(QStringLiteral("MnuOpc"), QStringLiteral("&Opciones"));
    MnuOpcSum = AddOptionMenu(options, QStringLiteral("MnuOpcSum"), QStringLiteral("Número de sumandos"),
        CaptionsOf(PlaceAndAdd::AddendCountChoices), [this](int index) { MnuOpcSumLis_Click(index); });
    MnuOpcCif = AddOptionMenu(options, QStringLiteral("MnuOpcCif"), QStringLiteral("Máximo de cifras"),
        CaptionsOf(PlaceAndAdd::MaxDigitsChoices), [this](int index) { MnuOpcCifLis_Click(index); });
    AddMenuItem(options, QStringLiteral("MnuOpcSal"), QStringLiteral("&Salir Alt+F4"), [this] { MnuOpcSal_Click(); });
}

void FormColoSuma::addRow()
{
    const int index = static_cast<int>(TbSumando.size());
    TextBox* box = AddTextBox(
        Area(), QStringLiteral("TbSumando(%1)").arg(index), boxPlace(0), columnFont, Qt::AlignLeft | Qt::AlignVCenter);
    box->setAccessibleName(QStringLiteral("Sumando %1").arg(index + 1));
    box->SetMaximumTypedLength(addendLength);
    HandleKeys(*box,
        {
            .KeyDown = [this, index](const Key& key) { return TbSumando_KeyDown(index, key.Code); },
            .KeyPress = [this, index](QChar character) { return TbSumando_KeyPress(index, character); },
        });
    TbSumando.push_back(box);
    LBSigno.push_back(
        AddLabel(Area(), QStringLiteral("LBSigno(%1)").arg(index), QStringLiteral("+"), signPlace(0), columnFont));

    std::vector<QWidget*> sequence { TBInstruc, TBDatos };
    sequence.insert(sequence.end(), TbSumando.begin(), TbSumando.end());
    sequence.insert(sequence.end(),
        { TbResultado, Frame1, Buttons.Command1, Text1, Buttons.Command2[0], Buttons.Command2[1],
            Buttons.Command2[2] });
    SetTabSequence(sequence);
}

void FormColoSuma::showNewPlaceAndAdd()
{
    exercise_.NewPlaceAndAdd();
    TBDatos->SetText(exercise_.DataLine());
    Announce(*TBDatos, [this] { return InWords(TBDatos->text()); });
    placeBoxes();
    placeSigns();
}

void FormColoSuma::placeBoxes()
{
    const Rows rows(exercise_.AddendCount);
    const auto addendCount = static_cast<std::size_t>(exercise_.AddendCount);
    while (TbSumando.size() < addendCount) {
        addRow();
    }
    for (std::size_t index = 0; index < TbSumando.size(); ++index) {
        TextBox& box = *TbSumando[index];
        const bool used = index < addendCount;
        box.setEnabled(used);
        box.setVisible(used);
        if (used) {
            Area().Move(&box, boxPlace(rows.AddendTop(static_cast<int>(index))));
            write(box, blanks(addendLength));
        }
    }
    Line1->SetEnds({ 50, rows.LineTop() }, { 7950, rows.LineTop() });
    Area().Move(TbResultado, boxPlace(rows.SumTop()));
    write(*TbResultado, blanks(sumLength));
}

// The first addend has no sign. Labels that an exercise with more addends has left behind stay as they are.
void FormColoSuma::placeSigns()
{
    const Rows rows(exercise_.AddendCount);
    const int addendCount = exercise_.AddendCount;
    for (int index = 0; index < addendCount; ++index) {
        const bool ofSum = index == addendCount - 1;
        QLabel& sign = *LBSigno[static_cast<std::size_t>(index)];
        sign.setText(ofSum ? QStringLiteral("=") : QStringLiteral("+"));
        Area().Move(&sign, signPlace(ofSum ? rows.SumTop() : rows.AddendTop(index + 1)));
        sign.setVisible(true);
    }
}

void FormColoSuma::Command1_Click()
{
    Text1->ShowVerdict(exercise_.Judge(TbResultado->Text(), Text1->Text()));
    Text1->SelectWholeText();
}

void FormColoSuma::Command2_Click(int index)
{
    switch (index) {
    case 0:
        TbSumando[0]->setFocus();
        showNewPlaceAndAdd();
        break;
    case 1:
        TbSumando[0]->setFocus();
        for (TextBox* box : TbSumando) {
            write(*box, blanks(addendLength));
        }
        write(*TbResultado, blanks(addendLength)); // one blank more than in a new exercise
        AnnounceContents(*TbSumando[0]);
        break;
    case 2:
        showSolution();
        break;
    default:
        break;
    }
}

// If the sum is too long for the columns, says so and leaves the pupil's work as it is.
void FormColoSuma::showSolution()
{
    try {
        const PlaceAndAdd::Placement solution = exercise_.Solution();
        Text1->SetText("");
        TbResultado->setFocus();
        for (std::size_t index = 0; index < solution.Addends.size(); ++index) {
            write(*TbSumando[index], solution.Addends[index]);
        }
        write(*TbResultado, solution.Sum);
        AnnounceContents(*TbResultado);
    } catch (const RunTimeError& error) {
        ShowMessage(this, error.what());
    }
}

void FormColoSuma::MnuOpcSumLis_Click(int index)
{
    MnuOpcSum->CheckOnly(index);
    exercise_.AddendCount = PlaceAndAdd::AddendCountChoices.ValueAt(index);
    showNewPlaceAndAdd();
}

void FormColoSuma::MnuOpcCifLis_Click(int index)
{
    MnuOpcCif->CheckOnly(index);
    exercise_.MaxDigits = PlaceAndAdd::MaxDigitsChoices.ValueAt(index);
    showNewPlaceAndAdd();
}

void FormColoSuma::MnuOpcSal_Click()
{
    close();
}

KeyAnswer FormColoSuma::TbSumando_KeyDown(int index, int keyCode)
{
    return deleteByBlank(*TbSumando[static_cast<std::size_t>(index)], keyCode);
}

KeyAnswer FormColoSuma::TbSumando_KeyPress(int index, QChar character)
{
    return overtype(*TbSumando[static_cast<std::size_t>(index)], character);
}

KeyAnswer FormColoSuma::TbResultado_KeyDown(int keyCode)
{
    return deleteByBlank(*TbResultado, keyCode);
}

KeyAnswer FormColoSuma::TbResultado_KeyPress(QChar character)
{
    return overtype(*TbResultado, character);
}

} // namespace numbrela
