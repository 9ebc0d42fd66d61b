#include "common/screen/FormWindow.h"

#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"
#include "common/screen/OptionMenu.h"
#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"
#include "tests/support/FormTable.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QWindow>

#include <array>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

constexpr TwipsSize designArea { 4875, 7695 }; // 325 by 513 pixels
constexpr QSize designPixels { 325, 513 };

// A window with a text box, two buttons and, unless it is to have none, a menu.
class TestForm : public FormWindow {
public:
    explicit TestForm(TwipsSize area = designArea, bool withMenu = true)
        : FormWindow(QStringLiteral("Form9"), QStringLiteral("PRUEBAS"), area, { "Verdana", 12 })
    {
        Box = AddTextBox(Area(), QStringLiteral("Box"), { 1500, 500, 2000, 495 }, { "Courier", 15 });
        First = AddButton(Area(), QStringLiteral("First"), QStringLiteral("First"), { 1500, 1500, 1500, 495 }, {});
        Second = AddButton(Area(), QStringLiteral("Second"), QStringLiteral("Second"), { 1500, 2500, 1500, 495 }, {});
        for (CommandButton* button : { First, Second }) {
            QObject::connect(button, &QPushButton::clicked, this, [this] { ++Presses; });
        }
        if (withMenu) {
            Options = AddMenu(QStringLiteral("MnuOpc"), QStringLiteral("&Opciones"));
            AddMenuItem(
                Options, QStringLiteral("MnuOpcUno"), QStringLiteral("&Uno"), [this] { ++Choices; }, Qt::Key_F2);
            AddOptionMenu(Options, QStringLiteral("MnuOpcLis"), QStringLiteral("&Lista"), CaptionsOf({ 3, 2 }),
                [this](int index) { ListChoice = index; });
            AddMenuItem(Options, QStringLiteral("MnuOpcSal"), QStringLiteral("&Salir"), [this] { close(); });
        }
    }

    using FormWindow::AddMenu;
    using FormWindow::AddMenuItem;
    using FormWindow::KeepFrame;
    using FormWindow::MenuBar;
    using FormWindow::SetTabSequence;

    // What the window has below its menu bar.
    QSize AreaPixels() const { return size() - QSize(0, MenuBar()->isHidden() ? 0 : MenuBar()->height()); }

    std::array<QWidget*, 3> Controls() const { return { Box, First, Second }; }

    TextBox* Box = nullptr;
    CommandButton* First = nullptr;
    CommandButton* Second = nullptr;
    QMenu* Options = nullptr;
    int Presses = 0;
    int Choices = 0;
    int ListChoice = -1;
};

void settle()
{
    // A change of the window can change the font of its menu, which changes the layout of the window again.
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::processEvents();
    }
}

void destroyClosedWindows()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Every visible control stands whole in the window, below the menu bar, where its twips say.
void expectEverythingWhole(const TestForm& form)
{
    const QRect area(QPoint(0, form.height() - form.AreaPixels().height()), form.AreaPixels());
    const TwipsRect extent = form.Area().Extent();
    const double scale = form.Area().PixelsPerTwip();
    const double left = area.x() + (area.width() - extent.Width * scale) / 2;
    const double top = area.y() + (area.height() - extent.Height * scale) / 2;
    constexpr double tolerance = 1.5; // a place is cut to whole pixels, and so is what is left over beside it
    for (const QWidget* control : form.Controls()) {
        if (control->isHidden()) {
            continue;
        }
        SCOPED_TRACE(control->objectName().toStdString());
        const TwipsRect rect = form.Area().RectOf(control);
        EXPECT_TRUE(area.contains(control->geometry()));
        EXPECT_NEAR(control->x(), left + (rect.Left - extent.Left) * scale, tolerance);
        EXPECT_NEAR(control->y(), top + (rect.Top - extent.Top) * scale, tolerance);
        EXPECT_NEAR(control->width(), rect.Width * scale, tolerance);
        EXPECT_NEAR(control->height(), rect.Height * scale, tolerance);
    }
}

