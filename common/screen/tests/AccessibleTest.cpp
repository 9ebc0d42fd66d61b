#include "common/screen/Accessible.h"

#include "common/screen/Controls.h"
#include "common/screen/FormWindow.h"
#include "common/screen/TextArea.h"
#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>

#include <string>

namespace numbrela {

namespace {

using namespace testing;

QAccessibleInterface& spoken(QWidget& widget)
{
    return *QAccessible::queryAccessibleInterface(&widget);
}

TEST(AccessibleTest, AWindowIsAWindowAndAFrameInItAGroup)
{
    FormWindow form { QStringLiteral("Form"), QStringLiteral("SUMAS"), { 6000, 3000 }, {} };
    TwipsLayout& frame = *AddFrame(form.Area(), QStringLiteral("Frame"), { 300, 300, 1500, 1500 }, {});
    EXPECT_EQ(spoken(form).role(), QAccessible::Window);
    EXPECT_EQ(spoken(form).text(QAccessible::Name), QStringLiteral("SUMAS"));
    EXPECT_EQ(spoken(*frame.parentWidget()).role(), QAccessible::Grouping);
    ShowAndActivate(form);
    EXPECT_TRUE(spoken(form).state().active) << "a reader attends to the active window alone";
}

TEST(AccessibleTest, ALabelKeepsItsRole)
{
    FormWindow form { QStringLiteral("Form"), QStringLiteral("SUMAS"), { 6000, 3000 }, {} };
    QLabel& label = *AddLabel(form.Area(), QStringLiteral("Label"), QStringLiteral("+"), { 300, 300, 500, 500 }, {});
    EXPECT_EQ(spoken(label).role(), QAccessible::StaticText);
}

class SpokenBoxTest : public ::testing::Test {
protected:
    SpokenBoxTest() { box_.setAccessibleName(QStringLiteral("Suma")); }

    QAccessibleTextInterface& text() { return *spoken(box_).textInterface(); }

    struct Found {
        std::string Text;
        int Start = 0;
        int End = 0;
        bool operator==(const Found&) const = default;
    };

    using Asking = QString (QAccessibleTextInterface::*)(int, QAccessible::TextBoundaryType, int*, int*) const;

    Found ask(Asking asking, int offset, QAccessible::TextBoundaryType kind)
    {
        Found found;
        found.Text = (text().*asking)(offset, kind, &found.Start, &found.End).toStdString();
        return found;
    }

