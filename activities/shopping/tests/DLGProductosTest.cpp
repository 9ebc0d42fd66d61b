#include "activities/shopping/screen/DLGProductos.h"

#include "activities/shopping/screen/Handover.h"
#include "activities/shopping/tests/Beeps.h"
#include "activities/shopping/tests/StillClocks.h"
#include "activities/shopping/tests/TemporaryFolder.h"
#include "activities/shopping/tests/TestTables.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"
#include "common/screen/CommandButton.h"
#include "common/screen/TextBox.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FormTable.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QListView>
#include <QMessageBox>
#include <QPointer>
#include <QScrollBar>
#include <QTest>

#include <memory>
#include <set>
#include <utility>

namespace numbrela {

namespace {

using namespace testing;

// In the order of the list: bread, fish, newspaper.
const Product newspaper = ProductOf("Un periódico", "Kiosko", 2);
const Product bread = ProductOf("Una barra de pan", "Panadería", 0.85F);
const Product fish = ProductOf("Una trucha", "Pescadería", 3.45F);
const ProductTable threeProducts { fish, newspaper, bread };

const QString adding = QStringLiteral("Añadir producto");
const QString changing = QStringLiteral("Modificar producto");
const QString namePrompt = QStringLiteral("Nombre del producto");
const QString pricePrompt = QStringLiteral("Precio del producto:");
const QString shopPrompt = QStringLiteral("¿En qué tiendas se vende?: ");

class DLGProductosTest : public ::testing::Test {
protected:
    // The window on its own, which hands over to nothing when the test ends.
    DLGProductos& open(const ProductTable& table = threeProducts)
    {
        SaveCatalogue(path_, table);
        form_ = std::make_unique<DLGProductos>(clock_, shop_);
        form_->Form_Load();
        ShowAndActivate(*form_);
        return *form_;
    }

    const DLGProductos& form() const { return *form_; }

    std::vector<std::string> names() const
    {
        std::vector<std::string> names;
        for (const std::string& line : lines()) {
            names.push_back(std::string(Trimmed(QString::fromStdString(line).mid(18, 30).toStdString())));
        }
        return names;
    }

    std::vector<std::string> lines() const
    {
        std::vector<std::string> lines;
        const QAbstractItemModel& model = *form().List1->model();
        for (int line = 0; line < model.rowCount(); ++line) {
            lines.push_back(model.index(line, 0).data().toString().toStdString());
        }
        return lines;
    }

    void clickLine(int line) const
    {
        const QModelIndex index = form().List1->model()->index(line, 0);
        QTest::mouseClick(form().List1->viewport(), Qt::LeftButton, {}, form().List1->visualRect(index).center());
    }

    int selectedLine() const
    {
        const QModelIndexList selected = form().List1->selectionModel()->selectedRows();
        return selected.isEmpty() ? -1 : selected.front().row();
    }

    std::vector<std::string> boxes() const
    {
        return { form().TbDatos[0]->Text(), form().TbDatos[1]->Text(), form().TbDatos[2]->Text() };
    }

    // Types a text in place of what is in one of the edit boxes.
    void typeInto(int box, const QString& text) const
    {
        const QString name = QStringLiteral("TbDatos(%1)").arg(box);
        Click(form(), name);
        form().TbDatos[static_cast<std::size_t>(box)]->SelectWholeText();
        Press(Qt::Key_Delete);
        Type(text);
    }

    void typeProduct(const QString& shop, const QString& name, const QString& price) const
    {
        typeInto(0, shop);
        typeInto(1, name);
        typeInto(2, price);
    }

    static void expectAdded(const QString& name, const QString& price, const QString& shop)
    {
        ExpectInput(adding, namePrompt, name);
        ExpectInput(adding, pricePrompt, price);
        ExpectInput(adding, shopPrompt, shop);
    }

    void add(const QString& name, const QString& price, const QString& shop) const
    {
        expectAdded(name, price, shop);
        Click(form(), QStringLiteral("CBAdd"));
    }

    // Answers the three questions of "Modificar", whose default texts are the present values.
    void change(const ProductTexts& present, const QString& shop, const QString& name, const QString& price) const
    {
        ExpectInput(changing, QStringLiteral("Tienda:"), shop, QString::fromStdString(present.Tienda));
        ExpectInput(changing, QStringLiteral("Nombre:"), name, QString::fromStdString(present.Nombre));
        ExpectInput(changing, QStringLiteral("Precio:"), price, QString::fromStdString(present.Precio));
        Click(form(), QStringLiteral("CBModif"));
    }

    // Runs what the window has put off until the click that it is about has ended.
    static void waitForBoxes()
    {
        EXPECT_TRUE(QTest::qWaitFor([] { return PendingBoxes() == 0; }));
    }

