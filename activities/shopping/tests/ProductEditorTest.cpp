#include "activities/shopping/core/ProductEditor.h"

#include "activities/shopping/tests/TemporaryFolder.h"
#include "activities/shopping/tests/TestTables.h"
#include "tests/support/ExpectError.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace numbrela {

namespace {

using namespace testing;

const Product bread = ProductOf("Una barra de pan", "Panadería", 0.85F);
const Product paper = ProductOf("Un periódico", "Kiosko", 2);
const Product fish = ProductOf("Una trucha", "Pescadería", 3.45F);

constexpr float infinity = std::numeric_limits<float>::infinity();

ProductEditor editorOf(const ProductTable& table)
{
    ProductEditor editor;
    editor.Table = table;
    return editor;
}

TEST(CatalogueLine, ShowsShopNameAndPriceInColumns)
{
    const std::pair<Product, const char*> lines[] = {
        { bread, "Panadería         Una barra de pan               0,85€" },
        { paper, "Kiosko            Un periódico                   2€" },
        { ProductOf("Una caja de lápices de colores", "Supermercado y más", 1234.5F),
            "Supermercado y másUna caja de lápices de colores 1234,5€" },
        { ProductOf("Un nombre de producto que no cabe en la línea", "Un nombre de tienda muy largo", 0.1F),
            "Un nombre de tiendUn nombre de producto que no c 0,1€" },
        { ProductOf("  Un tebeo", " Kiosko"), " Kiosko             Un tebeo                     1€" },
        { ProductOf("", "", -1), "                                                 -1€" },
        { Product(), "                                                 0€" },
        { ProductOf("a\tb\nc\rd\u00ADe", "x\ty"), "x y               a b c d e                      1€" },
        { ProductOf("y", "x", 12345678), "x                 y                              12345680€" },
        { ProductOf("y", "x", infinity), "x                 y                              infinito€" },
    };
    for (const auto& [product, line] : lines) {
        EXPECT_EQ(editorOf({ product }).LineText(0), line);
    }
}

TEST(EditBoxes, ShowAProductTrimmedAndAreWrittenBackIntoItAlone)
{
    ProductEditor editor = editorOf({ ProductOf(" Una barra  de pan", "  Panadería ", 0.85F), Product() });
    EXPECT_EQ(editor.TextsOf(0), (ProductTexts { "Panadería", "Una barra  de pan", "0,85" }));
    EXPECT_EQ(editor.TextsOf(1), (ProductTexts { "", "", "0" }));

    editor = editorOf({ bread, paper });
    EXPECT_TRUE(editor.WriteBack({ "Kiosko", "Un tebeo", "nada" }));
    EXPECT_EQ(editor.Table, (ProductTable { bread, paper })) << "they show no product yet";
    editor.Select(1);
    EXPECT_EQ(editor.SelectedProduct, 1);
    EXPECT_TRUE(editor.Editing);
    EXPECT_TRUE(editor.WriteBack({ " Librería ", "  Un cuento ", " 12,95" }));
    EXPECT_EQ(editor.Table, (ProductTable { bread, ProductOf("Un cuento", "Librería", 12.95F) }));
}

TEST(EditBoxes, TakeAnyNumberAsAPriceAndAreElseRefusedWhole)
{
    ProductEditor editor = editorOf({ bread, paper });
    editor.Select(0);
    for (const char* price : { "", " ", "abc", "1,2,3", "0,85€", "1e39", "1e400" }) {
        EXPECT_FALSE(editor.WriteBack({ "Kiosko", "Un tebeo", price })) << price;
        EXPECT_EQ(editor.Table, (ProductTable { bread, paper })) << price;
        EXPECT_TRUE(editor.Editing);
    }
    EXPECT_TRUE(editor.WriteBack({ "", "", "-3" }));
    EXPECT_EQ(editor.Table[0], ProductOf("", "", -3));
    EXPECT_TRUE(editor.WriteBack({ "a", "b", "0" }));
    EXPECT_EQ(editor.Table[0], ProductOf("b", "a", 0));
}

TEST(EditBoxes, LeaveAnInfinitePriceThatNobodyTouched)
{
    ProductEditor editor = editorOf({ ProductOf("b", "a", infinity) });
    editor.Select(0);
    EXPECT_TRUE(editor.WriteBack(editor.TextsOf(0)));
    EXPECT_EQ(editor.Table[0].Precio, infinity);
    EXPECT_TRUE(editor.WriteBack({ "a", "b", "5" }));
    EXPECT_EQ(editor.Table[0].Precio, 5);
    EXPECT_FALSE(editor.WriteBack({ "a", "b", "infinito" }));
}

TEST(Adding, KeepsWhatTheBoxesShowUnlessItWasTheEmptyEntry)
{
    ProductEditor editor;
    EXPECT_TRUE(IsEmpty(editor.Table));
    EXPECT_FALSE(editor.Editing);
    editor.Select(0);
    editor.Add(bread);
    EXPECT_FALSE(editor.Editing); // else the texts of the empty entry would be written into the new product

    editor.Select(0);
    editor.Add(paper);
    EXPECT_TRUE(editor.Editing);
    EXPECT_EQ(editor.SelectedProduct, 0);
}

// A file may hold a product without a name before others: the first one added takes its place.
TEST(Adding, KeepsWhatTheBoxesShowBesideAProductWithoutAName)
{
    Product nameless;
    nameless.Precio = 1;
    ProductEditor editor = editorOf({ nameless, bread });
    editor.Select(1);
    EXPECT_EQ(editor.Add(paper), 0);
    EXPECT_TRUE(editor.Editing);
    EXPECT_TRUE(editor.WriteBack({ "Panadería", "Un bollo", "1" }));
    EXPECT_EQ(editor.Table, (ProductTable { paper, ProductOf("Un bollo", "Panadería", 1) }));
}

TEST(Adding, StopsWhenTheCatalogueIsFullAndKeepsTheSelection)
{
    ProductEditor editor = editorOf(ProductTable(MostProducts, bread));
    editor.Select(0);
    EXPECT_THROW(editor.Add(paper), RunTimeError);
    EXPECT_EQ(editor.Table.size(), 32767U);
    EXPECT_TRUE(editor.Editing);
}

TEST(Changing, TakesOverTheAnswersThatAreNotEmpty)
{
    const std::pair<ProductTexts, Product> changes[] = {
        { { "", "", "" }, bread },
        { { "Panadería", " Una barra de pan", "0.85" }, bread },
        { { " Kiosko ", "", "" }, ProductOf("Una barra de pan", "Kiosko", 0.85F) },
        { { "", " Un bollo ", "" }, ProductOf("Un bollo", "Panadería", 0.85F) },
        { { "", "", "3" }, ProductOf("Una barra de pan", "Panadería", 3) },
        { { "Kiosko", "Un tebeo", "2.5" }, ProductOf("Un tebeo", "Kiosko", 2.5F) },
        { { " ", " ", " " }, ProductOf("", "", 0) },
    };
    for (const auto& [answers, changed] : changes) {
        ProductEditor editor = editorOf({ paper, bread, fish });
        EXPECT_EQ(editor.Change(1, answers), changed != bread);
        EXPECT_EQ(editor.Table, (ProductTable { paper, changed, fish }));
    }
}

TEST(Changing, ReadsThePriceWithAPointAloneAndChangesNothingWhenItIsTooLarge)
{
    for (const auto& [answer, price] :
        { std::pair("1,25", 1.0F), { "1.25", 1.25F }, { "abc", 0.0F }, { "0,85", 0.0F }, { "1.250,5", 1.25F },
            { " 4 5 ", 45.0F }, { "-2", -2.0F }, { "1e2", 100.0F }, { "3 euros", 3.0F }, { ".5", 0.5F } }) {
        ProductEditor editor = editorOf({ bread });
        editor.Change(0, { "", "", answer });
        EXPECT_EQ(editor.Table[0].Precio, price) << answer;
    }
    for (const char* price : { "1e39", "1e400", "-1e39" }) {
        ProductEditor editor = editorOf({ bread });
        ExpectError(RunTimeError::Kind::Overflow, "El precio «" + std::string(price) + "» es demasiado grande.", [&] {
            editor.Change(0, { "Kiosko", "Un tebeo", price });
        });
        EXPECT_EQ(editor.Table, ProductTable { bread });
    }
}

TEST(Deleting, MovesTheLaterProductsOnePlaceUpAndGoesOnWithTheLineAboveOrTheFirst)
{
    const std::pair<int, ProductTable> left[]
        = { { 0, { paper, fish } }, { 1, { bread, fish } }, { 2, { bread, paper } } };
    for (const auto& [product, table] : left) {
        for (const auto& [line, next] : { std::pair(0, 0), { 1, 0 }, { 2, 1 } }) {
            ProductEditor editor = editorOf({ bread, paper, fish });
            EXPECT_EQ(editor.Delete(product, line), next);
            EXPECT_EQ(editor.Table, table);
        }
    }
    EXPECT_EQ(editorOf({ bread, paper }).Delete(1, 1), 0);
    EXPECT_EQ(editorOf({ bread }).Delete(0, 0), 0);
}

TEST(Deleting, TakesNothingOverFromTheBoxes)
{
    ProductEditor editor = editorOf({ bread, paper });
    editor.Select(1);
    editor.Delete(1, 0);
    EXPECT_FALSE(editor.Editing);
    EXPECT_TRUE(editor.WriteBack({ "x", "y", "9" }));
    EXPECT_EQ(editor.Table, ProductTable { bread });
}

TEST(Deleting, LeavesTheOnlyProductWithThePriceZeroUntilTheCatalogueIsLoadedAgain)
{
    const TemporaryFolder folder;
    ProductEditor editor = editorOf({ bread });
    editor.Delete(0, 0);
    EXPECT_EQ(editor.Table, ProductTable { ProductOf("Una barra de pan", "Panadería", 0) });
    SaveCatalogue(folder / "productos.dat", editor.Table);
    EXPECT_EQ(ReadBytes(folder / "productos.dat").size(), 154U);
    EXPECT_TRUE(IsEmpty(LoadCatalogue(folder / "productos.dat")));
    EXPECT_EQ(editor.Add(paper), 1) << "it is not the empty entry";
    EXPECT_EQ(editor.Table.size(), 2U);

    ProductEditor empty;
    EXPECT_EQ(empty.Delete(0, 0), 0);
    EXPECT_TRUE(IsEmpty(empty.Table));
}

// Two of them on one catalogue.
class SavingTest : public ::testing::Test {
protected:
    SavingTest()
    {
        SaveCatalogue(path_, { bread });
        for (ProductEditor* editor : { &mine_, &others_ }) {
            editor->Load(path_);
        }
        mine_.Add(paper);
        others_.Add(fish);
    }

