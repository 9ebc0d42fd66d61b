#include "common/screen/Announcement.h"

#include "common/screen/Announcer.h"
#include "common/screen/Controls.h"
#include "common/screen/FormWindow.h"
#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

namespace numbrela {

namespace {

using namespace testing;

// What is said of it to a reader that listens is seen where there is one, on a real accessibility bus.
class AnnouncerTest : public ::testing::Test {
protected:
    std::string said()
    {
        QCoreApplication::processEvents();
        return announcer_.Said().toStdString();
    }

    FormWindow form_ { QStringLiteral("Form"), QStringLiteral("SUMAS"), { 6000, 3000 }, {} };
    Announcer& announcer_ = *new Announcer(form_);
};

TEST_F(AnnouncerTest, SaysWhatHappensTogetherInOnePieceAndLast)
{
    ShowAndActivate(form_);
    announcer_.Announce(QStringLiteral("CORRECTO"));
    announcer_.Announce(QStringLiteral("Pulsa el mayor"));
    EXPECT_EQ(announcer_.Said(), QString());
    EXPECT_EQ(said(), "CORRECTO. Pulsa el mayor");
    announcer_.Announce(QStringLiteral("Suma los precios."));
    announcer_.Announce(QStringLiteral("1 más 2"));
    EXPECT_EQ(said(), "Suma los precios. 1 más 2");
}

TEST_F(AnnouncerTest, WaitsUntilItsWindowIsInFront)
{
    FormWindow before { QStringLiteral("Menu"), QStringLiteral("NUMBRELA"), { 6000, 3000 }, {} };
    announcer_.Announce(QStringLiteral("12 más 3"));
    ShowAndActivate(before);
    EXPECT_EQ(said(), "");
    ShowAndActivate(form_);
    EXPECT_EQ(said(), "12 más 3");
}

TEST_F(AnnouncerTest, WaitsUntilABoxOfItsWindowIsClosed)
{
    ShowAndActivate(form_);
    announcer_.Announce(QStringLiteral("Dinero disponible: 3 €"));
    FormWindow box { QStringLiteral("Box"), QStringLiteral("Compra terminada"), { 3000, 1500 }, {} };
    box.setWindowModality(Qt::ApplicationModal);
    box.show();
    EXPECT_EQ(said(), "");
    box.close();
    ShowAndActivate(form_);
    EXPECT_EQ(said(), "Dinero disponible: 3 €");
}

TEST(AnnouncementTest, MakesNothingWhileNobodyListens)
{
    FormWindow form { QStringLiteral("Form"), QStringLiteral("SUMAS"), { 6000, 3000 }, {} };
    TextBox& box
        = *AddReadOnlyBox(form.Area(), QStringLiteral("Box"), QStringLiteral("Suma"), { 300, 300, 3000, 500 }, {});
    ShowAndActivate(form);
    box.ShowVerdict({ true, "CORRECTO" });
    AnnounceContents(box);
    bool isPutTogether = false;
    Announce(box, [&isPutTogether] {
        isPutTogether = true;
        return QStringLiteral("12 más 3");
    });
    EXPECT_FALSE(isPutTogether);
    QCoreApplication::processEvents();
    EXPECT_EQ(form.findChild<Announcer*>(), nullptr);
}

TEST(InWordsTest, NamesTheSignsBetweenNumbers)
{
    EXPECT_EQ(InWords(QStringLiteral("1,5 + 2 - -3 × 4 ÷ 5")).toStdString(), "1,5 más 2 menos -3 por 4 entre 5");
}

} // namespace

} // namespace numbrela