    FixedClock clock_;
    const StillClocks stillClocks_;
    TemporaryFolder folder_;
    std::filesystem::path path_ = folder_ / "productos.dat";
    Shop shop_ { path_ };
    std::unique_ptr<DLGProductos> form_;
};

// The window as it opens.

TEST_F(DLGProductosTest, ConsistsOfAListThreeBoxesAndFiveButtons)
{
    open();
    EXPECT_EQ(form().windowTitle(), QStringLiteral("Productos"));
    const FontSpec font { "Verdana", 11 };
    const auto left = Qt::AlignLeft | Qt::AlignVCenter;
    const auto right = Qt::AlignRight | Qt::AlignVCenter;
    ExpectControls(form(),
        {
            { .Name = "Label1",
                .Text = "&Productos",
                .Place = { 500, 300, 9500, 350 },
                .Font = font,
                .TabStop = false },
            { .Name = "List1",
                .Text = "",
                .Place = { 500, 700, 9500, 5280 },
                .Font = { "Courier New", 12 },
                .AccessibleName = "Productos" },
            { .Name = "LBDatos(0)",
                .Text = "&Tienda",
                .Place = { 500, 6180, 2700, 350 },
                .Font = font,
                .TabStop = false },
            { .Name = "LBDatos(1)",
                .Text = "&Nombre",
                .Place = { 3400, 6180, 4900, 350 },
                .Font = font,
                .TabStop = false },
            { .Name = "LBDatos(2)",
                .Text = "Precio",
                .Place = { 8500, 6180, 1500, 350 },
                .Font = font,
                .TabStop = false },
            { .Name = "TbDatos(0)", .Text = "", .Place = { 500, 6530, 2700, 495 }, .Font = font, .Alignment = left },
            { .Name = "TbDatos(1)", .Text = "", .Place = { 3400, 6530, 4900, 495 }, .Font = font, .Alignment = left },
            { .Name = "TbDatos(2)", .Text = "", .Place = { 8500, 6530, 1500, 495 }, .Font = font, .Alignment = right },
            { .Name = "CBAdd", .Text = "&Añadir", .Place = { 500, 7530, 1650, 600 }, .Font = font },
            { .Name = "CBModif", .Text = "&Modificar", .Place = { 2350, 7530, 1650, 600 }, .Font = font },
            { .Name = "CBElim", .Text = "&Eliminar", .Place = { 4200, 7530, 1650, 600 }, .Font = font },
            { .Name = "OKButton", .Text = "Aceptar", .Place = { 6500, 7530, 1650, 600 }, .Font = font },
            { .Name = "CancelButton", .Text = "Cancelar", .Place = { 8350, 7530, 1650, 600 }, .Font = font },
        });
    EXPECT_EQ(FocusName(), "List1");
}

TEST_F(DLGProductosTest, ListsTheCatalogueSortedAndSelectsNothing)
{
    open();
    EXPECT_EQ(lines(),
        (std::vector<std::string> {
            "Kiosko            Un periódico                   2€",
            "Panadería         Una barra de pan               0,85€",
            "Pescadería        Una trucha                     3,45€",
        }));
    EXPECT_EQ(selectedLine(), -1);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "", "", "" }));
}

TEST_F(DLGProductosTest, ListsAnEmptyCatalogueAsItsOneEmptyEntry)
{
    open(ProductTable(1));
    EXPECT_EQ(lines(), std::vector<std::string> { std::string(49, ' ') + "0€" });
    clickLine(0);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "", "", "0" }));
}

// The list has the focus on its first line, and must not look as if it were selected.
TEST_F(DLGProductosTest, FillsNoLineBeforeOneIsSelected)
{
    open();
    const auto coloursBehind = [this](int line) {
        const QRect place = form().List1->visualRect(form().List1->model()->index(line, 0));
        const QImage picture = form().List1->viewport()->grab().toImage();
        std::set<QRgb> colours;
        for (int y = place.top() + 2; y < place.bottom() - 1; ++y) {
            for (int x = place.right() - 30; x < place.right() - 1; ++x) {
                colours.insert(picture.pixel(x, y));
            }
        }
        return std::pair(picture.pixel(place.right() - 2, place.top() + 1), colours);
    };
    const QPalette palette = form().List1->palette();
    const QRgb paper = palette.color(QPalette::Base).rgb();
    const QRgb highlight = palette.color(QPalette::Highlight).rgb();
    ASSERT_EQ(form().List1->currentIndex().row(), 0);
    EXPECT_EQ(coloursBehind(0), std::pair(highlight, std::set { paper }));
    EXPECT_EQ(coloursBehind(1), std::pair(paper, std::set { paper }));

    clickLine(0);
    EXPECT_EQ(coloursBehind(0), std::pair(palette.color(QPalette::HighlightedText).rgb(), std::set { highlight }));
    form().TbDatos[0]->setFocus();
    EXPECT_EQ(coloursBehind(0), std::pair(highlight, std::set { highlight }));
}

// An accent that the frame crosses out is a spelling mistake.
TEST_F(DLGProductosTest, LeavesTheTextWholeOfTheLineThatHasTheFocus)
{
    open({ ProductOf("Ñandú y plátanos (10 g)", "ÁÉÍÓÚ jgpqç") });
    const auto pictureOfLine = [this] {
        return form().List1->viewport()->grab(form().List1->visualRect(form().List1->model()->index(0, 0))).toImage();
    };
    const QPalette palette = form().List1->palette();
    for (const auto background : { QPalette::Base, QPalette::Highlight }) {
        form().List1->setFocus();
        const QImage withFrame = pictureOfLine();
        form().TbDatos[0]->setFocus();
        const QImage withoutFrame = pictureOfLine();
        ASSERT_NE(withFrame, withoutFrame);
        std::set<QRgb> hidden;
        for (int y = 0; y < withFrame.height(); ++y) {
            for (int x = 0; x < withFrame.width(); ++x) {
                if (withFrame.pixel(x, y) != withoutFrame.pixel(x, y)) {
                    hidden.insert(withoutFrame.pixel(x, y));
                }
            }
        }
        EXPECT_EQ(hidden, std::set { palette.color(background).rgb() });
        clickLine(0);
    }
}

TEST_F(DLGProductosTest, ShowsTheBeginningOfANameTooLongForItsBoxReadably)
{
    open({ ProductOf(std::string(50, 'n') + std::string(50, 'o'), "Kiosko") });
    clickLine(0);
    TextBox& box = *form().TbDatos[1];
    box.grab(); // a box scrolls when it is drawn
    EXPECT_EQ(box.font().pixelSize(), 11);
    EXPECT_EQ(box.cursorPositionAt(QPoint(1, box.height() / 2)), 0);
    EXPECT_LT(box.cursorPositionAt(QPoint(box.width() - 1, box.height() / 2)), 100);
}

