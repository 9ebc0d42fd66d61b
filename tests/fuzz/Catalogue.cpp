#include "activities/shopping/core/Catalogue.h"

#include "activities/shopping/core/ProductEditor.h"
#include "activities/shopping/core/ShoppingTask.h"
#include "activities/shopping/tests/TemporaryFolder.h"
#include "tests/fuzz/FuzzInput.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <set>
#include <string>
#include <string_view>

// Any bytes as the catalogue file: what is loaded from them is what an independent reader finds, it is saved and loaded
// again unchanged, and the activities live with it.
namespace numbrela::testing {

namespace {

constexpr std::size_t recordSize = 154;
constexpr std::size_t priceOffset = 100;

// The records that hold a product, as they stand in the file.
std::string productRecords(const std::string& bytes)
{
    std::string records;
    for (std::size_t first = 0; first + recordSize <= bytes.size(); first += recordSize) {
        std::uint32_t bits = 0;
        for (std::size_t i = 4; i-- > 0;) {
            bits = bits * 256 + static_cast<unsigned char>(bytes[first + priceOffset + i]);
        }
        float price = 0;
        std::memcpy(&price, &bits, sizeof price);
        if (price > 0) {
            records += bytes.substr(first, recordSize);
        }
    }
    return records;
}

void checkLoading(const std::string& bytes, const std::filesystem::path& file)
{
    const std::string records = productRecords(bytes);
    WriteBytes(file, bytes);
    CatalogueContent read;
    const ProductTable table = LoadCatalogue(file, read);
    EXPECT_EQ(read, bytes);
    EXPECT_EQ(ReadBytes(file), bytes) << "loading is no writing";
    EXPECT_EQ(table.size(), std::max<std::size_t>(records.size() / recordSize, 1));

    EXPECT_TRUE(SaveCatalogueIfUnchanged(file, table, read).Saved);
    EXPECT_EQ(ReadBytes(file), records.empty() ? std::string(recordSize, '\0') : records);
    EXPECT_TRUE(LoadCatalogue(file) == table);

    const std::string_view somebody = "somebody else's";
    const ProductTable others { { .Nombre = somebody, .Precio = 1, .Tienda = somebody } };
    const bool isExpected = bytes == ReadBytes(file);
    EXPECT_EQ(SaveCatalogueIfUnchanged(file, others, bytes).Saved, isExpected);
    EXPECT_EQ(LoadCatalogue(file) == others, isExpected || table == others);
    SaveCatalogue(file, table);
}

// Choosing a product and leaving it puts back what its boxes show: nothing but blanks around it and digits of its price
// that they do not show may be lost.
void checkEditing(const ProductTable& table)
{
    ProductEditor editor;
    editor.Table = table;
    for (int product = 0; product < static_cast<int>(table.size()); ++product) {
        const ProductTexts shown = editor.TextsOf(product);
        EXPECT_TRUE(editor.LineText(product).ends_with(" " + shown.Precio + "€"));
        editor.Select(product);
        EXPECT_TRUE(editor.WriteBack(shown));
        const ProductTexts again = editor.TextsOf(product);
        EXPECT_EQ(again.Tienda, shown.Tienda);
        EXPECT_EQ(again.Nombre, shown.Nombre);
        const float price = table[static_cast<std::size_t>(product)].Precio;
        const float kept = editor.Table[static_cast<std::size_t>(product)].Precio;
        EXPECT_TRUE(kept == price || std::fabs(kept - price) <= price * 1e-6F) << price << " became " << kept;
    }
    for (int left = static_cast<int>(table.size()); left > 0; --left) {
        EXPECT_EQ(editor.Delete(0, 0), 0);
    }
    EXPECT_EQ(editor.Table.size(), 1U);
    EXPECT_EQ(editor.Table.front().Precio, 0);
}

// Whether a list of so many products, of the dearest ones and three of each, is beyond the greatest single.
bool mayCostMoreThanCanBeCounted(const ProductTable& table, std::size_t length)
{
    constexpr double mostUnits = 3;
    double dearest = 0;
    for (const Product& product : table) {
        dearest = std::max(dearest, static_cast<double>(product.Precio));
    }
    return dearest * mostUnits * static_cast<double>(length) > static_cast<double>(FLT_MAX);
}

void checkTask(const ProductTable& table, double seed)
{
    ShoppingTask task;
    task.Catalogue = table;
    SeededRandom random(seed);
    task.ListLength = 2 + static_cast<int>(random.Next() * 9);
    const std::string notice = task.NewShoppingTask(random);
    const bool empty = table.size() == 1 && IsEmpty(table);
    const std::size_t length
        = std::min<std::size_t>(static_cast<std::size_t>(task.ListLength), empty ? 0 : table.size());
    EXPECT_TRUE(std::isfinite(task.ListCost));
    EXPECT_EQ(notice.empty(), task.ShoppingList.size() == static_cast<std::size_t>(task.ListLength));
    if (task.ShoppingList.size() != length) {
        EXPECT_TRUE(task.ShoppingList.empty() && mayCostMoreThanCanBeCounted(table, length));
        EXPECT_EQ(task.ListCost, 0);
    }
    EXPECT_EQ(task.ListLines().size(), task.ShoppingList.size());
    std::set<int> products;
    for (const ShoppingItem& item : task.ShoppingList) {
        EXPECT_TRUE(products.insert(item.Product).second);
        EXPECT_TRUE(item.Units >= 1 && item.Units <= 3);
        const Product& product = table.at(static_cast<std::size_t>(item.Product));
        EXPECT_TRUE(item.Nombre == product.Nombre && item.Precio == product.Precio && item.Tienda == product.Tienda);
        // A product is on the shelf of the shop whose name it bears.
        bool found = false;
        for (const ShelfProduct& shelved : task.EnterShop(item.Tienda.Trimmed())) {
            found = found || shelved.Product == item.Product;
        }
        EXPECT_TRUE(found) << item.Tienda.Trimmed();
    }
}

} // namespace

void Check(FuzzInput input)
{
    static const TemporaryFolder folder;
    const std::filesystem::path file = folder / "productos.dat";
    const std::string bytes = input.TakeAll();
    checkLoading(bytes, file);
    const ProductTable table = LoadCatalogue(file);
    checkEditing(table);
    checkTask(table, static_cast<double>(bytes.size()));
}

} // namespace numbrela::testing