class ShownFormTest : public ::testing::Test {
protected:
    ShownFormTest()
    {
        ShowAndActivate(form_);
        size_ = form_.size();
    }

    TestForm form_;
    QSize size_; // as it opens
};

TEST(FormWindowTest, HasItsNameItsCaptionAndItsFontAndIsNoDialog)
{
    TestForm form;
    EXPECT_EQ(form.objectName().toStdString(), "Form9");
    EXPECT_EQ(form.windowTitle().toStdString(), "PRUEBAS");
    EXPECT_TRUE(form.isWindow());
    EXPECT_EQ(qobject_cast<QDialog*>(&form), nullptr);
    ExpectMenus(
        form, { "MnuOpc &Opciones", "  MnuOpcUno &Uno [F2]", "  MnuOpcLis &Lista: &3 &4", "  MnuOpcSal &Salir" });
    Choose(form, QStringLiteral("MnuOpcLisLis(1)"));
    EXPECT_EQ(form.ListChoice, 1);
    QWidget control;
    form.Area().Place(&control, { 0, 0, 300, 300 });
    EXPECT_EQ(control.font().family().toStdString(), "Verdana");
    EXPECT_EQ(control.font().pixelSize(), 16);
}

TEST_F(ShownFormTest, LeavesEnterAndEscapeToTheControlThatHasTheFocusAndHeedsAShortcutFromAnyOne)
{
    form_.Box->setFocus();
    for (const int key : { int { Qt::Key_Return }, int { Qt::Key_Enter }, int { Qt::Key_Escape } }) {
        Press(key);
        EXPECT_EQ(FocusName(), "Box") << key;
    }
    Press(Qt::Key_F2);
    EXPECT_EQ(form_.Choices, 1);
    form_.First->setFocus();
    Press(Qt::Key_F2);
    EXPECT_EQ(form_.Choices, 2);
    Choose(form_, QStringLiteral("MnuOpcUno"));
    EXPECT_EQ(form_.Choices, 3);
    Press(Qt::Key_Escape);
    EXPECT_EQ(form_.Presses, 0);
    EXPECT_TRUE(form_.isVisible());
}

TEST(FormWindowTest, MakesEveryOtherWindowInertWhileItIsShownModally)
{
    TestForm menu;
    ShowAndActivate(menu);
    const auto clickInMenu = [&menu] {
        QTest::mouseClick(menu.windowHandle(), Qt::LeftButton, Qt::NoModifier, menu.First->geometry().center());
    };
    clickInMenu();
    EXPECT_EQ(menu.Presses, 1);

    auto* form = new TestForm;
    form->Show(true);
    ASSERT_TRUE(QTest::qWaitForWindowActive(form));
    EXPECT_EQ(QApplication::activeModalWidget(), form);
    clickInMenu();
    Press(Qt::Key_F2);
    EXPECT_EQ(menu.Presses, 1);
    EXPECT_EQ(menu.Choices, 0);
    EXPECT_EQ(form->Choices, 1);

    const QPointer<TestForm> alive(form);
    Choose(*form, QStringLiteral("MnuOpcSal"));
    destroyClosedWindows();
    EXPECT_TRUE(alive.isNull());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    clickInMenu();
    EXPECT_EQ(menu.Presses, 2);
}

TEST(FormWindowTest, OpensAsLargeAsTheWindowThatItIsOpenedFromAndHasItsDesignSizeWhenItIsNoLongerSo)
{
    for (const auto state : { Qt::WindowNoState, Qt::WindowMaximized, Qt::WindowFullScreen }) {
        TestForm menu;
        menu.setWindowState(state);
        ShowAndActivate(menu);
        auto* form = new TestForm;
        form->OpenLike(menu);
        form->Show(true);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
        EXPECT_EQ(form->windowState() & ~Qt::WindowActive, state);
        EXPECT_EQ(form->size(), menu.size());

        form->showNormal();
        settle();
        EXPECT_EQ(form->AreaPixels(), designPixels);
        form->close();
        destroyClosedWindows();
        EXPECT_EQ(menu.windowState() & ~Qt::WindowActive, state);
    }
    TestForm menu;
    menu.setWindowState(Qt::WindowMinimized);
    TestForm form;
    form.OpenLike(menu);
    ShowAndActivate(form);
    EXPECT_EQ(form.AreaPixels(), designPixels);
}

