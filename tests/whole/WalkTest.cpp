#include "activities/shopping/tests/TemporaryFolder.h"
#include "activities/shopping/tests/TestTables.h"
#include "app/Application.h"
#include "app/Form1.h"
#include "app/ProgramRun.h"
#include "common/screen/CommandButton.h"
#include "common/screen/Keypad.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/whole/Decimal.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <array>
#include <functional>
#include <initializer_list>
#include <stdexcept>

namespace numbrela {

namespace {

using namespace testing;

const QString right = QStringLiteral("resultado correcto");
const QString wrong = QStringLiteral("resultado incorrecto");
const QString oneRight = QStringLiteral("Ejercicios:  1; Errores:  0");
const QString oneWrong = QStringLiteral("Ejercicios:  1; Errores:  1");

// Walks through the program as it runs, from its menu into every activity and back, with nothing but what a person has.
class WalkTest : public ::testing::Test {
protected:
    WalkTest()
    {
        SaveCatalogue(run_.Shopping.Catalogue, NumberedTable(7)); // each costs 1 €
        ShowAndActivate(menu_);
    }

    // The activity that is open.
    static FormWindow& activity()
    {
        auto* form = dynamic_cast<FormWindow*>(QApplication::activeModalWidget());
        if (form == nullptr) {
            throw std::logic_error("no activity is open");
        }
        return *form;
    }

    // Opens each activity, lets the person work in it and leave it, and checks that the menu is usable again.
    template <typename Open>
    void walk(Open open, const std::array<std::function<void()>, 8>& work)
    {
        const std::array<const char*, 8> captions { "SUMAS", "RESTAS", "Multiplicaciones", "DIVISIONES",
            "MAYOR Y MENOR", "multiplicar y dividir por 10, 100, 1000", "COLOCA Y SUMA", "La compra" };
        for (std::size_t i = 0; i < work.size(); ++i) {
            SCOPED_TRACE(captions[i]);
            open(i);
            ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget() != nullptr; }));
            EXPECT_EQ(activity().windowTitle().toStdString(), captions[i]);
            EXPECT_TRUE(QTest::qWaitForWindowActive(&activity()));
            work[i]();
            ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget() == nullptr; }));
            EXPECT_TRUE(menu_.isVisible());
        }
    }

    static QString textOf(const char* boxName) { return TextOf(Find<QWidget>(activity(), QString::fromUtf8(boxName))); }

    static Decimal numberIn(const char* boxName) { return ReadDecimal(textOf(boxName)); }

    static void expectVerdict(const char* boxName, const QString& verdict)
    {
        EXPECT_EQ(textOf(boxName).trimmed().toLower().toStdString(), verdict.toStdString());
    }

    static void expectScore(const QString& line)
    {
        EXPECT_EQ(textOf("tbResultados").toStdString(), line.toStdString());
    }

    // The button with the number that the comparison asks for.
    static QString nameOfAskedNumber()
    {
        const bool greatest = textOf("Text1").contains(QStringLiteral("MAYOR"));
        QString best;
        long long bestDigits = greatest ? -1 : 10'000;
        for (int index = 0; index < 6; ++index) {
            const QString name = QStringLiteral("CbNúmero(%1)").arg(index);
            const long long digits = ReadDecimal(Find<QPushButton>(activity(), name).text()).Digits;
            if (greatest ? digits > bestDigits : digits < bestDigits) {
                best = name;
                bestDigits = digits;
            }
        }
        return best;
    }

    // "5,7" " × " "100"
    static Decimal resultOfPowers()
    {
        Decimal result = numberIn("TBDatos(0)");
        const bool times = textOf("TBDatos(1)").contains(u'×');
        for (long long power = numberIn("TBDatos(2)").Digits; power > 1; power /= 10) {
            result = times ? result * Decimal { 10, 0 } : DividedByTen(result);
        }
        return result;
    }

    // "1,5 + 27 + 30,25"
    static Decimal sumOfAddends()
    {
        Decimal sum;
        for (const QString& addend : textOf("TBDatos").split(QStringLiteral(" + "))) {
            sum = sum + ReadDecimal(addend);
        }
        return sum;
    }

    // "10€" after the start, "9 €" after a purchase
    static long long eurosInPurse() { return ReadDecimal(textOf("TBDinero").remove(u'€')).Digits; }

    // An activity with a row of buttons, and what is worked out from what stands on its screen.
    struct Exercise {
        const char* Answer;
        const char* Verdict;
        Decimal (*Result)();
        bool IsScored;
    };

    inline static const Exercise sums { "Text3", "Text4", [] { return numberIn("Text2(0)") + numberIn("Text2(1)"); },
        true };
    inline static const Exercise differences { "Text3", "Text4",
        [] { return numberIn("Text2(0)") - numberIn("Text2(1)"); }, true };
    inline static const Exercise products { "TbResultado", "Text1",
        [] { return numberIn("TbFactor(0)") * numberIn("TbFactor(1)"); }, true };
    inline static const Exercise shifts { "TBRespuesta", "TBResultado", resultOfPowers, false };

    // The window manager's own key, or its close box: what the program gets is a request to close.
    static void closeByWindowManager() { activity().windowHandle()->close(); }

    // Runs the program until this ends it.
    template <typename Act>
    void endProgram(Act act) const
    {
        DoSoon(*qApp, act);
        EXPECT_EQ(Application::exec(), 0);
        EXPECT_FALSE(menu_.isVisible());
    }

    Form1& menu() { return menu_; }

