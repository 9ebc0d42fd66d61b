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
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

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
    static int OpenWindows()
    {
        int count = 0;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            count += dynamic_cast<const FormWindow*>(window) != nullptr && window->isVisible() ? 1 : 0;
        }
        return count;
    }

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
        QTimer::singleShot(0, qApp, act);
        return Application::exec();
    }

private:
    ProgramRun run_ { .Time = std::make_unique<FixedClock>() };
    std::unique_ptr<Form1> menu_;
};

// --- What it shows ---------------------------------------------------------------------------------------------------

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

TEST_F(Form1Test, HasItsNameItsCaptionAndItsHeight)
{
    EXPECT_EQ(Menu().objectName().toStdString(), "Form1");
    EXPECT_EQ(Menu().windowTitle().toStdString(), "NUMBRELA");
    EXPECT_EQ(Menu().height() - Menu().findChild<QMenuBar*>()->height(), 8700 / 15);
}

TEST_F(Form1Test, HasOneMenuItem)
{
    ExpectMenus(Menu(), { "MnuAce &Acerca de..." });
}

TEST_F(Form1Test, TheTabKeyGoesDownTheColumn)
{
    std::vector<std::string> wanted;
    for (const CommandButton* button : Menu().Command1) {
        wanted.push_back(button->objectName().toStdString());
    }
    wanted.push_back(wanted.front());
    std::vector<std::string> visited { FocusName() };
    while (visited.size() < wanted.size()) {
        Press(Qt::Key_Tab);
        visited.push_back(FocusName());
    }
    EXPECT_EQ(visited, wanted);
}

TEST_F(Form1Test, SaysWhoMadeIt)
{
    ExpectMessage(QStringLiteral("Numbrela"),
        QStringLiteral("Numbrela, de los autores de Numbrela, 2026\r\nnumbrela@example.org"),
        { QStringLiteral("Aceptar") });
    Choose(Menu(), QStringLiteral("MnuAce"));
    EXPECT_EQ(PendingBoxes(), 0);
    EXPECT_TRUE(Menu().isVisible());
}

TEST_F(Form1Test, EscapeClosesNothing)
{
    Press(Qt::Key_Escape);
    EXPECT_TRUE(Menu().isVisible());
}

// --- Opening an activity ---------------------------------------------------------------------------------------------

struct WayToOpen {
    const char* Name;
    void (*Open)(const Form1& menu, int index, Qt::Key accessKey);
};

std::ostream& operator<<(std::ostream& out, const WayToOpen& way)
{
    return out << way.Name;
}

void tabTo(int index)
{
    TabTo("Command1(" + std::to_string(index) + ")");
}

const WayToOpen waysToOpen[] = {
    { "ByMouse",
        [](const Form1& menu, int index, Qt::Key) { Click(menu, QStringLiteral("Command1(%1)").arg(index)); } },
    { "ByEnter",
        [](const Form1&, int index, Qt::Key) {
            tabTo(index);
            Press(Qt::Key_Return);
        } },
    { "ByKeypadEnter",
        [](const Form1&, int index, Qt::Key) {
            tabTo(index);
            Press(Qt::Key_Enter, Qt::KeypadModifier);
        } },
    { "BySpace",
        [](const Form1&, int index, Qt::Key) {
            tabTo(index);
            Press(Qt::Key_Space);
        } },
    { "ByAccessKey",
        [](const Form1& menu, int index, Qt::Key accessKey) {
            PressAccessKey(menu, accessKey, QStringLiteral("Command1(%1)").arg(index));
        } },
};

class WayToOpenTest : public Form1Test, public ::testing::WithParamInterface<WayToOpen> { };

INSTANTIATE_TEST_SUITE_P(
    Form1, WayToOpenTest, ::testing::ValuesIn(waysToOpen), [](const auto& instance) { return instance.param.Name; });

