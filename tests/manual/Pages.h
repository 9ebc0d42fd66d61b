#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// The pages of the manual as its author wrote them, in Markdown.
namespace numbrela::testing {

// A fenced block: an example that the program works out as well.
struct Example {
    std::string Kind; // what stands behind the opening fence: "suma", "división restas"
    std::string Text; // its lines, without blanks at their ends
    std::string Place; // for messages: "profesorado.md:120"
};

struct ManualTable {
    std::string Heading; // the nearest one above the table
    std::vector<std::vector<std::string>> Rows; // the row of titles first; cells without blanks around them
    std::string Place;
};

struct Page {
    std::filesystem::path Path;
    std::string Name; // below docs/manual: "alumno/sumas.md"
    std::vector<Example> Examples;
    std::vector<ManualTable> Tables;
    std::string Prose; // all but the examples
    std::vector<std::string> Quotes; // what stands between « and », with those inside it; blanks collapsed
    std::vector<std::string> Links; // addresses of links
    std::vector<std::string> Pictures; // addresses of pictures
};

std::filesystem::path ManualFolder();

// The other documents of the project that are read in its repository.
std::vector<Page> OtherDocuments();

// All pages, sorted by name.
const std::vector<Page>& Pages();

// The text with each run of blanks and line ends made one blank, and none at its ends.
std::string Collapsed(std::string_view text);

} // namespace numbrela::testing