private:
    const TemporaryFolder folder_;
    ProgramRun run_ { .Time = std::make_unique<FixedClock>(), .Shopping = { folder_ / "productos.dat" } };
    Form1 menu_ { run_ };
};

// --- By keys alone ---------------------------------------------------------------------------------------------------

// "&Opciones", and in it what these keys choose
void chooseByKeys(std::initializer_list<Qt::Key> keys)
{
    Press(Qt::Key_O, Qt::AltModifier);
    for (const Qt::Key key : keys) {
        Press(key);
    }
}

void enter(Qt::Key shortcut, const QString& number)
{
    ExpectDialog([number](QDialog& box) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
        Press(Qt::Key_A, Qt::ControlModifier);
        Type(number);
        Press(Qt::Key_Return);
    });
    Press(shortcut);
    EXPECT_EQ(PendingBoxes(), 0);
}

class KeyWalkTest : public WalkTest {
protected:
    static void answer(const Exercise& exercise, Qt::Key leave)
    {
        TabTo(exercise.Answer);
        const QString number = WriteDecimal(exercise.Result());
        exercise.IsScored ? TypeResult(number) : Type(number);
        Press(Qt::Key_Return);
        expectVerdict(exercise.Verdict, right);
        if (exercise.IsScored) {
            expectScore(oneRight);
        }
        chooseByKeys({ leave });
    }

    // 96 ÷ 8 = 12: under the dividend 16 and then the rest, 0.
    static void divide()
    {
        enter(Qt::Key_F2, QStringLiteral("96"));
        enter(Qt::Key_F3, QStringLiteral("8"));
        Press(Qt::Key_PageUp);
        Press(Qt::Key_Home);
        Press(Qt::Key_Down);
        Type(QStringLiteral(" 16"));
        Press(Qt::Key_Home);
        Press(Qt::Key_Down);
        Type(QStringLiteral("  0"));
        TabTo("Text3");
        Type(QStringLiteral("12"));
        TabTo("Command1");
        Press(Qt::Key_Space);
        expectVerdict("Text4", right);
        expectScore(oneRight);
        chooseByKeys({ Qt::Key_S });
    }

    // It has no menu, and so the window manager's key is the way out.
    static void compare()
    {
        TabTo(nameOfAskedNumber().toStdString());
        Press(Qt::Key_Space);
        expectVerdict("Text3", QStringLiteral("correcto"));
        EXPECT_EQ(textOf("Text2").toStdString(), "Aciertos: 1;   Errores: 0.");
        closeByWindowManager();
    }

    // Two addends of two digits, until their sum is whole: such sums are judged right.
    static void placeAndAdd()
    {
        chooseByKeys({ Qt::Key_Right, Qt::Key_2 });
        chooseByKeys({ Qt::Key_Down, Qt::Key_Right, Qt::Key_2 });
        EXPECT_EQ(textOf("TBDatos").count(u'+'), 1);
        constexpr int morePressesThanNeeded = 1000;
        Decimal sum = sumOfAddends();
        for (int presses = 0; presses < morePressesThanNeeded && WithPlaces(sum, 1).Digits % 10 != 0; ++presses) {
            TabTo("Command2(0)");
            Press(Qt::Key_Return);
            sum = sumOfAddends();
        }
        TabTo("TbResultado");
        Type(QString::number(WithPlaces(sum, 1).Digits / 10));
        TabTo("Command1");
        Press(Qt::Key_Return);
        expectVerdict("Text1", right);
        chooseByKeys({ Qt::Key_S });
    }

