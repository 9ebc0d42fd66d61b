#include "activities/shopping/core/Money.h"
#include "activities/shopping/screen/ColumnArea.h"
#include "activities/shopping/screen/Handover.h"
#include "activities/shopping/tests/ShopWalk.h"
#include "activities/shopping/tests/StillClocks.h"
#include "activities/shopping/tests/TemporaryFolder.h"
#include "activities/shopping/tests/TestTables.h"
#include "common/screen/TextBox.h"
#include "tests/support/FixedClock.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QFrame>
#include <QMessageBox>
#include <QTimer>

#include <set>

namespace numbrela {

namespace {

using namespace testing;

const QString homeTitle = QStringLiteral("Vuelves a casa con tu compra");
const QString bought = QStringLiteral("Has conseguido comprar todos los productos pedidos\n");
const QString inTime = QStringLiteral("Has realizado la compra dentro del tiempo disponible.");

// Whole games, from the list to the verdict, played with mouse and keys alone. All prices are quarters of a euro, so
// that what is left in the purse is exact, in whatever order it was spent.
class PlayedGameTest : public ::testing::Test {
protected:
    PlayedGameTest()
    {
        SaveCatalogue(path_,
            TableOf({ { "Una barra de pan", 0.75F, "Panadería" }, { "Un bollo", 1.25F, "Panadería" },
                { "Un periódico", 1.5F, "Kiosko" }, { "Una trucha", 4.25F, "Pescadería" },
                { "Un lápiz", 0.5F, "Papelería" }, { "Un libro", 12.75F, "Librería" } }));
    }

    static void expectQuestion(const QString& answer)
    {
        ExpectMessage(QStringLiteral("Actividad terminada"), QStringLiteral("¿Deseas realizar de nuevo la actividad?"),
            { QStringLiteral("Sí"), QStringLiteral("No") }, answer);
    }

    static std::set<QString> shopsOnTheList(const Form7& form)
    {
        std::set<QString> shops;
        for (const ShoppingItem& wanted : form.Task().ShoppingList) {
            if (wanted.Units > 0) {
                shops.insert(QString::fromStdString(wanted.Tienda.Trimmed()));
            }
        }
        return shops;
    }

    // Goes into a shop and takes all that the list wants of it; returns what that costs.
    static float fillBasket(const Form7& form, const QString& shop)
    {
        GoInto(form, shop);
        EXPECT_EQ(FocusIn(form), "LIDisponibles");
        float cost = 0;
        for (const ShoppingItem& wanted : form.Task().ShoppingList) {
            if (QString::fromStdString(wanted.Tienda.Trimmed()) != shop) {
                continue;
            }
            TakeFromShelf(form, QString::fromStdString(wanted.Nombre.Trimmed()));
            cost += wanted.Precio;
            for (int unit = 1; unit < wanted.Units; ++unit) {
                Press(Qt::Key_Return);
                cost += wanted.Precio;
            }
        }
        return cost;
    }

    // Pays a filled basket as it should be paid, and leaves the shop.
    static void payRight(const Form7& form, float cost)
    {
        PressContinue(form);
        EXPECT_EQ(FocusIn(form), "TbResultado");
        TypeResult(Written(cost));
        EXPECT_EQ(form.TbResultado->text(), Written(cost));
        PressContinue(form);
        EXPECT_EQ(FocusIn(form), "TbResultado");
        TypeResult(Written(NotesAbove(cost) - cost));
        PressContinue(form);
        EXPECT_EQ(FocusIn(form), "CbContinuar");
        EXPECT_EQ(form.CbContinuar->text(), QStringLiteral("&Salir"));
        Press(Qt::Key_Return);
        EXPECT_EQ(FocusIn(form), "List1");
        EXPECT_TRUE(form.Frame2->isVisible());
        EXPECT_FALSE(form.Frame3->isVisible());
    }

