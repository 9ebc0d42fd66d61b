#include "activities/compare/screen/Form6.h"

#include "common/screen/Announcement.h"
#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"
#include "common/screen/TextBox.h"

#include <algorithm>
#include <vector>

namespace numbrela {

namespace {

constexpr TwipsSize area { 6000, 5300 }; // with room below the score line
constexpr int margin = 75; // beside the score line, which is as wide as the area
constexpr FontSpec formFont { "Arial", 12 };
constexpr FontSpec numberFont { "Courier", 15, true };

// Three columns of two, filled column by column.
constexpr TwipsRect placeOfNumber(int index)
{
    return { 100 + 2000 * (index / 2), 1000 + 1000 * (index % 2), 1800, 500 };
}

// As the eye, and so the Tab key, goes through them: row by row.
constexpr std::array<std::size_t, Comparison::ButtonCount> readingOrder { 0, 2, 4, 1, 3, 5 };

} // namespace

Form6::Form6(const Clock& clock)
    : FormWindow(QStringLiteral("Form6"), QStringLiteral("MAYOR Y MENOR"), area, formFont)
    , random_(clock.Now().SeedProduct())
    , comparison_(random_)
{
    Area().SetMargin(margin);
    KeepFrame();
    buildControls();
    Form_Load();
}

void Form6::Form_Load()
{
    showNewComparison();
}

void Form6::buildControls()
{
    Text1 = AddReadOnlyBox(
        Area(), QStringLiteral("Text1"), QStringLiteral("Instrucción"), { 1000, 100, 4000, 500 }, formFont);
    for (int index = 0; index < static_cast<int>(CbNúmero.size()); ++index) {
        CommandButton*& button = CbNúmero[static_cast<std::size_t>(index)];
        button
            = AddButton(Area(), QStringLiteral("CbNúmero(%1)").arg(index), QString(), placeOfNumber(index), numberFont);
        connect(button, &QPushButton::clicked, this, [this, index] { CbNúmero_Click(index); });
    }
    Text3 = AddReadOnlyBox(
        Area(), QStringLiteral("Text3"), QStringLiteral("Veredicto"), { 2000, 3000, 2000, 500 }, formFont);
    Text2
        = AddReadOnlyBox(Area(), QStringLiteral("Text2"), QStringLiteral("Marcador"), { 0, 4500, 6000, 500 }, formFont);
    // Two blanks before "Errores"; every score line written after a click has three.
    Text2->SetText("Aciertos: 0;  Errores: 0.");

    std::vector<QWidget*> sequence { Text1 };
    for (const std::size_t index : readingOrder) {
        sequence.push_back(CbNúmero[index]);
    }
    sequence.insert(sequence.end(), { Text3, Text2 });
    SetTabSequence(sequence);
}

void Form6::showNewComparison()
{
    comparison_.NewComparison();
    Text1->SetText(comparison_.Instruction);
    for (std::size_t index = 0; index < CbNúmero.size(); ++index) {
        CbNúmero[index]->setText(QString::fromStdString(comparison_.Captions[index]));
        CbNúmero[index]->setVisible(true);
        CbNúmero[index]->setEnabled(true);
    }
    CbNúmero[0]->setFocus();
    Announce(*Text1, Text1->text());
}

void Form6::CbNúmero_Click(int index)
{
    const Verdict verdict = comparison_.Judge(index);
    Text3->ShowVerdict(verdict);
    Text2->SetText(comparison_.ScoreLine());
    if (verdict.Right) {
        showNewComparison();
    } else {
        CbNúmero[static_cast<std::size_t>(index)]->setVisible(false);
        CbNúmero[static_cast<std::size_t>(index)]->setEnabled(false);
        keepFocusOnANumber();
    }
}

// A button that vanishes passes the focus on as the Tab key does, the last one to a box after the numbers. But the
// question is still open, and a pupil who answers by keys needs the focus on a number.
void Form6::keepFocusOnANumber()
{
    if (std::find(CbNúmero.begin(), CbNúmero.end(), focusWidget()) != CbNúmero.end()) {
        return;
    }
    const auto left = std::find_if(
        readingOrder.begin(), readingOrder.end(), [this](std::size_t index) { return CbNúmero[index]->isVisible(); });
    if (left != readingOrder.end()) {
        CbNúmero[*left]->setFocus();
    }
}

} // namespace numbrela