TEST_F(DLGProductosTest, ReachesEveryBoxByItsAccessKey)
{
    open();
    Press(Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(FocusName(), "TbDatos(0)");
    Press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(FocusName(), "TbDatos(1)");
    Press(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(FocusName(), "List1");
}

TEST_F(DLGProductosTest, StaysOpenWhenEnterOrEscapeIsPressedInABox)
{
    open();
    for (const int box : { 0, 1, 2 }) {
        Click(form(), QStringLiteral("TbDatos(%1)").arg(box));
        Press(Qt::Key_Return);
        Press(Qt::Key_Escape);
        EXPECT_TRUE(form().isVisible());
    }
}

TEST_F(DLGProductosTest, TakesAsManyTypedCharactersAsTheFileHasRoomFor)
{
    open();
    typeInto(0, QString(60, u's'));
    typeInto(1, QString(110, u'n'));
    EXPECT_EQ(boxes(), (std::vector<std::string> { std::string(50, 's'), std::string(100, 'n'), "" }));
}

// Selecting a line.

TEST_F(DLGProductosTest, ShowsTheProductOfTheLineThatIsClicked)
{
    open();
    clickLine(1);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Panadería", "Una barra de pan", "0,85" }));
    clickLine(0);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Kiosko", "Un periódico", "2" }));
}

TEST_F(DLGProductosTest, ShowsTheProductOfTheLineThatTheArrowKeysReach)
{
    open();
    clickLine(0);
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Pescadería", "Una trucha", "3,45" }));
    Press(Qt::Key_Up);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Panadería", "Una barra de pan", "0,85" }));
}

TEST_F(DLGProductosTest, BeginsAtTheFirstLineWhenTheKeyboardFindsNoneSelected)
{
    open();
    Press(Qt::Key_Down);
    EXPECT_EQ(selectedLine(), 0);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Kiosko", "Un periódico", "2" }));

    open({ bread });
    Press(Qt::Key_Down);
    EXPECT_EQ(selectedLine(), 0);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Panadería", "Una barra de pan", "0,85" }));
}

TEST_F(DLGProductosTest, WritesTheBoxesBackWhenAnotherLineIsClickedAndDoesNotSortAnew)
{
    open();
    clickLine(0);
    typeProduct(QStringLiteral("Zapateria"), QStringLiteral("  Unas botas "), QStringLiteral("59,9"));
    EXPECT_EQ(names().front(), "Un periódico");
    clickLine(2);
    EXPECT_EQ(lines(),
        (std::vector<std::string> {
            "Zapateria         Unas botas                     59,9€",
            "Panadería         Una barra de pan               0,85€",
            "Pescadería        Una trucha                     3,45€",
        }));
    EXPECT_EQ(selectedLine(), 2);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Pescadería", "Una trucha", "3,45" }));
    clickLine(0);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Zapateria", "Unas botas", "59,9" }));

    add(QStringLiteral("Un tebeo"), QStringLiteral("3"), QStringLiteral("Kiosko"));
    EXPECT_EQ(names(), (std::vector<std::string> { "Un tebeo", "Una barra de pan", "Una trucha", "Unas botas" }));
}

TEST_F(DLGProductosTest, TakesNothingOverWhenTheSameLineIsClickedAgain)
{
    open();
    clickLine(0);
    typeInto(1, QStringLiteral("Un tebeo"));
    clickLine(0);
    EXPECT_EQ(names().front(), "Un periódico");
    EXPECT_EQ(form().TbDatos[1]->Text(), "Un tebeo");
}

TEST_F(DLGProductosTest, RefusesAPriceThatIsNoNumberAndKeepsLineAndTexts)
{
    open();
    for (const QString& price :
        { QStringLiteral("gratis"), QString(), QStringLiteral("1,2,3"), QStringLiteral("1e39") }) {
        SCOPED_TRACE(price.toStdString());
        clickLine(1);
        typeInto(1, QStringLiteral("Un panecillo"));
        typeInto(2, price);
        ExpectMessage(QStringLiteral("Numbrela"),
            QStringLiteral("«%1» no es un precio. Escriba un número, por ejemplo 1,25.").arg(price));
        clickLine(2);
        waitForBoxes();
        EXPECT_EQ(selectedLine(), 1);
        EXPECT_EQ(names()[1], "Una barra de pan");
        EXPECT_EQ(boxes(), (std::vector<std::string> { "Panadería", "Un panecillo", price.toStdString() }));
        EXPECT_EQ(form().focusWidget(), form().TbDatos[2]);

        typeInto(1, QStringLiteral("Una barra de pan"));
        typeInto(2, QStringLiteral("1,05"));
        clickLine(2);
        EXPECT_EQ(selectedLine(), 2);
        EXPECT_EQ(lines()[1], "Panadería         Una barra de pan               1,05€");
    }
}

TEST_F(DLGProductosTest, RefusesAPriceOnceHoweverFastTheKeysFollow)
{
    open();
    clickLine(0);
    typeInto(2, QStringLiteral("x"));
    form().List1->setFocus();
    ExpectMessage(
        QStringLiteral("Numbrela"), QStringLiteral("«x» no es un precio. Escriba un número, por ejemplo 1,25."));
    QTest::keyClick(form().List1, Qt::Key_Down);
    QTest::keyClick(form().List1, Qt::Key_Down);
    waitForBoxes();
    QCoreApplication::processEvents();
    EXPECT_EQ(selectedLine(), 0);
    EXPECT_EQ(form().List1->currentIndex().row(), 0);
}

TEST_F(DLGProductosTest, RefusesAPriceBeforeItHeedsTheButtonThatWasPressedMeanwhile)
{
    open();
    clickLine(0);
    for (const CommandButton* button :
        { form().CBAdd, form().CBModif, form().CBElim, form().OKButton, form().CancelButton }) {
        SCOPED_TRACE(button->objectName().toStdString());
        typeInto(2, QStringLiteral("x"));
        ExpectMessage(
            QStringLiteral("Numbrela"), QStringLiteral("«x» no es un precio. Escriba un número, por ejemplo 1,25."));
        clickLine(2);
        Click(form(), button->objectName());
        waitForBoxes();
        EXPECT_TRUE(form().isVisible());
        EXPECT_EQ(names(), (std::vector<std::string> { "Un periódico", "Una barra de pan", "Una trucha" }));
        EXPECT_EQ(selectedLine(), 0);
        EXPECT_EQ(boxes(), (std::vector<std::string> { "Kiosko", "Un periódico", "x" }));
    }
}

// Adding.

TEST_F(DLGProductosTest, AddsAProductAndSelectsItsLine)
{
    open();
    add(QStringLiteral("  Un tebeo "), QStringLiteral("3,4"), QStringLiteral(" Kiosko "));
    EXPECT_EQ(names(), (std::vector<std::string> { "Un periódico", "Un tebeo", "Una barra de pan", "Una trucha" }));
    EXPECT_EQ(selectedLine(), 1);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Kiosko", "Un tebeo", "3,4" }));
    EXPECT_EQ(form().focusWidget(), form().List1);
}

TEST_F(DLGProductosTest, AddsIntoTheEmptyEntry)
{
    open(ProductTable(1));
    add(QStringLiteral("Un tebeo"), QStringLiteral("3,4"), QStringLiteral("Kiosko"));
    EXPECT_EQ(lines(), std::vector<std::string> { "Kiosko            Un tebeo                       3,4€" });
    EXPECT_EQ(selectedLine(), 0);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Kiosko", "Un tebeo", "3,4" }));
}

TEST_F(DLGProductosTest, AddsIntoTheEmptyEntryThatTheBoxesShow)
{
    open(ProductTable(1));
    clickLine(0);
    typeInto(1, QStringLiteral("nada"));
    add(QStringLiteral("Un tebeo"), QStringLiteral("3,4"), QStringLiteral("Kiosko"));
    EXPECT_EQ(names(), std::vector<std::string> { "Un tebeo" });
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Kiosko", "Un tebeo", "3,4" }));
}

TEST_F(DLGProductosTest, WritesTheBoxesBackWhenTheAddedLineIsSelected)
{
    open();
    clickLine(1);
    typeInto(1, QStringLiteral("Zumo"));
    add(QStringLiteral("Un bollo"), QStringLiteral("1"), QStringLiteral("Panaderia"));
    EXPECT_EQ(names(), (std::vector<std::string> { "Un periódico", "Un bollo", "Zumo", "Una trucha" }));
    EXPECT_EQ(selectedLine(), 1);
    clickLine(2);
    EXPECT_EQ(form().TbDatos[1]->Text(), "Zumo");
}

TEST_F(DLGProductosTest, AddsAProductAlsoWhenTheBoxesThatItWouldLeaveAreRefused)
{
    open();
    clickLine(1);
    typeInto(2, QStringLiteral("x"));
    expectAdded(QStringLiteral("Un tebeo"), QStringLiteral("3"), QStringLiteral("Kiosko"));
    ExpectMessage(
        QStringLiteral("Numbrela"), QStringLiteral("«x» no es un precio. Escriba un número, por ejemplo 1,25."));
    Click(form(), QStringLiteral("CBAdd"));
    waitForBoxes();
    EXPECT_EQ(names(), (std::vector<std::string> { "Un periódico", "Un tebeo", "Una barra de pan", "Una trucha" }));
    EXPECT_EQ(selectedLine(), 2);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Panadería", "Una barra de pan", "x" }));
}

TEST_F(DLGProductosTest, AddsNothingWhenAQuestionIsLeftEmptyOrCancelled)
{
    open();
    const auto expectNothingAdded = [this] {
        Click(form(), QStringLiteral("CBAdd"));
        EXPECT_EQ(PendingBoxes(), 0);
        EXPECT_EQ(lines().size(), 3U);
        EXPECT_EQ(selectedLine(), -1);
    };
    ExpectInput(adding, namePrompt, QString());
    expectNothingAdded();
    ExpectInputCancelled(adding, namePrompt, QStringLiteral("Un tebeo"));
    expectNothingAdded();
    ExpectInput(adding, namePrompt, QStringLiteral("Un tebeo"));
    ExpectInputCancelled(adding, pricePrompt, QStringLiteral("3"));
    expectNothingAdded();
    ExpectInput(adding, namePrompt, QStringLiteral("Un tebeo"));
    ExpectInput(adding, pricePrompt, QStringLiteral("3"));
    ExpectInput(adding, shopPrompt, QString());
    expectNothingAdded();
    ExpectInput(adding, namePrompt, QStringLiteral("Un tebeo"));
    ExpectInput(adding, pricePrompt, QStringLiteral("3"));
    ExpectInputCancelled(adding, shopPrompt, QStringLiteral("Kiosko"));
    expectNothingAdded();
}

TEST_F(DLGProductosTest, TakesBlanksForAnAnswerThatIsNotEmpty)
{
    open();
    add(QStringLiteral(" "), QStringLiteral("3"), QStringLiteral(" "));
    EXPECT_EQ(lines().size(), 4U);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "", "", "3" }));
}