    TextBox box_;
};

const std::string noText;
const auto before = &QAccessibleTextInterface::textBeforeOffset;
const auto at = &QAccessibleTextInterface::textAtOffset;
const auto after = &QAccessibleTextInterface::textAfterOffset;

TEST_F(SpokenBoxTest, IsATextThatCanBeEditedUnlessItIsForReadingAlone)
{
    box_.SetText("1,75");
    EXPECT_EQ(spoken(box_).role(), QAccessible::EditableText);
    EXPECT_EQ(spoken(box_).text(QAccessible::Name), QStringLiteral("Suma"));
    EXPECT_EQ(spoken(box_).text(QAccessible::Value), QStringLiteral("1,75"));
    EXPECT_TRUE(spoken(box_).state().editable);
    EXPECT_FALSE(spoken(box_).state().readOnly);
    box_.setReadOnly(true);
    EXPECT_TRUE(spoken(box_).state().readOnly);
    EXPECT_FALSE(spoken(box_).state().editable) << "or what the program writes into it is read out";
    spoken(box_).editableTextInterface()->insertText(0, QStringLiteral("9"));
    EXPECT_EQ(box_.Text(), "1,75");
}

TEST_F(SpokenBoxTest, TellsAndTakesCaretAndHighlight)
{
    box_.SetText("1234");
    text().setCursorPosition(2);
    EXPECT_EQ(box_.cursorPosition(), 2);
    EXPECT_EQ(text().cursorPosition(), 2);
    EXPECT_EQ(text().selectionCount(), 0);
    text().addSelection(1, 3);
    EXPECT_EQ(box_.selectedText(), QStringLiteral("23"));
    EXPECT_EQ(text().selectionCount(), 0) << "a highlight of a box without the focus is not for readers";
    ShowAndActivate(box_);
    box_.setFocus();
    int start = 0;
    int end = 0;
    text().selection(0, &start, &end);
    EXPECT_EQ(std::pair(start, end), std::pair(1, 3));
    EXPECT_EQ(text().selectionCount(), 1);
    text().removeSelection(0);
    EXPECT_FALSE(box_.hasSelectedText());
}

TEST_F(SpokenBoxTest, IsEditedByAssistiveTools)
{
    box_.SetText("1234");
    QAccessibleEditableTextInterface& edited = *spoken(box_).editableTextInterface();
    edited.insertText(2, QStringLiteral(","));
    EXPECT_EQ(box_.Text(), "12,34");
    edited.deleteText(0, 1);
    EXPECT_EQ(box_.Text(), "2,34");
    edited.replaceText(0, 2, QStringLiteral("98"));
    EXPECT_EQ(box_.Text(), "9834");
    spoken(box_).setText(QAccessible::Value, QStringLiteral("7,5"));
    EXPECT_EQ(box_.Text(), "7,5");
    spoken(box_).setText(QAccessible::Name, QStringLiteral("8"));
    EXPECT_EQ(box_.Text(), "7,5") << "which is what is written in it alone";
    box_.setReadOnly(true);
    spoken(box_).setText(QAccessible::Value, QStringLiteral("8"));
    EXPECT_EQ(box_.Text(), "7,5");
}

TEST_F(SpokenBoxTest, TellsWhereItsCharactersAre)
{
    box_.resize(200, 30);
    box_.SetText("1234");
    for (int offset = 0; offset < 4; ++offset) {
        const QRect place = text().characterRect(offset);
        EXPECT_GT(place.width(), 0);
        EXPECT_EQ(text().offsetAtPoint(place.center() - QPoint(1, 0)), offset);
    }
}

TEST_F(SpokenBoxTest, TellsThePieceThatAPlaceIsIn)
{
    box_.SetText("  12 7");
    const auto word = QAccessible::WordBoundary;
    const auto character = QAccessible::CharBoundary;
    EXPECT_EQ(ask(at, 0, word), (Found { "  ", 0, 2 }));
    EXPECT_EQ(ask(at, 2, word), (Found { "12 ", 2, 5 }));
    EXPECT_EQ(ask(at, 4, word), (Found { "12 ", 2, 5 }));
    EXPECT_EQ(ask(at, 6, word), (Found { "7", 5, 6 })) << "behind the last character the last word is read";
    EXPECT_EQ(ask(after, 2, word), (Found { "7", 5, 6 }));
    EXPECT_EQ(ask(after, 5, word), (Found { noText, -1, -1 }));
    EXPECT_EQ(ask(before, 5, word), (Found { "12 ", 2, 5 }));
    EXPECT_EQ(ask(before, 0, word), (Found { noText, -1, -1 }));
    EXPECT_EQ(ask(at, 2, character), (Found { "1", 2, 3 }));
    EXPECT_EQ(ask(at, 6, character), (Found { noText, 6, 6 })) << "and no character";
    EXPECT_EQ(ask(before, 6, character), (Found { "7", 5, 6 }));
    EXPECT_EQ(ask(at, 3, QAccessible::LineBoundary), (Found { "  12 7", 0, 6 }));
    EXPECT_EQ(ask(at, 3, QAccessible::NoBoundary), (Found { "  12 7", 0, 6 }));
    box_.setCursorPosition(2);
    EXPECT_EQ(ask(at, -2, word), (Found { "12 ", 2, 5 })) << "at the caret";
    EXPECT_EQ(ask(at, -1, word), (Found { "7", 5, 6 })) << "at the end";
}

constexpr QAccessible::TextBoundaryType boundaries[] = { QAccessible::CharBoundary, QAccessible::WordBoundary,
    QAccessible::SentenceBoundary, QAccessible::ParagraphBoundary, QAccessible::LineBoundary, QAccessible::NoBoundary };

void expectAnswersToEveryQuestion(QAccessibleTextInterface& asked)
{
    const int end = asked.characterCount();
    const QString all = asked.text(0, end);
    for (const auto kind : boundaries) {
        for (int offset = -3; offset <= end + 2; ++offset) {
            SCOPED_TRACE(all.toStdString() + ", " + std::to_string(kind) + " at " + std::to_string(offset));
            int start = 0;
            int stop = 0;
            const QString here = asked.textAtOffset(offset, kind, &start, &stop);
            if (offset < -2 || offset > end) {
                EXPECT_EQ(start, -1);
                continue;
            }
            EXPECT_EQ(here, all.mid(start, stop - start));
            const auto isGap = [&](int from, int to) { // a line break belongs to no line
                return from == to || (from + 1 == to && all[from] == u'\n');
            };
            int otherStart = 0;
            int otherStop = 0;
            asked.textBeforeOffset(offset, kind, &otherStart, &otherStop);
            EXPECT_TRUE(otherStart == -1 ? start == 0 : isGap(otherStop, start));
            asked.textAfterOffset(offset, kind, &otherStart, &otherStop);
            EXPECT_TRUE(otherStart == -1 ? stop == end : isGap(stop, otherStart));
        }
    }
}

// Qt's own text boxes loop for ever on some of these.
TEST(AccessibleTest, EveryBoxAnswersEveryQuestionAboutEveryText)
{
    TextBox box;
    QLineEdit plain;
    TextArea area;
    for (const char* written : { "", " ", "     ", "5", "5 ", " 5", "12 7", "  12  ", "Hola. ¿Qué tal? Bien.",
             "ñandú 𝟛 1,5", "\n", " 9725   \n 17     ", "Sume.\n\n2,45" }) {
        area.SetText(written);
        expectAnswersToEveryQuestion(*spoken(area).textInterface());
        if (QString::fromUtf8(written).contains(u'\n')) {
            continue; // which a line cannot hold
        }
        for (QLineEdit* line : { static_cast<QLineEdit*>(&box), &plain }) {
            line->setText(QString::fromUtf8(written));
            expectAnswersToEveryQuestion(*spoken(*line).textInterface());
        }
    }
}

// Qt itself would warn of places before the text.
class SpokenAreaTest : public ::testing::Test {
protected:
    SpokenAreaTest()
    {
        area_.resize(300, 100);
        area_.SetText("Sume. Pulse.\n 2,45\n+1,30");
        ShowAndActivate(area_); // and so laid out
    }

