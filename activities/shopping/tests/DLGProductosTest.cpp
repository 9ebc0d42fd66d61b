#include "activities/shopping/screen/DLGProductos.h"

#include "activities/shopping/screen/Beep.h"
#include "activities/shopping/screen/Handover.h"
#include "activities/shopping/tests/ShopWalk.h"
#include "activities/shopping/tests/StillClocks.h"
#include "activities/shopping/tests/TemporaryFolder.h"
#include "activities/shopping/tests/TestTables.h"
#include "common/core/RunTimeError.h"
#include "common/screen/TextBox.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FormTable.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QScrollBar>

#include <memory>
#include <tuple>

namespace numbrela {

namespace {

using namespace testing;
using Lines = std::vector<std::string>;

// In the order of the list: newspaper, bread, fish.
const Product newspaper = ProductOf("Un periódico", "Kiosko", 2);
const Product bread = ProductOf("Una barra de pan", "Panadería", 0.85F);
const Product fish = ProductOf("Una trucha", "Pescadería", 3.45F);
const ProductTable threeProducts { fish, newspaper, bread };
const std::string newspaperLine = "Kiosko            Un periódico                   2€";
const std::string breadLine = "Panadería         Una barra de pan               0,85€";
const std::string fishLine = "Pescadería        Una trucha                     3,45€";
const Lines threeLines { newspaperLine, breadLine, fishLine };

const Lines newspaperBoxes { "Kiosko", "Un periódico", "2" };
const Lines breadBoxes { "Panadería", "Una barra de pan", "0,85" };
const Lines fishBoxes { "Pescadería", "Una trucha", "3,45" };
const Lines emptyBoxes { "", "", "" };

// "Producto 1000", "Producto 1001", …
ProductTable longTable(int count)
{
    ProductTable table;
    for (int i = 0; i < count; ++i) {
        table.push_back(ProductOf("Producto " + std::to_string(1000 + i), "Kiosko", 2));
    }
    return table;
}

Lines boxesOf(const DLGProductos& form)
{
    return { form.TbDatos[0]->Text(), form.TbDatos[1]->Text(), form.TbDatos[2]->Text() };
}

// Types a text in place of what is in one of the edit boxes.
void typeInto(const DLGProductos& form, std::size_t box, const char* text)
{
    Click(form, form.TbDatos[box]->objectName());
    form.TbDatos[box]->SelectWholeText();
    Press(Qt::Key_Delete);
    Type(QString::fromUtf8(text));
}

void expectRefusal(const char* price)
{
    ExpectMessage(QStringLiteral("Numbrela"),
        QStringLiteral("«%1» no es un precio. Escriba un número, por ejemplo 1,25.").arg(QString::fromUtf8(price)));
}

class DLGProductosTest : public ::testing::Test {
protected:
    // The window on its own, which hands over to nothing when the test ends.
    DLGProductos& open(const ProductTable& table = threeProducts)
    {
        SaveCatalogue(path_, table);
        form_ = std::make_unique<DLGProductos>(clock_, shop_);
        ShowAndActivate(*form_);
        return *form_;
    }

    void expectShown(std::optional<int> line, const Lines& boxes) const
    {
        EXPECT_EQ(form_->List1->SelectedLine(), line);
        EXPECT_EQ(boxesOf(*form_), boxes);
    }

    void add(const char* name, const char* price, const char* shop) const
    {
        ExpectNewProduct({ name, price, shop });
        Click(*form_, QStringLiteral("CBAdd"));
    }

    // The three questions of "Modificar", whose default texts are the present values.
    static void expectQuestions(const Lines& present, const Lines& answers)
    {
        const std::array<QString, 3> prompts { QStringLiteral("Tienda:"), QStringLiteral("Nombre:"),
            QStringLiteral("Precio:") };
        for (std::size_t i = 0; i < prompts.size(); ++i) {
            ExpectInput(QStringLiteral("Modificar producto"), prompts[i], QString::fromStdString(answers[i]),
                QString::fromStdString(present[i]));
        }
    }