    // What is told behind the last purchase, when list and purse show it already.
    static void expectAllBought(const Form7& form)
    {
        ExpectDialog([&form](QDialog& dialog) {
            const auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_EQ(box.windowTitle(), QStringLiteral("Compra terminada"));
            EXPECT_EQ(box.text(), QStringLiteral("Pulse el botón Volver a casa"));
            expectAllCrossedOff(form);
            EXPECT_EQ(form.TBDinero->Text(), RemainderText(form.Task().MoneyLeft));
            EXPECT_TRUE(form.Frame2->isVisible());
            dialog.accept();
        });
    }

    static void expectAllCrossedOff(const Form7& form)
    {
        for (const std::string& line : LinesOf(*form.List1)) {
            EXPECT_EQ(line.substr(0, 4), "(X) ") << line;
        }
    }

    static void buyTheRest(const Form7& form)
    {
        for (std::set<QString> shops = shopsOnTheList(form); !shops.empty(); shops = shopsOnTheList(form)) {
            const float cost = fillBasket(form, *shops.begin());
            if (shops.size() == 1) {
                expectAllBought(form);
            }
            payRight(form, cost);
        }
    }

    const TemporaryFolder folder_;
    const std::filesystem::path path_ = folder_ / "productos.dat";
    Shop shop_ { path_ };
    const FixedClock clock_;
    const StillClocks stillClocks_;
};

TEST_F(PlayedGameTest, AListIsBoughtWithoutAMistake)
{
    Form7 form(clock_, shop_);
    ShowAndActivate(form);
    ASSERT_EQ(form.List1->LineCount(), 4);
    const std::size_t shops = shopsOnTheList(form).size();
    const int timeGiven = form.Task().TimeLeft;
    const float moneyGiven = form.Task().MoneyGiven;

    buyTheRest(form);
    expectAllCrossedOff(form);
    EXPECT_EQ(form.Task().TimeLeft, timeGiven - 180 * static_cast<int>(shops));
    EXPECT_EQ(form.TBDinero->Text(), RemainderText(moneyGiven - form.Task().ListCost));

    ExpectMessage(homeTitle, bought + QStringLiteral("Has gastado justo el dinero necesario.\n") + inTime);
    expectQuestion(QStringLiteral("No"));
    Click(form, QStringLiteral("CBVolver"));
    EXPECT_FALSE(form.isVisible());
}

// The sentences are tested with the task. Here each mistake leads to a message, and the game goes on from the right
// step.
TEST_F(PlayedGameTest, EveryMistakeIsToldAndTheTaskGoesOn)
{
    Form7 form(clock_, shop_);
    ShowAndActivate(form);
    const QString shop = *shopsOnTheList(form).begin();
    int timeLeft = form.Task().TimeLeft;
    const auto expectError = [](const QString& end) {
        ExpectDialog([end](QDialog& dialog) {
            const auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_EQ(box.windowTitle(), QStringLiteral("Error"));
            EXPECT_TRUE(box.text().endsWith(end)) << box.text().toStdString();
            dialog.accept();
        });
    };
    const auto answer = [&form](const QString& result) {
        TypeResult(result);
        PressContinue(form);
    };
    const auto expectSentOut = [&] {
        timeLeft -= 180;
        EXPECT_TRUE(form.Frame2->isVisible());
        EXPECT_EQ(FocusIn(form), "List1");
        EXPECT_EQ(form.Task().TimeLeft, timeLeft);
        EXPECT_EQ(form.Task().MoneyLeft, form.Task().MoneyGiven) << "nothing has been bought";
    };

    ExpectMessage(
        QStringLiteral("Todavía no has terminado tu tarea"), QStringLiteral("Aún puedes comprar algún producto más"));
    Click(form, QStringLiteral("CBVolver"));
    EXPECT_TRUE(form.Timer1->isActive());

    GoInto(form, shop);
    PressContinue(form); // out again with nothing
    expectSentOut();

    const float cost = fillBasket(form, shop);
    const QString total = QString::fromStdString(PlainDecimalText(cost));
    PressContinue(form);
    expectError(QStringLiteral("(tu precio: 0,25 / precio real %1)").arg(total));
    answer(QStringLiteral("0,25"));
    expectSentOut();

    fillBasket(form, shop);
    const std::vector<std::string> taken = LinesOf(*form.LICesta);
    PressContinue(form);
    expectError(QStringLiteral("para comprar las cosas que necesitas."));
    answer(QStringLiteral("900"));
    EXPECT_EQ(FocusIn(form), "LICesta");
    EXPECT_EQ(LinesOf(*form.LICesta), taken);

    PressContinue(form);
    answer(Written(cost));
    expectError(QStringLiteral("(90 / %1)").arg(QString::fromStdString(PlainDecimalText(NotesAbove(cost) - cost))));
    answer(QStringLiteral("90,00"));
    expectSentOut();

    // Paid with 25 cents too much, and with the change taken for nothing.
    fillBasket(form, shop);
    PressContinue(form);
    const float paid = cost + 0.25F;
    expectError(QStringLiteral("(%1 / %2)").arg(QString::fromStdString(PlainDecimalText(paid)), total));
    answer(Written(paid));
    expectError(QStringLiteral("(0 / %1)").arg(QString::fromStdString(PlainDecimalText(NotesAbove(paid) - paid))));
    answer(QStringLiteral("0"));
    PressContinue(form);
    EXPECT_EQ(form.Task().MoneyLeft, form.Task().MoneyGiven - paid);

    buyTheRest(form);
    ExpectMessage(homeTitle, bought + QStringLiteral("pero has gastado más dinero del necesario\n") + inTime);
    expectQuestion(QStringLiteral("Sí"));
    Click(form, QStringLiteral("CBVolver"));
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(form.Timer1->isActive());
    EXPECT_TRUE(form.Task().IsListOpen()) << "a new task";
}

TEST_F(PlayedGameTest, ATaskGoesOnWhenItsTimeIsOverAndIsJudgedSo)
{
    Form7 form(clock_, shop_);
    ShowAndActivate(form);
    for (int second = form.Task().TimeLeft; second > 1; --second) {
        form.Timer1_Timer();
    }
    EXPECT_EQ(form.TBTiempo->Text(), "0 : 01");
    form.Timer1_Timer();
    EXPECT_EQ(form.TBTiempo->Text(), "");
    form.Timer1_Timer();
    EXPECT_EQ(form.TBTiempo->Text(), "");
    EXPECT_EQ(form.Task().TimeLeft, -1);
    EXPECT_TRUE(form.Timer1->isActive());

    buyTheRest(form);
    ExpectMessage(homeTitle,
        bought
            + QStringLiteral("Has gastado justo el dinero necesario.\nHas tardado demasiado en realizar la compra."));
    expectQuestion(QStringLiteral("No"));
    Click(form, QStringLiteral("CBVolver"));
}

TEST_F(PlayedGameTest, WhoHasPaidAllForLittleCannotBuyTheRest)
{
    Form7 form(clock_, shop_);
    ShowAndActivate(form);
    ASSERT_GT(shopsOnTheList(form).size(), 1U);
    const float money = form.Task().MoneyLeft;
    fillBasket(form, *shopsOnTheList(form).begin());
    PressContinue(form);
    TypeResult(Written(money));
    ExpectDialog([](QDialog& box) { box.accept(); }); // far too much, and paid
    PressContinue(form);
    TypeResult(QStringLiteral("5"));
    PressContinue(form);
    PressContinue(form);
    EXPECT_EQ(form.TBDinero->Text(), "0 €");

    ExpectMessage(homeTitle,
        QStringLiteral("No has conseguido comprar todos los productos pedidos, gastando el dinero en otros no "
                       "necesarios o pagando más de lo debido por ellos.\n")
            + inTime);
    expectQuestion(QStringLiteral("No"));
    Click(form, QStringLiteral("CBVolver"));
    EXPECT_FALSE(form.Timer1->isActive());
    EXPECT_FALSE(form.isVisible());
}

} // namespace

} // namespace numbrela