    // One loaf for 1 €, paid with a note of 5 €.
    static void buy()
    {
        const long long euros = eurosInPurse();
        TabTo("CBTienda(5)");
        Press(Qt::Key_Return);
        EXPECT_EQ(FocusName(), "LIDisponibles");
        Press(Qt::Key_Down);
        Press(Qt::Key_Return);
        EXPECT_EQ(Find<QListView>(activity(), QStringLiteral("LICesta")).model()->rowCount(), 1);
        TabTo("CbContinuar");
        Press(Qt::Key_Space);
        for (const char* amount : { "1,00", "4,00" }) {
            EXPECT_EQ(FocusName(), "TbResultado");
            TypeResult(QString::fromLatin1(amount));
            TabTo("CbContinuar");
            Press(Qt::Key_Return);
        }
        EXPECT_EQ(FocusName(), "CbContinuar");
        Press(Qt::Key_Return);
        EXPECT_EQ(FocusName(), "List1");
        EXPECT_EQ(eurosInPurse(), euros - 1);
        chooseByKeys({ Qt::Key_S });
    }
};

TEST_F(KeyWalkTest, EveryActivityIsWorkedAndLeftByKeysAlone)
{
    walk(
        [](std::size_t button) {
            TabTo("Command1(" + std::to_string(button) + ")");
            Press(button % 2 == 0 ? Qt::Key_Return : Qt::Key_Space);
        },
        {
            [] { answer(sums, Qt::Key_S); },
            [] { answer(differences, Qt::Key_S); },
            [] { answer(products, Qt::Key_A); },
            &KeyWalkTest::divide,
            &KeyWalkTest::compare,
            [] { answer(shifts, Qt::Key_S); },
            &KeyWalkTest::placeAndAdd,
            &KeyWalkTest::buy,
        });
    Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "Command1(8)");
    endProgram([] { Press(Qt::Key_Return); });
}

// --- By a hand that points -------------------------------------------------------------------------------------------

class PointingWalkTest : public WalkTest {
protected:
    explicit PointingWalkTest(void (*hand)(const QWidget& control, QPoint place)) { press_ = hand; }

    static void press(const QWidget& control) { press_(control, control.rect().center()); }
    static void press(const QWidget& control, QPoint place) { press_(control, place); }
    static void click(const QString& name) { press(Find<QWidget>(activity(), name)); }
    static void click(const char* name) { click(QString::fromUtf8(name)); }

    // Opens the menus on the way to an item, one after the other, and clicks it.
    static void choose(std::initializer_list<const char*> names)
    {
        QWidget* menu = activity().findChild<QMenuBar*>();
        for (const char* name : names) {
            ASSERT_TRUE(QTest::qWaitFor([menu] { return menu->isVisible(); }));
            QAction* wanted = nullptr;
            for (QAction* item : menu->actions()) {
                const QObject* named = item->menu() != nullptr ? static_cast<QObject*>(item->menu()) : item;
                wanted = named->objectName() == QLatin1String(name) ? item : wanted;
            }
            ASSERT_NE(wanted, nullptr) << name;
            QWidget* next = wanted->menu();
            press(*menu, placeOf(*menu, *wanted)); // the last one may close the window, and with it its menus
            menu = next;
        }
    }

    static void leaveByMenu() { choose({ "MnuOpc", "MnuOpcSal" }); }

    static void compare()
    {
        click(nameOfAskedNumber());
        expectVerdict("Text3", QStringLiteral("correcto"));
        closeByWindowManager();
    }

private:
    static QPoint placeOf(const QWidget& menu, QAction& item)
    {
        const auto* bar = qobject_cast<const QMenuBar*>(&menu);
        return (bar != nullptr ? bar->actionGeometry(&item) : qobject_cast<const QMenu*>(&menu)->actionGeometry(&item))
            .center();
    }

    inline static void (*press_)(const QWidget& control, QPoint place) = nullptr;
};

// --- By mouse alone --------------------------------------------------------------------------------------------------

void clickAt(const QWidget& control, QPoint place)
{
    QWidget& window = *control.window();
    QTest::mouseMove(window.windowHandle(), control.mapTo(&window, place));
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, control.mapTo(&window, place));
}

class MouseWalkTest : public PointingWalkTest {
protected:
    MouseWalkTest()
        : PointingWalkTest(&clickAt)
    {
    }

    // Chooses an option, with which one of the numbers is whole, and has nothing and then the solution judged.
    static void judge(const Exercise& exercise, const char* list, const char* item, const char* whole)
    {
        choose({ "MnuOpc", list, item });
        EXPECT_EQ(numberIn(whole).Places, 0);
        const Decimal result = exercise.Result();
        click("Command1");
        expectVerdict(exercise.Verdict, wrong);
        click("Command2(2)");
        EXPECT_EQ((numberIn(exercise.Answer) - result).Digits, 0);
        click("Command1");
        expectVerdict(exercise.Verdict, right);
        if (exercise.IsScored) {
            expectScore(oneWrong);
        }
        leaveByMenu();
    }

