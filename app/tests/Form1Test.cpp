#include "app/Form1.h"

#include "activities/divide/screen/Form5.h"
#include "activities/divide/screen/WorkingGridBox.h"
#include "activities/divide/tests/DivisionSupport.h"
#include "app/Activities.h"
#include "app/Application.h"
#include "app/ProgramRun.h"
#include "common/screen/CommandButton.h"
#include "common/screen/TextBox.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FormTable.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QCoreApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace numbrela {

namespace {

using namespace testing;

const QColor green(0, 255, 0);
const QColor red(255, 0, 0);

class Form1Test : public ::testing::Test {
protected:
    Form1Test()
        : menu_(std::make_unique<Form1>(run_))
    {
        ShowAndActivate(*menu_);
        QCoreApplication::sendPostedEvents();
    }

    ProgramRun& Run() { return run_; }
    Form1& Menu() { return *menu_; }
    void DestroyMenu() { menu_.reset(); }

    // The activity that is open; null when there is none.
    static FormWindow* Activity() { return dynamic_cast<FormWindow*>(QApplication::activeModalWidget()); }

    static std::string ActivityName()
    {
        return Activity() == nullptr ? std::string() : Activity()->objectName().toStdString();
    }

    // The windows of the program that are on the screen.
    static std::size_t OpenWindows() { return WindowsOnScreen().size(); }

