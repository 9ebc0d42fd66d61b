#include "activities/shopping/screen/Form7.h"

#include "activities/shopping/core/Money.h"
#include "activities/shopping/screen/Beep.h"
#include "activities/shopping/screen/ColumnArea.h"
#include "activities/shopping/screen/Handover.h"
#include "activities/shopping/tests/ShopWalk.h"
#include "activities/shopping/tests/StillClocks.h"
#include "activities/shopping/tests/TemporaryFolder.h"
#include "activities/shopping/tests/TestTables.h"
#include "common/screen/Keypad.h"
#include "common/screen/KeypadSwitch.h"
#include "common/screen/Line.h"
#include "common/screen/TextBox.h"
#include "tests/support/FixedClock.h"
#include "tests/support/KindThrownBy.h"
#include "tests/support/RunTimeErrorsOf.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QFrame>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QScrollBar>
#include <QTimer>

#include <memory>

namespace numbrela {

namespace {

using namespace testing;

// Asks for a list of so many products, as the present length is offered.
void expectLength(const QString& answer, int present = 4)
{
    ExpectInput(QStringLiteral("¿Cuántos productos incluir en la lista?"),
        QStringLiteral("Número de productos a mostrar (1 - 10):"), answer, QString::number(present));
}

void answer(const Form7& form, const QString& result)
{
    TypeResult(result);
    PressContinue(form);
}

class Form7Test : public ::testing::Test {
protected:
    Form7& open(const ProductTable& table)
    {
        SaveCatalogue(path_, table);
        form_ = std::make_unique<Form7>(clock_, shop_);
        ShowAndActivate(*form_);
        return *form_;
    }

    Form7& openBakery()
    {
        return open(TableOf({ { "Una barra de pan", 0.85F }, { "Un bollo", 1.2F }, { "Pan de ñora", 2 },
            { "Ánfora de aceite", 9.95F }, { "pan de molde", 1.5F }, { "Un periódico", 1.5F, "Kiosko" } }));
    }

    // Opens the window as the menu does: once closed, and not just hidden, it is destroyed.
    Form7* openToBeGone()
    {
        ShowShopping(before_, clock_, shop_, true);
        return dynamic_cast<Form7*>(shop_.Window.data());
    }

    static bool isGone(const QPointer<Form7>& form)
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return form == nullptr;
    }

    static void fillBasket(Form7& form, int units)
    {
        GoInto(form, QStringLiteral("Panadería"));
        for (int unit = 0; unit < units; ++unit) {
            TakeFromShelf(form, QStringLiteral("Una barra de pan"));
        }
    }

    // The price column with one row for each unit.
    static void addUp(Form7& form, int units)
    {
        fillBasket(form, units);
        PressContinue(form);
    }

    // Shelf and basket while products are chosen; column, rule and result while they are paid for.
    static void expectInShop(const Form7& form, bool choosing)
    {
        for (const QWidget* control : std::initializer_list<const QWidget*> {
                 form.LBDisponibles, form.LIDisponibles, form.LbCesta, form.LICesta }) {
            EXPECT_EQ(control->isVisible(), choosing) << control->objectName().toStdString();
            EXPECT_EQ(control->isEnabled(), choosing) << control->objectName().toStdString();
        }
        for (const QWidget* control :
            std::initializer_list<const QWidget*> { form.TBCantidades, form.Line1, form.TbResultado }) {
            EXPECT_EQ(control->isVisible(), !choosing) << control->objectName().toStdString();
        }
    }

    static TwipsRect placeOf(const QWidget& control)
    {
        return static_cast<TwipsLayout*>(control.parentWidget()->layout())->RectOf(&control);
    }

    // Where sign, instructions and button stand, which make room for one another.
    struct Places {
        TwipsRect Sign;
        TwipsRect Instructions;
        TwipsRect Button;
    };
    static constexpr Places atTheShelf { { 240, 180, 9120, 540 }, { 240, 4830, 4440, 2610 }, { 240, 7620, 4440, 540 } };
    static constexpr Places atTheTill { { 1560, 180, 4440, 5580 }, { 1560, 5940, 4440, 1500 },
        { 1560, 7620, 4440, 540 } };
    static constexpr Places withTheReceipt { { 1560, 180, 4440, 540 }, { 1560, 900, 4440, 6540 },
        { 1560, 7620, 4440, 540 } };

