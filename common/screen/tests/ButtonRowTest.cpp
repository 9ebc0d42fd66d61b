#include "common/screen/ButtonRow.h"

#include "common/screen/CommandButton.h"
#include "common/screen/FormWindow.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
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

TEST_F(ButtonRowTest, HasFourNamedButtonsWhereItsDesignSaysInTheFontItNames)
{
    const std::vector<CommandButton*> buttons = buttonsOf(addRow(design));
    const std::tuple<const char*, const char*, QColor> rows[]
        = { { "Command1", "&Hecho", QColor(255, 255, 0) }, { "Command2(0)", "&Continuar", QColor(0, 255, 255) },
              { "Command2(1)", "&Borrar", QColor(0, 255, 0) }, { "Command2(2)", "&Ver solución", QColor(255, 0, 0) } };
    std::size_t i = 0;
    for (const auto& [name, caption, colour] : rows) {
        const CommandButton& button = *buttons.at(i);
        EXPECT_EQ(button.objectName().toStdString(), name);
        EXPECT_EQ(button.text().toStdString(), caption);
        EXPECT_EQ(button.BackColour(), colour) << name;
        EXPECT_EQ(form_.Area().RectOf(&button), design.Places.at(i));
        EXPECT_EQ(button.parentWidget(), &form_);
        EXPECT_EQ(button.font().family().toStdString(), "Verdana");
        EXPECT_EQ(button.font().pixelSize(), 13);
        EXPECT_TRUE(button.font().bold());
        ++i;
    }
    ButtonRowDesign other = design;
    other.SolutionCaption = QStringLiteral("&Ver todo");
    EXPECT_EQ(addRow(other).Command2[2]->text().toStdString(), "&Ver todo");
}

TEST_F(ButtonRowTest, TellsWhichButtonIsPressedByMouseOrItsAccessKey)
{
    addRow(design);
    ShowAndActivate(form_);
    for (const auto& [name, key] : { std::pair("Command1", Qt::Key_H), { "Command2(2)", Qt::Key_V },
             { "Command2(0)", Qt::Key_C }, { "Command2(1)", Qt::Key_B } }) {
        Click(form_, QString::fromLatin1(name));
        PressAccessKey(form_, key, QString::fromLatin1(name));
    }
    EXPECT_EQ(heard_, (std::vector<std::string> { "check", "check", "2", "2", "0", "0", "1", "1" }));
}

} // namespace

} // namespace numbrela