    QAccessibleTextInterface& text() { return *spoken(area_).textInterface(); }

    TextArea area_;
};

TEST_F(SpokenAreaTest, IsATextOfSeveralLinesForReading)
{
    EXPECT_EQ(spoken(area_).role(), QAccessible::EditableText);
    EXPECT_TRUE(spoken(area_).state().readOnly);
    EXPECT_TRUE(spoken(area_).state().multiLine);
    EXPECT_EQ(spoken(area_).text(QAccessible::Value).toStdString(), area_.Text());
    EXPECT_EQ(text().text(13, 18), QStringLiteral(" 2,45"));
    int start = 0;
    int end = 0;
    EXPECT_EQ(text().textAtOffset(15, QAccessible::LineBoundary, &start, &end), QStringLiteral(" 2,45"));
    EXPECT_EQ(text().textBeforeOffset(0, QAccessible::LineBoundary, &start, &end), QString());
}

TEST_F(SpokenAreaTest, TellsAndTakesCaretAndHighlight)
{
    text().setCursorPosition(2);
    EXPECT_EQ(text().cursorPosition(), 2);
    EXPECT_EQ(text().selectionCount(), 0);
    text().addSelection(13, 1000);
    int start = 0;
    int end = 0;
    text().selection(0, &start, &end);
    EXPECT_EQ(std::pair(start, end), std::pair(13, 24));
    EXPECT_EQ(text().selectionCount(), 1);
    text().removeSelection(0);
    EXPECT_EQ(text().selectionCount(), 0);
    text().selection(0, &start, &end);
    EXPECT_EQ(std::pair(start, end), std::pair(0, 0));
    text().scrollToSubstring(20, 24);
    EXPECT_EQ(text().cursorPosition(), 20);
}

TEST_F(SpokenAreaTest, TellsWhereItsCharactersAre)
{
    for (int offset = 0; offset < text().characterCount(); ++offset) {
        const QRect place = text().characterRect(offset);
        EXPECT_GT(place.width(), 0) << offset;
        EXPECT_EQ(text().offsetAtPoint(place.topLeft() + QPoint(1, place.height() / 2)), offset);
    }
}

} // namespace

} // namespace numbrela