    static void divide()
    {
        choose({ "MnuOpc", "MnuOpcDiv", "MnuOpcDivLis(2)" });
        EXPECT_EQ(textOf("Text4").indexOf(u','), 3); // "123,45 ÷ 6"
        click("Command1");
        expectVerdict("Text4", wrong);
        expectScore(oneWrong);
        click("Command2(2)");
        EXPECT_NE(textOf("Text3").toStdString(), "");
        click("Command2(1)");
        EXPECT_EQ(textOf("Text3").toStdString(), "");
        leaveByMenu();
    }

    static void placeAndAdd()
    {
        choose({ "MnuOpc", "MnuOpcSum", "MnuOpcSumLis(4)" });
        EXPECT_EQ(textOf("TBDatos").count(u'+'), 5);
        const Decimal sum = sumOfAddends();
        click("Command1");
        expectVerdict("Text1", wrong);
        click("Command2(2)");
        EXPECT_EQ((numberIn("TbResultado") - sum).Digits, 0);
        click("Command2(1)");
        EXPECT_EQ(textOf("TbResultado").trimmed().toStdString(), "");
        leaveByMenu();
    }

    static void buy()
    {
        click("CBTienda(5)");
        auto& shelf = Find<QListView>(activity(), QStringLiteral("LIDisponibles"));
        const QPoint line = shelf.visualRect(shelf.model()->index(2, 0)).center();
        QTest::mouseDClick(activity().windowHandle(), Qt::LeftButton, {}, shelf.viewport()->mapTo(&activity(), line));
        EXPECT_EQ(
            Find<QListView>(activity(), QStringLiteral("LICesta")).model()->index(0, 0).data().toString().toStdString(),
            "(1) Producto 2 1");
        click("CbContinuar");
        EXPECT_TRUE(Find<QWidget>(activity(), QStringLiteral("TBCantidades")).isVisible());
        leaveByMenu();
    }
};

TEST_F(MouseWalkTest, EveryActivityIsTriedAndLeftByMouseAlone)
{
    walk([this](std::size_t button) { press(*menu().Command1[button]); },
        {
            [] { judge(sums, "MnuOpcDec", "MnuOpcDecLis(0)", "Text2(0)"); },
            [] { judge(differences, "MnuOpcDec", "MnuOpcDecLis(0)", "Text2(0)"); },
            [] { judge(products, "MnuOpcDe2", "MnuOpcDe2Lis(0)", "TbFactor(1)"); },
            &MouseWalkTest::divide,
            &MouseWalkTest::compare,
            [] { judge(shifts, "MnuOpcCi1", "MnuOpcCi1Lis(0)", "TBDatos(2)"); },
            &MouseWalkTest::placeAndAdd,
            &MouseWalkTest::buy,
        });
    endProgram([this] { press(*menu().Command1[8]); });
}

// --- By fingers alone ------------------------------------------------------------------------------------------------

// As on a panel: all that is opened from the menu is as large.
class FingerWalkTest : public PointingWalkTest, public ::testing::WithParamInterface<Qt::WindowState> {
protected:
    FingerWalkTest()
        : PointingWalkTest([](const QWidget& control, QPoint place) { Tap(control, place); })
    {
        menu().setWindowState(GetParam());
        QCoreApplication::processEvents(); // its buttons find their places before a finger does
    }

    // On the keypad of a window or a box.
    static void tapKeys(const QWidget& window, const QString& characters)
    {
        for (const QChar character : characters) {
            const QString key = character == u',' ? QStringLiteral("Coma")
                : character == u' '               ? QStringLiteral("Espacio")
                                                  : QString(character);
            press(Find<QWidget>(window, QStringLiteral("Tecla(%1)").arg(key)));
        }
    }

    static void tapKey(const QWidget& window, const char* name)
    {
        press(Find<QWidget>(window, QStringLiteral("Tecla(%1)").arg(QString::fromUtf8(name))));
    }

    static QString fromTheRight(QString text)
    {
        std::reverse(text.begin(), text.end());
        return text;
    }

    static void answer(const Exercise& exercise)
    {
        click(exercise.Answer);
        const QString number = WriteDecimal(exercise.Result());
        tapKeys(activity(), exercise.IsScored ? fromTheRight(number) : number);
        click("Command1");
        expectVerdict(exercise.Verdict, right);
        if (exercise.IsScored) {
            expectScore(oneRight);
        }
        leaveByMenu();
    }