// --- The whole screen ------------------------------------------------------------------------------------------------

TEST(FullScreenTest, F11FillsTheScreenAndTheNextPressBringsTheWindowBackAsItWas)
{
    for (const auto state : { Qt::WindowNoState, Qt::WindowMaximized }) {
        TestForm form;
        form.setWindowState(state);
        ShowAndActivate(form);
        const QRect before = form.geometry();
        Press(Qt::Key_F11);
        EXPECT_TRUE(form.isFullScreen());
        EXPECT_EQ(form.size(), form.screen()->size());
        EXPECT_TRUE(form.MenuBar()->isVisible());
        Press(Qt::Key_F11);
        EXPECT_EQ(form.windowState() & ~Qt::WindowActive, state);
        EXPECT_EQ(form.geometry(), before);
    }
}

TEST(FullScreenTest, WhatWasChosenLastHoldsForEveryWindow)
{
    TestForm menu;
    ShowAndActivate(menu);
    const auto pressIn = [&menu](bool before, bool after) {
        auto* form = new TestForm;
        form->OpenLike(menu);
        form->Show(true);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
        EXPECT_EQ(form->isFullScreen(), before);
        Press(Qt::Key_F11);
        EXPECT_EQ(form->isFullScreen(), after);
        form->close();
        destroyClosedWindows();
        menu.activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&menu, after] { return menu.isFullScreen() == after; }));
    };
    pressIn(false, true);
    pressIn(true, false);
}

TEST(FullScreenTest, AWindowThatOnlyItsFrameClosesOpensMaximisedAndChoosesForItselfAlone)
{
    TestForm menu;
    ShowAndActivate(menu);
    Press(Qt::Key_F11);
    auto* form = new TestForm;
    form->KeepFrame();
    form->OpenLike(menu);
    form->Show(true);
    ASSERT_TRUE(QTest::qWaitForWindowActive(form));
    EXPECT_EQ(form->windowState() & ~Qt::WindowActive, Qt::WindowMaximized);
    Press(Qt::Key_F11);
    EXPECT_TRUE(form->isFullScreen());
    Press(Qt::Key_F11);
    EXPECT_FALSE(form->isFullScreen());
    form->close();
    destroyClosedWindows();
    menu.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&menu));
    EXPECT_TRUE(menu.isFullScreen());
}

TEST(FullScreenTest, ItIsNotForcedOnAWindowThatHasLeftItThroughItsFrame)
{
    TestForm form;
    ShowAndActivate(form);
    Press(Qt::Key_F11);
    form.showNormal(); // as a window manager does
    TestForm other;
    ShowAndActivate(other);
    ShowAndActivate(form);
    EXPECT_FALSE(form.isFullScreen());
    TestForm next;
    next.OpenLike(form);
    EXPECT_FALSE(next.isFullScreen());
}

TEST(FullScreenTest, ItIsStillChosenWhileTheWindowIsMinimised)
{
    TestForm form;
    ShowAndActivate(form);
    Press(Qt::Key_F11);
    form.showMinimized();
    QCoreApplication::processEvents();
    EXPECT_TRUE(form.isMinimized());
    EXPECT_TRUE(form.FormWindow::Choices().FullScreen);
}

TEST_F(ShownFormTest, GoesThroughItsControlsWithTabInTheOrderGiven)
{
    TestForm::SetTabSequence({ form_.Second, form_.Box, form_.First });
    form_.Second->setFocus();
    for (const char* next : { "Box", "First", "Second" }) {
        Press(Qt::Key_Tab);
        EXPECT_EQ(FocusName(), next);
    }
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(FocusName(), "First");
}

