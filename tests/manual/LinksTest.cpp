#include "tests/manual/Pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace numbrela::testing {

namespace {

std::filesystem::path targetOf(const Page& page, const std::string& address)
{
    return std::filesystem::weakly_canonical(page.Path.parent_path() / address);
}

const Page* pageAt(const std::filesystem::path& path)
{
    for (const Page& page : Pages()) {
        if (std::filesystem::weakly_canonical(page.Path) == path) {
            return &page;
        }
    }
    return nullptr;
}

void follow(const Page& page, std::set<std::string>& reached)
{
    if (!reached.insert(page.Name).second) {
        return;
    }
    for (const std::string& address : page.Links) {
        if (const Page* next = pageAt(targetOf(page, address))) {
            follow(*next, reached);
        }
    }
}

TEST(ManualLinksTest, EachLinkLeadsToAPageOfTheManual)
{
    for (const Page& page : Pages()) {
        EXPECT_FALSE(page.Links.empty()) << page.Name << " leads nowhere, not even back";
        for (const std::string& address : page.Links) {
            EXPECT_NE(pageAt(targetOf(page, address)), nullptr) << page.Name << " leads to " << address;
        }
    }
}

TEST(ManualLinksTest, EachPageIsReachedFromTheFirst)
{
    std::set<std::string> reached;
    for (const Page& page : Pages()) {
        if (page.Name == "README.md") {
            follow(page, reached);
        }
    }
    for (const Page& page : Pages()) {
        EXPECT_TRUE(reached.contains(page.Name)) << page.Name;
    }
}

TEST(ManualLinksTest, PicturesAreThoseThatThePagesShowAndNoOthers)
{
    const std::filesystem::path folder = std::filesystem::weakly_canonical(ManualFolder() / "pictures");
    std::set<std::filesystem::path> shown;
    for (const Page& page : Pages()) {
        for (const std::string& address : page.Pictures) {
            const std::filesystem::path picture = targetOf(page, address);
            EXPECT_TRUE(exists(picture)) << page.Name << " shows " << address;
            EXPECT_EQ(picture.parent_path(), folder) << page.Name << " shows " << address;
            shown.insert(picture);
        }
    }
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::filesystem::path picture = std::filesystem::path(entry.path()).replace_extension(".png");
        EXPECT_TRUE(shown.contains(picture)) << "no page shows " << entry.path().filename();
    }
}

TEST(ManualLinksTest, TheOtherDocumentsLeadToFilesAsWell)
{
    for (const Page& document : OtherDocuments()) {
        for (const auto& addresses : { document.Links, document.Pictures }) {
            for (const std::string& address : addresses) {
                EXPECT_TRUE(exists(targetOf(document, address))) << document.Name << " leads to " << address;
            }
        }
    }
    const Page readme = OtherDocuments().front();
    EXPECT_GE(readme.Pictures.size(), 3U);
    EXPECT_NE(std::find(readme.Links.begin(), readme.Links.end(), "docs/manual/README.md"), readme.Links.end());
}

} // namespace

} // namespace numbrela::testing
