#include "common/screen/ButtonRow.h"

#include "common/screen/CommandButton.h"
#include "common/screen/FormWindow.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

const ButtonRowDesign design {
    .Places
    = { { { 100, 100, 1500, 495 }, { 100, 700, 1500, 495 }, { 100, 1300, 1500, 495 }, { 100, 1900, 1800, 495 } } },
    .Font = { "Verdana", 9.75, true },
};

class ButtonRowTest : public ::testing::Test {
protected:
    ButtonRow addRow(const ButtonRowDesign& rowDesign)
    {
        return AddButtonRow(
            form_.Area(), rowDesign, [this] { heard_.emplace_back("check"); },
            [this](int index) { heard_.push_back(std::to_string(index)); });
    }

    static std::vector<CommandButton*> buttonsOf(const ButtonRow& row)
    {
        return { row.Command1, row.Command2[0], row.Command2[1], row.Command2[2] };
    }

    FormWindow form_ { QStringLiteral("Form"), QStringLiteral("Form"), { 4500, 3000 }, {} };
    std::vector<std::string> heard_;
};

TEST_F(ButtonRowTest, HasFourNamedButtonsWithTheirCaptionsAndColours)
{
    const std::vector<CommandButton*> buttons = buttonsOf(addRow(design));
    const std::vector<std::string> names { "Command1", "Command2(0)", "Command2(1)", "Command2(2)" };
    const std::vector<std::string> captions { "&Hecho", "&Continuar", "&Borrar", "&Ver solución" };
    const std::vector<QColor> colours { QColor(255, 255, 0), QColor(0, 255, 255), QColor(0, 255, 0),
        QColor(255, 0, 0) };
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        EXPECT_EQ(buttons[i]->objectName().toStdString(), names[i]);
        EXPECT_EQ(buttons[i]->text().toStdString(), captions[i]);
        EXPECT_EQ(buttons[i]->BackColour(), colours[i]) << names[i];
        EXPECT_EQ(buttons[i]->palette().color(QPalette::ButtonText), QColor(Qt::black)) << names[i];
    }
}

TEST_F(ButtonRowTest, StandsWhereItsDesignSaysInTheFontItNames)
{
    const std::vector<CommandButton*> buttons = buttonsOf(addRow(design));
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        EXPECT_EQ(form_.Area().RectOf(buttons[i]), design.Places[i]);
        EXPECT_EQ(buttons[i]->parentWidget(), &form_);
        EXPECT_EQ(buttons[i]->font().family().toStdString(), "Verdana");
        EXPECT_EQ(buttons[i]->font().pixelSize(), 13);
        EXPECT_TRUE(buttons[i]->font().bold());
    }
}

TEST_F(ButtonRowTest, CanWriteAnotherCaptionOnTheButtonOfTheSolution)
{
    ButtonRowDesign other = design;
    other.SolutionCaption = QStringLiteral("&Ver todo");
    EXPECT_EQ(addRow(other).Command2[2]->text().toStdString(), "&Ver todo");
}

TEST_F(ButtonRowTest, TellsWhichButtonIsPressedByMouse)
{
    addRow(design);
    ShowAndActivate(form_);
    for (const char* name : { "Command1", "Command2(2)", "Command2(0)", "Command2(1)" }) {
        Click(form_, QString::fromLatin1(name));
    }
    EXPECT_EQ(heard_, (std::vector<std::string> { "check", "2", "0", "1" }));
}

TEST_F(ButtonRowTest, HasAnAccessKeyForEachButton)
{
    const std::vector<CommandButton*> buttons = buttonsOf(addRow(design));
    const std::vector<int> keys { Qt::Key_H, Qt::Key_C, Qt::Key_B, Qt::Key_V };
    ShowAndActivate(form_);
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        EXPECT_FALSE(buttons[i]->isDown());
        Press(keys[i], Qt::AltModifier);
        EXPECT_TRUE(buttons[i]->isDown());
    }
}

} // namespace

} // namespace numbrela