TEST(FormWindowTest, OpensInItsDesignSizeBelowTheMenuBar)
{
    for (const bool withMenu : { true, false }) {
        TestForm form(designArea, withMenu);
        ShowAndActivate(form);
        EXPECT_EQ(form.AreaPixels(), designPixels);
        EXPECT_EQ(form.MenuBar()->isVisible(), withMenu);
        EXPECT_FALSE(form.MenuBar()->isNativeMenuBar());
        EXPECT_EQ(form.MenuBar()->pos(), QPoint(0, 0));
        EXPECT_EQ(form.height() > designPixels.height(), withMenu);
        EXPECT_DOUBLE_EQ(form.Area().PixelsPerTwip(), 1.0 / 15);
        const QPoint origin(0, form.height() - designPixels.height());
        EXPECT_EQ(form.Box->geometry().translated(-origin), QRect(QPoint(100, 33), QPoint(233 - 1, 66 - 1)));
        EXPECT_EQ(form.Box->font().pixelSize(), 20);
        EXPECT_EQ(form.font().pixelSize(), 16);
        expectEverythingWhole(form);
    }
}

TEST(FormWindowTest, OpensSmallerWhenTheScreenHasNoRoomForIt)
{
    const QSize room = QApplication::primaryScreen()->availableSize();
    const TwipsSize quarterLargerThanScreen { room.width() * 15 * 5 / 4, room.height() * 15 * 5 / 4 };
    TestForm form(quarterLargerThanScreen);
    ShowAndActivate(form);
    EXPECT_LT(form.width(), room.width());
    EXPECT_LT(form.height(), room.height());
    EXPECT_GT(form.height(), room.height() * 8 / 10);
    const double scale = form.Area().PixelsPerTwip();
    EXPECT_LT(scale, 1.0 / 15);
    EXPECT_NEAR(form.AreaPixels().width(), quarterLargerThanScreen.Width * scale, 1);
    EXPECT_NEAR(form.AreaPixels().height(), quarterLargerThanScreen.Height * scale, 1);
    EXPECT_NEAR(form.Box->font().pixelSize(), 300 * form.Area().PixelsPerTwip(), 1);
    expectEverythingWhole(form);
}

TEST(FormWindowTest, KeepsTheSizeThatAPersonGaveItWhenItIsHiddenAndShown)
{
    TestForm form;
    ShowAndActivate(form);
    form.resize(400, 600);
    form.hide();
    ShowAndActivate(form);
    EXPECT_EQ(form.size(), QSize(400, 600));
    const QSize box = form.Box->size();
    form.resize(800, 600);
    settle();
    EXPECT_EQ(form.Box->size(), box) << "only wider, it keeps its proportions";
    expectEverythingWhole(form);
    TestForm maximised;
    maximised.showMaximized();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&maximised));
    EXPECT_GT(maximised.height(), maximised.screen()->availableSize().height() * 9 / 10);
    expectEverythingWhole(maximised);
}

TEST_F(ShownFormTest, GrowsWithEverythingInIt)
{
    const int menuHeight = form_.MenuBar()->height();
    form_.resize(2 * form_.size());
    settle();
    const double scale = form_.Area().PixelsPerTwip();
    EXPECT_NEAR(scale, 2.0 / 15, 0.002);
    EXPECT_NEAR(form_.Box->font().pixelSize(), 300 * scale, 1);
    EXPECT_NEAR(form_.First->font().pixelSize(), 240 * scale, 1);
    EXPECT_GT(form_.MenuBar()->height(), 3 * menuHeight / 2);
    for (const QWidget* menu : { static_cast<QWidget*>(&form_), static_cast<QWidget*>(form_.MenuBar()),
             static_cast<QWidget*>(form_.Options) }) {
        EXPECT_NEAR(menu->font().pixelSize(), 240 * scale, 1);
        EXPECT_EQ(menu->font().family().toStdString(), "Arial");
    }
    expectEverythingWhole(form_);
}

