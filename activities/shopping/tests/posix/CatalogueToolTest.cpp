#include "activities/shopping/catalogue/CatalogueSource.h"

#include "activities/shopping/tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace numbrela {

namespace {

using namespace testing;

int runTool(const std::filesystem::path& text, const std::filesystem::path& catalogue)
{
    const std::string command
        = "'" SHOPPING_CATALOGUE_TOOL "' '" + text.string() + "' '" + catalogue.string() + "' 2>/dev/null";
    return std::system(command.c_str()); // NOLINT(cert-env33-c): as a build does it
}

TEST(CatalogueTool, MakesTheCatalogueAndItsFolderAndLeavesACatalogueThatIsThere)
{
    const TemporaryFolder folder;
    const std::filesystem::path catalogue = folder / "Recursos" / "productos.dat";
    EXPECT_EQ(runTool(SHOPPING_CATALOGUE_SOURCE, catalogue), 0);
    std::ifstream text(SHOPPING_CATALOGUE_SOURCE);
    EXPECT_EQ(LoadCatalogue(catalogue), ReadCatalogueSource(text));
    WriteBytes(catalogue, "mine");
    EXPECT_EQ(runTool(SHOPPING_CATALOGUE_SOURCE, catalogue), 0);
    EXPECT_EQ(ReadBytes(catalogue), "mine");
    std::filesystem::rename(catalogue, catalogue.string() + ".completo"); // as a save that was stopped may leave it
    EXPECT_EQ(runTool(SHOPPING_CATALOGUE_SOURCE, catalogue), 0);
    EXPECT_EQ(ReadBytes(catalogue), "mine");
}

TEST(CatalogueTool, FailsForWantOfACatalogueToMakeAndForATextThatIsNoneAndMakesNone)
{
    const TemporaryFolder folder;
    WriteBytes(folder / "bad.txt", "Kiosko\n");
    EXPECT_NE(std::system("'" SHOPPING_CATALOGUE_TOOL "' text 2>/dev/null"), 0); // NOLINT(cert-env33-c)
    EXPECT_NE(runTool(folder / "bad.txt", folder / "productos.dat"), 0);
    EXPECT_NE(runTool(folder / "missing.txt", folder / "productos.dat"), 0);
    EXPECT_EQ(folder.Names(), std::vector<std::string> { "bad.txt" });
}

} // namespace

} // namespace numbrela