    // Writes a number into the box that the menu item opens, in place of what stands there.
    static void enter(const char* item, const QString& number)
    {
        ExpectDialog([number](QDialog& box) {
            box.activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
            auto& line = *box.findChild<QLineEdit*>();
            press(line, { line.width() - 3, line.height() / 2 }); // behind the last digit
            while (!line.text().isEmpty()) {
                tapKey(box, "Borrar cifra");
            }
            tapKeys(box, number);
            press(*box.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok));
        });
        choose({ "MnuOpc", item });
        EXPECT_EQ(PendingBoxes(), 0);
    }

    // 96 ÷ 8 = 12: under the dividend 16 and then the rest, 0, which are reached by the arrows of the keypad.
    static void divide()
    {
        enter("MnuOpcInt", QStringLiteral("96"));
        enter("MnuOpcInd", QStringLiteral("8"));
        click("Command2(1)");
        tapKeys(activity(), QStringLiteral("16"));
        for (const char* arrow : { "Flecha abajo", "Flecha izquierda" }) {
            tapKey(activity(), arrow);
        }
        tapKeys(activity(), QStringLiteral("0"));
        click("Text3");
        tapKeys(activity(), QStringLiteral("12"));
        click("Command1");
        expectVerdict("Text4", right);
        expectScore(oneRight);
        leaveByMenu();
    }

    // Two addends, until their sum is whole: such sums are judged right.
    static void placeAndAdd()
    {
        choose({ "MnuOpc", "MnuOpcSum", "MnuOpcSumLis(0)" });
        constexpr int morePressesThanNeeded = 1000;
        Decimal sum = sumOfAddends();
        for (int presses = 0; presses < morePressesThanNeeded && WithPlaces(sum, 2).Digits % 100 != 0; ++presses) {
            click("Command2(0)");
            sum = sumOfAddends();
        }
        auto& box = Find<QWidget>(activity(), QStringLiteral("TbResultado"));
        press(box, { 3, box.height() / 2 }); // over the first of its blanks
        tapKeys(activity(), QString::number(WithPlaces(sum, 2).Digits / 100));
        click("Command1");
        expectVerdict("Text1", right);
        leaveByMenu();
    }

    // A first tap selects a loaf, a second one takes it; it costs 1 € and is paid with a note of 5 €.
    static void buy()
    {
        const Pace pace;
        pace.TapSlowly();
        const long long euros = eurosInPurse();
        click("CBTienda(5)");
        auto& shelf = Find<QListView>(activity(), QStringLiteral("LIDisponibles"));
        auto& basket = Find<QListView>(activity(), QStringLiteral("LICesta"));
        const QPoint line = shelf.visualRect(shelf.model()->index(2, 0)).center();
        press(*shelf.viewport(), line);
        EXPECT_EQ(basket.model()->rowCount(), 0);
        EXPECT_FALSE(showsKeypad()); // nothing is to be typed yet
        press(*shelf.viewport(), line);
        EXPECT_EQ(basket.model()->index(0, 0).data().toString().toStdString(), "(1) Producto 2 1");
        click("CbContinuar");
        click("TbResultado");
        EXPECT_TRUE(showsKeypad());
        for (const char* amount : { "1,00", "4,00" }) {
            tapKeys(activity(), fromTheRight(QString::fromLatin1(amount)));
            click("CbContinuar");
        }
        click("CbContinuar");
        EXPECT_EQ(eurosInPurse(), euros - 1);
        QCoreApplication::processEvents();
        EXPECT_FALSE(showsKeypad());
        leaveByMenu();
    }

    static bool showsKeypad()
    {
        const auto* pad = activity().findChild<Keypad*>();
        return pad != nullptr && pad->isVisible();
    }
};

INSTANTIATE_TEST_SUITE_P(Large, FingerWalkTest, ::testing::Values(Qt::WindowMaximized, Qt::WindowFullScreen),
    [](const auto& instance) { return instance.param == Qt::WindowMaximized ? "Maximised" : "FullScreen"; });

TEST_P(FingerWalkTest, EveryActivityIsWorkedAndLeftByFingersAlone)
{
    walk([this](std::size_t button) { press(*menu().Command1[button]); },
        {
            [] {
                EXPECT_TRUE(activity().windowState().testFlag(GetParam()));
                answer(sums);
            },
            [] { answer(differences); },
            [] { answer(products); },
            &FingerWalkTest::divide,
            &FingerWalkTest::compare,
            [] { answer(shifts); },
            &FingerWalkTest::placeAndAdd,
            &FingerWalkTest::buy,
        });
    endProgram([this] { press(*menu().Command1[8]); });
}

} // namespace

} // namespace numbrela