TEST_F(DLGProductosTest, AddsNothingForAPriceThatIsNotANumberAboveZero)
{
    open();
    for (const QString& price : { QString(), QStringLiteral("caro"), QStringLiteral("0"), QStringLiteral("-1"),
             QStringLiteral("1,2,3"), QStringLiteral("2 euros"), QStringLiteral("1e39"), QStringLiteral("1e400") }) {
        SCOPED_TRACE(price.toStdString());
        ExpectInput(adding, namePrompt, QStringLiteral("Un tebeo"));
        ExpectInput(adding, pricePrompt, price);
        Click(form(), QStringLiteral("CBAdd"));
        EXPECT_EQ(lines().size(), 3U);
    }
}

TEST_F(DLGProductosTest, SaysThatAFullCatalogueIsFull)
{
    open(ProductTable(MostProducts, bread));
    expectAdded(QStringLiteral("Un tebeo"), QStringLiteral("3"), QStringLiteral("Kiosko"));
    ExpectMessage(
        QStringLiteral("Numbrela"), QStringLiteral("El catálogo está lleno: no caben más de 32767 productos."));
    Click(form(), QStringLiteral("CBAdd"));
    EXPECT_EQ(form().List1->model()->rowCount(), 32767);
}

// Changing.

TEST_F(DLGProductosTest, ChangesTheSelectedProductAndSelectsItWhereItNowStands)
{
    open();
    clickLine(1);
    change({ "Panadería", "Una barra de pan", "0,85" }, QStringLiteral("Supermercado"), QStringLiteral("Pan de molde"),
        QStringLiteral("2.15"));
    EXPECT_EQ(lines(),
        (std::vector<std::string> {
            "Kiosko            Un periódico                   2€",
            "Pescadería        Una trucha                     3,45€",
            "Supermercado      Pan de molde                   2,15€",
        }));
    EXPECT_EQ(selectedLine(), 2);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Supermercado", "Pan de molde", "2,15" }));
    EXPECT_EQ(form().focusWidget(), form().CBModif);

    Click(form(), QStringLiteral("CBElim"));
    EXPECT_EQ(names(), (std::vector<std::string> { "Un periódico", "Una trucha" }));
}

