#pragma once

#include "activities/shopping/core/Catalogue.h"
#include "activities/shopping/tests/FileFaults.h"
#include "activities/shopping/tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace numbrela::testing {

// What a test of faults has to know of the system.

std::vector<std::string> CallsOfASave(); // over an old file, in their order
extern const char* const ReadingCall;
extern const char* const RenamingCall; // tells that the new file is whole and, the last one, puts it over the old one
std::vector<std::pair<int, std::string>> FailuresOfTheDisk(); // the system's number, and what the program says

// Whether nothing is lost when this call fails, so that the save goes on.
bool IsHarmless(const std::vector<std::string>& calls, std::size_t call);

const ProductTable& OldTable();
const ProductTable& NewTable(); // longer

// The text of the error that the action threw, or "nothing".
std::string FailureOf(const std::function<void()>& action);

// Saves of a catalogue while something goes wrong.
class CatalogueFaultTest : public ::testing::Test {
protected:
    CatalogueContent contentNow() const;

    void putOldFile() const;

    // As the editor saves: over what it has read.
    void save() const { save(contentNow()); }
    void save(const CatalogueContent& expected) const;

    // What a whole save calls, in its order.
    std::vector<std::string> callsOfASave() const;

    // What is said when a call of a save over the old file fails.
    std::string failureWith(Fault fault) const;

    // As on a file system that had not put the new file into the place of the old one when it was stopped.
    void putOldFileAsComplete() const;

    void expectStaysWholeWhenKilled(
        FaultKind kind, const std::function<void()>& prepare, const ProductTable& before) const;

    // Several processes add products at once. Returns how many there are then.
    std::size_t productsAfterSavesAtOnce() const;

    void expectOnly(const ProductTable& table) const;

    std::string unwritable(const std::string& reason) const;
    static std::string unreadable(const std::filesystem::path& path, const std::string& reason);

    // What is said when a call of reading the file fails.
    std::string failureToReadWith(Fault fault) const;
    std::vector<std::string> callsOfReading() const;

    TemporaryFolder folder_;
    std::filesystem::path path_ = folder_ / "productos.dat";
};

} // namespace numbrela::testing