TEST_P(WayToOpenTest, OpensTheActivityInItsOwnWindow)
{
    struct Row {
        int Index;
        Qt::Key AccessKey;
        const char* Name;
        const char* Caption;
    };
    for (const Row& row : { Row { 0, Qt::Key_S, "Form2", "SUMAS" }, Row { 1, Qt::Key_R, "Form3", "RESTAS" } }) {
        SCOPED_TRACE(row.Name);
        ShowAndActivate(Menu());
        GetParam().Open(Menu(), row.Index, row.AccessKey);
        ASSERT_EQ(ActivityName(), row.Name);
        EXPECT_EQ(OpenWindows(), 2);
        EXPECT_TRUE(Activity()->isVisible());
        EXPECT_EQ(Activity()->windowTitle().toStdString(), row.Caption);
        EXPECT_EQ(Activity()->windowModality(), Qt::ApplicationModal);
        Close(*Activity());
        EXPECT_EQ(OpenWindows(), 1);
    }
}

// Whatever the activity, its button opens one window of its own, with the menu inert behind it.
TEST_F(Form1Test, EveryActivityOpensItsOwnWindowAndReturnsToTheMenu)
{
    const char* const windows[] = { "Form2", "Form3", "Form4", "Form5", "Form6", "FrmUnidad", "FormColoSuma", "Form7" };
    for (std::size_t i = 0; i < activities.size(); ++i) {
        SCOPED_TRACE(windows[i]);
        Click(Menu(), QStringLiteral("Command1(%1)").arg(i));
        ASSERT_EQ(ActivityName(), windows[i]);
        EXPECT_EQ(OpenWindows(), 2);
        Close(*Activity());
        EXPECT_EQ(ActivityName(), "");
        EXPECT_EQ(OpenWindows(), 1);
        EXPECT_TRUE(Menu().isVisible());
    }
}

TEST_F(Form1Test, AnIndexThatNoButtonHasDoesNothing)
{
    for (const int index : { -1, 9, 100 }) {
        Menu().Command1_Click(index);
        EXPECT_EQ(OpenWindows(), 1);
        EXPECT_TRUE(Menu().isVisible());
    }
}

TEST_F(Form1Test, IsInertWhileAnActivityIsOpenAndAliveAgainAfterwards)
{
    ClickOnScreen(*Menu().Command1[0]);
    ASSERT_EQ(ActivityName(), "Form2");
    const FormWindow* sums = Activity();

    ClickOnScreen(*Menu().Command1[1]);
    EXPECT_EQ(Activity(), sums);
    EXPECT_EQ(OpenWindows(), 2);
    ClickOnScreen(*Menu().Command1[8]);
    EXPECT_TRUE(Menu().isVisible());
    for (const Qt::Key key : { Qt::Key_Return, Qt::Key_Space }) {
        QTest::keyClick(Menu().windowHandle(), key);
        EXPECT_EQ(Activity(), sums);
        EXPECT_EQ(OpenWindows(), 2);
    }
    Close(*Activity());
    ClickOnScreen(*Menu().Command1[1]);
    EXPECT_EQ(ActivityName(), "Form3");
    ASSERT_NE(Activity(), nullptr);
    Close(*Activity());
}

// Two access keys pressed almost at once: both buttons are pressed before the first window appears.
TEST_F(Form1Test, OpensOneActivityAtATime)
{
    Menu().Command1_Click(0);
    Menu().Command1_Click(1);
    Menu().Command1_Click(8);
    EXPECT_EQ(ActivityName(), "Form2");
    EXPECT_EQ(OpenWindows(), 2);
    EXPECT_TRUE(Menu().isVisible());
    Close(*Activity());
}

struct WayToClose {
    const char* Name;
    void (*Close)(FormWindow& activity);
};

std::ostream& operator<<(std::ostream& out, const WayToClose& way)
{
    return out << way.Name;
}

class WayToCloseTest : public Form1Test, public ::testing::WithParamInterface<std::tuple<int, WayToClose>> { };