TEST_F(DLGProductosTest, ChangesTheSameProductAgain)
{
    open();
    clickLine(0);
    change({ "Kiosko", "Un periódico", "2" }, QStringLiteral("Zapatería"), QString(), QString());
    change({ "Zapatería", "Un periódico", "2" }, QString(), QStringLiteral("Unas botas"), QString());
    EXPECT_EQ(names(), (std::vector<std::string> { "Una barra de pan", "Una trucha", "Unas botas" }));
    EXPECT_EQ(selectedLine(), 2);
}

TEST_F(DLGProductosTest, DoesNotUndoAChangeWhenTheNextLineIsSelected)
{
    open();
    clickLine(0);
    change({ "Kiosko", "Un periódico", "2" }, QStringLiteral("Zapatería"), QString(), QString());
    clickLine(0);
    EXPECT_EQ(lines(),
        (std::vector<std::string> {
            "Panadería         Una barra de pan               0,85€",
            "Pescadería        Una trucha                     3,45€",
            "Zapatería         Un periódico                   2€",
        }));
    clickLine(2);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Zapatería", "Un periódico", "2" }));
}

TEST_F(DLGProductosTest, WritesBoxesBackThatWereTypedIntoAfterAChange)
{
    open();
    clickLine(0);
    change({ "Kiosko", "Un periódico", "2" }, QStringLiteral("Zapatería"), QString(), QString());
    typeInto(1, QStringLiteral("Unas botas"));
    clickLine(1);
    EXPECT_EQ(names(), (std::vector<std::string> { "Una barra de pan", "Una trucha", "Unas botas" }));
}

TEST_F(DLGProductosTest, ChangesTheProductAsItIsWhateverIsTypedInTheBoxes)
{
    open();
    clickLine(0);
    typeProduct(QStringLiteral("Papeleria"), QStringLiteral("Un tebeo"), QStringLiteral("3"));
    change({ "Kiosko", "Un periódico", "2" }, QString(), QString(), QStringLiteral("4"));
    EXPECT_EQ(lines().front(), "Kiosko            Un periódico                   4€");
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Kiosko", "Un periódico", "4" }));
}

TEST_F(DLGProductosTest, ChangesNothingOnTheScreenWhenNothingIsChanged)
{
    ProductTable table;
    for (int i = 0; i < 100; ++i) {
        const std::string name = "Producto " + std::to_string(100 + i);
        table.push_back(ProductOf(name, "Kiosko", 2));
    }
    open(table);
    clickLine(3);
    typeInto(1, QStringLiteral("Un tebeo"));
    form().List1->verticalScrollBar()->setValue(20);
    const ProductTexts present { "Kiosko", "Producto 103", "2" };
    const auto expectNothingChanged = [this] {
        EXPECT_EQ(selectedLine(), 3);
        EXPECT_EQ(boxes(), (std::vector<std::string> { "Kiosko", "Un tebeo", "2" }));
        EXPECT_EQ(form().List1->verticalScrollBar()->value(), 20);
    };
    change(present, QString(), QString(), QString());
    expectNothingChanged();
    change(present, QStringLiteral("Kiosko"), QStringLiteral(" Producto 103 "), QStringLiteral("2.0"));
    expectNothingChanged();
    ExpectInputCancelled(changing, QStringLiteral("Tienda:"), QStringLiteral("x"));
    ExpectInputCancelled(changing, QStringLiteral("Nombre:"), QStringLiteral("y"));
    ExpectInputCancelled(changing, QStringLiteral("Precio:"), QStringLiteral("9"));
    Click(form(), QStringLiteral("CBModif"));
    expectNothingChanged();

    form().List1->scrollToTop();
    clickLine(4);
    EXPECT_EQ(names()[3], "Un tebeo") << "what was typed has been taken over";
}

TEST_F(DLGProductosTest, ChangesAPriceThatIsAcceptedAsItIsShownToItsWholeEuros)
{
    open({ ProductOf("Un tebeo", "Kiosko", 1.25F) });
    clickLine(0);
    change(
        { "Kiosko", "Un tebeo", "1,25" }, QStringLiteral("Kiosko"), QStringLiteral("Un tebeo"), QStringLiteral("1,25"));
    EXPECT_EQ(lines(), std::vector<std::string> { "Kiosko            Un tebeo                       1€" });
}

TEST_F(DLGProductosTest, LeavesWhatIsAnsweredEmptyOrCancelled)
{
    open();
    clickLine(0);
    ExpectInputCancelled(changing, QStringLiteral("Tienda:"), QStringLiteral("Panadería"));
    ExpectInput(changing, QStringLiteral("Nombre:"), QString(), QStringLiteral("Un periódico"));
    ExpectInputCancelled(changing, QStringLiteral("Precio:"), QStringLiteral("9"));
    Click(form(), QStringLiteral("CBModif"));
    EXPECT_EQ(lines().front(), "Kiosko            Un periódico                   2€");
}

TEST_F(DLGProductosTest, ChangesNothingAndAsksNothingWithoutASelectedLine)
{
    open();
    Click(form(), QStringLiteral("CBModif"));
    EXPECT_EQ(lines().size(), 3U);
}

TEST_F(DLGProductosTest, SaysThatAPriceIsTooLargeAndChangesNothing)
{
    open();
    clickLine(0);
    ExpectInput(changing, QStringLiteral("Tienda:"), QStringLiteral("x"), QStringLiteral("Kiosko"));
    ExpectInput(changing, QStringLiteral("Nombre:"), QStringLiteral("y"), QStringLiteral("Un periódico"));
    ExpectInput(changing, QStringLiteral("Precio:"), QStringLiteral("1e39"), QStringLiteral("2"));
    ExpectMessage(QStringLiteral("Numbrela"), QStringLiteral("El precio «1e39» es demasiado grande."));
    Click(form(), QStringLiteral("CBModif"));
    EXPECT_EQ(lines().front(), "Kiosko            Un periódico                   2€");
    EXPECT_EQ(selectedLine(), 0);
}