    static void expectPlaces(const Form7& form, const Places& places)
    {
        EXPECT_EQ(placeOf(*form.Label3), places.Sign);
        EXPECT_EQ(placeOf(*form.TbInstrucciones), places.Instructions);
        EXPECT_EQ(placeOf(*form.CbContinuar), places.Button);
    }

    const TemporaryFolder folder_;
    const std::filesystem::path path_ = folder_ / "productos.dat";
    Shop shop_ { path_ };
    FixedClock clock_;
    const StillClocks stillClocks_;
    FormWindow before_ { QStringLiteral("Before"), QStringLiteral("Antes"), { 3000, 3000 },
        {} }; // whose place is taken
    std::unique_ptr<Form7> form_;
};

TEST_F(Form7Test, ANewWindowShowsListMoneyAndTimeInTheCentre)
{
    const Form7& form = openBakery();
    EXPECT_EQ(form.windowTitle(), QStringLiteral("La compra"));
    EXPECT_EQ(LinesOf(*form.List1), form.Task().ListLines());
    EXPECT_EQ(form.List1->LineCount(), 4);
    EXPECT_EQ(form.List1->SelectedLine(), 0);
    EXPECT_EQ(FocusIn(form), "List1");
    EXPECT_EQ(form.TBDinero->Text(), PurseText(form.Task().MoneyGiven));
    EXPECT_EQ(form.TBTiempo->Text(), TimeText(form.Task().TimeLeft));
    EXPECT_TRUE(form.Frame1->isVisible());
    EXPECT_TRUE(form.Frame2->isVisible());
    EXPECT_FALSE(form.Frame3->isVisible());
    EXPECT_TRUE(form.Timer1->isActive());
    EXPECT_EQ(Form7(clock_, shop_).Timer1->interval(), 1000);
    EXPECT_EQ(form.Timer1->timerType(), Qt::PreciseTimer);
}

TEST_F(Form7Test, TheSameSecondDrawsTheSameListAndAnotherOneAnother)
{
    const auto linesAt = [this](TimeOfDay time) {
        clock_.Time = time;
        return Form7(clock_, shop_).Task().ListLines();
    };
    SaveCatalogue(path_, NumberedTable(500));
    const auto lines = linesAt({ 10, 20, 30, 37'230 });
    EXPECT_EQ(linesAt({ 10, 20, 30, 37'230 }), lines);
    EXPECT_EQ(linesAt({ 20, 10, 30, 72'630 }), lines) << "the product of hour, minute and second, each and one";
    EXPECT_NE(linesAt({ 10, 20, 31, 37'231 }), lines);
}

TEST_F(Form7Test, EveryNewTaskTakesItsSeedFromTheClockAndARefusedOrCancelledNumberLeavesTheTaskAsItIs)
{
    Form7& form = open(NumberedTable(500));
    const auto lines = form.Task().ListLines();
    expectLength(QStringLiteral("4"));
    Choose(form, QStringLiteral("MnuOpcNum"));
    EXPECT_EQ(LinesOf(*form.List1), lines);

    form.Timer1_Timer();
    const std::string time = form.TBTiempo->Text();
    clock_.Time = { 11, 20, 30, 40'830 };
    for (const char* typed : { "1", "11", "", "cinco" }) {
        expectLength(QString::fromUtf8(typed));
        Choose(form, QStringLiteral("MnuOpcNum"));
        EXPECT_EQ(LinesOf(*form.List1), lines) << typed;
        EXPECT_EQ(form.TBTiempo->Text(), time) << typed;
    }
    ExpectInputCancelled(QStringLiteral("¿Cuántos productos incluir en la lista?"),
        QStringLiteral("Número de productos a mostrar (1 - 10):"), QStringLiteral("7"));
    Choose(form, QStringLiteral("MnuOpcNum"));
    Choose(form, QStringLiteral("MnuOpcUni")); // does nothing
    EXPECT_EQ(LinesOf(*form.List1), lines);

    int present = 4;
    for (const auto& [typed, length] : { std::pair("10", 10), { "2.5", 2 }, { "4", 4 } }) {
        expectLength(QString::fromUtf8(typed), present);
        Choose(form, QStringLiteral("MnuOpcNum"));
        EXPECT_EQ(form.List1->LineCount(), present = length);
    }
    EXPECT_NE(LinesOf(*form.List1), lines);
}

TEST_F(Form7Test, TheShelfIsSortedAsSpanishSorts)
{
    const Form7& form = open(TableOf({ { "Zumo", 1 }, { "nuez", 1 }, { "Ñora", 1 }, { "Oliva", 1 }, { "avena", 1 },
        { "Ánfora", 1 }, { "Nuez moscada", 1 }, { "Un periódico", 1, "Kiosko" } }));
    GoInto(form, QStringLiteral("Panadería"));
    EXPECT_EQ(LinesOf(*form.LIDisponibles),
        (std::vector<std::string> { "Ánfora", "avena", "nuez", "Nuez moscada", "Ñora", "Oliva", "Zumo" }));
    EXPECT_EQ(form.Label3->text(), QStringLiteral("Panadería"));
    EXPECT_EQ(FocusIn(form), "LIDisponibles");
    EXPECT_EQ(form.LIDisponibles->SelectedLine(), std::nullopt);
    EXPECT_FALSE(form.Frame2->isVisible());
    EXPECT_EQ(form.TbInstrucciones->textCursor().selectedText(),
        QStringLiteral("Coloque en la cesta los productos que necesite de esta tienda y pulse el botón de continuar"));

    DoubleClickLine(*form.LIDisponibles, 4);
    EXPECT_EQ(LinesOf(*form.LICesta), std::vector<std::string> { "(1) Ñora 1" })
        << "the line, not the place in the file";
}

TEST_F(Form7Test, AProductIsTakenByDoubleClickOrEnter)
{
    const Form7& form = openBakery();
    GoInto(form, QStringLiteral("Panadería"));
    TakeFromShelf(form, QStringLiteral("Un bollo"));
    TakeFromShelf(form, QStringLiteral("Un bollo"));
    Press(Qt::Key_Return);
    EXPECT_EQ(LinesOf(*form.LICesta), std::vector<std::string> { "(3) Un bollo 1,2" });
    EXPECT_EQ(form.LICesta->SelectedLine(), 0);
    Press(Qt::Key_Home);
    Press(Qt::Key_Enter);
    EXPECT_EQ(LinesOf(*form.LICesta), (std::vector<std::string> { "(3) Un bollo 1,2", "(1) Ánfora de aceite 9,95" }));
    EXPECT_EQ(form.LICesta->SelectedLine(), 1);
    Press(Qt::Key_Delete);
    EXPECT_EQ(form.LICesta->LineCount(), 2) << "nothing is deleted from a shelf";
}

TEST_F(Form7Test, WithNoLineSelectedNothingIsTakenOrPutBack)
{
    const Form7& form = openBakery();
    const int beepsBefore = BeepCount();
    GoInto(form, QStringLiteral("Panadería"));
    Press(Qt::Key_Return);
    EXPECT_EQ(form.LICesta->LineCount(), 0);
    EXPECT_EQ(BeepCount(), beepsBefore + 1);
    form.LICesta->setFocus();
    Press(Qt::Key_Return);
    Press(Qt::Key_Delete);
    EXPECT_EQ(form.LICesta->LineCount(), 0);
    EXPECT_EQ(BeepCount(), beepsBefore + 1) << "only the shelf beeps";

    TakeFromShelf(form, QStringLiteral("Un bollo"));
    form.LICesta->clearSelection();
    form.LICesta->setFocus();
    Press(Qt::Key_Delete);
    EXPECT_EQ(form.LICesta->LineCount(), 1) << "the current line is not a selected one";
}

TEST_F(Form7Test, AProductIsPutBackByDoubleClickEnterOrDeleteHoweverLongItIsHeld)
{
    const Form7& form = openBakery();
    GoInto(form, QStringLiteral("Panadería"));
    for (const char* name : { "Un bollo", "Una barra de pan", "Un bollo", "Un bollo", "Pan de ñora" }) {
        TakeFromShelf(form, QString::fromUtf8(name));
    }
    DoubleClickLine(*form.LICesta, 0);
    EXPECT_EQ(LinesOf(*form.LICesta).front(), "(2) Un bollo 1,2");
    EXPECT_EQ(form.LICesta->SelectedLine(), 0);
    Press(Qt::Key_Return);
    EXPECT_EQ(LinesOf(*form.LICesta).front(), "(1) Un bollo 1,2");
    HoldDown(Qt::Key_Delete);
    Repeat(Qt::Key_Delete);
    RepeatMarked(Qt::Key_Delete);
    LetGo(Qt::Key_Delete);
    EXPECT_EQ(LinesOf(*form.LICesta), (std::vector<std::string> { "(1) Una barra de pan 0,85", "(1) Pan de ñora 2" }));
    EXPECT_EQ(form.LICesta->SelectedLine(), 0);
    DoubleClickLine(*form.LICesta, 1);
    EXPECT_EQ(form.LICesta->SelectedLine(), 0) << "the first one follows the last";
    Press(Qt::Key_Delete);
    EXPECT_EQ(form.LICesta->LineCount(), 0);
}

TEST_F(Form7Test, TheAccessKeyOfTheCentreLeadsToTheFirstShopAndPressesNothing)
{
    Form7& form = openBakery();
    Press(Qt::Key_E, Qt::AltModifier);
    EXPECT_EQ(FocusIn(form), "CBTienda(0)");
    EXPECT_FALSE(form.CBTienda[0]->isDown()) << "going in by mistake would cost three minutes";
    Press(Qt::Key_Return);
    EXPECT_TRUE(form.Frame3->isVisible());
    EXPECT_EQ(form.Label3->text(), form.CBTienda[0]->text());
}

TEST_F(Form7Test, PayingHidesTheShelfAndShowsTheColumn)
{
    Form7& form = openBakery();
    fillBasket(form, 3);
    expectInShop(form, true);
    PressContinue(form);
    expectInShop(form, false);
    EXPECT_EQ(form.TBCantidades->Text(), "  0,85\n+  0,85\n+  0,85");
    EXPECT_EQ(FocusIn(form), "TbResultado");
    EXPECT_EQ(form.TbInstrucciones->textCursor().selectedText(),
        QStringLiteral("Sume los precios y escriba el resultado debajo, después pulse continuar."));

    AcceptAnyBox();
    answer(form, QStringLiteral("999")); // more than there is: back to the shelf
    expectInShop(form, true);
    EXPECT_EQ(FocusIn(form), "LICesta");
    expectPlaces(form, atTheShelf);
    PressContinue(form);

    answer(form, QStringLiteral("2,55"));
    EXPECT_EQ(form.TBCantidades->Text(), "  5,00\n-  2,55");
    EXPECT_EQ(placeOf(*form.TBCantidades), (TwipsRect { 6240, 7540 - 570, 1800, 570 }));
    expectPlaces(form, atTheTill);
    EXPECT_EQ(form.TbInstrucciones->verticalScrollBar()->maximum(), 0) << "they are seen whole";
    EXPECT_EQ(form.TbResultado->Text(), "");
    EXPECT_EQ(form.TbInstrucciones->textCursor().selectedText(),
        QStringLiteral(
            "Has entregado 5 euros en billetes para pagar tu compra, ¿Cuánto dinero te tienen que devolver?"));

    answer(form, QStringLiteral("2,45"));
    EXPECT_EQ(form.CbContinuar->text(), QStringLiteral("&Salir"));
    EXPECT_EQ(FocusIn(form), "CbContinuar");
    EXPECT_EQ(form.TbInstrucciones->Text(),
        "Has comprado los siguientes productos:\n(3) Una barra de pan" + std::string(84, ' ')
            + "\nSu precio es de 2,55€ y has pagado 2,55€ por ellos.\nPulsa el botón salir.");
    EXPECT_EQ(form.TbInstrucciones->textCursor().selectedText().size(), form.TbInstrucciones->toPlainText().size());
    expectPlaces(form, withTheReceipt);
}

TEST_F(Form7Test, AColumnGrowsPastTheSignCoversNothingAndIsShownWhole)
{
    for (const int units : { 1, 3, 40, 114 }) {
        SCOPED_TRACE(units);
        Form7& form = open(TableOf({ { "Una barra de pan", 0.85F }, { "a", 1 }, { "b", 1 }, { "c", 1 } }));
        addUp(form, units);
        QCoreApplication::processEvents();
        EXPECT_EQ(placeOf(*form.TBCantidades), (TwipsRect { 6240, 7540 - units * 285, 1800, units * 285 }));
        expectPlaces(form, atTheTill);
        for (const QWidget* control : std::initializer_list<const QWidget*> { form.TBCantidades, form.TbResultado }) {
            EXPECT_TRUE(form.rect().contains(QRect(control->mapTo(&form, QPoint()), control->size())));
        }
        EXPECT_LE(
            form.TbInstrucciones->verticalScrollBar()->maximum(), form.TbInstrucciones->document()->documentMargin())
            << "all words are seen";
    }
}

TEST_F(Form7Test, TheNextShopIsEnteredAsTheFirst)
{
    Form7& form = openBakery();
    addUp(form, 1);
    answer(form, QStringLiteral("0,85"));
    answer(form, QStringLiteral("4,15"));
    form.List1->SelectLine(2);
    PressContinue(form);
    EXPECT_EQ(form.CbContinuar->text(), QStringLiteral("&Continuar"));
    EXPECT_EQ(form.List1->SelectedLine(), 0);

    GoInto(form, QStringLiteral("Kiosko"));
    EXPECT_EQ(LinesOf(*form.LIDisponibles), std::vector<std::string> { "Un periódico" });
    EXPECT_EQ(form.Label3->text(), QStringLiteral("Kiosko"));
    EXPECT_EQ(form.Label3->palette().color(QPalette::Window), form.CBTienda[3]->BackColour());
    EXPECT_EQ(form.LICesta->LineCount(), 0);
    expectInShop(form, true);
    expectPlaces(form, atTheShelf);
}

TEST_F(Form7Test, TheKeypadOnTheScreenCoversNoPriceHoweverManyThereAre)
{
    for (const int units : { 8, 12, 16, 20, 28 }) {
        Form7& form = openBakery();
        addUp(form, units);
        ClickOnScreen(*form.findChild<KeypadSwitch*>());
        const auto& keypad = *form.findChild<Keypad*>();
        for (const QSize& size : { form.size(), QSize(1280, 800), QSize(1366, 768), QSize(1920, 1080) }) {
            form.resize(size);
            QCoreApplication::processEvents();
            const QRect prices(form.TBCantidades->mapTo(&form, QPoint()), form.TBCantidades->size());
            EXPECT_TRUE(keypad.isVisible());
            EXPECT_FALSE(keypad.geometry().intersects(prices)) << units << " units, " << size.width() << " pixels wide";
        }
        ClickOnScreen(*form.findChild<KeypadSwitch*>());
    }
}

TEST_F(Form7Test, TheResultIsWrittenFromRightToLeftAlsoWithTheCommaOfTheKeypad)
{
    Form7& form = openBakery();
    addUp(form, 1);
    Type(QStringLiteral("52,3"));
    EXPECT_EQ(form.TbResultado->Text(), "3,25");
    EXPECT_EQ(form.TbResultado->CaretPosition(), 1);
    Press(Qt::Key_End);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(form.TbResultado->Text(), "3,5") << "the step left comes before every key";
    Press(Qt::Key_Home);
    Press(Qt::Key_Delete);
    EXPECT_EQ(form.TbResultado->Text(), ",5") << "a key that writes nothing makes no step";
    form.TbResultado->SetText("");
    for (const Qt::Key key : { Qt::Key_5, Qt::Key_Period, Qt::Key_4 }) {
        Press(key, Qt::KeypadModifier);
    }
    EXPECT_EQ(form.TbResultado->Text(), "4,5");
}

TEST_F(Form7Test, TheClockRunsWhileABoxIsOpen)
{
    Form7& form = openBakery();
    const int timeGiven = form.Task().TimeLeft;
    form.Timer1->setInterval(0);
    ExpectDialog([&](QDialog& box) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return form.Task().TimeLeft < timeGiven - 2; }));
        EXPECT_EQ(form.TBTiempo->Text(), TimeText(form.Task().TimeLeft));
        box.accept();
    });
    Click(form, QStringLiteral("CBVolver"));
    form.Timer1->stop();
}

TEST_F(Form7Test, WhoBeginsAgainFromAShopFindsItAsItWasAndGoesOnPaying)
{
    for (const int step : { 1, 2, 3, 4 }) {
        SCOPED_TRACE(step);
        Form7& form = open(TableOf({ { "a", 1 }, { "b", 1 }, { "c", 1 }, { "d", 1 } }));
        GoInto(form, QStringLiteral("Panadería"));
        for (const ShoppingItem& item : form.Task().ShoppingList) {
            for (int unit = 0; unit < item.Units; ++unit) {
                TakeFromShelf(form, QString::fromStdString(item.Nombre.Trimmed()));
            }
        }
        PressContinue(form);
        answer(form, Written(form.Task().ListCost));
        answer(form, Written(form.Task().NotesGiven - form.Task().ListCost));
        ExpectMessage(QStringLiteral("Compra terminada"), QStringLiteral("Pulse el botón Volver a casa"));
        PressContinue(form);

        GoInto(form, QStringLiteral("Panadería"));
        TakeFromShelf(form, QStringLiteral("a"));
        for (int taken = 1; taken < step; ++taken) {
            answer(form, std::array { QString(), QStringLiteral("1,00"), QStringLiteral("4,00") }.at(taken - 1));
        }
        ASSERT_EQ(form.Task().PayStep, step);
        const auto shown = [&form] {
            return std::tuple(form.TBCantidades->Text(), form.TbInstrucciones->Text(), form.CbContinuar->text(),
                LinesOf(*form.LICesta));
        };
        const auto before = shown();
        ExpectDialog([&form](QDialog& verdict) {
            EXPECT_FALSE(form.Timer1->isActive()) << "no second goes by while the verdict is read";
            verdict.accept();
        });
        ExpectAgain(QStringLiteral("Sí"));
        Click(form, QStringLiteral("CBVolver"));
        EXPECT_EQ(form.Task().PayStep, step);
        EXPECT_TRUE(form.Frame3->isVisible());
        EXPECT_EQ(shown(), before);
        EXPECT_EQ(form.Task().MoneyLeft, form.Task().MoneyGiven);
        EXPECT_EQ(form.TBDinero->Text(), PurseText(form.Task().MoneyGiven));
        EXPECT_TRUE(form.Task().IsListOpen());
        EXPECT_TRUE(form.Timer1->isActive());
        EXPECT_EQ(FocusIn(form), "List1");

        if (step == 4) {
            PressContinue(form);
            EXPECT_EQ(form.Task().MoneyLeft, form.Task().MoneyGiven - 1) << "paid out of the new purse";
            EXPECT_EQ(form.TBDinero->Text(), RemainderText(form.Task().MoneyLeft));
            EXPECT_EQ(form.CbContinuar->text(), QStringLiteral("&Continuar"));
        }
    }
}

TEST_F(Form7Test, AMistakeIsToldBeforeTheShopIsLeftAndLeavingItIsSeenOnTheClockAtItsNextTick)
{
    Form7& form = openBakery();
    const int timeGiven = form.Task().TimeLeft;
    addUp(form, 1);
    TypeResult(QStringLiteral("0,10"));
    ExpectDialog([&](QDialog& box) {
        EXPECT_TRUE(form.Frame3->isVisible());
        EXPECT_TRUE(form.TBCantidades->isVisible());
        EXPECT_FALSE(form.Frame2->isVisible());
        EXPECT_EQ(form.Task().TimeLeft, timeGiven);
        box.accept();
    });
    PressContinue(form);
    EXPECT_FALSE(form.Frame3->isVisible());
    EXPECT_TRUE(form.Frame2->isVisible());
    EXPECT_EQ(form.Task().TimeLeft, timeGiven - 180);
    EXPECT_EQ(form.TBTiempo->Text(), TimeText(timeGiven));
    form.Timer1_Timer();
    EXPECT_EQ(form.TBTiempo->Text(), TimeText(timeGiven - 181));
}

TEST_F(Form7Test, TheWarningOfAPaymentIsToldAlsoWhereItsNotesEndTheProgram)
{
    const std::vector<RunTimeError> errors = RunTimeErrorsOf([this] {
        Form7& form = open(TableOf({ { "Una barra de pan", 999 }, { "a", 999 }, { "b", 999 }, { "c", 999 } }));
        addUp(form, 1);
        TypeResult(QStringLiteral("1000"));
        ExpectMessage(QStringLiteral("Error"),
            QStringLiteral("Parece que te has equivocado al sumar, si sigues pagando de más quizá no puedas comprar "
                           "todo lo que necesitas\n(1000 / 999)"));
        PressContinue(form);
    });
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors.front().ErrorKind(), RunTimeError::Kind::InvalidArgument);
}

TEST_F(Form7Test, WhoWantsToGoHomeTooEarlyStaysInTheShopAndANewTaskLeavesItAsItIs)
{
    Form7& form = openBakery();
    addUp(form, 2);
    ExpectMessage(
        QStringLiteral("Todavía no has terminado tu tarea"), QStringLiteral("Aún puedes comprar algún producto más"));
    Click(form, QStringLiteral("CBVolver"));
    expectLength(QStringLiteral("6"));
    Choose(form, QStringLiteral("MnuOpcNum"));
    EXPECT_EQ(form.List1->LineCount(), 6);
    EXPECT_TRUE(form.Frame3->isVisible());
    EXPECT_EQ(form.TBCantidades->Text(), "  0,85\n+  0,85");
    EXPECT_EQ(form.Task().PayStep, 2);
}

TEST_F(Form7Test, AProductIsAddedUntilTheCatalogueIsReadAgain)
{
    Form7& form = openBakery();
    const std::string file = ReadBytes(path_);
    ExpectNewProduct({ "  Una empanada ", "6,75", " panadería" });
    Press(Qt::Key_F2);
    GoInto(form, QStringLiteral("Panadería"));
    TakeFromShelf(form, QStringLiteral("Una empanada"));
    EXPECT_EQ(LinesOf(*form.LICesta), std::vector<std::string> { "(1) Una empanada 6,75" });
    EXPECT_EQ(ReadBytes(path_), file);
    EXPECT_EQ(form.Task().Catalogue.size(), 7U);
}

TEST_F(Form7Test, AProductIsAddedAtAPriceReadAsANumberOfTheCountryAndAnIncompleteOneIsNot)
{
    const Form7& form = openBakery();
    for (const std::vector<const char*>& answers : IncompleteProducts()) {
        ExpectNewProduct(answers);
        Choose(form, QStringLiteral("MnuOpcAdd"));
        EXPECT_EQ(PendingBoxes(), 0);
    }
    EXPECT_EQ(form.Task().Catalogue.size(), 6U);
    for (const auto& [typed, price] : { std::pair("1,5", 1.5F), { "1e3", 1000.0F }, { "2.5", 25.0F } }) {
        ExpectNewProduct({ "Una empanada", typed, "Panadería" });
        Choose(form, QStringLiteral("MnuOpcAdd"));
        EXPECT_EQ(form.Task().Catalogue.back().Precio, price) << typed;
    }
}

TEST_F(Form7Test, AFullCatalogueTakesNoProductAndSaysSo)
{
    Form7& form = open(NumberedTable(MostProducts));
    ExpectNewProduct({ "Una empanada", "2", "Panadería" });
    ExpectMessage(
        QStringLiteral("Numbrela"), QStringLiteral("El catálogo está lleno: no caben más de 32767 productos."));
    Press(Qt::Key_F2);
    EXPECT_EQ(form.Task().Catalogue.size(), 32'767U);
    EXPECT_EQ(FocusIn(form), "List1");
}

TEST_F(Form7Test, TheWindowIsClosedByItsLastMenuItemAndForWhoDoesNotBeginAgain)
{
    for (const bool byMenu : { false, true }) {
        AcceptAnyBox(); // there are no products
        const QPointer<Form7> form = openToBeGone();
        ASSERT_NE(form, nullptr);
        ShowAndAnswerBoxes(*form);
        if (byMenu) {
            Choose(*form, QStringLiteral("MnuOpcSal"));
        } else {
            AcceptAnyBox(); // the verdict
            ExpectAgain(QStringLiteral("No"));
            Click(*form, QStringLiteral("CBVolver"));
        }
        EXPECT_TRUE(isGone(form));
    }
}

TEST_F(Form7Test, AnEmptyCatalogueLeavesAnEmptyListAndAStillClock)
{
    form_ = std::make_unique<Form7>(clock_, shop_);
    ExpectMessage(QStringLiteral("Numbrela"),
        QStringLiteral("El catálogo no tiene productos, así que la lista de la compra está vacía.\n"
                       "Añade productos desde el menú Opciones y elige después «Número de productos», que hace una "
                       "lista nueva."));
    ShowAndAnswerBoxes(*form_);
    EXPECT_EQ(form_->List1->LineCount(), 0);
    EXPECT_FALSE(form_->Timer1->isActive());
    EXPECT_EQ(form_->TBDinero->Text(), "05€");
    EXPECT_TRUE(std::filesystem::exists(path_)) << "a missing catalogue is made, empty";

    ExpectNewProduct({ "Un bollo", "1", "Panadería" });
    Press(Qt::Key_F2);
    EXPECT_EQ(form_->Task().Catalogue.size(), 1U) << "the empty entry has become the product";
    EXPECT_EQ(form_->List1->LineCount(), 0);
    expectLength(QStringLiteral("2"));
    ExpectMessage(QStringLiteral("Numbrela"),
        QStringLiteral(
            "El catálogo solo tiene 1 producto, así que la lista de la compra es de 1 producto en lugar de 2."));
    Choose(*form_, QStringLiteral("MnuOpcNum"));
    EXPECT_EQ(form_->List1->LineCount(), 1);
    EXPECT_TRUE(form_->Timer1->isActive());
}

TEST_F(Form7Test, TooFewProductsAreSaidOnceAndAListThatCostsTooMuchIsEmptyAndStopsTheClock)
{
    SaveCatalogue(path_, NumberedTable(3));
    form_ = std::make_unique<Form7>(clock_, shop_);
    ExpectMessage(QStringLiteral("Numbrela"),
        QStringLiteral(
            "El catálogo solo tiene 3 productos, así que la lista de la compra es de 3 productos en lugar de 4."));
    ShowAndAnswerBoxes(*form_);
    EXPECT_EQ(form_->List1->LineCount(), 3);
    form_->hide();
    ShowAndActivate(*form_);
    EXPECT_TRUE(form_->Timer1->isActive());

    for (const char* name : { "Un diamante", "Otro diamante" }) {
        ExpectNewProduct({ name, "3e38", "Panadería" });
        Choose(*form_, QStringLiteral("MnuOpcAdd"));
    }
    expectLength(QStringLiteral("5"));
    ExpectMessage(QStringLiteral("Numbrela"),
        QStringLiteral("La lista de la compra costaría más de lo que se puede contar, así que está vacía.\n"
                       "Corrige los precios del catálogo desde el menú Opciones."));
    Choose(*form_, QStringLiteral("MnuOpcNum"));
    EXPECT_EQ(form_->List1->LineCount(), 0);
    EXPECT_FALSE(form_->Timer1->isActive());
    EXPECT_EQ(form_->TBDinero->Text(), "05€");
    EXPECT_EQ(form_->TBTiempo->Text(), "10 : 00");
}

TEST_F(Form7Test, ACatalogueThatCannotBeReadIsToldWithItsNameAndTheReason)
{
    const std::filesystem::path missing = folder_.Path() / "Recursos" / "productos.dat";
    shop_.Catalogue = missing;
    form_ = std::make_unique<Form7>(clock_, shop_);
    ExpectDialog([&](QDialog& dialog) {
        const QString text = static_cast<QMessageBox&>(dialog).text();
        EXPECT_TRUE(text.contains(QString::fromStdString(missing.string()))) << text.toStdString();
        EXPECT_TRUE(text.startsWith(QStringLiteral("No se puede "))) << text.toStdString();
        EXPECT_TRUE(text.contains(QStringLiteral(".\n\nEl catálogo no tiene productos"))) << text.toStdString();
        dialog.accept();
    });
    ShowAndAnswerBoxes(*form_);
    EXPECT_EQ(form_->List1->LineCount(), 0);
    GoInto(*form_, QStringLiteral("Panadería"));
    EXPECT_EQ(form_->LIDisponibles->LineCount(), 0);
}

TEST_F(Form7Test, ACatalogueOfMoreProductsThanCanBeCountedEndsTheProgram)
{
    SaveCatalogue(path_, ProductTable(MostProducts + 1, ProductOf("a", "Panadería")));
    try {
        const Form7 form(clock_, shop_);
        ADD_FAILURE();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.ErrorKind(), RunTimeError::Kind::Overflow);
        EXPECT_EQ(error.what(), "El catálogo «" + path_.string() + "» tiene más de 32767 productos.");
    }
}

TEST_F(Form7Test, AShelfOfLongNamesBeginsAtItsFirstLineAtEveryVisit)
{
    const Form7& form = open(TableOf(std::vector<ProductRow>(300, { std::string(90, 'm'), 1 })));
    GoInto(form, QStringLiteral("Panadería"));
    DoubleClickLine(*form.LIDisponibles, 299);
    EXPECT_EQ(form.LICesta->LineCount(), 1);
    form.LICesta->setFocus();
    Press(Qt::Key_Delete);
    PressContinue(form);
    GoInto(form, QStringLiteral("Panadería"));
    QCoreApplication::processEvents();
    EXPECT_GE(form.LIDisponibles->visualRect(form.LIDisponibles->model()->index(0, 0)).top(), 0);
}

} // namespace

} // namespace numbrela