INSTANTIATE_TEST_SUITE_P(Form1, WayToCloseTest,
    ::testing::Combine(::testing::Values(0, 1),
        ::testing::Values(
            WayToClose { "ByItsMenu", [](FormWindow& activity) { Choose(activity, QStringLiteral("MnuOpcSal")); } },
            WayToClose { "ByItsCloseBox", [](FormWindow& activity) { activity.close(); } })),
    [](const auto& instance) {
        return (std::get<0>(instance.param) == 0 ? std::string("Sumas") : std::string("Restas"))
            + std::get<1>(instance.param).Name;
    });

TEST_P(WayToCloseTest, OpenedAgainTheActivityStartsAfresh)
{
    const auto& [index, way] = GetParam();
    const QString button = QStringLiteral("Command1(%1)").arg(index);
    for (int opening = 1; opening <= 3; ++opening) {
        SCOPED_TRACE(opening);
        Click(Menu(), button);
        const QPointer<FormWindow> activity = Activity();
        ASSERT_NE(activity, nullptr);
        EXPECT_EQ(ScoreOf(*activity), "Ejercicios:  0; Errores:  0");
        ShowAndActivate(*activity);
        Press(Qt::Key_Return); // an empty answer
        EXPECT_EQ(ScoreOf(*activity), "Ejercicios:  1; Errores:  1");
        way.Close(*activity);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(activity.isNull());
        EXPECT_EQ(OpenWindows(), 1);
        EXPECT_TRUE(Menu().isVisible());
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
        EXPECT_EQ(OpenWindows(), 2);
    }
    Close(*sums);
}

// --- What outlasts the activities ------------------------------------------------------------------------------------

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
    EXPECT_EQ(CatalogueBesideProgram(),
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "Recursos" / "productos.dat");
}

// ---------------------------------------------------------------------------------------------------------------------

class LargeMenuTest : public Form1Test, public ::testing::WithParamInterface<Qt::WindowState> { };

INSTANTIATE_TEST_SUITE_P(
    Form1, LargeMenuTest, ::testing::Values(Qt::WindowNoState, Qt::WindowMaximized, Qt::WindowFullScreen));

TEST_P(LargeMenuTest, OpensItsActivitiesAsLargeAsItIsAndStaysSo)
{
    Menu().setWindowState(GetParam());
    const QSize size = Menu().size();
    for (int index = 0; index < static_cast<int>(activities.size()) - 1; ++index) {
        SCOPED_TRACE(index);
        Click(Menu(), QStringLiteral("Command1(%1)").arg(index));
        ASSERT_NE(Activity(), nullptr);
        EXPECT_EQ(Activity()->windowState() & ~Qt::WindowActive, GetParam());
        Close(*Activity());
        EXPECT_EQ(Menu().windowState() & ~Qt::WindowActive, GetParam());
        EXPECT_EQ(Menu().size(), size);
    }
}

// --- Ending ----------------------------------------------------------------------------------------------------------

TEST_F(Form1Test, SalirEndsTheProgramWithoutAQuestion)
{
    EXPECT_EQ(RunProgram([this] { Click(Menu(), QStringLiteral("Command1(8)")); }), 0);
    EXPECT_FALSE(Menu().isVisible());
}

TEST_F(Form1Test, SalirEndsTheProgramByEnterToo)
{
    tabTo(8);
    EXPECT_EQ(RunProgram([] { Press(Qt::Key_Return); }), 0);
    EXPECT_FALSE(Menu().isVisible());
}

TEST_F(Form1Test, SalirEndsTheProgramAfterAnActivity)
{
    const int status = RunProgram([this] {
        Click(Menu(), QStringLiteral("Command1(0)"));
        Choose(*Activity(), QStringLiteral("MnuOpcSal"));
        Click(Menu(), QStringLiteral("Command1(8)"));
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(OpenWindows(), 0);
}

TEST_F(Form1Test, ClosingItEndsTheProgram)
{
    EXPECT_EQ(RunProgram([this] { Menu().close(); }), 0);
    EXPECT_FALSE(Menu().isVisible());
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
