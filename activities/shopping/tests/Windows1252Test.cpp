#include "activities/shopping/core/Windows1252.h"

#include "activities/shopping/core/Catalogue.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace numbrela {

namespace {

std::string byte(int value)
{
    return std::string(1, static_cast<char>(value));
}

TEST(Windows1252, WritesWhatASpanishCatalogueIsMadeOf)
{
    EXPECT_EQ(Windows1252FromUtf8("Panadería"),
        "Panader\xED"
        "a");
    EXPECT_EQ(Windows1252FromUtf8("ÁÉÍÓÚÜÑáéíóúüñ¿¡ªº"),
        "\xC1\xC9\xCD\xD3\xDA\xDC\xD1\xE1\xE9\xED\xF3\xFA\xFC\xF1\xBF\xA1\xAA\xBA");
    EXPECT_EQ(Windows1252FromUtf8("€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ"),
        "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F");
}

TEST(Windows1252, ReadsBackEveryByteAsciiAndLatin1AsTheCharactersOfTheSameNumber)
{
    std::set<std::string> characters;
    for (int value = 0; value < 256; ++value) {
        const std::string utf8 = Utf8FromWindows1252(byte(value));
        EXPECT_EQ(Windows1252FromUtf8(utf8), byte(value)) << value;
        characters.insert(utf8);
        if (value < 0x80) {
            EXPECT_EQ(utf8, byte(value));
        } else if (value >= 0xA0) {
            EXPECT_EQ(utf8, byte(0xC0 | (value >> 6)) + byte(0x80 | (value & 0x3F)));
        }
    }
    EXPECT_EQ(characters.size(), 256U);
    EXPECT_EQ(Utf8FromWindows1252("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D")
        << "the five bytes that have no character";
}

TEST(Windows1252, WritesAQuestionMarkForACharacterWithoutAPlaceAndForEachByteThatIsNotUtf8)
{
    const std::pair<const char*, const char*> cases[] = {
        { "1 Ω, 2 日本, 3 🍞.", "1 ?, 2 ??, 3 ?." },
        { "\u0080\u0093\u009F", "???" }, // their bytes are other characters'
        { "\u0100", "?" }, { "a\xFF!", "a?!" }, { "\xED", "?" }, // cut off behind its first byte
        { "\xE2\x82", "??" }, { "\xC3x", "?x" }, { "\x80\xBF", "??" }, { "\xC1\x81", "??" }, // an "A" in two bytes
        { "\xF8\x88\x80\x80\x80", "?????" }, { "\xF5\x80\x80\x80", "????" },
        { "\xED\xA0\x80", "???" }, // the first surrogate
        { "\xED\xBF\xBF", "???" }, // the last one
        { "\xF4\x90\x80\x80", "????" }, // one beyond the last character
        { "\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF", "???" }, // characters beside them
    };
    for (const auto& [text, written] : cases) {
        EXPECT_EQ(Windows1252FromUtf8(text), written);
    }
}

TEST(FixedText, IsPaddedWithBlanksAndCutAtItsWidth)
{
    const FixedText<5> text("pan");
    EXPECT_EQ(text.Text(), "pan  ");
    EXPECT_EQ(text.Trimmed(), "pan");
    EXPECT_EQ(FixedText<5>("").Text(), "     ");
    EXPECT_EQ(FixedText<5>("").Trimmed(), "");
    EXPECT_EQ(FixedText<5>("panes").Text(), "panes");
    EXPECT_EQ(FixedText<5>("panecillo").Text(), "panec");
    EXPECT_EQ(FixedText<5>("niñería").Text(), "niñer"); // characters are counted, not bytes
    EXPECT_EQ(FixedText<5>(" té ").Text(), " té  ");
    EXPECT_EQ(FixedText<5>(" té ").Trimmed(), "té");
}

TEST(FixedText, HoldsNulCharactersUntilItIsSetAndThenTrimsBlanksAlone)
{
    const FixedText<3> unset;
    EXPECT_TRUE(unset.IsUnset());
    EXPECT_EQ(unset.Text(), std::string(3, '\0'));
    EXPECT_EQ(unset.Trimmed(), "");
    EXPECT_FALSE(FixedText<3>("").IsUnset());
    EXPECT_FALSE(FixedText<3>("a") == unset);
    EXPECT_EQ(FixedText<6>("a\tb").Trimmed(), "a\tb");
    EXPECT_EQ(FixedText<6>("\ta\n").Trimmed(), "\ta\n");
}

} // namespace

} // namespace numbrela
