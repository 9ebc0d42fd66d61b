#include "activities/shopping/core/Windows1252.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace numbrela {

namespace {

// What the bytes 80 to 9F stand for; every other byte stands for the character of the same number.
constexpr std::array<char16_t, 32> upperControls {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, // 98
};
constexpr unsigned firstUpperControl = 0x80;
constexpr unsigned behindUpperControls = firstUpperControl + upperControls.size();

constexpr char32_t notUtf8 = 0xFFFD;

unsigned valueOf(char byte)
{
    return static_cast<unsigned char>(byte);
}

char32_t characterOf(char byte)
{
    const unsigned value = valueOf(byte);
    return value >= firstUpperControl && value < behindUpperControls ? upperControls[value - firstUpperControl] : value;
}

char byteOf(char32_t character)
{
    const auto* upper = std::find(upperControls.begin(), upperControls.end(), character);
    if (upper != upperControls.end()) {
        return static_cast<char>(firstUpperControl + static_cast<unsigned>(upper - upperControls.begin()));
    }
    const bool hasOwnNumber = character < firstUpperControl || (character >= behindUpperControls && character <= 0xFF);
    return hasOwnNumber ? static_cast<char>(character) : '?';
}

void appendUtf8(std::string& text, char32_t character)
{
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6));
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | (character >> 12));
        text += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
}

// How many bytes the character takes that begins with this one; 0 when none begins so.
std::size_t lengthFrom(unsigned firstByte)
{
    if (firstByte < 0x80) {
        return 1;
    }
    if (firstByte < 0xC0 || firstByte > 0xF7) {
        return 0;
    }
    return firstByte < 0xE0 ? 2 : (firstByte < 0xF0 ? 3 : 4);
}

// Whether there is a character of this number: none beyond the last plane, and none among the surrogates.
bool isScalar(char32_t number)
{
    return number <= 0x10FFFF && (number < 0xD800 || number > 0xDFFF);
}

// Takes the first character off the text.
char32_t takeCharacter(std::string_view& text)
{
    const unsigned first = valueOf(text.front());
    const std::size_t length = lengthFrom(first);
    char32_t character = length <= 1 ? first : first & (0x7FU >> length);
    bool whole = length > 0 && length <= text.size();
    for (std::size_t i = 1; whole && i < length; ++i) {
        const unsigned next = valueOf(text[i]);
        whole = (next & 0xC0U) == 0x80U;
        character = (character << 6) | (next & 0x3FU);
    }
    constexpr std::array<char32_t, 5> leastOfLength { 0, 0, 0x80, 0x800, 0x10000 };
    whole = whole && character >= leastOfLength[length] && isScalar(character);
    text.remove_prefix(whole ? length : 1);
    return whole ? character : notUtf8;
}

} // namespace

std::string Utf8FromWindows1252(std::string_view bytes)
{
    std::string utf8;
    utf8.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        appendUtf8(utf8, characterOf(byte));
    }
    return utf8;
}

std::string Windows1252FromUtf8(std::string_view utf8)
{
    std::string bytes;
    bytes.reserve(utf8.size());
    while (!utf8.empty()) {
        bytes += byteOf(takeCharacter(utf8));
    }
    return bytes;
}

} // namespace numbrela
