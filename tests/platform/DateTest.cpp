// The Date value: calendar parts and serial numbers.
#include <gtest/gtest.h>

#include <limits>

#include "PlatformTestSupport.h"
#include "ZARODatos/platform/Date.h"

using namespace OVT_ZARO;

namespace {

void ExpectParts(const DateParts& p, int y, int mo, int d, int h = 0, int mi = 0, int s = 0) {
    EXPECT_EQ(p.Year, y);
    EXPECT_EQ(p.Month, mo);
    EXPECT_EQ(p.Day, d);
    EXPECT_EQ(p.Hour, h);
    EXPECT_EQ(p.Minute, mi);
    EXPECT_EQ(p.Second, s);
}

}  // namespace

TEST(Date, ZeroDateIs30December1899) {
    EXPECT_EQ(Date::FromParts(1899, 12, 30).Serial(), 0.0);
    EXPECT_TRUE(ZeroDate.IsZero());
    ExpectParts(ZeroDate.Split(), 1899, 12, 30);
}

TEST(Date, FromPartsGivesDaysSinceTheZeroDate) {
    EXPECT_EQ(Date::FromParts(2026, 3, 1).Serial(), 46082.0);
    EXPECT_EQ(Date::FromParts(2024, 3, 15).Serial(), 45366.0);
    EXPECT_EQ(Date::FromParts(1899, 12, 31).Serial(), 1.0);
    EXPECT_EQ(Date::FromParts(100, 1, 1).Serial(), -657434.0);
    EXPECT_EQ(Date::FromParts(9999, 12, 31).Serial(), 2958465.0);
}

TEST(Date, FromPartsAddsTheTimeAsAFractionOfADay) {
    EXPECT_DOUBLE_EQ(Date::FromParts(1899, 12, 30, 12).Serial(), 0.5);
    EXPECT_DOUBLE_EQ(Date::FromParts(2024, 3, 15, 6).Serial(), 45366.25);
}

TEST(Date, BeforeTheZeroDateTheTimeStillCountsForward) {
    // -1.25 is 29 December 1899 at 06:00.
    EXPECT_DOUBLE_EQ(Date::FromParts(1899, 12, 29, 6).Serial(), -1.25);
    ExpectParts(Date(-1.25).Split(), 1899, 12, 29, 6);
    // -0.5 is the zero day at noon, as 0.5 is.
    ExpectParts(Date(-0.5).Split(), 1899, 12, 30, 12);
}

TEST(Date, DatePartAndTimePartOfANegativeSerial) {
    EXPECT_EQ(Date(-1.25).DatePart(), -1.0);
    EXPECT_DOUBLE_EQ(Date(-1.25).TimePart(), 0.25);
    EXPECT_EQ(Date(45366.75).DatePart(), 45366.0);
    EXPECT_DOUBLE_EQ(Date(45366.75).TimePart(), 0.75);
}

TEST(Date, SplitRoundsTheTimeToTheNearestSecond) {
    ExpectParts(Date(0.5 + 0.4 / 86400).Split(), 1899, 12, 30, 12, 0, 0);
    ExpectParts(Date(0.5 + 0.6 / 86400).Split(), 1899, 12, 30, 12, 0, 1);
}

TEST(Date, SplitCarriesAlmostMidnightIntoTheNextDay) {
    ExpectParts(Date(45366.0 + 86399.6 / 86400).Split(), 2024, 3, 16);
}

TEST(Date, FromPartsAndSplitRoundTripOverTheWholeRange) {
    int checked = 0;
    for (int y = 100; y <= 9999; y += 7) {
        for (int m = 1; m <= 12; m += 5) {
            const int d = 1 + (y * 7 + m) % 28;
            const int h = y % 24, mi = (y + m) % 60, s = (y * 3 + m) % 60;
            Date date = Date::FromParts(y, m, d, h, mi, s);
            ExpectParts(date.Split(), y, m, d, h, mi, s);
            ++checked;
        }
    }
    EXPECT_GT(checked, 4000);
}

TEST(Date, ConsecutiveDaysHaveConsecutiveSerials) {
    double previous = Date::FromParts(1899, 1, 1).Serial();
    for (int y = 1899; y <= 1905; ++y)
        for (int m = 1; m <= 12; ++m)
            for (int d = 1; d <= 31; ++d) {
                if (!Date::IsValidDate(y, m, d) || (y == 1899 && m == 1 && d == 1)) continue;
                const double s = Date::FromParts(y, m, d).Serial();
                EXPECT_EQ(s, previous + 1) << y << "-" << m << "-" << d;
                previous = s;
            }
}

TEST(Date, IsValidDateKnowsLeapYearsAndTheRange) {
    EXPECT_TRUE(Date::IsValidDate(2024, 2, 29));
    EXPECT_FALSE(Date::IsValidDate(2023, 2, 29));
    EXPECT_FALSE(Date::IsValidDate(1900, 2, 29));
    EXPECT_TRUE(Date::IsValidDate(2000, 2, 29));
    EXPECT_FALSE(Date::IsValidDate(2024, 4, 31));
    EXPECT_FALSE(Date::IsValidDate(2024, 13, 1));
    EXPECT_FALSE(Date::IsValidDate(2024, 0, 1));
    EXPECT_FALSE(Date::IsValidDate(2024, 1, 0));
    EXPECT_FALSE(Date::IsValidDate(99, 1, 1));
    EXPECT_FALSE(Date::IsValidDate(10000, 1, 1));
}

TEST(Date, FromPartsOfAnImpossibleDateRaises5) {
    EXPECT_RAISES(Date::FromParts(2023, 2, 29), 5);
    EXPECT_RAISES(Date::FromParts(2024, 1, 1, 24), 5);
    EXPECT_RAISES(Date::FromParts(2024, 1, 1, 0, 60), 5);
    EXPECT_RAISES(Date::FromParts(2024, 1, 1, 0, 0, -1), 5);
}

TEST(Date, SplitOfASerialOutsideTheDateRangeOverflows) {
    EXPECT_RAISES(Date(2958466.0).Split(), 6);
    EXPECT_RAISES(Date(-657435.0).Split(), 6);
    EXPECT_RAISES(Date(std::numeric_limits<double>::quiet_NaN()).Split(), 6);
    EXPECT_RAISES(Date(std::numeric_limits<double>::infinity()).Split(), 6);
}
