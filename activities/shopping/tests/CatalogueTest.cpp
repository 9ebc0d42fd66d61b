#include "activities/shopping/core/Catalogue.h"

#include "activities/shopping/tests/TemporaryFolder.h"
#include "activities/shopping/tests/TestTables.h"
#include "tests/support/ExpectError.h"
#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>

namespace numbrela {

namespace {

using namespace testing;

constexpr std::size_t recordSize = 154;

std::string padded(std::string text, std::size_t width)
{
    text.resize(width, ' ');
    return text;
}

// A record put together byte by byte; the price as the four bytes that stand in the file.
std::string record(const std::string& name, const std::string& priceBytes, const std::string& shop)
{
    return padded(name, 100) + priceBytes + padded(shop, 50);
}

std::string bytes(std::initializer_list<int> values)
{
    std::string text;
    for (const int value : values) {
        text += static_cast<char>(value);
    }
    return text;
}

const std::string one = bytes({ 0x00, 0x00, 0x80, 0x3F });
const std::string zero = bytes({ 0, 0, 0, 0 });

class CatalogueTest : public ::testing::Test {
protected:
    ProductTable load(const std::string& content) const
    {
        WriteBytes(path_, content);
        return LoadCatalogue(path_);
    }

    std::string saved(const ProductTable& table) const
    {
        SaveCatalogue(path_, table);
        return ReadBytes(path_);
    }

