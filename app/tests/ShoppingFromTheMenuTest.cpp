#include "app/Form1.h"

#include "activities/shopping/screen/DLGProductos.h"
#include "activities/shopping/tests/CatalogueBesideProgram.h"
#include "activities/shopping/tests/StillClocks.h"
#include "activities/shopping/tests/TestTables.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <memory>

namespace numbrela {

namespace {

using namespace testing;

const QString laCompra = QStringLiteral("Command1(7)");

std::vector<Form7*> shoppingWindows()
{
    std::vector<Form7*> windows;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* form = dynamic_cast<Form7*>(window); form != nullptr && form->isVisible()) {
            windows.push_back(form);
        }
    }
    return windows;
}

class ShoppingFromTheMenuTest : public ::testing::Test {
protected:
    ShoppingFromTheMenuTest() { ShowAndActivate(*menu_); }

    // As somebody does it who looks into the catalogue editor and cancels.
    Form7* leaveShoppingBesideTheMenu()
    {
        Click(*menu_, laCompra);
        shoppingWindows().at(0)->MnuOpcPro_Click();
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* editor = dynamic_cast<DLGProductos*>(window)) {
                editor->close();
            }
        }
        return shoppingWindows().size() == 1 ? shoppingWindows()[0] : nullptr;
    }

    const CatalogueBesideProgram catalogue_ { NumberedTable(7) };
    const FixedClock clock_;
    const StillClocks stillClocks_;
    std::unique_ptr<Form1> menu_ = std::make_unique<Form1>(clock_);
};

TEST_F(ShoppingFromTheMenuTest, ItsButtonOpensTheWindowWithTheCatalogueBesideTheProgram)
{
    Click(*menu_, laCompra);
    ASSERT_EQ(shoppingWindows().size(), 1U);
    EXPECT_EQ(shoppingWindows()[0]->windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(shoppingWindows()[0]->Task().Catalogue.size(), 7U);
    shoppingWindows()[0]->close();
}

TEST_F(ShoppingFromTheMenuTest, AWindowThatTheEditorHasLeftBesideTheMenuComesToTheFront)
{
    Form7* const shopping = leaveShoppingBesideTheMenu();
    ASSERT_NE(shopping, nullptr);
    EXPECT_EQ(shopping->windowModality(), Qt::NonModal);

    ShowAndActivate(*menu_);
    Click(*menu_, laCompra);
    EXPECT_EQ(shoppingWindows(), std::vector<Form7*> { shopping });
    EXPECT_TRUE(QTest::qWaitForWindowActive(shopping));
    EXPECT_EQ(shopping->windowModality(), Qt::NonModal);

    shopping->showMinimized();
    ShowAndActivate(*menu_);
    Click(*menu_, laCompra);
    EXPECT_EQ(shoppingWindows(), std::vector<Form7*> { shopping });
    EXPECT_FALSE(shopping->isMinimized());
    EXPECT_TRUE(QTest::qWaitForWindowActive(shopping));
}

TEST_F(ShoppingFromTheMenuTest, AWindowThatIsOpenedBesideAMaximisedMenuIsMaximisedToo)
{
    menu_->showMaximized();
    Form7* const shopping = leaveShoppingBesideTheMenu();
    ASSERT_NE(shopping, nullptr);
    EXPECT_TRUE(shopping->isMaximized());
    shopping->close();
    EXPECT_TRUE(menu_->isMaximized());
}

TEST_F(ShoppingFromTheMenuTest, TheProgramEndsWithTheMenuAlsoWhenAWindowIsOpenBesideIt)
{
    for (const bool bySalir : { true, false }) {
        const QPointer<Form7> shopping = leaveShoppingBesideTheMenu();
        ASSERT_NE(shopping, nullptr);
        QTimer::singleShot(0, menu_.get(), [&] {
            if (bySalir) {
                Click(*menu_, QStringLiteral("Command1(8)"));
            } else {
                menu_->close();
            }
        });
        EXPECT_EQ(QApplication::exec(), 0);
        EXPECT_FALSE(menu_->isVisible());
        EXPECT_TRUE(shopping == nullptr || !shopping->isVisible());
        ShowAndActivate(*menu_);
    }
}

TEST_F(ShoppingFromTheMenuTest, WindowsThatAreStillOpenEndWithTheMenu)
{
    Click(*menu_, laCompra);
    const QPointer<Form7> shopping = shoppingWindows().at(0);
    menu_.reset();
    EXPECT_EQ(shopping, nullptr);
}

} // namespace

} // namespace numbrela
