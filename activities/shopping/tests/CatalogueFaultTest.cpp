#include "activities/shopping/tests/CatalogueFaultTest.h"

#include "activities/shopping/core/FileParts.h"
#include "activities/shopping/tests/OtherProcess.h"
#include "activities/shopping/tests/TestTables.h"
#include "common/core/RunTimeError.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <sstream>

namespace numbrela::testing {

namespace {

ProductTable products(int count, float price)
{
    ProductTable table(1);
    for (int i = 0; i < count; ++i) {
        AddProduct(table, ProductOf("Producto " + std::to_string(i), "Frutería", price));
    }
    return table;
}

std::filesystem::path completeNameOf(const std::filesystem::path& path)
{
    return std::filesystem::path(path) += ".completo";
}

// What a reader finds.
CatalogueContent contentOf(const std::filesystem::path& path)
{
    for (const std::filesystem::path& name : { path, completeNameOf(path) }) {
        if (std::filesystem::exists(name)) {
            return ReadBytes(name);
        }
    }
    return std::nullopt;
}

// For all that is in the folder.
void letTwoMinutesPass(const TemporaryFolder& folder)
{
    constexpr std::chrono::minutes passed(2);
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
        std::filesystem::last_write_time(entry, std::filesystem::file_time_type::clock::now() - passed);
    }
}

// The places of the last two calls of this name.
std::pair<std::ptrdiff_t, std::ptrdiff_t> lastTwo(const std::vector<std::string>& calls, const char* name)
{
    const auto last = std::find(calls.rbegin(), calls.rend(), name);
    const auto before = std::find(std::next(last), calls.rend(), name);
    return { calls.rend() - before - 1, calls.rend() - last - 1 };
}

bool savesOver(const std::filesystem::path& path, const CatalogueContent& expected)
{
    return SaveCatalogueIfUnchanged(path, NewTable(), expected).Saved;
}

constexpr int teachers = 4;
constexpr int productsOfEach = 25;
constexpr std::size_t addedAtOnce = teachers * productsOfEach;

// The tasks of other processes.

std::string saveTask(Fault fault, const std::filesystem::path& path)
{
    return "save " + std::to_string(fault.Call) + ' ' + std::to_string(static_cast<int>(fault.Kind)) + ' '
        + path.string();
}

int doSave(Fault fault, const std::filesystem::path& path)
{
    const CatalogueContent expected = contentOf(path);
    ArmFault(fault);
    return savesOver(path, expected) ? 0 : 1;
}

std::string addTask(int teacher, int count, const std::filesystem::path& path)
{
    return "add " + std::to_string(teacher) + ' ' + std::to_string(count) + ' ' + path.string();
}

// A teacher adds products one by one, and starts again from the new file when another teacher was faster, or the others
// have let nobody in for so long, as they may on a busy machine, that the save was given up.
int doAdd(int teacher, int count, const std::filesystem::path& path)
{
    int patience = 50;
    for (int added = 0; added < count;) {
        CatalogueContent read;
        ProductTable table = LoadCatalogue(path, read);
        AddProduct(table, ProductOf(std::to_string(teacher) + "-" + std::to_string(added), "Kiosko"));
        try {
            added += SaveCatalogueIfUnchanged(path, table, read).Saved ? 1 : 0;
        } catch (const RunTimeError& error) {
            const bool othersSave = std::string(error.what()).find(Reason::BeingSaved) != std::string::npos;
            if (!othersSave || --patience == 0) {
                throw;
            }
        }
    }
    return 0;
}

} // namespace

int DoTask(const std::string& task)
{
    std::istringstream words(task);
    std::string what;
    int first = 0;
    int second = 0;
    std::string path;
    words >> what >> first >> second >> std::ws;
    std::getline(words, path);
    return what == "save" ? doSave({ first, static_cast<FaultKind>(second) }, path) : doAdd(first, second, path);
}

const ProductTable& OldTable()
{
    static const ProductTable table = products(2500, 1);
    return table;
}

const ProductTable& NewTable()
{
    static const ProductTable table = products(3000, 2);
    return table;
}

std::string FailureOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.ErrorKind(), RunTimeError::Kind::File);
        return error.what();
    }
    return "nothing";
}

CatalogueContent CatalogueFaultTest::contentNow() const
{
    return contentOf(path_);
}

void CatalogueFaultTest::putOldFile() const
{
    std::filesystem::remove_all(path_);
    SaveCatalogue(path_, OldTable());
}

void CatalogueFaultTest::putOldFileAsComplete() const
{
    putOldFile();
    std::filesystem::rename(path_, completeNameOf(path_));
}

void CatalogueFaultTest::save(const CatalogueContent& expected) const
{
    EXPECT_TRUE(savesOver(path_, expected));
}

std::vector<std::string> CatalogueFaultTest::callsOfASave() const
{
    const CatalogueContent expected = contentNow();
    ArmFault({ -1, FaultKind::Fail });
    save(expected);
    return DisarmFault();
}

