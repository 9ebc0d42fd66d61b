#include "common/screen/windows/ScanCodes.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <vector>

namespace numbrela {

namespace {

using ScanCodes = std::vector<quint32>;

constexpr quint32 digit1 = 0x02;
constexpr quint32 enter = 0x1C;
constexpr quint32 enterOfKeypad = 0x11C;
constexpr quint32 rightControl = 0x11D;
constexpr quint32 home = 0x147;
constexpr quint32 homeOfKeypad = 0x47;

TEST(ScanCodesTest, AVirtualKeyOfTwoKeysStandsForTheOneThatHasBeenPressed)
{
    EXPECT_EQ(ScanCodesOf({ VK_RETURN }, { digit1, enterOfKeypad }), ScanCodes { enterOfKeypad });
    EXPECT_EQ(ScanCodesOf({ VK_RETURN }, { enter, home }), ScanCodes { enter });
    EXPECT_EQ(ScanCodesOf({ VK_HOME }, { homeOfKeypad }), ScanCodes { homeOfKeypad });
    EXPECT_EQ(ScanCodesOf({ VK_HOME }, { home }), ScanCodes { home });
    EXPECT_EQ(ScanCodesOf({ VK_RETURN }, { enter, enterOfKeypad }), (ScanCodes { enter, enterOfKeypad }));
}

TEST(ScanCodesTest, AVirtualKeyOfTwoKeysOfWhichNoneHasBeenPressedStandsForNone)
{
    for (const int key :
        { VK_RETURN, VK_PRIOR, VK_NEXT, VK_END, VK_HOME, VK_LEFT, VK_UP, VK_RIGHT, VK_DOWN, VK_INSERT, VK_DELETE }) {
        EXPECT_EQ(ScanCodesOf({ key }, { digit1 }), ScanCodes {}) << key;
    }
}

TEST(ScanCodesTest, AnyOtherKeyHasItsCodeWhetherItIsKnownOrNot)
{
    EXPECT_EQ(ScanCodesOf({ '1' }, {}), ScanCodes { digit1 });
    EXPECT_EQ(ScanCodesOf({ '1', VK_RETURN }, { digit1 }), ScanCodes { digit1 });
    EXPECT_EQ(ScanCodesOf({ VK_NUMPAD7 }, {}), ScanCodes { homeOfKeypad });
    EXPECT_EQ(ScanCodesOf({ VK_CONTROL, VK_RCONTROL }, {}), ScanCodes { rightControl });
}

TEST(ScanCodesTest, AKeyThatIsKnownAndNotDownIsLeftOut)
{
    EXPECT_EQ(ScanCodesOf({}, { digit1, enter }), ScanCodes {});
}

} // namespace

} // namespace numbrela