TEST(FormWindowTest, LooksAlikeInASizeWhateverSizeItHadBefore)
{
    TestForm form({ 7500, 6300 });
    ShowAndActivate(form);
    const auto look = [&form] {
        settle();
        return std::vector<int> { form.font().pixelSize(), form.MenuBar()->height(), form.Box->x(), form.Box->y(),
            form.Box->width(), form.Box->height() };
    };
    const QSize designSize = form.size();
    const std::vector<int> fresh = look();
    for (const QSize larger : { QSize(1280, 800), QSize(505, 800), QSize(1100, 560) }) {
        SCOPED_TRACE(std::to_string(larger.width()) + " by " + std::to_string(larger.height()));
        form.resize(larger);
        const std::vector<int> fromDesign = look();
        form.resize(larger + QSize(0, 1));
        settle();
        form.resize(larger);
        EXPECT_EQ(look(), fromDesign);
        form.resize(designSize);
        EXPECT_EQ(look(), fresh);
    }
}

TEST_F(ShownFormTest, ShrinksToHalfItsDesignSizeAtMost)
{
    form_.resize(1, 1);
    settle();
    EXPECT_GE(form_.AreaPixels().width(), designPixels.width() / 2);
    EXPECT_GE(form_.AreaPixels().height(), designPixels.height() / 2);
    EXPECT_LE(form_.AreaPixels().height(), designPixels.height() * 6 / 10);
    EXPECT_LT(form_.Box->font().pixelSize(), 12);
    expectEverythingWhole(form_);
}

struct BeyondEdge {
    const char* Name;
    TwipsRect Place;
    QSize Growth; // in pixels, at the design size
};

class BeyondEdgeTest : public ShownFormTest, public ::testing::WithParamInterface<BeyondEdge> {
protected:
    void moveBox(TwipsRect rect)
    {
        form_.Area().Move(form_.Box, rect);
        settle();
    }

    const TwipsRect inside_ = form_.Area().RectOf(form_.Box);
};

INSTANTIATE_TEST_SUITE_P(Edges, BeyondEdgeTest,
    ::testing::Values(BeyondEdge { "Left", { -600, 500, 2000, 495 }, { 40, 0 } },
        BeyondEdge { "Above", { 1500, -450, 2000, 495 }, { 0, 30 } },
        BeyondEdge { "Right", { 3625, 500, 2000, 495 }, { 50, 0 } },
        BeyondEdge { "Below", { 1500, 7650, 2000, 495 }, { 0, 30 } },
        BeyondEdge { "Everywhere", { -300, -150, 5475, 8145 }, { 40, 30 } }),
    [](const auto& row) { return row.param.Name; });

TEST_P(BeyondEdgeTest, GrowsAtTheSameScaleAndShrinksBack)
{
    TestForm opened;
    opened.Area().Move(opened.Box, GetParam().Place);
    ShowAndActivate(opened);
    EXPECT_EQ(opened.AreaPixels(), designPixels + GetParam().Growth);
    expectEverythingWhole(opened);

    moveBox(GetParam().Place);
    EXPECT_EQ(form_.size(), size_ + GetParam().Growth);
    EXPECT_DOUBLE_EQ(form_.Area().PixelsPerTwip(), 1.0 / 15);
    EXPECT_EQ(form_.First->size(), QSize(100, 33));
    EXPECT_EQ(form_.Box->font().pixelSize(), 20);
    expectEverythingWhole(form_);
    form_.Box->hide(); // only what is visible takes room
    settle();
    EXPECT_EQ(form_.size(), size_);
    expectEverythingWhole(form_);
    form_.Box->show();
    settle();
    EXPECT_EQ(form_.size(), size_ + GetParam().Growth);
    moveBox(inside_);
    EXPECT_EQ(form_.size(), size_);
    EXPECT_EQ(form_.AreaPixels(), designPixels);
    expectEverythingWhole(form_);
}

