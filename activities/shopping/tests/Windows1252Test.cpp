#include "activities/shopping/core/Windows1252.h"

#include "activities/shopping/core/Catalogue.h"

#include <gtest/gtest.h>

#include <set>

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

TEST(Windows1252, ReadsBackEveryByte)
{
    std::set<std::string> characters;
    for (int value = 0; value < 256; ++value) {
        const std::string utf8 = Utf8FromWindows1252(byte(value));
        EXPECT_EQ(Windows1252FromUtf8(utf8), byte(value)) << value;
        characters.insert(utf8);
    }
    EXPECT_EQ(characters.size(), 256U);
}

TEST(Windows1252, ReadsAsciiAndLatin1AsTheCharactersOfTheSameNumber)
{
    for (int value = 0; value < 0x80; ++value) {
        EXPECT_EQ(Utf8FromWindows1252(byte(value)), byte(value));
    }
    for (int value = 0xA0; value < 0x100; ++value) {
        EXPECT_EQ(Utf8FromWindows1252(byte(value)), byte(0xC0 | (value >> 6)) + byte(0x80 | (value & 0x3F)));
    }
}

TEST(Windows1252, KeepsTheFiveBytesThatHaveNoCharacter)
{
    EXPECT_EQ(Utf8FromWindows1252("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
}

TEST(Windows1252, WritesAQuestionMarkForACharacterWithoutAPlace)
{
    EXPECT_EQ(Windows1252FromUtf8("1 Ω, 2 日本, 3 🍞."), "1 ?, 2 ??, 3 ?.");
    EXPECT_EQ(Windows1252FromUtf8("\u0080\u0093\u009F"), "???"); // their bytes are other characters'
    EXPECT_EQ(Windows1252FromUtf8("\u0100"), "?");
}

TEST(Windows1252, WritesAQuestionMarkForEachByteThatIsNotUtf8)
{
    EXPECT_EQ(Windows1252FromUtf8("a\xFF"
                                  "b"),
        "a?b");
    EXPECT_EQ(Windows1252FromUtf8("\xED"), "?"); // cut off behind its first byte
    EXPECT_EQ(Windows1252FromUtf8("\xE2\x82"), "??");
    EXPECT_EQ(Windows1252FromUtf8("\xC3x"), "?x");
    EXPECT_EQ(Windows1252FromUtf8("\x80\xBF"), "??");
    EXPECT_EQ(Windows1252FromUtf8("\xC1\x81"), "??"); // an "A" in two bytes
    EXPECT_EQ(Windows1252FromUtf8("\xF8\x88\x80\x80\x80"), "?????");
    EXPECT_EQ(Windows1252FromUtf8("\xF5\x80\x80\x80"), "????");
    EXPECT_EQ(Windows1252FromUtf8("\xED\xA0\x80"), "???"); // the first surrogate
    EXPECT_EQ(Windows1252FromUtf8("\xED\xBF\xBF"), "???"); // the last one
    EXPECT_EQ(Windows1252FromUtf8("\xF4\x90\x80\x80"), "????"); // one beyond the last character
    EXPECT_EQ(Windows1252FromUtf8("\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF"), "???"); // characters beside them
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

TEST(FixedText, HoldsNulCharactersUntilItIsSet)
{
    const FixedText<3> unset;
    EXPECT_TRUE(unset.IsUnset());
    EXPECT_EQ(unset.Text(), std::string(3, '\0'));
    EXPECT_EQ(unset.Trimmed(), "");
    EXPECT_FALSE(FixedText<3>("").IsUnset());
    EXPECT_FALSE(FixedText<3>("a") == unset);
}

TEST(FixedText, TrimsBlanksAloneFromATextThatWasSet)
{
    EXPECT_EQ(FixedText<6>("a\tb").Trimmed(), "a\tb");
    EXPECT_EQ(FixedText<6>("\ta\n").Trimmed(), "\ta\n");
}

} // namespace

} // namespace numbrela