    void change(const Lines& present, const Lines& answers) const
    {
        expectQuestions(present, answers);
        Click(*form_, QStringLiteral("CBModif"));
    }

    // Runs what the window has deferred until the end of the click.
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

TEST_F(DLGProductosTest, ConsistsOfAListOfTheCatalogueThreeEmptyBoxesAndFiveButtons)
{
    const DLGProductos& form = open();
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Productos"));
    const FontSpec font { "Verdana", 11 };
    const auto label = [&](const char* name, const char* text, TwipsRect place) {
        return ControlRow { .Name = name, .Text = text, .Place = place, .Font = font, .TabStop = false };
    };
    const auto box = [&](const char* name, TwipsRect place, Qt::Alignment side) {
        return ControlRow {
            .Name = name, .Text = "", .Place = place, .Font = font, .Alignment = side | Qt::AlignVCenter
        };
    };
    const auto button = [&](const char* name, const char* text, int left) {
        return ControlRow { .Name = name, .Text = text, .Place = { left, 7530, 1650, 600 }, .Font = font };
    };
    ExpectControls(form,
        {
            label("Label1", "&Productos", { 500, 300, 9500, 350 }),
            { .Name = "List1",
                .Text = "",
                .Place = { 500, 700, 9500, 5280 },
                .Font = { "Courier New", 12 },
                .AccessibleName = "Productos" },
            label("LBDatos(0)", "&Tienda", { 500, 6180, 2700, 350 }),
            label("LBDatos(1)", "&Nombre", { 3400, 6180, 4900, 350 }),
            label("LBDatos(2)", "Precio", { 8500, 6180, 1500, 350 }),
            box("TbDatos(0)", { 500, 6530, 2700, 495 }, Qt::AlignLeft),
            box("TbDatos(1)", { 3400, 6530, 4900, 495 }, Qt::AlignLeft),
            box("TbDatos(2)", { 8500, 6530, 1500, 495 }, Qt::AlignRight),
            button("CBAdd", "&Añadir", 500),
            button("CBModif", "&Modificar", 2350),
            button("CBElim", "&Eliminar", 4200),
            button("OKButton", "Aceptar", 6500),
            button("CancelButton", "Cancelar", 8350),
        });
    EXPECT_EQ(FocusName(), "List1");
    EXPECT_EQ(LinesOf(*form.List1), threeLines);
    expectShown(std::nullopt, emptyBoxes);
}

// The list has the focus on its first line, and must not look as if it were selected. Nor must the frame of the focus
// hide an accent: that would be a spelling mistake.
TEST_F(DLGProductosTest, FillsALineThatIsSelectedAndHidesNoneOfItsText)
{
    const DLGProductos& form = open({ ProductOf("Ñandú y plátanos (10 g)", "ÁÉÍÓÚ jgpqç") });
    const auto pictureOfLine = [&form](QWidget* focused) {
        focused->setFocus();
        return form.List1->viewport()->grab(form.List1->visualRect(form.List1->model()->index(0, 0))).toImage();
    };
    for (const auto ground : { QPalette::Base, QPalette::Highlight }) {
        const QRgb colour = form.List1->palette().color(ground).rgb();
        const QImage withFrame = pictureOfLine(form.List1);
        const QImage without = pictureOfLine(form.TbDatos[0]);
        EXPECT_EQ(without.pixel(without.width() / 2, 0), colour); // above all letters
        ASSERT_NE(withFrame, without);
        for (int y = 0; y < without.height(); ++y) {
            for (int x = 0; x < without.width(); ++x) {
                ASSERT_TRUE(withFrame.pixel(x, y) == without.pixel(x, y) || without.pixel(x, y) == colour);
            }
        }
        ClickLine(*form.List1, 0);
    }
}

TEST_F(DLGProductosTest, TakesAsManyTypedCharactersAsTheFileHasRoomForAndShowsTheBeginningOfALongName)
{
    const DLGProductos& form = open({ ProductOf(std::string(100, 'n'), "Kiosko") });
    ClickLine(*form.List1, 0);
    EXPECT_EQ(form.TbDatos[1]->CaretPosition(), 0);
    typeInto(form, 0, std::string(60, 's').c_str());
    typeInto(form, 1, std::string(110, 'm').c_str());
    EXPECT_EQ(boxesOf(form), (Lines { std::string(50, 's'), std::string(100, 'm'), "1" }));
}

TEST_F(DLGProductosTest, ReachesItsBoxesByAccessKeysAndStaysOpenWhateverIsPressedInThem)
{
    const DLGProductos& form = open();
    for (const auto& [key, name] : { std::pair(Qt::Key_T, "TbDatos(0)"), { Qt::Key_N, "TbDatos(1)" },
             { Qt::Key_Tab, "TbDatos(2)" }, { Qt::Key_P, "List1" } }) {
        Press(key, key == Qt::Key_Tab ? Qt::NoModifier : Qt::AltModifier);
        EXPECT_EQ(FocusName(), name);
        Press(Qt::Key_Return);
        Press(Qt::Key_Escape);
        EXPECT_TRUE(form.isVisible());
    }
}

TEST_F(DLGProductosTest, ShowsTheProductOfTheLineThatIsClickedOrReachedByAKey)
{
    const DLGProductos& form = open();
    Press(Qt::Key_Down);
    expectShown(0, newspaperBoxes); // and not the second line
    ClickLine(*form.List1, 1);
    expectShown(1, breadBoxes);
    Press(Qt::Key_Down);
    expectShown(2, fishBoxes);
    Press(Qt::Key_Up);
    expectShown(1, breadBoxes);
}

TEST_F(DLGProductosTest, WritesTheBoxesBackWhenAnotherLineIsClickedAndDoesNotSortAnew)
{
    const DLGProductos& form = open();
    ClickLine(*form.List1, 0);
    typeInto(form, 0, "Zapateria");
    typeInto(form, 1, "  Unas botas ");
    typeInto(form, 2, "59,9");
    ClickLine(*form.List1, 0); // the same line again
    EXPECT_EQ(LinesOf(*form.List1), threeLines);
    expectShown(0, { "Zapateria", "  Unas botas ", "59,9" });
    const std::string boots = "Zapateria         Unas botas                     59,9€";
    ClickLine(*form.List1, 2);
    EXPECT_EQ(LinesOf(*form.List1), (Lines { boots, breadLine, fishLine }));
    expectShown(2, fishBoxes);
    ClickLine(*form.List1, 0);
    expectShown(0, { "Zapateria", "Unas botas", "59,9" });

    add("Un tebeo", "3", "Kiosko");
    EXPECT_EQ(LinesOf(*form.List1),
        (Lines { "Kiosko            Un tebeo                       3€", breadLine, fishLine, boots }));
}

TEST_F(DLGProductosTest, RefusesAPriceThatIsNoNumberAndKeepsLineAndTexts)
{
    const DLGProductos& form = open();
    for (const char* price : { "gratis", "", "1,2,3", "1e39" }) {
        SCOPED_TRACE(price);
        ClickLine(*form.List1, 1);
        typeInto(form, 1, "Un panecillo");
        typeInto(form, 2, price);
        expectRefusal(price);
        ClickLine(*form.List1, 2);
        waitForBoxes();
        EXPECT_EQ(LinesOf(*form.List1)[1].find("Un panecillo"), std::string::npos);
        expectShown(1, { "Panadería", "Un panecillo", price });
        EXPECT_EQ(form.focusWidget(), form.TbDatos[2]);

        typeInto(form, 1, "Una barra de pan");
        typeInto(form, 2, "1,05");
        ClickLine(*form.List1, 2);
        expectShown(2, fishBoxes);
        EXPECT_EQ(LinesOf(*form.List1)[1], "Panadería         Una barra de pan               1,05€");
    }
}

TEST_F(DLGProductosTest, RefusesAPriceOnceHoweverFastTheKeysFollowAndBeforeAButtonThatWasPressedMeanwhile)
{
    const DLGProductos& form = open();
    ClickLine(*form.List1, 0);
    for (const char* button : { "", "CBAdd", "CBModif", "CBElim", "OKButton", "CancelButton" }) {
        SCOPED_TRACE(button);
        typeInto(form, 2, "x");
        expectRefusal("x");
        if (*button == '\0') {
            form.List1->setFocus();
            QTest::keyClick(form.List1, Qt::Key_Down);
            QTest::keyClick(form.List1, Qt::Key_Down);
        } else {
            ClickLine(*form.List1, 2);
            Click(form, QString::fromLatin1(button));
        }
        waitForBoxes();
        QCoreApplication::processEvents();
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(LinesOf(*form.List1), threeLines);
        expectShown(0, { "Kiosko", "Un periódico", "x" });
        EXPECT_EQ(form.List1->currentIndex().row(), 0);
    }
}

TEST_F(DLGProductosTest, AddsAProductSelectsItsLineAndTakesTheBoxesOver)
{
    const DLGProductos& form = open();
    add("  Un tebeo ", "3,4", " Kiosko ");
    const std::string comic = "Kiosko            Un tebeo                       3,4€";
    EXPECT_EQ(LinesOf(*form.List1), (Lines { newspaperLine, comic, breadLine, fishLine }));
    expectShown(1, { "Kiosko", "Un tebeo", "3,4" });
    EXPECT_EQ(form.focusWidget(), form.List1);

    typeInto(form, 1, "Zumo");
    add(" ", "3", " "); // blanks are an answer
    EXPECT_EQ(LinesOf(*form.List1).front(), std::string(49, ' ') + "3€");
    EXPECT_EQ(LinesOf(*form.List1)[2], "Kiosko            Zumo                           3,4€");
    expectShown(0, { "", "", "3" });
}

TEST_F(DLGProductosTest, AddsIntoTheEmptyEntryAlsoWhenTheBoxesShowIt)
{
    for (const bool isShown : { false, true }) {
        const DLGProductos& form = open(ProductTable(1));
        EXPECT_EQ(LinesOf(*form.List1), Lines { std::string(49, ' ') + "0€" });
        if (isShown) {
            ClickLine(*form.List1, 0);
            expectShown(0, { "", "", "0" });
            typeInto(form, 1, "nada");
        }
        add("Un tebeo", "3,4", "Kiosko");
        EXPECT_EQ(LinesOf(*form.List1), Lines { "Kiosko            Un tebeo                       3,4€" });
        expectShown(0, { "Kiosko", "Un tebeo", "3,4" });
    }
}

TEST_F(DLGProductosTest, AddsAProductAlsoWhenTheBoxesThatItWouldLeaveAreRefused)
{
    const DLGProductos& form = open();
    ClickLine(*form.List1, 1);
    typeInto(form, 2, "x");
    ExpectNewProduct({ "Un tebeo", "3", "Kiosko" });
    expectRefusal("x");
    Click(form, QStringLiteral("CBAdd"));
    waitForBoxes();
    EXPECT_EQ(form.List1->LineCount(), 4);
    expectShown(2, { "Panadería", "Una barra de pan", "x" });
}

TEST_F(DLGProductosTest, AddsNothingWhenAnAnswerIsMissingOrNoPriceOrTheCatalogueIsFullAndSaysThat)
{
    const DLGProductos& form = open();
    for (const std::vector<const char*>& answers : IncompleteProducts()) {
        ExpectNewProduct(answers);
        Click(form, QStringLiteral("CBAdd"));
        EXPECT_EQ(PendingBoxes(), 0);
        EXPECT_EQ(LinesOf(*form.List1), threeLines);
        expectShown(std::nullopt, emptyBoxes);
    }
    open(ProductTable(MostProducts, bread));
    ExpectNewProduct({ "Un tebeo", "3", "Kiosko" });
    ExpectMessage(
        QStringLiteral("Numbrela"), QStringLiteral("El catálogo está lleno: no caben más de 32767 productos."));
    Click(*form_, QStringLiteral("CBAdd"));
    EXPECT_EQ(form_->List1->LineCount(), 32767);
}

TEST_F(DLGProductosTest, ChangesTheSelectedProductAndSelectsItWhereItNowStands)
{
    const DLGProductos& form = open();
    ClickLine(*form.List1, 1);
    change(breadBoxes, { "Supermercado", "Pan de molde", "2.15" });
    EXPECT_EQ(LinesOf(*form.List1),
        (Lines { newspaperLine, fishLine, "Supermercado      Pan de molde                   2,15€" }));
    expectShown(2, { "Supermercado", "Pan de molde", "2,15" });
    EXPECT_EQ(form.focusWidget(), form.CBModif);

    change({ "Supermercado", "Pan de molde", "2,15" }, { "", "", "2,15" }); // as its whole euros were shown
    expectShown(2, { "Supermercado", "Pan de molde", "2" });
    Click(form, QStringLiteral("CBElim"));
    EXPECT_EQ(LinesOf(*form.List1), (Lines { newspaperLine, fishLine }));
}

TEST_F(DLGProductosTest, DoesNotUndoAChangeWhenTheNextLineIsSelectedAndWritesLaterTypingBack)
{
    const DLGProductos& form = open();
    ClickLine(*form.List1, 0);
    change(newspaperBoxes, { "Zapatería", "", "" });
    ClickLine(*form.List1, 0);
    const Lines changed { breadLine, fishLine, "Zapatería         Un periódico                   2€" };
    EXPECT_EQ(LinesOf(*form.List1), changed);
    ClickLine(*form.List1, 2);
    expectShown(2, { "Zapatería", "Un periódico", "2" });

    typeInto(form, 1, "Unas botas");
    ClickLine(*form.List1, 1);
    EXPECT_EQ(LinesOf(*form.List1)[2], "Zapatería         Unas botas                     2€");
}

TEST_F(DLGProductosTest, ChangesTheProductAsItIsWhateverIsTypedInTheBoxesUnlessThePriceIsTooLarge)
{
    const DLGProductos& form = open();
    ClickLine(*form.List1, 0);
    expectQuestions(newspaperBoxes, { "x", "y", "1e39" });
    ExpectMessage(QStringLiteral("Numbrela"), QStringLiteral("El precio «1e39» es demasiado grande."));
    Click(form, QStringLiteral("CBModif"));
    EXPECT_EQ(LinesOf(*form.List1), threeLines);
    expectShown(0, newspaperBoxes);

    typeInto(form, 0, "Papeleria");
    typeInto(form, 2, "3");
    change(newspaperBoxes, { "", "", "4" });
    EXPECT_EQ(LinesOf(*form.List1).front(), "Kiosko            Un periódico                   4€");
    expectShown(0, { "Kiosko", "Un periódico", "4" });
}

TEST_F(DLGProductosTest, ChangesNothingOnTheScreenWhenNothingIsChanged)
{
    const DLGProductos& form = open(longTable(100));
    ClickLine(*form.List1, 3);
    typeInto(form, 1, "Un tebeo");
    form.List1->verticalScrollBar()->setValue(20);
    const Lines present { "Kiosko", "Producto 1003", "2" };
    const auto expectNothingChanged = [&] {
        expectShown(3, { "Kiosko", "Un tebeo", "2" });
        EXPECT_EQ(form.List1->verticalScrollBar()->value(), 20);
    };
    change(present, emptyBoxes);
    expectNothingChanged();
    change(present, { "Kiosko", " Producto 1003 ", "2.0" });
    expectNothingChanged();
    for (const char* prompt : { "Tienda:", "Nombre:", "Precio:" }) {
        ExpectInputCancelled(QStringLiteral("Modificar producto"), QString::fromLatin1(prompt), QStringLiteral("9"));
    }
    Click(form, QStringLiteral("CBModif"));
    expectNothingChanged();

    ClickLine(*form.List1, 4);
    EXPECT_NE(LinesOf(*form.List1)[3].find("Un tebeo"), std::string::npos) << "what was typed has been taken over";
}

TEST_F(DLGProductosTest, DeletesALineForgetsItsBoxesAndSelectsTheOneAboveOrTheFirst)
{
    for (const auto& [deleted, left, selected, boxes] : { std::tuple(0, Lines { breadLine, fishLine }, 0, breadBoxes),
             { 1, { newspaperLine, fishLine }, 0, newspaperBoxes },
             { 2, { newspaperLine, breadLine }, 1, breadBoxes } }) {
        SCOPED_TRACE(deleted);
        const DLGProductos& form = open();
        ClickLine(*form.List1, deleted);
        typeInto(form, 1, "Un tebeo");
        typeInto(form, 2, "x");
        Click(form, QStringLiteral("CBElim"));
        EXPECT_EQ(LinesOf(*form.List1), left);
        expectShown(selected, boxes);
    }
    for (int times = 0; times < 3; ++times) {
        Click(*form_, QStringLiteral("CBElim"));
    }
    EXPECT_EQ(LinesOf(*form_->List1), Lines { "Kiosko            Un periódico                   0€" })
        << "the last one stays, without a price";
    expectShown(0, { "Kiosko", "Un periódico", "0" });
}

TEST_F(DLGProductosTest, WithoutASelectedLineDeletesNothingAndBeepsAndChangesNothingInSilence)
{
    const DLGProductos& form = open();
    const int beepsBefore = BeepCount();
    for (const char* button : { "CBElim", "CBModif" }) {
        Click(form, QString::fromLatin1(button));
        EXPECT_EQ(BeepCount(), beepsBefore + 1);
        EXPECT_EQ(LinesOf(*form.List1), threeLines);
        expectShown(std::nullopt, emptyBoxes);
    }
}

TEST_F(DLGProductosTest, ScrollsToTheLineThatItSelects)
{
    const DLGProductos& form = open(longTable(300));
    const auto isSeen = [&form](int line) {
        return form.List1->viewport()->rect().contains(
            form.List1->visualRect(form.List1->model()->index(line, 0)).center());
    };
    EXPECT_FALSE(isSeen(250));
    add("Producto 1250b", "1", "Kiosko");
    EXPECT_TRUE(isSeen(251));
    Click(form, QStringLiteral("CBElim"));
    EXPECT_EQ(form.List1->SelectedLine(), 250);
    EXPECT_TRUE(isSeen(250));
    change({ "Kiosko", "Producto 1250", "2" }, { "Kiosko", "Producto 1100b", "" });
    EXPECT_TRUE(isSeen(101));
}

class HandoverTest : public DLGProductosTest {
protected:
    HandoverTest()
    {
        SaveCatalogue(path_, twentyProducts_);
        saved_ = ReadBytes(path_);
    }