TEST_P(BeyondEdgeTest, GrowsAtTheScaleThatAPersonGaveTheWindow)
{
    form_.resize(form_.size() * 5 / 4);
    settle();
    const double scale = form_.Area().PixelsPerTwip();
    const QSize button = form_.First->size();
    moveBox(GetParam().Place);
    EXPECT_NEAR(form_.Area().PixelsPerTwip(), scale, 0.0005);
    EXPECT_NEAR(form_.First->width(), button.width(), 1);
    EXPECT_NEAR(form_.AreaPixels().width(), (designPixels.width() + GetParam().Growth.width()) * 15 * scale, 2);
    EXPECT_NEAR(form_.AreaPixels().height(), (designPixels.height() + GetParam().Growth.height()) * 15 * scale, 2);
    expectEverythingWhole(form_);
    moveBox(inside_);
    EXPECT_NEAR(form_.AreaPixels().width(), designPixels.width() * 15 * scale, 2);
    EXPECT_NEAR(form_.AreaPixels().height(), designPixels.height() * 15 * scale, 2);
    EXPECT_NEAR(form_.First->width(), button.width(), 1);
}

TEST_P(BeyondEdgeTest, ShowsEverythingInAMaximisedWindow)
{
    form_.showMaximized();
    settle();
    const QSize maximised = form_.size();
    EXPECT_GT(maximised.height(), form_.screen()->availableSize().height() * 9 / 10);
    EXPECT_GT(form_.Area().PixelsPerTwip(), 1.0 / 15);
    expectEverythingWhole(form_);
    moveBox(GetParam().Place);
    EXPECT_EQ(form_.size(), maximised);
    expectEverythingWhole(form_);
    moveBox(inside_);
    form_.showNormal();
    settle();
    EXPECT_EQ(form_.size(), size_);
    moveBox(GetParam().Place);
    EXPECT_EQ(form_.size(), size_ + GetParam().Growth);
    expectEverythingWhole(form_);
}

TEST_F(BeyondEdgeTest, KeepsItsSizeHoweverOftenAControlComesAndGoes)
{
    for (int i = 1; i <= 60; ++i) {
        moveBox({ -137 * i, 500, 2000, 495 });
        expectEverythingWhole(form_);
        moveBox({ 1500, -193 * i, 2000, 495 });
        expectEverythingWhole(form_);
        moveBox(inside_);
        ASSERT_EQ(form_.size(), size_) << i;
    }
}

TEST_F(BeyondEdgeTest, GrowsNoLargerThanTheScreen)
{
    const QSize room = form_.screen()->availableSize();
    for (const TwipsRect far :
        { TwipsRect { -room.width() * 15, 500, 2000, 495 }, TwipsRect { 1500, room.height() * 15, 2000, 495 } }) {
        moveBox(far);
        EXPECT_LT(form_.width(), room.width());
        EXPECT_LT(form_.height(), room.height());
        expectEverythingWhole(form_);
        moveBox(inside_);
        EXPECT_EQ(form_.size(), size_);
    }
}

TEST_F(BeyondEdgeTest, TakesTheSizeThatItsAreaIsGiven)
{
    form_.Area().SetDesignSize({ designArea.Width + 600, designArea.Height - 1500 });
    settle();
    EXPECT_EQ(form_.size(), size_ + QSize(40, -100));
    EXPECT_DOUBLE_EQ(form_.Area().PixelsPerTwip(), 1.0 / 15);
    expectEverythingWhole(form_);
    form_.Area().SetDesignSize(designArea);
    settle();
    EXPECT_EQ(form_.size(), size_);
}

TEST_F(BeyondEdgeTest, ComesBackOntoTheScreenWhenItHasGrownOverItsEdge)
{
    const QRect room = form_.screen()->availableGeometry();
    const QPoint inMiddle(200, 100);
    form_.move(inMiddle);
    moveBox({ 3625, 7650, 2000, 495 });
    EXPECT_EQ(form_.pos(), inMiddle) << "it has room where it is";
    moveBox(inside_);
    const QSize frame = form_.frameGeometry().size();
    form_.move(room.right() + 1 - frame.width(), room.bottom() + 1 - frame.height());
    moveBox({ 3625, 7650, 2000, 495 });
    EXPECT_EQ(form_.frameGeometry().bottomRight(), room.bottomRight());
    form_.move(-30, -20);
    moveBox(inside_);
    EXPECT_EQ(form_.frameGeometry().topLeft(), room.topLeft());
}

} // namespace

} // namespace numbrela
