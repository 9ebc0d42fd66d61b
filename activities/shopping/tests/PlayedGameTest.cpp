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
    PlayedGameTest() { ShowAndActivate(form_); }

    static Shop stocked(const std::filesystem::path& catalogue)
    {
        SaveCatalogue(catalogue,
            TableOf({ { "Una barra de pan", 0.75F, "Panadería" }, { "Un bollo", 1.25F, "Panadería" },
                { "Un periódico", 1.5F, "Kiosko" }, { "Una trucha", 4.25F, "Pescadería" },
                { "Un lápiz", 0.5F, "Papelería" }, { "Un libro", 12.75F, "Librería" } }));
        return { catalogue };
    }

    std::set<QString> shopsOnTheList() const
    {
        std::set<QString> shops;
        for (const ShoppingItem& wanted : form_.Task().ShoppingList) {
            if (wanted.Units > 0) {
                shops.insert(QString::fromStdString(wanted.Tienda.Trimmed()));
            }
        }
        return shops;
    }

    // Goes into a shop and takes all that the list wants of it; returns what that costs.
    float fillBasket(const QString& shop)
    {
        GoInto(form_, shop);
        EXPECT_EQ(FocusIn(form_), "LIDisponibles");
        float cost = 0;
        for (const ShoppingItem& wanted : form_.Task().ShoppingList) {
            if (QString::fromStdString(wanted.Tienda.Trimmed()) != shop) {
                continue;
            }
            TakeFromShelf(form_, QString::fromStdString(wanted.Nombre.Trimmed()));
            cost += wanted.Precio;
            for (int unit = 1; unit < wanted.Units; ++unit) {
                Press(Qt::Key_Return);
                cost += wanted.Precio;
            }
        }
        return cost;
    }

    // Pays a filled basket as it should be paid, and leaves the shop.
    void payRight(float cost)
    {
        PressContinue(form_);
        EXPECT_EQ(FocusIn(form_), "TbResultado");
        TypeResult(Written(cost));
        EXPECT_EQ(form_.TbResultado->text(), Written(cost));
        PressContinue(form_);
        EXPECT_EQ(FocusIn(form_), "TbResultado");
        TypeResult(Written(NotesAbove(cost) - cost));
        PressContinue(form_);
        EXPECT_EQ(FocusIn(form_), "CbContinuar");
        EXPECT_EQ(form_.CbContinuar->text(), QStringLiteral("&Salir"));
        Press(Qt::Key_Return);
        EXPECT_EQ(FocusIn(form_), "List1");
        EXPECT_TRUE(form_.Frame2->isVisible());
        EXPECT_FALSE(form_.Frame3->isVisible());
    }

    // What is told behind the last purchase, when list and purse show it already.
    void expectAllBought()
    {
        ExpectDialog([this](QDialog& dialog) {
            const auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_EQ(box.windowTitle(), QStringLiteral("Compra terminada"));
            EXPECT_EQ(box.text(), QStringLiteral("Pulse el botón Volver a casa"));
            expectAllCrossedOff();
            EXPECT_EQ(form_.TBDinero->Text(), RemainderText(form_.Task().MoneyLeft));
            EXPECT_TRUE(form_.Frame2->isVisible());
            dialog.accept();
        });
    }

    void expectAllCrossedOff()
    {
        for (const std::string& line : LinesOf(*form_.List1)) {
            EXPECT_EQ(line.substr(0, 4), "(X) ") << line;
        }
    }

    void buyTheRest()
    {
        for (std::set<QString> shops = shopsOnTheList(); !shops.empty(); shops = shopsOnTheList()) {
            const float cost = fillBasket(*shops.begin());
            if (shops.size() == 1) {
                expectAllBought();
            }
            payRight(cost);
        }
    }

    const TemporaryFolder folder_;
    Shop shop_ = stocked(folder_ / "productos.dat");
    const FixedClock clock_;
    const StillClocks stillClocks_;
    Form7 form_ { clock_, shop_ };
};

TEST_F(PlayedGameTest, AListIsBoughtWithoutAMistake)
{
    ASSERT_EQ(form_.List1->LineCount(), 4);
    const std::size_t shops = shopsOnTheList().size();
    const int timeGiven = form_.Task().TimeLeft;
    const float moneyGiven = form_.Task().MoneyGiven;

    buyTheRest();
    expectAllCrossedOff();
    EXPECT_EQ(form_.Task().TimeLeft, timeGiven - 180 * static_cast<int>(shops));
    EXPECT_EQ(form_.TBDinero->Text(), RemainderText(moneyGiven - form_.Task().ListCost));

    ExpectMessage(homeTitle, bought + QStringLiteral("Has gastado justo el dinero necesario.\n") + inTime);
    ExpectAgain(QStringLiteral("No"));
    Click(form_, QStringLiteral("CBVolver"));
    EXPECT_FALSE(form_.isVisible());
}

