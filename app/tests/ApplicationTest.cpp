#include "app/Application.h"

#include "app/Form1.h"
#include "app/ProgramRun.h"
#include "common/core/RunTimeError.h"
#include "common/screen/TextBox.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QDir>
#include <QIcon>
#include <QImage>
#include <QMessageBox>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <tuple>

namespace numbrela {

namespace {

using namespace testing;
using Kind = RunTimeError::Kind;

TEST(Application, IsCalledNumbrelaAndLetsEventsWithoutErrorsPass)
{
    EXPECT_EQ(QApplication::applicationName().toStdString(), "Numbrela");
    int timeouts = 0;
    QTimer::singleShot(0, qApp, [&timeouts] { ++timeouts; });
    QTimer::singleShot(0, qApp, [] { QApplication::exit(7); });
    EXPECT_EQ(Application::exec(), 7);
    EXPECT_EQ(timeouts, 1);
}

TEST(Application, IsKnownToDesktopsByItsDesktopEntryAndShowsItsIconInEverySizeThatTheyAskFor)
{
    EXPECT_EQ(QGuiApplication::desktopFileName().toStdString(), "numbrela");
    const QIcon icon = QApplication::windowIcon();
    EXPECT_EQ(icon.availableSizes().size(), 6);
    for (const int size : { 16, 24, 32, 48, 64, 128 }) {
        const QImage picture = icon.pixmap(QSize(size, size), 1).toImage();
        EXPECT_EQ(picture.size(), QSize(size, size));
        EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0) << "the corner of " << size;
        const QColor cloth = picture.pixelColor(size * 4 / 16, size * 7 / 16);
        EXPECT_GT(cloth.blue(), cloth.red() + 100) << "the umbrella of " << size;
    }
}

// A window in which every user event, and a timer, does what a test says.
class FragileWindow : public QWidget {
public:
    std::function<void()> OnClick = [] {};
    std::function<void()> OnKey = [] {};
    std::function<void()> OnTick = [] {};

    void StartClock() { startTimer(0); }

protected:
    void mouseReleaseEvent(QMouseEvent* /*event*/) override { OnClick(); }
    void keyPressEvent(QKeyEvent* /*event*/) override { OnKey(); }
    void timerEvent(QTimerEvent* /*event*/) override { OnTick(); }
};

QString textOf(const QString& kind, const QString& detail)
{
    return kind + QStringLiteral(".\n\n") + detail + QStringLiteral("\n\nEl programa se va a cerrar.");
}

void failWith(Kind kind, const char* detail)
{
    throw RunTimeError(kind, detail);
}

// A run-time error ends the program for good, so each of these tests runs in a process of its own.
class ApplicationDeathTest : public ::testing::Test {
protected:
    ApplicationDeathTest() { ::testing::GTEST_FLAG(death_test_style) = "threadsafe"; }

    // Runs the program and calls the action as soon as it runs. Ends the process with the program's exit status, or
    // with another one if something was not as expected.
    [[noreturn]] static void RunProgram(const std::function<void()>& act)
    {
        DoSoon(*qApp, act);
        const int status = Application::exec();
        FailForPendingBoxes();
        const auto& result = *::testing::UnitTest::GetInstance()->current_test_info()->result();
        for (int part = 0; part < result.total_part_count(); ++part) {
            std::fprintf(stderr, "%s\n", result.GetTestPartResult(part).message());
        }
        constexpr int somethingUnexpected = 99;
        QDir().rmdir(qEnvironmentVariable("XDG_RUNTIME_DIR")); // this process's own, and empty: nobody else removes it
        std::_Exit(result.Failed() ? somethingUnexpected : status);
    }