std::string CatalogueFaultTest::failureWith(Fault fault) const
{
    putOldFile();
    const CatalogueContent expected = contentNow();
    ArmFault(fault);
    const std::string said = FailureOf([&] { save(expected); });
    DisarmFault();
    return said;
}

void CatalogueFaultTest::expectStaysWholeWhenKilled(
    FaultKind kind, const std::function<void()>& prepare, const ProductTable& before) const
{
    prepare();
    const bool isThere = contentNow().has_value();
    const std::vector<std::string> calls = callsOfASave();
    const auto [completing, replacing] = lastTwo(calls, RenamingCall);
    for (int call = 0; std::cmp_less(call, calls.size()); ++call) {
        SCOPED_TRACE("call " + std::to_string(call) + ", " + calls[static_cast<std::size_t>(call)]);
        prepare();
        ASSERT_EQ(OtherProcess(saveTask({ call, kind }, path_)).ExitStatus(), KilledStatus);

        const bool isNew = isThere ? call > replacing || (call == replacing && kind != FaultKind::KillBefore)
                                   : call > completing || (call == completing && kind == FaultKind::KillAfter);
        EXPECT_TRUE(LoadCatalogue(path_) == (isNew ? NewTable() : before));
        letTwoMinutesPass(folder_);
        save();
        expectOnly(NewTable());
    }
}

void CatalogueFaultTest::expectOnly(const ProductTable& table) const
{
    EXPECT_TRUE(LoadCatalogue(path_) == table);
    EXPECT_EQ(folder_.Names(), std::vector<std::string> { "productos.dat" });
}

std::size_t CatalogueFaultTest::productsAfterSavesAtOnce() const
{
    std::vector<OtherProcess> processes;
    for (int teacher = 0; teacher < teachers; ++teacher) {
        processes.emplace_back(addTask(teacher, productsOfEach, path_));
    }
    for (OtherProcess& process : processes) {
        EXPECT_EQ(process.ExitStatus(), 0);
    }
    std::set<std::string> names;
    for (const Product& product : LoadCatalogue(path_)) {
        names.insert(product.Nombre.Trimmed());
    }
    EXPECT_EQ(folder_.Names(), std::vector<std::string> { "productos.dat" });
    return names.size();
}

std::string CatalogueFaultTest::unwritable(const std::string& reason) const
{
    return "No se puede escribir el archivo «" + path_.string() + "»: " + reason + ".";
}

std::string CatalogueFaultTest::unreadable(const std::filesystem::path& path, const std::string& reason)
{
    return "No se puede leer el archivo «" + path.string() + "»: " + reason + ".";
}

std::string CatalogueFaultTest::failureToReadWith(Fault fault) const
{
    ArmFault(fault);
    const std::string said = FailureOf([this] { LoadCatalogue(path_); });
    DisarmFault();
    return said;
}

std::vector<std::string> CatalogueFaultTest::callsOfReading() const
{
    ArmFault({ -1, FaultKind::Fail });
    LoadCatalogue(path_);
    return DisarmFault();
}

