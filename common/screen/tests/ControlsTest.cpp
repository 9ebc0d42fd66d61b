#include "common/screen/Controls.h"

#include "common/screen/CommandButton.h"
#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QFrame>
#include <QLabel>

namespace numbrela {

namespace {

using namespace testing;

constexpr TwipsRect somewhere { 150, 300, 1500, 495 };
constexpr FontSpec someFont { "Courier", 9.75, true };

class ControlsTest : public ::testing::Test {
protected:
    void expectFurnished(const QWidget& control, const char* name)
    {
        EXPECT_EQ(control.objectName().toStdString(), name);
        EXPECT_EQ(control.parentWidget(), &window_);
        EXPECT_EQ(area_.RectOf(&control), somewhere);
        EXPECT_EQ(control.font().family().toStdString(), "Courier");
        EXPECT_EQ(control.font().pixelSize(), 13);
        EXPECT_TRUE(control.font().bold());
    }

    QWidget window_;
    TwipsLayout& area_ = *new TwipsLayout(&window_, { 4500, 3000 }, {});
};

TEST_F(ControlsTest, ATextBoxIsCentredUnlessItIsToldOtherwiseAndOneForReadingAloneHasANameToBeSpoken)
{
    const TextBox* box = AddTextBox(area_, QStringLiteral("Text1"), somewhere, someFont);
    expectFurnished(*box, "Text1");
    EXPECT_EQ(box->alignment(), Qt::AlignCenter);
    EXPECT_FALSE(box->isReadOnly());
    const Qt::Alignment right = Qt::AlignRight | Qt::AlignVCenter;
    EXPECT_EQ(AddTextBox(area_, QStringLiteral("Text2"), somewhere, someFont, right)->alignment(), right);

    box = AddReadOnlyBox(
        area_, QStringLiteral("tbResultados"), QStringLiteral("Marcador"), somewhere, someFont, Qt::AlignLeft);
    expectFurnished(*box, "tbResultados");
    EXPECT_TRUE(box->isReadOnly());
    EXPECT_EQ(box->accessibleName().toStdString(), "Marcador");
    EXPECT_EQ(box->alignment(), Qt::AlignLeft);
}

TEST_F(ControlsTest, AButtonAndALabelHaveTheirCaptions)
{
    const CommandButton* button
        = AddButton(area_, QStringLiteral("Command2(0)"), QStringLiteral("&Continuar"), somewhere, someFont);
    expectFurnished(*button, "Command2(0)");
    EXPECT_EQ(button->text().toStdString(), "&Continuar");
    const QLabel* label = AddLabel(area_, QStringLiteral("Label1"), QStringLiteral("+"), somewhere, someFont);
    expectFurnished(*label, "Label1");
    EXPECT_EQ(label->text().toStdString(), "+");
    EXPECT_EQ(label->alignment(), Qt::AlignCenter);
}

TEST_F(ControlsTest, AFrameIsAnAreaOfItsOwn)
{
    TwipsLayout* inner = AddFrame(area_, QStringLiteral("Frame1"), somewhere, someFont);
    const QWidget* frame = inner->parentWidget();
    expectFurnished(*frame, "Frame1");
    EXPECT_EQ(inner->Extent(), (TwipsRect { 0, 0, somewhere.Width, somewhere.Height }));
    EXPECT_NE(qobject_cast<const QFrame*>(frame)->frameShape(), QFrame::NoFrame);
    const QLabel* label
        = AddLabel(*inner, QStringLiteral("Label2"), QStringLiteral("-"), { 75, 75, 300, 300 }, inner->FontOf(frame));
    window_.resize(300, 200);
    ShowAndActivate(window_);
    EXPECT_EQ(frame->geometry(), QRect(10, 20, 100, 33));
    EXPECT_EQ(label->parentWidget(), frame);
    EXPECT_EQ(label->geometry(), QRect(5, 5, 20, 20));
    EXPECT_EQ(label->font().pixelSize(), 13) << "the frame's font is that of its controls";
}

} // namespace

} // namespace numbrela
