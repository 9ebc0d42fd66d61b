#pragma once

#include <string>
#include <string_view>

// The 8-bit encoding of western Windows, which the catalogue file is written in. Each of its 256 bytes stands for a
// character of its own: the five that the encoding leaves free stand for the control characters U+0081, U+008D, U+008F,
// U+0090 and U+009D, so that no byte is lost on the way to UTF-8 and back.
namespace numbrela {

std::string Utf8FromWindows1252(std::string_view bytes);

// A character that the encoding has no place for becomes "?", and so does each byte that is not UTF-8.
std::string Windows1252FromUtf8(std::string_view utf8);

} // namespace numbrela
