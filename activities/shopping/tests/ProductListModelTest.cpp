#include "activities/shopping/screen/ProductListModel.h"

#include "activities/shopping/tests/TestTables.h"
#include "common/core/Random.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

namespace numbrela {

namespace {

using namespace testing;

std::vector<std::string> linesOf(const ProductListModel& model)
{
    std::vector<std::string> lines;
    for (int line = 0; line < model.rowCount(); ++line) {
        lines.push_back(model.data(model.index(line), Qt::DisplayRole).toString().toStdString());
    }
    return lines;
}

std::vector<int> productsOf(const ProductListModel& model)
{
    std::vector<int> products;
    for (int line = 0; line < model.rowCount(); ++line) {
        EXPECT_EQ(model.data(model.index(line), Qt::UserRole).toInt(), model.ProductAt(line));
        EXPECT_EQ(model.LineOf(model.ProductAt(line)), line);
        products.push_back(model.ProductAt(line));
    }
    return products;
}

TEST(ProductListModel, SortsByShopAndThenByName)
{
    ProductEditor editor;
    editor.Table = { ProductOf("Un bollo", "Panadería"), ProductOf("Un tebeo", "Kiosko"),
        ProductOf("Un biscote", "Panadería"), ProductOf("Un pollo", "Carnicería") };
    ProductListModel model;
    model.Fill(editor);
    EXPECT_EQ(productsOf(model), (std::vector<int> { 3, 1, 2, 0 }));
    EXPECT_EQ(linesOf(model).front(), editor.LineText(3));
}

TEST(ProductListModel, SortsAsASpanishDictionaryDoes)
{
    ProductEditor editor;
    editor.Table.clear();
    for (const char* name : { "ñora", "zumo", "nuez", "oca", "Ámbar", "azúcar", "ANÍS", "árbol", "cruasán", "chorizo",
             "dátil", "papá", "papa" }) {
        editor.Table.push_back(ProductOf(name, "x"));
    }
    ProductListModel model;
    model.Fill(editor);
    std::vector<std::string> names;
    for (const int index : productsOf(model)) {
        names.push_back(editor.TextsOf(index).Nombre);
    }
    EXPECT_EQ(names,
        (std::vector<std::string> { "Ámbar", "ANÍS", "árbol", "azúcar", "chorizo", "cruasán", "dátil", "nuez", "ñora",
            "oca", "papa", "papá", "zumo" }));
}

TEST(ProductListModel, LeavesEqualLinesInTheOrderOfTheCatalogue)
{
    ProductEditor editor;
    editor.Table
        = { ProductOf("b", "x"), ProductOf("a", "x"), ProductOf("b", "x"), ProductOf("a", "x"), ProductOf("A", "x") };
    ProductListModel model;
    model.Fill(editor);
    EXPECT_EQ(productsOf(model), (std::vector<int> { 1, 3, 4, 0, 2 }));
}

TEST(ProductListModel, LeavesARewrittenLineInItsPlaceUntilTheListIsFilledAgain)
{
    ProductEditor editor;
    editor.Table = { ProductOf("a", "x"), ProductOf("b", "x"), ProductOf("c", "x") };
    ProductListModel model;
    model.Fill(editor);

    const QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    editor.Table[0] = ProductOf("z", "x");
    model.Rewrite(0, editor);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(productsOf(model), (std::vector<int> { 0, 1, 2 }));
    EXPECT_EQ(linesOf(model).front(), editor.LineText(0));

    model.Fill(editor);
    EXPECT_EQ(productsOf(model), (std::vector<int> { 1, 2, 0 }));
}

// Whatever happens to the catalogue, a list that is filled again stands as one that is filled for the first time.
TEST(ProductListModel, FillsAgainAsForTheFirstTime)
{
    SeededRandom random(1);
    const auto draw = [&random](int count) { return static_cast<int>(random.Next() * count); };
    const auto anyProduct
        = [&] { return ProductOf(std::to_string(draw(9)), std::string(1, static_cast<char>('a' + draw(3)))); };

    ProductEditor editor;
    ProductListModel model;
    for (int step = 0; step < 400; ++step) {
        const int index = draw(static_cast<int>(editor.Table.size()));
        switch (draw(5)) {
        case 0:
        case 1:
            editor.Add(anyProduct());
            break;
        case 2:
            editor.Delete(index, 0);
            break;
        case 3:
            editor.Table[static_cast<std::size_t>(index)] = anyProduct();
            break;
        default:
            model.Fill(editor);
            editor.Table[static_cast<std::size_t>(index)] = anyProduct();
            model.Rewrite(model.LineOf(index), editor);
            break;
        }
        model.Fill(editor);
        ProductListModel fresh;
        fresh.Fill(editor);
        ASSERT_EQ(productsOf(model), productsOf(fresh)) << step;
        ASSERT_EQ(linesOf(model), linesOf(fresh)) << step;
    }
}

} // namespace

} // namespace numbrela
