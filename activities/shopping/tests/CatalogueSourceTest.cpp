#include "activities/shopping/catalogue/CatalogueSource.h"

#include "activities/shopping/tests/TemporaryFolder.h"
#include "activities/shopping/tests/TestTables.h"
#include "tests/support/ExpectError.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>
#include <sstream>

namespace numbrela {

namespace {

using namespace testing;

ProductTable read(const std::string& text)
{
    std::istringstream stream(text);
    return ReadCatalogueSource(stream);
}

ProductTable shipped()
{
    std::ifstream text(SHOPPING_CATALOGUE_SOURCE);
    EXPECT_TRUE(text.is_open());
    return ReadCatalogueSource(text);
}

const std::set<std::string> shops { "Carnicería", "Charcutería", "Frutería", "Kiosko", "Librería", "Panadería",
    "Papelería", "Pastelería", "Pescadería", "Supermercado" };

TEST(CatalogueSource, ReadsAProductFromEachLineAndTheEmptyEntryFromATextWithoutProducts)
{
    EXPECT_EQ(read("# remark\n\nPanadería; Una barra de pan; 0,85\n  Kiosko;Un tebeo;3  \n   \n"),
        (ProductTable { ProductOf("Una barra de pan", "Panadería", 0.85F), ProductOf("Un tebeo", "Kiosko", 3) }));
    EXPECT_TRUE(IsEmpty(read("# nothing\n")));
    EXPECT_TRUE(IsEmpty(read("")));
}

TEST(CatalogueSource, NamesTheLineThatIsNoProduct)
{
    for (const char* line : { "Kiosko; Un tebeo", "Kiosko", "Kiosko; Un tebeo; mucho", "Kiosko; Un tebeo; 0",
             "Kiosko; Un tebeo; -1", "; Un tebeo; 1", "Kiosko; ; 1", "Kiosko; Un tebeo; 1; 2" }) {
        ExpectError(RunTimeError::Kind::InvalidArgument, "La línea 3 no es un producto: " + std::string(line),
            [line] { read("# remark\nKiosko; Un periódico; 2\n" + std::string(line) + "\n"); });
    }
}

TEST(ShippedCatalogue, OffersAtLeastADozenProductsInEachShopAndInNoOtherPlaceAtEverydayPricesInWholeCents)
{
    std::map<std::string, int> counts;
    int withCents = 0;
    const ProductTable table = shipped();
    for (const Product& product : table) {
        ++counts[product.Tienda.Trimmed()];
        SCOPED_TRACE(product.Nombre.Trimmed());
        EXPECT_GE(product.Precio, 0.3F);
        EXPECT_LT(product.Precio, 50);
        const double cents = std::round(product.Precio * 100.0);
        EXPECT_EQ(product.Precio, static_cast<float>(cents / 100));
        withCents += std::fmod(cents, 100) != 0 ? 1 : 0;
    }
    EXPECT_GT(withCents, static_cast<int>(table.size()) * 9 / 10);
    EXPECT_EQ(counts.size(), shops.size());
    for (const auto& [shop, count] : counts) {
        EXPECT_TRUE(shops.count(shop) == 1) << shop;
        EXPECT_GE(count, 12) << shop;
    }
}

TEST(ShippedCatalogue, NamesEachProductOnceAsAPupilWouldAndSoThatAListShowsItWhole)
{
    const std::set<std::string> beginnings { "Un", "Una", "Unas", "Unos", "Medio", "Media", "Dos", "Tres", "Cuatro",
        "Seis", "Ocho" };
    std::set<std::string> names;
    for (const Product& product : shipped()) {
        const std::string name = product.Nombre.Trimmed();
        EXPECT_TRUE(names.insert(name).second) << name;
        EXPECT_EQ(beginnings.count(name.substr(0, name.find(' '))), 1U) << name;
        EXPECT_LE(Windows1252FromUtf8(name).size(), 30U) << name;
        EXPECT_EQ(name.find('?'), std::string::npos) << name;
    }
}

} // namespace

} // namespace numbrela
