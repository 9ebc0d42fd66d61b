#include "common/core/TimeOfDay.h"

#include "tests/support/Environment.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>
#include <utility>

namespace numbrela {

namespace {

using namespace testing;

TEST(TimeOfDay, SeedIsTheProductOfHourMinuteAndSecondEachOneMore)
{
    EXPECT_EQ(TimeOfDay().SeedProduct(), 1) << "midnight until it is set";
    EXPECT_EQ(TimeOfDay().SecondsSinceMidnight, 0);
    for (const auto& [hour, minute, second, seed] : { std::array { 0, 0, 1, 2 }, { 0, 1, 0, 2 }, { 1, 0, 0, 2 },
             { 10, 20, 30, 7161 }, { 12, 0, 59, 780 }, { 23, 59, 58, 84960 }, { 23, 59, 59, 86400 } }) {
        EXPECT_EQ((TimeOfDay { hour, minute, second, 0 }.SeedProduct()), seed);
        EXPECT_EQ((TimeOfDay { hour, minute, second, 37230.999 }.SeedProduct()), seed) << "with a fraction";
    }
}

double universalSeconds()
{
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

TEST(SystemClock, TellsHourMinuteAndSecondOfADayAndTheirSecondsSinceMidnightWithAFraction)
{
    const SystemClock clock;
    for (int i = 0; i < 1000; ++i) {
        const TimeOfDay now = clock.Now();
        ASSERT_TRUE(now.Hour >= 0 && now.Hour <= 23) << now.Hour;
        ASSERT_TRUE(now.Minute >= 0 && now.Minute <= 59) << now.Minute;
        ASSERT_TRUE(now.Second >= 0 && now.Second <= 59) << now.Second;
        ASSERT_EQ(std::floor(now.SecondsSinceMidnight), now.Hour * 3600 + now.Minute * 60 + now.Second);
    }
}

TEST(SystemClock, TellsTheFractionOfTheSecond)
{
    const SystemClock clock;
    const auto fractionOf = [](double seconds) { return seconds - std::floor(seconds); };
    // The second may end, or the machine may set its clock, between two readings; hardly a hundred times in a row.
    bool seenBetween = false;
    for (int attempt = 0; attempt < 100 && !seenBetween; ++attempt) {
        const double before = fractionOf(universalSeconds());
        const double fraction = fractionOf(clock.Now().SecondsSinceMidnight);
        const double after = fractionOf(universalSeconds());
        constexpr double rounding = 1e-6; // of the seconds since 1970 in a double
        seenBetween = fraction >= before - rounding && fraction <= after + rounding;
    }
    EXPECT_TRUE(seenBetween);
}

// Changes the local time zone as long as it lives.
class TimeZone {
public:
    explicit TimeZone(const char* zone)
    {
        if (const char* before = std::getenv("TZ")) {
            before_ = before;
        }
        SetEnvironment("TZ", zone);
        tzset();
    }
    ~TimeZone()
    {
        SetEnvironment("TZ", before_ ? before_->c_str() : nullptr);
        tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

private:
    std::optional<std::string> before_;
};

TEST(SystemClock, TellsTheLocalTime)
{
    for (const auto& [zone, ahead] : // in seconds
        { std::pair("UTC0", 0), { "IST-5:30", 19800 }, { "SST11", -39600 }, { "LIT-14", 50400 } }) {
        const TimeZone moved(zone);
        const double before = universalSeconds();
        const double local = SystemClock().Now().SecondsSinceMidnight;
        const double after = universalSeconds();

        // Around the clock, the local time lies between the two universal times moved by the zone. A minute more on
        // both sides forgives a machine that sets its clock right at this moment.
        constexpr double day = 86400;
        const double passed = std::remainder(local - (before + ahead), day);
        EXPECT_GE(passed, -60) << zone;
        EXPECT_LE(passed, after - before + 60) << zone;
    }
}

} // namespace

} // namespace numbrela
