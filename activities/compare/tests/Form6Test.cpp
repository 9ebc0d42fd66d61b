#include "activities/compare/screen/Form6.h"

#include "common/screen/CommandButton.h"
#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

constexpr std::array<int, 6> readingOrder { 0, 2, 4, 1, 3, 5 };

class Form6Test : public ::testing::Test {
protected:
    void SetUp() override { ShowAndActivate(form_); }

    std::vector<std::string> captions() const
    {
        std::vector<std::string> texts;
        for (const CommandButton* button : form_.CbNúmero) {
            texts.push_back(button->text().toStdString());
        }
        return texts;
    }

    // The button to press, found as a pupil finds it: by reading the window.
    int rightButton() const
    {
        const std::vector<std::string> texts = captions();
        const bool greatest = form_.Text1->Text() == "Pulsa sobre el número MAYOR";
        EXPECT_TRUE(greatest || form_.Text1->Text() == "Pulsa sobre el número MENOR");
        const auto found
            = greatest ? std::max_element(texts.begin(), texts.end()) : std::min_element(texts.begin(), texts.end());
        return static_cast<int>(found - texts.begin());
    }

    int wrongButton() const { return rightButton() == 0 ? 1 : 0; }

    void click(int index) { Click(form_, nameOf(index)); }

    static bool focusIsOnANumber() { return FocusName().starts_with("CbNúmero"); }

    // The number that has the focus once this one has vanished: the next one along the rows, and behind the last one
    // the first.
    std::string numberBehind(int index) const
    {
        const auto place = std::find(readingOrder.begin(), readingOrder.end(), index) - readingOrder.begin();
        for (std::size_t step = 1; step < readingOrder.size(); ++step) {
            const int next = readingOrder[(static_cast<std::size_t>(place) + step) % readingOrder.size()];
            if (offered(next)) {
                return nameOf(next).toStdString();
            }
        }
        return {};
    }

    static QString nameOf(int index) { return QStringLiteral("CbNúmero(%1)").arg(index); }

    bool offered(int index) const
    {
        const CommandButton& button = *form_.CbNúmero[std::size_t(index)];
        EXPECT_EQ(button.isVisible(), button.isEnabled());
        return button.isVisible();
    }

    int offeredButtons() const
    {
        int count = 0;
        for (int index = 0; index < 6; ++index) {
            count += offered(index) ? 1 : 0;
        }
        return count;
    }

    FixedClock clock_;
    Form6 form_ { clock_ };
};

TEST_F(Form6Test, OpensWithAQuestionNoVerdictAndTheFocusOnTheFirstNumber)
{
    EXPECT_EQ(offeredButtons(), 6);
    EXPECT_EQ(form_.Text3->Text(), "");
    EXPECT_EQ(form_.Text2->Text(), "Aciertos: 0;  Errores: 0.");
    EXPECT_EQ(FocusName(), "CbNúmero(0)");
}

TEST_F(Form6Test, TheRightButtonIsPraisedAndBringsTheNextQuestionAtOnce)
{
    int greatest = 0;
    for (int hits = 1; hits <= 60; ++hits) {
        const std::vector<std::string> before = captions();
        greatest += form_.Text1->Text() == "Pulsa sobre el número MAYOR" ? 1 : 0;
        click(rightButton());
        ASSERT_EQ(form_.Text3->Text(), "CORRECTO");
        ASSERT_EQ(form_.Text2->Text(), "Aciertos: " + std::to_string(hits) + ";   Errores: 0.");
        ASSERT_NE(captions(), before);
        ASSERT_EQ(offeredButtons(), 6);
        ASSERT_EQ(FocusName(), "CbNúmero(0)");
    }
    EXPECT_GT(greatest, 10);
    EXPECT_LT(greatest, 50);
}

