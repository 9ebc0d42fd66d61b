#include "app/Form1.h"

#include "activities/shopping/tests/StillClocks.h"
#include "activities/shopping/tests/TemporaryFolder.h"
#include "activities/shopping/tests/TestTables.h"
#include "app/ProgramRun.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QTest>

#include <memory>

namespace numbrela {

namespace {

using namespace testing;

const QString laCompra = QStringLiteral("Command1(7)");

class ShoppingFromTheMenuTest : public ::testing::Test {
protected:
    ShoppingFromTheMenuTest()
    {
        SaveCatalogue(run_.Shopping.Catalogue, NumberedTable(7));
        ShowAndActivate(*menu_);
    }

    Form7* shopping() const { return dynamic_cast<Form7*>(run_.Shopping.Window.data()); }

    // What somebody does who looks into the catalogue editor and cancels.
    Form7* leaveShoppingBesideTheMenu()
    {
        Click(*menu_, laCompra);
        shopping()->MnuOpcPro_Click();
        run_.Shopping.Window->close();
        return shopping();
    }

    const TemporaryFolder folder_;
    ProgramRun run_ { .Time = std::make_unique<FixedClock>(), .Shopping = { folder_ / "productos.dat" } };
    const StillClocks stillClocks_;
    std::unique_ptr<Form1> menu_ = std::make_unique<Form1>(run_);
};

// The second window is opened before the first, which the person has closed, is destroyed.
TEST_F(ShoppingFromTheMenuTest, ItsButtonOpensTheWindowWithTheCatalogueOfTheRunAndNoneThatWasClosed)
{
    const QPointer<Form7> left = leaveShoppingBesideTheMenu();
    ASSERT_NE(left, nullptr);
    left->close();
    Click(*menu_, laCompra);
    ASSERT_NE(shopping(), nullptr);
    EXPECT_NE(shopping(), left);
    EXPECT_EQ(shopping()->windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(shopping()->Task().Catalogue.size(), 7U);
    shopping()->close();
}

TEST_F(ShoppingFromTheMenuTest, AWindowThatTheEditorHasLeftBesideTheMenuComesToTheFront)
{
    Form7* const left = leaveShoppingBesideTheMenu();
    ASSERT_NE(left, nullptr);
    for (const bool minimised : { false, true }) {
        if (minimised) {
            left->showMinimized();
        }
        ShowAndActivate(*menu_);
        Click(*menu_, laCompra);
        EXPECT_EQ(shopping(), left) << "no other one was opened";
        EXPECT_FALSE(left->isMinimized());
        EXPECT_TRUE(QTest::qWaitForWindowActive(left));
        EXPECT_EQ(left->windowModality(), Qt::NonModal);
    }
}

TEST_F(ShoppingFromTheMenuTest, AWindowThatIsOpenedBesideAMaximisedMenuIsMaximisedToo)
{
    menu_->showMaximized();
    Form7* const left = leaveShoppingBesideTheMenu();
    ASSERT_NE(left, nullptr);
    EXPECT_TRUE(left->isMaximized());
    left->close();
    EXPECT_TRUE(menu_->isMaximized());
}

TEST_F(ShoppingFromTheMenuTest, TheProgramEndsWithTheMenuAlsoWhenAWindowIsOpenBesideIt)
{
    for (const bool bySalir : { true, false }) {
        const QPointer<Form7> left = leaveShoppingBesideTheMenu();
        ASSERT_NE(left, nullptr);
        DoSoon(*menu_,
            [&] { bySalir ? Click(*menu_, QStringLiteral("Command1(8)")) : static_cast<void>(menu_->close()); });
        EXPECT_EQ(QApplication::exec(), 0);
        EXPECT_FALSE(menu_->isVisible());
        EXPECT_TRUE(left == nullptr || !left->isVisible());
        ShowAndActivate(*menu_);
    }
}

TEST_F(ShoppingFromTheMenuTest, WindowsThatAreStillOpenAndTheEditorEndWithTheMenu)
{
    const QPointer<Form7> left = leaveShoppingBesideTheMenu();
    Click(*menu_, QStringLiteral("Command1(0)"));
    const QPointer<QWidget> sums = QApplication::activeModalWidget();
    ASSERT_NE(sums, nullptr);
    menu_.reset();
    EXPECT_EQ(left, nullptr);
    EXPECT_EQ(sums, nullptr);

    menu_ = std::make_unique<Form1>(run_);
    ShowAndActivate(*menu_);
    Click(*menu_, laCompra);
    shopping()->MnuOpcPro_Click();
    const QPointer<FormWindow> editor = run_.Shopping.Window;
    ASSERT_NE(editor, nullptr);
    menu_.reset();
    EXPECT_EQ(editor, nullptr);
}

} // namespace

} // namespace numbrela