    // Runs the program with a window on the screen.
    [[noreturn]] static void RunProgram(FragileWindow& window, const std::function<void()>& act)
    {
        ShowAndActivate(window);
        RunProgram(act);
    }
};

constexpr int failure = 1;

TEST_F(ApplicationDeathTest, AnErrorOutOfAClickAKeyATimerOrNoWindowIsToldAndEndsTheProgram)
{
    const std::tuple<Kind, const char*, void (*)(FragileWindow&)> errors[] = {
        { Kind::Overflow, "Desbordamiento", [](FragileWindow& window) { QTest::mouseClick(&window, Qt::LeftButton); } },
        { Kind::InvalidArgument, "Argumento no válido", [](FragileWindow&) { Press(Qt::Key_7); } },
        { Kind::File, "Error de archivo", [](FragileWindow& window) { window.StartClock(); } },
        { Kind::TypeMismatch, "El tipo de dato no coincide", [](FragileWindow& window) { window.OnClick(); } },
    };
    for (const auto& [kind, name, cause] : errors) {
        EXPECT_EXIT(
            {
                FragileWindow window;
                window.OnClick = window.OnKey = window.OnTick
                    = [kind = kind] { failWith(kind, "El número 32768 no cabe."); };
                ExpectMessage(QStringLiteral("Numbrela"),
                    textOf(QString::fromUtf8(name), QStringLiteral("El número 32768 no cabe.")));
                RunProgram(window, [&window, cause = cause] { cause(window); });
            },
            ::testing::ExitedWithCode(failure), "")
            << name;
    }
}

// A timer may fire and a click may arrive while the box is open. The box has already said that the program ends;
// further errors are not shown.
TEST_F(ApplicationDeathTest, ErrorsWhileTheBoxIsOpenOpenNoOther)
{
    EXPECT_EXIT(
        {
            FragileWindow window;
            int ticks = 0;
            window.OnKey = [] { failWith(Kind::Overflow, "Primero."); };
            window.OnClick = [] { failWith(Kind::File, "Segundo."); };
            window.OnTick = [&ticks] {
                ++ticks;
                failWith(Kind::TypeMismatch, "Tercero.");
            };
            ExpectDialog([&window, &ticks](QDialog& dialog) {
                const auto* box = qobject_cast<QMessageBox*>(&dialog);
                ASSERT_NE(box, nullptr);
                EXPECT_EQ(box->text(), textOf(QStringLiteral("Desbordamiento"), QStringLiteral("Primero.")));
                QTest::mouseClick(&window, Qt::LeftButton);
                window.StartClock();
                for (int turns = 0; turns < 1000 && ticks < 3; ++turns) {
                    QCoreApplication::processEvents();
                }
                EXPECT_GE(ticks, 3);
                EXPECT_EQ(QApplication::activeModalWidget(), box);
                dialog.accept();
            });
            RunProgram(window, [] { Press(Qt::Key_7); });
        },
        ::testing::ExitedWithCode(failure), "");
}

// The counts of an exercise have three places. The pupil's thousandth check ends the real program, and says why.
TEST_F(ApplicationDeathTest, TheThousandthCheckOfAnExerciseEndsTheProgram)
{
    EXPECT_EXIT(
        {
            ProgramRun run;
            Form1 menu(run);
            ShowAndActivate(menu);
            ExpectMessage(QStringLiteral("Numbrela"),
                textOf(
                    QStringLiteral("Argumento no válido"), QStringLiteral("El número 1000 no cabe en 3 caracteres.")));
            RunProgram([&menu] {
                Click(menu, QStringLiteral("Command1(0)"));
                QWidget& sums = *QApplication::activeModalWidget();
                ShowAndActivate(sums);
                for (int check = 1; check <= 999; ++check) {
                    Press(Qt::Key_Return);
                }
                EXPECT_EQ(Find<TextBox>(sums, QStringLiteral("tbResultados")).Text(), "Ejercicios:999; Errores:999");
                EXPECT_EQ(PendingBoxes(), 1);
                Press(Qt::Key_Return);
            });
        },
        ::testing::ExitedWithCode(failure), "");
}

} // namespace

} // namespace numbrela