TEST_F(Form6Test, AWrongButtonVanishesAndTheQuestionGoesOnUntilOnlyTheRightOneIsLeft)
{
    const std::vector<std::string> before = captions();
    const std::string question = form_.Text1->Text();
    const int right = rightButton();
    int errors = 0;
    for (int wrong = 0; wrong < 6; ++wrong) {
        if (wrong == right) {
            continue;
        }
        click(wrong);
        ++errors;
        EXPECT_EQ(form_.Text3->Text(), "ERROR");
        EXPECT_EQ(form_.Text2->Text(), "Aciertos: 0;   Errores: " + std::to_string(errors) + ".");
        EXPECT_FALSE(offered(wrong));
        EXPECT_EQ(offeredButtons(), 6 - errors);
        EXPECT_EQ(captions(), before);
        EXPECT_EQ(form_.Text1->Text(), question);
        EXPECT_EQ(FocusName(), numberBehind(wrong));
        Press(Qt::Key_Escape);
        Press(Qt::Key_5);
        EXPECT_EQ(form_.Text3->Text(), "ERROR") << "it stays until the next click";
    }
    EXPECT_TRUE(form_.isVisible());
    click(right);
    EXPECT_EQ(form_.Text3->Text(), "CORRECTO");
    EXPECT_EQ(form_.Text2->Text(), "Aciertos: 1;   Errores: 5.");
    EXPECT_EQ(offeredButtons(), 6) << "vanished buttons come back with the next question";
    Press(Qt::Key_Tab);
    EXPECT_EQ(form_.Text3->Text(), "CORRECTO");
}

TEST_F(Form6Test, AVanishingButtonPassesTheFocusOn)
{
    for (int index = 0; index < 6; ++index) {
        for (const int key : { Qt::Key_Return, Qt::Key_Space }) {
            SCOPED_TRACE(index);
            while (rightButton() == index) {
                click(index);
            }
            TabTo(nameOf(index).toStdString());
            HoldDown(key);
            Repeat(key);
            Repeat(key);
            LetGo(key);
            EXPECT_FALSE(offered(index));
            EXPECT_EQ(offeredButtons(), 5) << "however long it is held, it presses one button";
            EXPECT_EQ(FocusName(), numberBehind(index));
            click(rightButton());
        }
    }
}

TEST_F(Form6Test, AQuestionIsAnsweredToItsLastNumberByKeysAlone)
{
    for (int question = 1; question <= 12; ++question) {
        const int right = rightButton();
        while (offeredButtons() > 1) {
            while (!focusIsOnANumber() || FocusName() == nameOf(right).toStdString()) {
                Press(Qt::Key_Tab);
            }
            const std::string wrong = FocusName();
            Press(Qt::Key_Return);
            ASSERT_EQ(form_.Text3->Text(), "ERROR");
            ASSERT_TRUE(focusIsOnANumber()) << "after " << wrong;
        }
        ASSERT_EQ(FocusName(), nameOf(right).toStdString());
        Press(Qt::Key_Return);
        ASSERT_EQ(form_.Text3->Text(), "CORRECTO");
    }
    EXPECT_EQ(form_.Text2->Text(), "Aciertos: 12;   Errores: 60.");
}

TEST_F(Form6Test, TheTimeOfDaySeedsTheQuestions)
{
    // (10 + 1) × (20 + 1) × (30 + 1), factors exchanged: the same seed. Another second: another one.
    const FixedClock sameSeed({ 20, 10, 30, 0 });
    const FixedClock otherSeed({ 10, 20, 31, 37231 });
    const Form6 same(sameSeed);
    const Form6 other(otherSeed);
    EXPECT_EQ(same.CbNúmero[0]->text(), form_.CbNúmero[0]->text());
    EXPECT_EQ(same.Text1->Text(), form_.Text1->Text());
    EXPECT_NE(other.CbNúmero[0]->text(), form_.CbNúmero[0]->text());
}

TEST_F(Form6Test, TheClickThatNoCounterHoldsEndsInARunTimeErrorThatNobodyTraps)
{
    const auto right = [this] { form_.CbNúmero_Click(rightButton()); };
    const auto wrong = [this] { form_.CbNúmero_Click(wrongButton()); };
    for (int i = 0; i < 32767; ++i) {
        wrong();
        right();
    }
    const std::vector<std::string> question = captions();
    EXPECT_EQ(KindThrownBy(right), RunTimeError::Kind::Overflow);
    EXPECT_EQ(KindThrownBy(wrong), RunTimeError::Kind::Overflow);
    EXPECT_EQ(form_.Text2->Text(), "Aciertos: 32767;   Errores: 32767.");
    EXPECT_EQ(captions(), question);
}

} // namespace

} // namespace numbrela
