#include "tests/manual/ProgramTexts.h"

#include "tests/manual/Pages.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace numbrela::testing {

namespace {

constexpr std::string_view omission = "…";

std::string contentOf(const std::filesystem::path& path)
{
    std::ostringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

// Leaves strings and single characters as they are, takes comments and #include lines out.
std::string withoutComments(const std::string& source)
{
    std::string rest;
    std::istringstream lines(source);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("#include")) {
            continue;
        }
        char quote = '\0';
        std::size_t at = 0;
        for (; at < line.size(); ++at) {
            const char character = line[at];
            if (quote == '\0' && line.substr(at).starts_with("//")) {
                break;
            }
            if (quote != '\0' && character == '\\') {
                ++at;
            } else if (character == quote) {
                quote = '\0';
            } else if (quote == '\0' && (character == '"' || character == '\'')) {
                quote = character;
            }
        }
        rest += line.substr(0, at) + '\n';
    }
    return rest;
}

// The text without the marks of access keys, "%1" made an omission.
std::string asSeen(const std::string& literal, bool& isCaption)
{
    std::string text;
    for (std::size_t at = 0; at < literal.size(); ++at) {
        const bool last = at + 1 == literal.size();
        const auto next = static_cast<unsigned char>(last ? '\0' : literal[at + 1]);
        if (literal[at] == '&' && (std::isalnum(next) != 0 || next >= 0x80)) {
            isCaption = true;
        } else if (literal[at] == '%' && std::isdigit(next) != 0) {
            text += omission;
            ++at;
        } else {
            text += literal[at];
        }
    }
    return text;
}

void addText(std::vector<ProgramText>& texts, const std::string& file, const std::string& literal)
{
    bool isCaption = false;
    std::istringstream lines(asSeen(literal, isCaption));
    for (std::string line; std::getline(lines, line);) {
        for (const std::string& part : PartsOf(line)) {
            texts.push_back({ file, part, isCaption });
        }
    }
}

char unescaped(char character)
{
    switch (character) {
    case 'n':
    case 'r':
        return '\n';
    default:
        return character;
    }
}

// Strings behind one another, with nothing but blanks between them, are one.
void addTextsOf(const std::filesystem::path& path, std::vector<ProgramText>& texts)
{
    const std::string source = withoutComments(contentOf(path));
    const std::string file = path.filename().string();
    std::string literal;
    bool open = false;
    bool any = false;
    for (std::size_t at = 0; at < source.size(); ++at) {
        const char character = source[at];
        if (open && character == '\\') {
            literal += unescaped(source[++at]);
        } else if (character == '\'' && !open && at + 2 < source.size()
            && (source[at + 2] == '\'' || source[at + 1] == '\\')) {
            at += source[at + 1] == '\\' ? 3 : 2; // a single character
        } else if (character == '"') {
            open = !open;
            any = true;
        } else if (open) {
            literal += character;
        } else if (any && std::isspace(static_cast<unsigned char>(character)) == 0) {
            addText(texts, file, literal);
            literal.clear();
            any = false;
        }
    }
}

void addCatalogue(std::vector<ProgramText>& texts)
{
    const std::string file = "productos.txt";
    std::ifstream catalogue(std::filesystem::path(PROGRAM_FOLDER) / "activities/shopping/catalogue" / file);
    for (std::string line; std::getline(catalogue, line);) {
        if (line.starts_with('#')) {
            continue;
        }
        std::istringstream fields(line);
        for (std::string field; std::getline(fields, field, ';');) {
            addText(texts, file, field);
        }
    }
}

std::vector<ProgramText> readTexts()
{
    std::vector<ProgramText> texts;
    for (const char* folder : { "app", "common", "activities" }) {
        for (const auto& entry :
            std::filesystem::recursive_directory_iterator(std::filesystem::path(PROGRAM_FOLDER) / folder)) {
            const std::filesystem::path& path = entry.path();
            const bool isSource = path.extension() == ".cpp" || path.extension() == ".h";
            if (isSource && path.generic_string().find("/tests/") == std::string::npos) {
                addTextsOf(path, texts);
            }
        }
    }
    addCatalogue(texts);
    return texts;
}

} // namespace

const std::vector<ProgramText>& ProgramTexts()
{
    static const std::vector<ProgramText> texts = readTexts();
    return texts;
}

std::vector<std::string> PartsOf(std::string_view quote)
{
    std::vector<std::string> parts;
    while (true) {
        const std::size_t end = quote.find(omission);
        std::string part = Collapsed(quote.substr(0, end));
        if (!part.empty()) {
            parts.push_back(std::move(part));
        }
        if (end == std::string_view::npos) {
            return parts;
        }
        quote.remove_prefix(end + omission.size());
    }
}

} // namespace numbrela::testing
