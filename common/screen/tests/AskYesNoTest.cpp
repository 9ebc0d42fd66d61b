#include "common/screen/Boxes.h"

#include "tests/support/Boxes.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QTest>

namespace numbrela {

namespace {

using namespace testing;

const QString title = QStringLiteral("Actividad terminada");
const QString question = QStringLiteral("¿Otra  vez <b>?");
const QStringList buttons { QStringLiteral("Sí"), QStringLiteral("No") };

TEST(AskYesNoTest, ItAnswersWhichButtonWasPressed)
{
    ExpectMessage(title, question, buttons, QStringLiteral("Sí"));
    EXPECT_TRUE(AskYesNo(nullptr, question.toStdString(), title.toStdString()));
    ExpectMessage(title, question, buttons, QStringLiteral("No"));
    EXPECT_FALSE(AskYesNo(nullptr, question.toStdString(), title.toStdString()));
    ExpectMessage(QStringLiteral("Numbrela"), question, buttons, QStringLiteral("No"));
    EXPECT_FALSE(AskYesNo(nullptr, question.toStdString()));
}

TEST(AskYesNoTest, EnterMeansYesOrWhatIsNamedAndEscapeNo)
{
    for (const auto& [onEnter, yes] : { std::pair(Answer::Yes, true), { Answer::No, false } }) {
        ExpectDialog([](QDialog& box) { QTest::keyClick(&box, Qt::Key_Return); });
        EXPECT_EQ(AskYesNo(nullptr, question.toStdString(), title.toStdString(), onEnter), yes);
    }
    ExpectDialog([](QDialog& box) { QTest::keyClick(&box, Qt::Key_Return); });
    EXPECT_TRUE(AskYesNo(nullptr, question.toStdString()));
    ExpectDialog([](QDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_FALSE(AskYesNo(nullptr, question.toStdString()));
    ExpectDialog([](QDialog& box) { box.close(); });
    EXPECT_FALSE(AskYesNo(nullptr, question.toStdString()));
}

} // namespace

} // namespace numbrela