    ~HandoverTest() override
    {
        for (const QWidget* window : WindowsOnScreen()) {
            delete window;
        }
    }

    static void deleteClosedWindows()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    // The one window that is open, brought to the front.
    static QWidget& onlyWindow(const char* name)
    {
        const std::vector<QWidget*> windows = WindowsOnScreen();
        if (windows.size() != 1 || windows.front()->objectName().toStdString() != name) {
            throw std::logic_error(std::string("not open, or not alone: ") + name);
        }
        ShowAndActivate(*windows.front());
        return *windows.front();
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
        return dynamic_cast<DLGProductos&>(onlyWindow("DLGProductos"));
    }

    // An editor with one product less than the file.
    DLGProductos& openEditorAndDelete()
    {
        DLGProductos& editor = openEditor();
        ClickLine(*editor.List1, 3);
        Click(editor, QStringLiteral("CBElim"));
        EXPECT_EQ(ReadBytes(path_), saved_);
        return editor;
    }

    static void expectShopping(bool modal)
    {
        QWidget& shopping = onlyWindow("Form7");
        EXPECT_EQ(shopping.isModal(), modal);
        EXPECT_TRUE(shopping.testAttribute(Qt::WA_DeleteOnClose));
        shopping.close();
        deleteClosedWindows();
    }