    TemporaryFolder folder_;
    std::filesystem::path path_ = folder_ / "productos.dat";
};

void expectEmpty(const ProductTable& table)
{
    ASSERT_EQ(table.size(), 1U);
    EXPECT_TRUE(IsEmpty(table));
    EXPECT_EQ(table[0].Nombre.Text(), std::string(100, '\0'));
    EXPECT_EQ(table[0].Tienda.Text(), std::string(50, '\0'));
    EXPECT_EQ(table[0].Precio, 0);
}

TEST_F(CatalogueTest, WritesAndReadsRecordsByteByByte)
{
    const std::string records = record("Una barra de pan", bytes({ 0x9A, 0x99, 0x59, 0x3F }),
                                    "Panader\xED"
                                    "a")
        + record("Pi\xF1\xF3n \x80", bytes({ 0x00, 0x00, 0x48, 0x41 }),
            " Fruter\xED"
            "a");
    const ProductTable table { ProductOf("Una barra de pan", "Panadería", 0.85F),
        ProductOf("Piñón €", " Frutería", 12.5F) };
    EXPECT_EQ(saved(table), records);
    EXPECT_EQ(load(records), table);
    EXPECT_FALSE(IsEmpty(table));
    EXPECT_EQ(table[0].Nombre.Text(), padded("Una barra de pan", 100));
    EXPECT_EQ(table[1].Tienda.Trimmed(), "Frutería");
}

TEST_F(CatalogueTest, WritesTheEmptyEntryAndReadsNoneAndCreatesAMissingFileEmpty)
{
    EXPECT_EQ(saved(ProductTable(1)), std::string(recordSize, '\0'));
    expectEmpty(LoadCatalogue(path_));
    expectEmpty(load(std::string(recordSize * 3000, '\0')));
    std::filesystem::remove(path_);
    expectEmpty(LoadCatalogue(path_));
    EXPECT_EQ(ReadBytes(path_), "");
    expectEmpty(LoadCatalogue(path_));
}

TEST_F(CatalogueTest, IgnoresAPartOfARecordAtTheEndButGivesWhatItHasReadWhole)
{
    const std::string two = record("Un limón", one, "Frutería") + record("Una piña", one, "Frutería");
    for (const std::size_t length : { 0, 1, 153, 154, 155, 307, 308 }) {
        SCOPED_TRACE(length);
        const ProductTable table = load(two.substr(0, length));
        EXPECT_EQ(IsEmpty(table), length < recordSize);
        EXPECT_EQ(table.size(), length < 2 * recordSize ? 1U : 2U);
    }
    WriteBytes(path_, two + "x");
    CatalogueContent read;
    EXPECT_EQ(LoadCatalogue(path_, read).size(), 2U);
    EXPECT_EQ(read, two + "x");
    EXPECT_TRUE(IsEmpty(LoadCatalogue(folder_ / "otro.dat", read)));
    EXPECT_EQ(read, std::string()) << "it has been created empty";
}

TEST_F(CatalogueTest, PassesOverPricesThatAreNotAboveZero)
{
    const std::tuple<const char*, std::string, bool> prices[] = {
        { "zero", zero, false },
        { "minus zero", bytes({ 0, 0, 0, 0x80 }), false },
        { "minus one", bytes({ 0, 0, 0x80, 0xBF }), false },
        { "minus infinity", bytes({ 0, 0, 0x80, 0xFF }), false },
        { "not a number", bytes({ 0, 0, 0xC0, 0x7F }), false },
        { "negative not a number", bytes({ 1, 0, 0xC0, 0xFF }), false },
        { "smallest", bytes({ 1, 0, 0, 0 }), true },
        { "one", one, true },
        { "largest", bytes({ 0xFF, 0xFF, 0x7F, 0x7F }), true },
        { "infinity", bytes({ 0, 0, 0x80, 0x7F }), true },
    };
    for (const auto& [name, price, isLoaded] : prices) {
        SCOPED_TRACE(name);
        const std::string content = record("x", price, "y");
        const ProductTable table = load(content);
        EXPECT_EQ(IsEmpty(table), !isLoaded);
        if (isLoaded) {
            EXPECT_EQ(saved(table), content);
        }
        const ProductTable withoutGaps = load(content + record("a", one, "x") + content + record("b", one, "y"));
        EXPECT_EQ(withoutGaps.size(), isLoaded ? 4U : 2U);
        EXPECT_EQ(withoutGaps.back(), ProductOf("b", "y"));
    }
}

TEST_F(CatalogueTest, KeepsEveryByteOfNamesAndShopsCutsLongTextsAndLoadsEmptyOnes)
{
    std::string content;
    for (int first = 0; first < 256; ++first) {
        std::string name;
        for (int i = 0; i < 100; ++i) {
            name += static_cast<char>(first + i);
        }
        content += record(name, one, std::string(50, static_cast<char>(first)));
    }
    const ProductTable table = load(content);
    ASSERT_EQ(table.size(), 256U);
    EXPECT_EQ(saved(table), content);
    EXPECT_EQ(table[0xE1].Tienda.Text().substr(0, 2), "á");

    EXPECT_EQ(saved({ ProductOf(std::string(101, 'n'), std::string(51, 't')) }),
        record(std::string(100, 'n'), one, std::string(50, 't')));
    EXPECT_EQ(load(record("", one, "")), ProductTable { ProductOf("", "") });
}

TEST_F(CatalogueTest, HoldsAsManyProductsAsA16BitCountCounts)
{
    std::string content;
    for (int i = 0; i < 32767; ++i) {
        content += record(std::to_string(i), one, "x");
    }
    const ProductTable table = load(content);
    ASSERT_EQ(table.size(), 32767U);
    EXPECT_EQ(table.back().Nombre.Trimmed(), "32766");
    EXPECT_EQ(saved(table), content);
    EXPECT_EQ(load(content + record("", zero, "")).size(), 32767U);
    ExpectError(RunTimeError::Kind::Overflow, "El catálogo «" + path_.string() + "» tiene más de 32767 productos.",
        [&] { load(content + record("z", one, "z")); });
}

TEST_F(CatalogueTest, AddsIntoTheEmptyEntryFirstThenAtTheEndAndNotBeyondWhatItCouldLoadAgain)
{
    ProductTable table(1);
    EXPECT_EQ(AddProduct(table, ProductOf("a", "x")), 0);
    EXPECT_EQ(AddProduct(table, ProductOf("b", "y", 2)), 1);
    EXPECT_EQ(table, (ProductTable { ProductOf("a", "x"), ProductOf("b", "y", 2) }));
    table.resize(32766, table.front());
    EXPECT_EQ(AddProduct(table, ProductOf("b", "x")), 32766);
    EXPECT_EQ(KindThrownBy([&] { AddProduct(table, ProductOf("c", "x")); }), RunTimeError::Kind::Overflow);
    EXPECT_EQ(table.size(), 32767U);
}

TEST_F(CatalogueTest, AddsIntoAFirstEntryWhoseNameBeginsAsTheEmptyOneAlsoWhenOthersFollow)
{
    ProductTable table = load(record("", one, "x").replace(0, 1, 1, '\0') + record("b", one, "y"));
    ASSERT_EQ(table.size(), 2U);
    EXPECT_EQ(AddProduct(table, ProductOf("a", "x")), 0);
    EXPECT_EQ(table, (ProductTable { ProductOf("a", "x"), ProductOf("b", "y") }));
}

TEST_F(CatalogueTest, NamesTheFileThatCannotBeReadOrWrittenAndTheReason)
{
    WriteBytes(folder_ / "file", "");
    std::filesystem::create_directory(folder_ / "folder");
    const std::vector<std::string> names = folder_.Names();
    for (const auto& [name, reason] :
        { std::pair<std::string, std::string>("missing/productos.dat", "la carpeta no existe"),
            { "file/productos.dat", "la carpeta no existe" }, { "folder", "es una carpeta" },
            { std::string(300, 'n'), "el nombre es demasiado largo" } }) {
        const std::filesystem::path path = folder_ / name.c_str();
        const std::string rest = " el archivo «" + path.string() + "»: " + reason + ".";
        ExpectError(RunTimeError::Kind::File, "No se puede leer" + rest, [&path = path] { LoadCatalogue(path); });
        ExpectError(RunTimeError::Kind::File, "No se puede escribir" + rest,
            [&path = path] { SaveCatalogue(path, ProductTable(1)); });
        EXPECT_EQ(folder_.Names(), names);
    }
}

TEST_F(CatalogueTest, DoesNotWriteAFileThatIsForReadingAlone)
{
    WriteBytes(path_, "");
    std::filesystem::permissions(path_, std::filesystem::perms(0444));
    expectEmpty(LoadCatalogue(path_));
    ExpectError(RunTimeError::Kind::File,
        "No se puede escribir el archivo «" + path_.string() + "»: el archivo es de solo lectura.",
        [this] { SaveCatalogue(path_, { ProductOf("a", "x") }); });
    EXPECT_EQ(ReadBytes(path_), "");
    EXPECT_EQ(folder_.Names(), std::vector<std::string> { "productos.dat" });
}

TEST_F(CatalogueTest, SavesOverWhatIsExpectedOrIsAlreadyAsItIsToBe)
{
    const ProductTable table { ProductOf("a", "x") };
    const std::string wanted = record("a", one, "x");
    for (const std::string& content : { std::string(), record("b", one, "y"), std::string(3'000'000, 'z') }) {
        WriteBytes(path_, content);
        const SaveOutcome outcome = SaveCatalogueIfUnchanged(path_, table, content);
        EXPECT_TRUE(outcome.Saved);
        EXPECT_EQ(outcome.Content, wanted);
        EXPECT_EQ(ReadBytes(path_), wanted);
    }
    EXPECT_TRUE(SaveCatalogueIfUnchanged(path_, table, record("b", one, "y")).Saved)
        << "the program itself may have saved it and then failed to flush the folder";
    std::filesystem::remove(path_);
    EXPECT_TRUE(SaveCatalogueIfUnchanged(path_, table, std::nullopt).Saved);
    EXPECT_EQ(ReadBytes(path_), wanted);
}

TEST_F(CatalogueTest, LeavesWhatIsNotExpectedAndTellsWhatItIs)
{
    const ProductTable table { ProductOf("a", "x") };
    const std::string others = record("b", one, "y");
    const std::string lastByteChanged = record("b", one, "y").replace(recordSize - 1, 1, "!");
    for (const CatalogueContent& expected : { CatalogueContent(), CatalogueContent(""),
             CatalogueContent(lastByteChanged), CatalogueContent(others + "z"), CatalogueContent(others.substr(1)) }) {
        WriteBytes(path_, others);
        const SaveOutcome outcome = SaveCatalogueIfUnchanged(path_, table, expected);
        EXPECT_FALSE(outcome.Saved);
        EXPECT_EQ(outcome.Content, others);
        EXPECT_EQ(ReadBytes(path_), others);
        EXPECT_EQ(folder_.Names(), std::vector<std::string> { "productos.dat" });
    }
    std::filesystem::remove(path_);
    const SaveOutcome outcome = SaveCatalogueIfUnchanged(path_, table, others);
    EXPECT_FALSE(outcome.Saved);
    EXPECT_EQ(outcome.Content, std::nullopt);
    EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(CatalogueTest, WritesBesideAFileThatIsNamedWithoutAFolder)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder_.Path());
    SaveCatalogue("otro.dat", { ProductOf("b", "y") });
    EXPECT_EQ(LoadCatalogue("otro.dat").size(), 1U);
    std::filesystem::current_path(before);
    EXPECT_EQ(folder_.Names(), std::vector<std::string> { "otro.dat" });
    EXPECT_EQ(ReadBytes(folder_ / "otro.dat"), record("b", one, "y"));
}

} // namespace

} // namespace numbrela
