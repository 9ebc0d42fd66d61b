#include "tests/manual/Pages.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace numbrela::testing {

namespace {

constexpr std::string_view fence = "```";
constexpr std::string_view opening = "«";
constexpr std::string_view closing = "»";

bool isBlank(char character)
{
    return character == ' ' || character == '\n' || character == '\r' || character == '\t';
}

std::string withoutBlanksBehind(std::string line)
{
    while (!line.empty() && isBlank(line.back())) {
        line.pop_back();
    }
    return line;
}

std::vector<std::string> cellsOf(const std::string& line)
{
    std::vector<std::string> cells;
    std::size_t begin = 1;
    for (std::size_t end = line.find('|', begin); end != std::string::npos; end = line.find('|', begin)) {
        cells.push_back(Collapsed(line.substr(begin, end - begin)));
        begin = end + 1;
    }
    return cells;
}

bool isRuleOfTable(const std::string& line)
{
    return line.starts_with('|') && line.find_first_not_of("|-: ") == std::string::npos;
}

// A quote may hold others, which are quotes of their own, too.
std::vector<std::string> quotesIn(std::string_view text)
{
    std::vector<std::string> quotes;
    std::vector<std::size_t> begins;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text.substr(at).starts_with(opening)) {
            begins.push_back(at + opening.size());
        } else if (text.substr(at).starts_with(closing) && !begins.empty()) {
            quotes.push_back(Collapsed(text.substr(begins.back(), at - begins.back())));
            begins.pop_back();
        }
    }
    return quotes;
}

// Reads a page line by line.
class Reader {
public:
    explicit Reader(Page& page)
        : page_(page)
    {
    }

    void Read()
    {
        std::ifstream file(page_.Path);
        for (std::string line; std::getline(file, line);) {
            ++number_;
            readLine(withoutBlanksBehind(line));
        }
        page_.Quotes = quotesIn(page_.Prose);
        findAddresses();
    }

private:
    std::string place() const { return page_.Name + ':' + std::to_string(number_); }

    void readLine(const std::string& line)
    {
        if (line.starts_with(fence)) {
            inExample_ = !inExample_;
            if (inExample_) {
                page_.Examples.push_back({ line.substr(fence.size()), {}, place() });
            }
            return;
        }
        if (inExample_) {
            std::string& text = page_.Examples.back().Text;
            text += (text.empty() ? "" : "\n") + line;
            return;
        }
        page_.Prose += line + '\n';
        if (line.starts_with('#')) {
            heading_ = Collapsed(line.substr(std::min(line.find_first_not_of('#'), line.size())));
        }
        readRow(line);
    }

    void readRow(const std::string& line)
    {
        if (!line.starts_with('|')) {
            inTable_ = false;
            return;
        }
        if (isRuleOfTable(line)) {
            return;
        }
        if (!inTable_) {
            page_.Tables.push_back({ heading_, {}, place() });
            inTable_ = true;
        }
        page_.Tables.back().Rows.push_back(cellsOf(line));
    }

    // Markdown's "[text](address)" and "![text](address)"; a text may hold a picture.
    void findAddresses()
    {
        const std::string& prose = page_.Prose;
        for (std::size_t at = prose.find("]("); at != std::string::npos; at = prose.find("](", at + 2)) {
            const std::size_t end = prose.find(')', at);
            const std::string address = prose.substr(at + 2, end - at - 2);
            const std::size_t begin = prose.rfind('[', at);
            const bool isPicture = begin > 0 && begin != std::string::npos && prose[begin - 1] == '!';
            (isPicture ? page_.Pictures : page_.Links).push_back(address);
        }
    }

    Page& page_;
    std::string heading_;
    int number_ = 0;
    bool inExample_ = false;
    bool inTable_ = false;
};

Page read(const std::filesystem::path& path, const std::filesystem::path& folder)
{
    Page page { .Path = path,
        .Name = std::filesystem::relative(path, folder).generic_string(),
        .Examples = {},
        .Tables = {},
        .Prose = {},
        .Quotes = {},
        .Links = {},
        .Pictures = {} };
    Reader(page).Read();
    return page;
}

std::vector<Page> readPages()
{
    std::vector<Page> pages;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(ManualFolder())) {
        if (entry.path().extension() == ".md") {
            pages.push_back(read(entry.path(), ManualFolder()));
        }
    }
    std::sort(pages.begin(), pages.end(), [](const Page& a, const Page& b) { return a.Name < b.Name; });
    return pages;
}

} // namespace

std::filesystem::path ManualFolder()
{
    return MANUAL_FOLDER;
}

std::vector<Page> OtherDocuments()
{
    const std::filesystem::path top = PROGRAM_FOLDER;
    std::vector<Page> documents;
    for (const char* name : { "README.md", "CONTRIBUTING.md", "docs/architecture.md", "docs/quality.md" }) {
        documents.push_back(read(top / name, top));
    }
    return documents;
}

const std::vector<Page>& Pages()
{
    static const std::vector<Page> pages = readPages();
    return pages;
}

std::string Collapsed(std::string_view text)
{
    std::string collapsed;
    for (const char character : text) {
        if (!isBlank(character)) {
            collapsed += character;
        } else if (!collapsed.empty() && collapsed.back() != ' ') {
            collapsed += ' ';
        }
    }
    return withoutBlanksBehind(collapsed);
}

} // namespace numbrela::testing