    // Closes the open activity and destroys it, as the running program does.
    static void Close(FormWindow& activity)
    {
        activity.close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static std::string ScoreOf(const FormWindow& activity)
    {
        return Find<TextBox>(activity, QStringLiteral("tbResultados")).Text();
    }

    // Runs the program, calls the action as soon as it runs, and returns the exit status.
    template <typename Act>
    static int RunProgram(Act act)
    {
        DoSoon(*qApp, act);
        return Application::exec();
    }

private:
    ProgramRun run_ { .Time = std::make_unique<FixedClock>() };
    std::unique_ptr<Form1> menu_;
};

TEST_F(Form1Test, HasAColumnOfNineButtons)
{
    const FontSpec font { "Arial", 14.25 };
    const auto button = [&font](const char* name, const char* caption, int top, const QColor& colour) {
        return ControlRow {
            .Name = name, .Text = caption, .Place = { 1000, top, 3000, 405 }, .Font = font, .BackColour = colour
        };
    };
    ExpectControls(Menu(),
        {
            button("Command1(0)", "&Sumas", 905, green),
            button("Command1(1)", "&Restas", 1715, green),
            button("Command1(2)", "&Multiplicaciones", 2525, green),
            button("Command1(3)", "&Divisiones", 3335, green),
            button("Command1(4)", "&Mayor y menor", 4145, green),
            button("Command1(5)", "&10, 100, 1000", 4955, green),
            button("Command1(6)", "&Coloca y suma", 5765, green),
            button("Command1(7)", "&La compra", 6575, green),
            button("Command1(8)", "S&alir", 7385, red),
        });
}

TEST_F(Form1Test, HasItsNameItsCaptionItsHeightAndAMenuItemThatSaysWhoMadeIt)
{
    EXPECT_EQ(Menu().objectName().toStdString(), "Form1");
    EXPECT_EQ(Menu().windowTitle().toStdString(), "NUMBRELA");
    EXPECT_EQ(Menu().height() - Menu().findChild<QMenuBar*>()->height(), 8700 / 15);
    ExpectMenus(Menu(), { "MnuAce &Acerca de..." });
    ExpectMessage(QStringLiteral("Numbrela"),
        QStringLiteral("Numbrela, de los autores de Numbrela, 2026\r\nnumbrela@example.org"));
    Choose(Menu(), QStringLiteral("MnuAce"));
    EXPECT_EQ(PendingBoxes(), 0);
    ShowAndActivate(Menu());
    Press(Qt::Key_Escape);
    EXPECT_TRUE(Menu().isVisible());
}

// Whatever the activity, its button opens one window of its own, with the menu inert behind it.
TEST_F(Form1Test, EveryActivityOpensItsOwnWindowByMouseAndKeysAndReturnsToTheMenu)
{
    constexpr Qt::Key
        none {}; // two buttons share theirs; the shop says before a key is let go that it has no catalogue
    const std::pair<const char*, Qt::Key> windows[]
        = { { "Form2", Qt::Key_S }, { "Form3", Qt::Key_R }, { "Form4", none }, { "Form5", Qt::Key_D },
              { "Form6", none }, { "FrmUnidad", Qt::Key_1 }, { "FormColoSuma", Qt::Key_C }, { "Form7", none } };
    int index = 0;
    for (const auto& [window, accessKey] : windows) {
        SCOPED_TRACE(window);
        const QString button = QStringLiteral("Command1(%1)").arg(index);
        const std::function<void()> waysToOpen[] = {
            [&] { Click(Menu(), button); },
            [] { Press(Qt::Key_Return); },
            [] { Press(Qt::Key_Enter, Qt::KeypadModifier); },
            [] { Press(Qt::Key_Space); },
            [&, key = accessKey] { key == none ? Click(Menu(), button) : PressAccessKey(Menu(), key, button); },
        };
        for (const auto& open : waysToOpen) {
            ShowAndActivate(Menu());
            TabTo(button.toStdString());
            open();
            ASSERT_EQ(ActivityName(), window);
            EXPECT_EQ(OpenWindows(), 2U);
            EXPECT_EQ(Activity()->windowModality(), Qt::ApplicationModal);
            Close(*Activity());
            EXPECT_EQ(ActivityName(), "");
            EXPECT_EQ(OpenWindows(), 1U);
            EXPECT_TRUE(Menu().isVisible());
            if (index == 7) {
                break; // by mouse alone
            }
        }
        ++index;
    }
}

TEST_F(Form1Test, AnIndexThatNoButtonHasDoesNothing)
{
    for (const int index : { -1, 9, 100 }) {
        Menu().Command1_Click(index);
        EXPECT_EQ(OpenWindows(), 1U);
        EXPECT_TRUE(Menu().isVisible());
    }
}

TEST_F(Form1Test, IsInertWhileAnActivityIsOpenAndAliveAgainAfterwards)
{
    ClickOnScreen(*Menu().Command1[0]);
    ASSERT_EQ(ActivityName(), "Form2");
    const FormWindow* sums = Activity();
    const auto expectInert = [&] {
        EXPECT_EQ(Activity(), sums);
        EXPECT_EQ(OpenWindows(), 2U);
        EXPECT_TRUE(Menu().isVisible());
    };
    for (const int index : { 1, 8 }) {
        ClickOnScreen(*Menu().Command1.at(static_cast<std::size_t>(index)));
        expectInert();
        Menu().Command1_Click(index); // two access keys almost at once: both were pressed before the window appeared
        expectInert();
    }
    for (const Qt::Key key : { Qt::Key_Return, Qt::Key_Space }) {
        QTest::keyClick(Menu().windowHandle(), key);
        expectInert();
    }
    Close(*Activity());
    ClickOnScreen(*Menu().Command1[1]);
    ASSERT_EQ(ActivityName(), "Form3");
    Close(*Activity());
}

TEST_F(Form1Test, AnActivityThatIsOpenedAgainStartsAfresh)
{
    for (const char* button : { "Command1(0)", "Command1(1)" }) {
        for (const bool closedByMenu : { true, false, true }) {
            Click(Menu(), QString::fromLatin1(button));
            const QPointer<FormWindow> activity = Activity();
            ASSERT_NE(activity, nullptr);
            EXPECT_EQ(ScoreOf(*activity), "Ejercicios:  0; Errores:  0");
            ShowAndActivate(*activity);
            Press(Qt::Key_Return); // an empty answer
            EXPECT_EQ(ScoreOf(*activity), "Ejercicios:  1; Errores:  1");
            if (closedByMenu) {
                Choose(*activity, QStringLiteral("MnuOpcSal"));
            }
            Close(*activity);
            EXPECT_TRUE(activity.isNull());
            EXPECT_EQ(OpenWindows(), 1U);
        }
    }
}

TEST_F(Form1Test, TakesAnOpenActivityWithIt)
{
    Click(Menu(), QStringLiteral("Command1(0)"));
    const QPointer<FormWindow> activity = Activity();
    ASSERT_NE(activity, nullptr);
    DestroyMenu();
    EXPECT_TRUE(activity.isNull());
}

// An assistive tool can press a button of the inert menu, because nothing is inert to it.
TEST_F(Form1Test, BringsTheMinimisedActivityBackInsteadOfOpeningAnother)
{
    Click(Menu(), QStringLiteral("Command1(0)"));
    FormWindow* const sums = Activity();
    ASSERT_NE(sums, nullptr);
    for (const QString& button : { QStringLiteral("Command1(0)"), QStringLiteral("Command1(8)") }) {
        sums->showMinimized();
        Menu().activateWindow();
        Click(Menu(), button);
        EXPECT_FALSE(sums->isMinimized());
        EXPECT_TRUE(QTest::qWaitForWindowActive(sums));
        EXPECT_EQ(OpenWindows(), 2U);
    }
    Close(*sums);
}

TEST_F(Form1Test, TheTablesThatWereTickedAreTickedInTheNextWindowToo)
{
    EXPECT_EQ(Run().Tables, nullptr) << "nobody has asked for them";
    for (const bool ticked : { false, true }) {
        Click(Menu(), QStringLiteral("Command1(2)"));
        ExpectDialog([ticked](QDialog& dialog) {
            EXPECT_EQ(Find<QCheckBox>(dialog, QStringLiteral("Check1(6)")).isChecked(), ticked);
            Find<QCheckBox>(dialog, QStringLiteral("Check1(6)")).setChecked(true);
            Click(dialog, QStringLiteral("OKButton"));
        });
        Choose(*Activity(), QStringLiteral("MnuOpcSelLis(1)"));
        Close(*Activity());
    }
}

TEST_F(Form1Test, TheDivisionWritesItsRowsBehindTheCommaOfTheOneBefore)
{
    for (const bool shifted : { false, true }) {
        Run().CommaShift = shifted;
        Click(Menu(), QStringLiteral("Command1(3)"));
        ShowAndActivate(*Activity());
        Choose(*Activity(), QStringLiteral("MnuOpcDeDLis(0)"));
        for (const auto& [key, number] : { std::pair(Qt::Key_F2, "84"), std::pair(Qt::Key_F3, "4") }) {
            ExpectDialog([typed = number](QDialog& box) {
                box.findChild<QLineEdit*>()->setText(QString::fromLatin1(typed));
                box.accept();
            });
            Press(key);
        }
        Click(*Activity(), QStringLiteral("Command2(2)"));
        EXPECT_EQ(rowsOf(dynamic_cast<Form5&>(*Activity()).Text1->Grid()).at(1), shifted ? "  04" : " 04");
        Close(*Activity());
    }
}

TEST(ProgramRun, ItsCatalogueStandsInTheFolderRecursosBesideTheProgram)
{
    const std::filesystem::path catalogue = CatalogueBesideProgram();
    const std::filesystem::path folder = catalogue.parent_path().parent_path();
    EXPECT_EQ(catalogue, folder / "Recursos" / "productos.dat");
    EXPECT_TRUE(folder.is_absolute());
    EXPECT_TRUE(std::filesystem::equivalent(folder, APP_TESTS_FOLDER));
}

TEST_F(Form1Test, OpensItsActivitiesAsLargeAsItIsAndStaysSo)
{
    for (const auto state : { Qt::WindowNoState, Qt::WindowMaximized, Qt::WindowFullScreen }) {
        Menu().setWindowState(state);
        const QSize size = Menu().size();
        for (int index = 0; index < static_cast<int>(activities.size()) - 1; ++index) {
            SCOPED_TRACE(index);
            Click(Menu(), QStringLiteral("Command1(%1)").arg(index));
            ASSERT_NE(Activity(), nullptr);
            const bool keepsFrame
                = state == Qt::WindowFullScreen && Activity()->objectName() == QStringLiteral("Form6");
            EXPECT_EQ(Activity()->windowState() & ~Qt::WindowActive, keepsFrame ? Qt::WindowMaximized : state);
            Close(*Activity());
            EXPECT_EQ(Menu().windowState() & ~Qt::WindowActive, state);
            EXPECT_EQ(Menu().size(), size);
        }
    }
}

TEST_F(Form1Test, SalirOrClosingItEndsTheProgramWithoutAQuestionAlsoAfterAnActivity)
{
    const auto salir = [this] { Click(Menu(), QStringLiteral("Command1(8)")); };
    const std::function<void()> waysToEnd[] = {
        salir,
        [] { Press(Qt::Key_Return); },
        [this] { Menu().close(); },
        [&] {
            Click(Menu(), QStringLiteral("Command1(0)"));
            Choose(*Activity(), QStringLiteral("MnuOpcSal"));
            salir();
        },
    };
    for (const auto& end : waysToEnd) {
        ShowAndActivate(Menu());
        TabTo("Command1(8)");
        EXPECT_EQ(RunProgram(end), 0);
        EXPECT_EQ(OpenWindows(), 0U);
    }
}

// Closing an activity ends the activity and not the program, which runs on until the test ends it.
TEST_F(Form1Test, ClosingAnActivityDoesNotEndTheProgram)
{
    constexpr int endedByTest = 7;
    const int status = RunProgram([this] {
        Click(Menu(), QStringLiteral("Command1(0)"));
        Activity()->close();
        QTimer::singleShot(0, &Menu(), [] { Application::exit(endedByTest); });
    });
    EXPECT_EQ(status, endedByTest);
    EXPECT_TRUE(Menu().isVisible());
}

} // namespace

} // namespace numbrela