    void expectSaved() const
    {
        ProductTable nineteen = twentyProducts_;
        nineteen.erase(nineteen.begin() + 3);
        EXPECT_EQ(LoadCatalogue(path_), nineteen);
        EXPECT_EQ(ReadBytes(path_).size(), 19U * 154);
    }

    FormWindow before_ { QStringLiteral("Before"), QStringLiteral("Antes"), { 3000, 3000 },
        {} }; // whose place is taken
    const ProductTable twentyProducts_ = longTable(20);
    std::string saved_;
};

TEST_F(HandoverTest, SavesOnAceptarAndShowsTheShoppingWindowModally)
{
    for (const bool isWrittenAnew : { false, true }) {
        SaveCatalogue(path_, twentyProducts_);
        const DLGProductos& editor = openEditorAndDelete();
        EXPECT_TRUE(editor.isModal());
        if (isWrittenAnew) { // by somebody else, and the same in the end: nothing is asked
            SaveCatalogue(path_, threeProducts);
            SaveCatalogue(path_, twentyProducts_);
            std::filesystem::last_write_time(path_, std::filesystem::file_time_type::min());
        }
        Click(editor, QStringLiteral("OKButton"));
        expectShopping(true);
        expectSaved();
    }
}

TEST_F(HandoverTest, DoesNotTakeOverOnAceptarWhatIsInTheBoxesAloneNorAnythingOnCancelarOrItsCloseBox)
{
    for (const std::size_t box : { 1, 2 }) {
        const DLGProductos& editor = openEditor();
        ClickLine(*editor.List1, 0);
        typeInto(editor, box, "nuevo");
        Click(editor, QStringLiteral("OKButton"));
        expectShopping(true);
        EXPECT_EQ(ReadBytes(path_), saved_);
    }
    const auto windowsBefore = QApplication::topLevelWidgets().size();
    for (const bool byCloseBox : { false, true }) {
        const QPointer<DLGProductos> editor = &openEditorAndDelete();
        byCloseBox ? static_cast<void>(editor->close()) : Click(*editor, QStringLiteral("CancelButton"));
        expectShopping(false);
        EXPECT_EQ(ReadBytes(path_), saved_);
        EXPECT_TRUE(editor.isNull());
    }
    EXPECT_EQ(QApplication::topLevelWidgets().size(), windowsBefore) << "nothing stays behind";
}

// As a teacher does it: out of the shopping window, a product more, and into the shop that sells it.
TEST_F(HandoverTest, TakesThePlaceOfTheShoppingWindowWhichThenShopsWithTheNewCatalogue)
{
    ShowShopping(before_, clock_, shop_, true);
    const QPointer<QWidget> first = &onlyWindow("Form7");
    EXPECT_EQ(first->windowModality(), Qt::ApplicationModal);
    Press(Qt::Key_F3);
    deleteClosedWindows();
    EXPECT_TRUE(first.isNull());
    QWidget& editor = onlyWindow("DLGProductos");
    ExpectNewProduct({ "Una barra de pan", "0,85", "Panadería" });
    Click(editor, QStringLiteral("CBAdd"));
    Click(editor, QStringLiteral("OKButton"));
    deleteClosedWindows();

    const auto& shopping = dynamic_cast<Form7&>(onlyWindow("Form7"));
    Click(shopping, QStringLiteral("CBTienda(5)"));
    EXPECT_EQ(LinesOf(*shopping.LIDisponibles), Lines { "Una barra de pan" });
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
    onlyWindow("Form7");
}

TEST_F(HandoverTest, NamesFileAndReasonOfASaveThatFailsAndCanBeAcceptedOrCancelledThen)
{
    for (const char* leave : { "CancelButton", "OKButton" }) {
        const DLGProductos& editor = openEditorAndDelete();
        std::filesystem::permissions(path_, std::filesystem::perms(0444));
        ExpectMessage(QStringLiteral("Numbrela"),
            QStringLiteral("No se puede escribir el archivo «%1»: el archivo es de solo lectura.")
                .arg(QString::fromStdString(path_.string())));
        Click(editor, QStringLiteral("OKButton"));
        EXPECT_EQ(&onlyWindow("DLGProductos"), &editor);
        EXPECT_EQ(editor.List1->LineCount(), 19);
        EXPECT_EQ(ReadBytes(path_), saved_);

        std::filesystem::permissions(path_, std::filesystem::perms(0644));
        Click(editor, QString::fromLatin1(leave));
        expectShopping(leave == std::string("OKButton"));
    }
    expectSaved();
}

// Enter must not replace what somebody else has saved: it is pressed before the question has been read.
TEST_F(HandoverTest, AsksBeforeItReplacesWhatSomebodyElseHasSavedMeanwhile)
{
    const DLGProductos& editor = openEditorAndDelete();
    SaveCatalogue(path_, threeProducts);
    for (const Qt::Key key : { Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape }) {
        ExpectDialog([key](QDialog& box) { QTest::keyClick(&box, key); });
        Click(editor, QStringLiteral("OKButton"));
        EXPECT_EQ(&onlyWindow("DLGProductos"), &editor);
        EXPECT_EQ(editor.List1->LineCount(), 19);
        EXPECT_EQ(LoadCatalogue(path_), threeProducts);
    }
    expectQuestion(QStringLiteral("Sí"));
    Click(editor, QStringLiteral("OKButton"));
    expectShopping(true);
    expectSaved();
}

TEST_F(HandoverTest, AsksAgainWhenSomebodyElseSavesDuringTheQuestionAndWhenTheCatalogueHasVanished)
{
    const DLGProductos& editor = openEditor();
    SaveCatalogue(path_, threeProducts);
    ExpectDialog([this](QDialog& box) {
        SaveCatalogue(path_, { bread });
        dynamic_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click();
    });
    expectQuestion(QStringLiteral("No"));
    Click(editor, QStringLiteral("OKButton"));
    EXPECT_EQ(LoadCatalogue(path_), ProductTable { bread });
    EXPECT_EQ(&onlyWindow("DLGProductos"), &editor);

    std::filesystem::remove(path_);
    expectQuestion(QStringLiteral("No"));
    Click(editor, QStringLiteral("OKButton"));
    EXPECT_TRUE(folder_.Names().empty());
    expectQuestion(QStringLiteral("Sí"));
    Click(editor, QStringLiteral("OKButton"));
    expectShopping(true);
    EXPECT_EQ(ReadBytes(path_), saved_);
}

TEST_F(HandoverTest, OpensAsLargeAsTheWindowWhosePlaceItTakes)
{
    const auto expectState = [](const char* name, Qt::WindowState state) {
        EXPECT_EQ(onlyWindow(name).windowState() & ~Qt::WindowActive, state) << name;
    };
    for (const auto state : { Qt::WindowNoState, Qt::WindowMaximized, Qt::WindowFullScreen }) {
        before_.setWindowState(state);
        before_.show();
        before_.hide();
        ShowShopping(before_, clock_, shop_, true);
        for (const char* leave : { "CancelButton", "OKButton" }) {
            expectState("Form7", state);
            Press(Qt::Key_F3);
            deleteClosedWindows();
            expectState("DLGProductos", state);
            Click(onlyWindow("DLGProductos"), QString::fromLatin1(leave));
            deleteClosedWindows();
        }
        expectState("Form7", state);
        delete &onlyWindow("Form7");
    }
}

TEST_F(HandoverTest, DoesNotOpenForACatalogueWithTooManyProducts)
{
    SaveCatalogue(path_, ProductTable(MostProducts + 1, bread));
    EXPECT_THROW(ShowEditor(before_, clock_, shop_), RunTimeError);
    EXPECT_EQ(ReadBytes(path_).size(), (MostProducts + 1U) * 154);
}

} // namespace

} // namespace numbrela