    ProductTable onTheDisk() const { return LoadCatalogue(path_); }

    TemporaryFolder folder_;
    std::filesystem::path path_ = folder_ / "productos.dat";
    ProductEditor mine_;
    ProductEditor others_;
};

TEST_F(SavingTest, StopsAtWhatSomebodyElseHasSavedHoweverOftenItIsTriedOrReplacesItAndGoesOnFromThere)
{
    ASSERT_TRUE(others_.Save(path_));
    EXPECT_FALSE(mine_.Save(path_));
    EXPECT_FALSE(mine_.Save(path_));
    EXPECT_EQ(onTheDisk(), (ProductTable { bread, fish }));
    EXPECT_EQ(mine_.Table, (ProductTable { bread, paper }));
    EXPECT_TRUE(mine_.SaveOverOthers(path_));
    EXPECT_EQ(onTheDisk(), (ProductTable { bread, paper }));
    mine_.Add(fish);
    EXPECT_TRUE(mine_.Save(path_));
    EXPECT_EQ(onTheDisk(), (ProductTable { bread, paper, fish }));
}

TEST_F(SavingTest, ReplacesNothingButWhatItHasFound)
{
    EXPECT_TRUE(others_.Save(path_));
    ASSERT_FALSE(mine_.Save(path_));
    others_.Add(paper);
    ASSERT_TRUE(others_.Save(path_));
    EXPECT_FALSE(mine_.SaveOverOthers(path_));
    EXPECT_EQ(onTheDisk(), (ProductTable { bread, fish, paper }));
    EXPECT_TRUE(mine_.SaveOverOthers(path_));
    EXPECT_EQ(onTheDisk(), (ProductTable { bread, paper }));
}

TEST_F(SavingTest, StopsAtAFileThatHasVanished)
{
    std::filesystem::remove(path_);
    EXPECT_FALSE(mine_.Save(path_));
    EXPECT_TRUE(folder_.Names().empty());
    EXPECT_TRUE(mine_.SaveOverOthers(path_));
    EXPECT_EQ(onTheDisk(), (ProductTable { bread, paper }));
}

} // namespace

} // namespace numbrela