// Deleting.

TEST_F(DLGProductosTest, DeletesALineAndSelectsTheOneAbove)
{
    struct Row {
        int Deleted;
        std::vector<std::string> Left;
        int Selected;
        const char* Shown;
    };
    for (const Row& row : std::vector<Row> {
             { 0, { "Una barra de pan", "Una trucha" }, 0, "Una barra de pan" },
             { 1, { "Un periódico", "Una trucha" }, 0, "Un periódico" },
             { 2, { "Un periódico", "Una barra de pan" }, 1, "Una barra de pan" },
         }) {
        SCOPED_TRACE(row.Deleted);
        open();
        clickLine(row.Deleted);
        Click(form(), QStringLiteral("CBElim"));
        EXPECT_EQ(names(), row.Left);
        EXPECT_EQ(selectedLine(), row.Selected);
        EXPECT_EQ(form().TbDatos[1]->Text(), row.Shown);
    }
}

TEST_F(DLGProductosTest, ForgetsWhatWasTypedWhenItDeletes)
{
    open();
    clickLine(0);
    typeInto(1, QStringLiteral("Un tebeo"));
    typeInto(2, QStringLiteral("x"));
    Click(form(), QStringLiteral("CBElim"));
    EXPECT_EQ(names(), (std::vector<std::string> { "Una barra de pan", "Una trucha" }));
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Panadería", "Una barra de pan", "0,85" }));

    open({ newspaper });
    clickLine(0);
    typeInto(1, QStringLiteral("Un tebeo"));
    Click(form(), QStringLiteral("CBElim"));
    EXPECT_EQ(names(), std::vector<std::string> { "Un periódico" });
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Kiosko", "Un periódico", "0" }));
}

TEST_F(DLGProductosTest, DeletesOneLineAfterTheOther)
{
    open();
    clickLine(2);
    Click(form(), QStringLiteral("CBElim"));
    Click(form(), QStringLiteral("CBElim"));
    Click(form(), QStringLiteral("CBElim"));
    EXPECT_EQ(lines(), std::vector<std::string> { "Kiosko            Un periódico                   0€" });
    Click(form(), QStringLiteral("CBElim"));
    EXPECT_EQ(lines(), std::vector<std::string> { "Kiosko            Un periódico                   0€" });
    EXPECT_EQ(boxes(), (std::vector<std::string> { "Kiosko", "Un periódico", "0" }));
}

TEST_F(DLGProductosTest, DeletesNothingAndBeepsWithoutASelectedLine)
{
    open();
    const int beepsBefore = Beeps();
    Click(form(), QStringLiteral("CBElim"));
    EXPECT_EQ(Beeps(), beepsBefore + 1);
    EXPECT_EQ(lines().size(), 3U);
    EXPECT_EQ(boxes(), (std::vector<std::string> { "", "", "" }));

    Click(form(), QStringLiteral("CBModif"));
    EXPECT_EQ(Beeps(), beepsBefore + 1) << "only deleting beeps";
}

// A catalogue that is longer than the window.

TEST_F(DLGProductosTest, ScrollsToTheLineThatItSelects)
{
    ProductTable table;
    for (int i = 0; i < 300; ++i) {
        const std::string name = "Producto " + std::to_string(1000 + i);
        table.push_back(ProductOf(name, "Kiosko"));
    }
    open(table);
    const auto isSeen = [this](int line) {
        const QRect place = form().List1->visualRect(form().List1->model()->index(line, 0));
        return form().List1->viewport()->rect().contains(place.center());
    };
    EXPECT_FALSE(isSeen(250));
    add(QStringLiteral("Producto 1250b"), QStringLiteral("1"), QStringLiteral("Kiosko"));
    EXPECT_TRUE(isSeen(251));
    Click(form(), QStringLiteral("CBElim"));
    EXPECT_EQ(selectedLine(), 250);
    EXPECT_TRUE(isSeen(250));
    change({ "Kiosko", "Producto 1250", "1" }, QStringLiteral("Kiosko"), QStringLiteral("Producto 1100b"), QString());
    EXPECT_TRUE(isSeen(101));
}

// Closing, saving and the way back to the shopping window.

class HandoverTest : public DLGProductosTest {
protected:
    HandoverTest()
    {
        for (int i = 0; i < 20; ++i) {
            const std::string name = "Producto " + std::to_string(10 + i);
            twentyProducts_.push_back(ProductOf(name, "Kiosko", 1.25F));
        }
        SaveCatalogue(path_, twentyProducts_);
        saved_ = ReadBytes(path_);
    }

    ~HandoverTest() override
    {
        while (!openWindows().empty()) {
            delete openWindows().front();
        }
    }

    static std::vector<QWidget*> openWindows()
    {
        std::vector<QWidget*> windows;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible()) {
                windows.push_back(window);
            }
        }
        return windows;
    }

    static void deleteClosedWindows()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    // The one window that is open; null, and the test has failed, when it is another one or none or many.
    static QWidget* onlyWindow(const char* name)
    {
        const std::vector<QWidget*> windows = openWindows();
        if (windows.size() != 1 || windows.front()->objectName().toStdString() != name) {
            ADD_FAILURE() << "not open, or not alone: " << name;
            return nullptr;
        }
        return windows.front();
    }

    static void expectQuestion(const QString& answer)
    {
        ExpectMessage(QStringLiteral("Numbrela"),
            QStringLiteral(
                "El catálogo ha cambiado en el disco mientras lo modificaba. ¿Desea sustituirlo por el suyo?"),
            { QStringLiteral("Sí"), QStringLiteral("No") }, answer);
    }

    DLGProductos& openEditor()
    {
        ShowEditor(before_, clock_, shop_);
        auto* editor = dynamic_cast<DLGProductos*>(onlyWindow("DLGProductos"));
        if (editor == nullptr) {
            throw std::logic_error("the editor is not open");
        }
        ShowAndActivate(*editor);
        return *editor;
    }

    static void select(const DLGProductos& editor, int line)
    {
        const QModelIndex index = editor.List1->model()->index(line, 0);
        QTest::mouseClick(editor.List1->viewport(), Qt::LeftButton, {}, editor.List1->visualRect(index).center());
    }

    void expectShopping(bool modal)
    {
        QWidget* shopping = onlyWindow("Form7");
        ASSERT_NE(shopping, nullptr);
        EXPECT_EQ(shopping->isModal(), modal);
        EXPECT_TRUE(shopping->testAttribute(Qt::WA_DeleteOnClose));
        shopping->close();
        deleteClosedWindows();
    }

    QWidget before_; // the window whose place is taken
    ProductTable twentyProducts_;
    std::string saved_;
};