namespace {

// The old file is read immediately before the new one takes its place, and nobody else can save in between.
TEST_F(CatalogueFaultTest, LocksThenPutsTheNewFileOnTheDiskThenLooksAtTheOldOneThenReplacesIt)
{
    putOldFile();
    EXPECT_EQ(callsOfASave(), CallsOfASave());
}

class CatalogueKillTest : public CatalogueFaultTest, public ::testing::WithParamInterface<FaultKind> { };

TEST_P(CatalogueKillTest, LeavesTheOldFileOrNoneOrTheNewOneWholeWhereverItIsStopped)
{
    expectStaysWholeWhenKilled(
        GetParam(), [this] { putOldFile(); }, OldTable());
    expectStaysWholeWhenKilled(
        GetParam(), [this] { std::filesystem::remove(path_); }, ProductTable(1));
}

TEST_P(CatalogueKillTest, LosesNothingWhereAnotherSaveHasBeenStoppedBefore)
{
    expectStaysWholeWhenKilled(
        GetParam(), [this] { putOldFileAsComplete(); }, OldTable());
    expectStaysWholeWhenKilled(
        GetParam(),
        [this] {
            putOldFile();
            SaveCatalogue(completeNameOf(path_), ProductTable(1)); // whole, but never put into its place
        },
        OldTable());
}

INSTANTIATE_TEST_SUITE_P(
    Moments, CatalogueKillTest, ::testing::Values(FaultKind::KillBefore, FaultKind::KillHalfway, FaultKind::KillAfter));

TEST_F(CatalogueFaultTest, KeepsAFileWholeAndNothingBesideItWhenACallFails)
{
    putOldFile();
    const CatalogueContent old = contentNow();
    const std::vector<std::string> calls = callsOfASave();
    const std::ptrdiff_t replacing = lastTwo(calls, RenamingCall).second;
    for (const auto& [error, reason] : FailuresOfTheDisk()) {
        for (int call = 0; std::cmp_less(call, calls.size()); ++call) {
            const auto index = static_cast<std::size_t>(call);
            if (IsHarmless(calls, index)) {
                continue;
            }
            SCOPED_TRACE(reason + " at call " + std::to_string(call) + ", " + calls[index]);
            EXPECT_EQ(failureWith({ call, FaultKind::Fail, error }), unwritable(reason));
            expectOnly(call > replacing ? NewTable() : OldTable());
            save(old); // also where the new file has taken the name already
            expectOnly(NewTable());
        }
    }
}

TEST_F(CatalogueFaultTest, SaysWhyAFileCannotBeReadWhicheverCallFails)
{
    putOldFile();
    const std::vector<std::string> calls = callsOfReading();
    EXPECT_TRUE(std::find(calls.begin(), calls.end(), ReadingCall) != calls.end());
    for (const auto& [error, reason] : FailuresOfTheDisk()) {
        for (int call = 0; std::cmp_less(call, calls.size()); ++call) {
            const auto index = static_cast<std::size_t>(call);
            SCOPED_TRACE(reason + " at call " + std::to_string(call) + ", " + calls[index]);
            EXPECT_EQ(failureToReadWith({ call, FaultKind::Fail, error }),
                IsHarmless(calls, index) ? "nothing" : unreadable(path_, reason));
        }
    }
    expectOnly(OldTable());
}

TEST_F(CatalogueFaultTest, GoesOnAfterAPartialReadOrWrite)
{
    const std::size_t parts = NewTable().size() * 154 / 1000;
    ArmFault({ 0, FaultKind::Stutter });
    SaveCatalogue(path_, NewTable());
    EXPECT_GT(DisarmFault().size(), parts);
    ArmFault({ 0, FaultKind::Stutter });
    const ProductTable loaded = LoadCatalogue(path_);
    EXPECT_GT(DisarmFault().size(), parts);
    EXPECT_TRUE(loaded == NewTable());
    EXPECT_TRUE(LoadCatalogue(path_) == NewTable());
}

TEST_F(CatalogueFaultTest, KeepsTheNewFileWhenReplacingTheOldOneFailsHalfway)
{
    putOldFile();
    const int replacing = static_cast<int>(lastTwo(callsOfASave(), RenamingCall).second);
    const auto [error, reason] = FailuresOfTheDisk().front();
    EXPECT_EQ(failureWith({ replacing, FaultKind::FailHalfway, error }), unwritable(reason));
    EXPECT_EQ(folder_.Names(), std::vector<std::string> { "productos.dat.completo" });
    EXPECT_TRUE(LoadCatalogue(path_) == NewTable());
    save();
    expectOnly(NewTable());
}

TEST_F(CatalogueFaultTest, SavesOverTheCompleteFileOnlyWhenThatIsExpectedAndPutsItInPlaceInAnyCase)
{
    putOldFileAsComplete();
    const CatalogueContent old = contentNow();
    const SaveOutcome outcome = SaveCatalogueIfUnchanged(path_, NewTable(), std::nullopt);
    EXPECT_FALSE(outcome.Saved);
    EXPECT_EQ(outcome.Content, old);
    expectOnly(OldTable());
}

// Somebody's own copy may have a name like theirs; and a young one may be the file of a save in another system.
TEST_F(CatalogueFaultTest, RemovesWhatStoppedSavesHaveLeftLongAgoAndNothingElse)
{
    const std::vector<const char*> kept { "otros.dat.nuevo-4", "productos.dat.copia", "productos.dat.nuevo-",
        "productos.dat.nuevo-1x", "productos.dat.nuevo-curso" };
    for (const char* name : kept) {
        WriteBytes(folder_ / name, "mine");
    }
    for (const char* name : { "productos.dat.nuevo-1", "productos.dat.nuevo-4194304" }) {
        WriteBytes(folder_ / name, "half");
    }
    letTwoMinutesPass(folder_);
    WriteBytes(folder_ / "productos.dat.nuevo-5", "being written");
    SaveCatalogue(path_, ProductTable(1));
    std::vector<std::string> names(kept.begin(), kept.end());
    names.insert(names.end(), { "productos.dat", "productos.dat.nuevo-5" });
    std::sort(names.begin(), names.end());
    EXPECT_EQ(folder_.Names(), names);
}

TEST_F(CatalogueFaultTest, LosesNothingWhenSeveralProcessesSaveAtOnce)
{
    EXPECT_EQ(productsAfterSavesAtOnce(), addedAtOnce);
}

TEST_F(CatalogueFaultTest, LosesNothingWhenSeveralProcessesFindTheFileGoneAndTheNextOneComplete)
{
    putOldFileAsComplete();
    EXPECT_EQ(productsAfterSavesAtOnce(), OldTable().size() + addedAtOnce);
}

} // namespace

} // namespace numbrela::testing