// The sentences are tested with the task. Here each mistake leads to a message, and the game goes on from the right
// step.
TEST_F(PlayedGameTest, EveryMistakeIsToldAndTheTaskGoesOn)
{
    const QString shop = *shopsOnTheList().begin();
    int timeLeft = form_.Task().TimeLeft;
    const auto expectError = [](const QString& end) {
        ExpectDialog([end](QDialog& dialog) {
            const auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_EQ(box.windowTitle(), QStringLiteral("Error"));
            EXPECT_TRUE(box.text().endsWith(end)) << box.text().toStdString();
            dialog.accept();
        });
    };
    const auto answer = [this](const QString& result) {
        TypeResult(result);
        PressContinue(form_);
    };
    const auto expectSentOut = [&] {
        timeLeft -= 180;
        EXPECT_TRUE(form_.Frame2->isVisible());
        EXPECT_EQ(FocusIn(form_), "List1");
        EXPECT_EQ(form_.Task().TimeLeft, timeLeft);
        EXPECT_EQ(form_.Task().MoneyLeft, form_.Task().MoneyGiven) << "nothing has been bought";
    };

    ExpectMessage(
        QStringLiteral("Todavía no has terminado tu tarea"), QStringLiteral("Aún puedes comprar algún producto más"));
    Click(form_, QStringLiteral("CBVolver"));
    EXPECT_TRUE(form_.Timer1->isActive());

    GoInto(form_, shop);
    PressContinue(form_); // out again with nothing
    expectSentOut();

    const float cost = fillBasket(shop);
    const QString total = QString::fromStdString(PlainDecimalText(cost));
    PressContinue(form_);
    expectError(QStringLiteral("(tu precio: 0,25 / precio real %1)").arg(total));
    answer(QStringLiteral("0,25"));
    expectSentOut();

    fillBasket(shop);
    const std::vector<std::string> taken = LinesOf(*form_.LICesta);
    PressContinue(form_);
    expectError(QStringLiteral("para comprar las cosas que necesitas."));
    answer(QStringLiteral("900"));
    EXPECT_EQ(FocusIn(form_), "LICesta");
    EXPECT_EQ(LinesOf(*form_.LICesta), taken);

    PressContinue(form_);
    answer(Written(cost));
    expectError(QStringLiteral("(90 / %1)").arg(QString::fromStdString(PlainDecimalText(NotesAbove(cost) - cost))));
    answer(QStringLiteral("90,00"));
    expectSentOut();

    // Paid with 25 cents too much, and with the change taken for nothing.
    fillBasket(shop);
    PressContinue(form_);
    const float paid = cost + 0.25F;
    expectError(QStringLiteral("(%1 / %2)").arg(QString::fromStdString(PlainDecimalText(paid)), total));
    answer(Written(paid));
    expectError(QStringLiteral("(0 / %1)").arg(QString::fromStdString(PlainDecimalText(NotesAbove(paid) - paid))));
    answer(QStringLiteral("0"));
    PressContinue(form_);
    EXPECT_EQ(form_.Task().MoneyLeft, form_.Task().MoneyGiven - paid);

    buyTheRest();
    ExpectMessage(homeTitle, bought + QStringLiteral("pero has gastado más dinero del necesario\n") + inTime);
    ExpectAgain(QStringLiteral("Sí"));
    Click(form_, QStringLiteral("CBVolver"));
    EXPECT_TRUE(form_.isVisible());
    EXPECT_TRUE(form_.Timer1->isActive());
    EXPECT_TRUE(form_.Task().IsListOpen()) << "a new task";
}

TEST_F(PlayedGameTest, ATaskGoesOnWhenItsTimeIsOverAndIsJudgedSo)
{
    for (int second = form_.Task().TimeLeft; second > 1; --second) {
        form_.Timer1_Timer();
    }
    EXPECT_EQ(form_.TBTiempo->Text(), "0 : 01");
    form_.Timer1_Timer();
    EXPECT_EQ(form_.TBTiempo->Text(), "");
    form_.Timer1_Timer();
    EXPECT_EQ(form_.TBTiempo->Text(), "");
    EXPECT_EQ(form_.Task().TimeLeft, -1);
    EXPECT_TRUE(form_.Timer1->isActive());

    buyTheRest();
    ExpectMessage(homeTitle,
        bought
            + QStringLiteral("Has gastado justo el dinero necesario.\nHas tardado demasiado en realizar la compra."));
    ExpectAgain(QStringLiteral("No"));
    Click(form_, QStringLiteral("CBVolver"));
}

TEST_F(PlayedGameTest, WhoHasPaidAllForLittleCannotBuyTheRest)
{
    ASSERT_GT(shopsOnTheList().size(), 1U);
    const float money = form_.Task().MoneyLeft;
    fillBasket(*shopsOnTheList().begin());
    PressContinue(form_);
    TypeResult(Written(money));
    AcceptAnyBox(); // far too much, and paid
    PressContinue(form_);
    TypeResult(QStringLiteral("5"));
    PressContinue(form_);
    PressContinue(form_);
    EXPECT_EQ(form_.TBDinero->Text(), "0 €");

    ExpectMessage(homeTitle,
        QStringLiteral("No has conseguido comprar todos los productos pedidos, gastando el dinero en otros no "
                       "necesarios o pagando más de lo debido por ellos.\n")
            + inTime);
    ExpectAgain(QStringLiteral("No"));
    Click(form_, QStringLiteral("CBVolver"));
    EXPECT_FALSE(form_.Timer1->isActive());
    EXPECT_FALSE(form_.isVisible());
}

} // namespace

} // namespace numbrela