TEST_F(HandoverTest, OpensModally)
{
    const DLGProductos& editor = openEditor();
    EXPECT_TRUE(editor.isModal());
    EXPECT_EQ(editor.List1->model()->rowCount(), 20);
}

TEST_F(HandoverTest, SavesOnAceptarAndShowsTheShoppingWindowModally)
{
    const DLGProductos& editor = openEditor();
    select(editor, 3);
    Click(editor, QStringLiteral("CBElim"));
    EXPECT_EQ(ReadBytes(path_), saved_);
    Click(editor, QStringLiteral("OKButton"));
    expectShopping(true);

    twentyProducts_.erase(twentyProducts_.begin() + 3);
    EXPECT_EQ(LoadCatalogue(path_), twentyProducts_);
    EXPECT_EQ(ReadBytes(path_).size(), 19U * 154);
}

TEST_F(HandoverTest, DoesNotTakeOverOnAceptarWhatIsInTheBoxesAlone)
{
    const DLGProductos& editor = openEditor();
    select(editor, 0);
    Click(editor, QStringLiteral("TbDatos(1)"));
    Type(QStringLiteral(" nuevo"));
    EXPECT_EQ(editor.TbDatos[1]->Text(), "Producto 10 nuevo");
    Click(editor, QStringLiteral("OKButton"));
    expectShopping(true);
    EXPECT_EQ(ReadBytes(path_), saved_);
}

TEST_F(HandoverTest, AcceptsAlsoWhenThePriceInTheBoxIsNoNumber)
{
    const DLGProductos& editor = openEditor();
    select(editor, 0);
    Click(editor, QStringLiteral("TbDatos(2)"));
    Type(QStringLiteral("x"));
    Click(editor, QStringLiteral("OKButton"));
    expectShopping(true);
    EXPECT_EQ(ReadBytes(path_), saved_);
}

TEST_F(HandoverTest, ChangesNothingOnCancelarAndShowsTheShoppingWindowNotModally)
{
    const DLGProductos& editor = openEditor();
    select(editor, 3);
    Click(editor, QStringLiteral("CBElim"));
    Click(editor, QStringLiteral("CancelButton"));
    expectShopping(false);
    EXPECT_EQ(ReadBytes(path_), saved_);
}

TEST_F(HandoverTest, DoesAsCancelarWhenItsCloseBoxIsPressed)
{
    DLGProductos& editor = openEditor();
    select(editor, 3);
    Click(editor, QStringLiteral("CBElim"));
    editor.close();
    expectShopping(false);
    EXPECT_EQ(ReadBytes(path_), saved_);
}

// As a teacher does it: out of the shopping window, a product more, and into the shop that sells it.
TEST_F(HandoverTest, ShopsWithTheNewCatalogueAtOnce)
{
    ShowShopping(before_, clock_, shop_, true);
    QWidget* shopping = onlyWindow("Form7");
    ASSERT_NE(shopping, nullptr);
    ShowAndActivate(*shopping);
    Press(Qt::Key_F3);
    deleteClosedWindows();
    auto* editor = dynamic_cast<DLGProductos*>(onlyWindow("DLGProductos"));
    ASSERT_NE(editor, nullptr);
    ShowAndActivate(*editor);
    expectAdded(QStringLiteral("Una barra de pan"), QStringLiteral("0,85"), QStringLiteral("Panadería"));
    Click(*editor, QStringLiteral("CBAdd"));
    Click(*editor, QStringLiteral("OKButton"));
    deleteClosedWindows();

    shopping = onlyWindow("Form7");
    ASSERT_NE(shopping, nullptr);
    ShowAndActivate(*shopping);
    Click(*shopping, QStringLiteral("CBTienda(5)"));
    const auto& shelf = Find<QListView>(*shopping, QStringLiteral("LIDisponibles"));
    ASSERT_EQ(shelf.model()->rowCount(), 1);
    EXPECT_EQ(shelf.model()->index(0, 0).data().toString(), QStringLiteral("Una barra de pan"));
}

TEST_F(HandoverTest, OpensTheShoppingWindowInsteadWhenTheCatalogueCannotBeRead)
{
    std::filesystem::remove(path_);
    std::filesystem::create_directory(path_);
    ExpectDialog([this](QDialog& box) {
        EXPECT_NE(dynamic_cast<QMessageBox&>(box).text().toStdString().find(
                      "No se puede leer el archivo «" + path_.string() + "»: es una carpeta."),
            std::string::npos);
        box.accept();
    });
    ShowEditor(before_, clock_, shop_);
    waitForBoxes();
    EXPECT_NE(onlyWindow("Form7"), nullptr);
}

TEST_F(HandoverTest, NamesFileAndReasonOfASaveThatFailsAndCanBeAcceptedOnceTheCauseIsGone)
{
    const DLGProductos& editor = openEditor();
    select(editor, 3);
    Click(editor, QStringLiteral("CBElim"));

    std::filesystem::permissions(path_, std::filesystem::perms(0444));
    ExpectMessage(QStringLiteral("Numbrela"),
        QStringLiteral("No se puede escribir el archivo «%1»: el archivo es de solo lectura.")
            .arg(QString::fromStdString(path_.string())));
    Click(editor, QStringLiteral("OKButton"));
    ASSERT_EQ(onlyWindow("DLGProductos"), &editor);
    EXPECT_EQ(editor.List1->model()->rowCount(), 19);
    EXPECT_EQ(ReadBytes(path_), saved_);

    std::filesystem::permissions(path_, std::filesystem::perms(0644));
    Click(editor, QStringLiteral("OKButton"));
    expectShopping(true);
    EXPECT_EQ(ReadBytes(path_).size(), 19U * 154);
}

TEST_F(HandoverTest, AsksBeforeItReplacesWhatSomebodyElseHasSavedMeanwhile)
{
    const DLGProductos& editor = openEditor();
    select(editor, 3);
    Click(editor, QStringLiteral("CBElim"));
    SaveCatalogue(path_, threeProducts);
    const std::string others = ReadBytes(path_);

    for (int time = 0; time < 2; ++time) {
        expectQuestion(QStringLiteral("No"));
        Click(editor, QStringLiteral("OKButton"));
        ASSERT_EQ(onlyWindow("DLGProductos"), &editor);
        EXPECT_EQ(editor.List1->model()->rowCount(), 19);
        EXPECT_EQ(ReadBytes(path_), others);
    }

    expectQuestion(QStringLiteral("Sí"));
    Click(editor, QStringLiteral("OKButton"));
    expectShopping(true);
    EXPECT_EQ(ReadBytes(path_).size(), 19U * 154);
}

TEST_F(HandoverTest, AsksAgainWhenSomebodyElseSavesDuringTheQuestion)
{
    const DLGProductos& editor = openEditor();
    SaveCatalogue(path_, threeProducts);
    ExpectDialog([this](QDialog& box) {
        SaveCatalogue(path_, { bread });
        QTest::keyClick(&box, Qt::Key_Return);
    });
    expectQuestion(QStringLiteral("No"));
    Click(editor, QStringLiteral("OKButton"));
    EXPECT_EQ(LoadCatalogue(path_), ProductTable { bread });
    ASSERT_EQ(onlyWindow("DLGProductos"), &editor);
}

TEST_F(HandoverTest, AsksWhenTheCatalogueHasVanished)
{
    const DLGProductos& editor = openEditor();
    std::filesystem::remove(path_);
    expectQuestion(QStringLiteral("No"));
    Click(editor, QStringLiteral("OKButton"));
    EXPECT_TRUE(folder_.Names().empty());
    expectQuestion(QStringLiteral("Sí"));
    Click(editor, QStringLiteral("OKButton"));
    expectShopping(true);
    EXPECT_EQ(ReadBytes(path_), saved_);
}

TEST_F(HandoverTest, AsksNothingWhenTheCatalogueIsTheSameThoughItWasWrittenAnew)
{
    const DLGProductos& editor = openEditor();
    SaveCatalogue(path_, threeProducts);
    SaveCatalogue(path_, twentyProducts_);
    std::filesystem::last_write_time(path_, std::filesystem::file_time_type::min());
    select(editor, 3);
    Click(editor, QStringLiteral("CBElim"));
    Click(editor, QStringLiteral("OKButton"));
    expectShopping(true);
    EXPECT_EQ(ReadBytes(path_).size(), 19U * 154);
}

// As large as the window whose place it takes.

class LargeHandoverTest : public HandoverTest, public ::testing::WithParamInterface<Qt::WindowState> {
protected:
    static Qt::WindowStates stateOf(const char* name)
    {
        const QWidget* const window = onlyWindow(name);
        return window != nullptr ? window->windowState() & ~Qt::WindowActive : Qt::WindowMinimized;
    }
};

TEST_P(LargeHandoverTest, OpensAsLargeAsTheWindowWhosePlaceItTakes)
{
    before_.setWindowState(GetParam());
    ShowShopping(before_, clock_, shop_, true);
    EXPECT_EQ(stateOf("Form7"), GetParam());
    ShowAndActivate(*onlyWindow("Form7"));
    for (const char* leave : { "CancelButton", "OKButton" }) {
        SCOPED_TRACE(leave);
        Press(Qt::Key_F3);
        deleteClosedWindows();
        EXPECT_EQ(stateOf("DLGProductos"), GetParam());
        Click(*onlyWindow("DLGProductos"), QString::fromLatin1(leave));
        deleteClosedWindows();
        EXPECT_EQ(stateOf("Form7"), GetParam());
        ShowAndActivate(*onlyWindow("Form7"));
    }
}

INSTANTIATE_TEST_SUITE_P(
    States, LargeHandoverTest, ::testing::Values(Qt::WindowNoState, Qt::WindowMaximized, Qt::WindowFullScreen));

TEST_F(HandoverTest, CanBeCancelledAfterASaveThatFailed)
{
    DLGProductos& editor = openEditor();
    const std::filesystem::path missing = folder_ / "Recursos" / "productos.dat";
    editor.Ruta = missing;
    ExpectMessage(QStringLiteral("Numbrela"),
        QStringLiteral("No se puede escribir el archivo «%1»: la carpeta no existe.")
            .arg(QString::fromStdString(missing.string())));
    Click(editor, QStringLiteral("OKButton"));
    editor.Ruta = path_;
    Click(editor, QStringLiteral("CancelButton"));
    expectShopping(false);
}

TEST_F(HandoverTest, DoesNotOpenForACatalogueWithTooManyProducts)
{
    std::string content;
    for (int i = 0; i <= MostProducts; ++i) {
        content += saved_.substr(0, 154);
    }
    WriteBytes(path_, content);
    EXPECT_THROW(ShowEditor(before_, clock_, shop_), RunTimeError);
    EXPECT_EQ(ReadBytes(path_), content);
}

TEST_F(HandoverTest, LeavesNothingBehindHoweverOftenItIsOpenedAndClosed)
{
    openEditor();
    Click(*onlyWindow("DLGProductos"), QStringLiteral("CancelButton"));
    expectShopping(false);
    const auto windowsBefore = QApplication::topLevelWidgets().size();
    for (int round = 0; round < 50; ++round) {
        const QPointer<DLGProductos> editor = &openEditor();
        select(*editor, 0);
        Click(*editor, round % 2 == 0 ? QStringLiteral("OKButton") : QStringLiteral("CancelButton"));
        expectShopping(round % 2 == 0);
        EXPECT_TRUE(editor.isNull());
    }
    EXPECT_EQ(QApplication::topLevelWidgets().size(), windowsBefore);
    EXPECT_EQ(ReadBytes(path_), saved_);
}

} // namespace

} // namespace numbrela
