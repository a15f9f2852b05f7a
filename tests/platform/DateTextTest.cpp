// Dates as text under the default host locale (short date dd/mm/yyyy, long
// time H:mm:ss): CStr of dates, CDate and IsDate.
#include <gtest/gtest.h>

#include <ctime>
#include <limits>

#include "PlatformTestSupport.h"
#include "ZARODatos/platform/Conversions.h"

using namespace OVT_ZARO;

namespace {

Date D(int y, int m, int d, int h = 0, int mi = 0, int s = 0) { return Date::FromParts(y, m, d, h, mi, s); }

int ThisYear() {
    std::time_t now = std::time(nullptr);
    std::tm tm{};
    localtime_r(&now, &tm);
    return tm.tm_year + 1900;
}

}  // namespace

// ---- CStr of dates --------------------------------------------------------

TEST(CStrDate, ADateWithoutTimeIsTheShortDate) { EXPECT_EQ(CStr(D(2026, 3, 1)), "01/03/2026"); }

TEST(CStrDate, TheZeroDateIsMidnight) { EXPECT_EQ(CStr(Date(0)), "0:00:00"); }

TEST(CStrDate, ATimeOnTheZeroDayIsTheTimeAlone) {
    EXPECT_EQ(CStr(Date(0.5)), "12:00:00");
    EXPECT_EQ(CStr(D(1899, 12, 30, 9, 5, 3)), "9:05:03");
}

TEST(CStrDate, DayOneIs31December1899) { EXPECT_EQ(CStr(Date(1)), "31/12/1899"); }

TEST(CStrDate, DateAndTimeAreSeparatedByABlank) {
    EXPECT_EQ(CStr(D(2024, 3, 5, 14, 7, 9)), "05/03/2024 14:07:09");
    EXPECT_EQ(CStr(Date(-1.25)), "29/12/1899 6:00:00");
}

TEST(CStrDate, YearsBefore1000HaveFourDigits) { EXPECT_EQ(CStr(D(100, 1, 1)), "01/01/0100"); }

TEST(CStrDate, ASerialOutsideTheDateRangeOverflows) { EXPECT_RAISES(CStr(Date(1e7)), 6); }

// ---- CDate and IsDate -------------------------------------------------------

TEST(CDate, ReadsTheDayFirst) {
    EXPECT_EQ(CDate("15/03/2024"), D(2024, 3, 15));
    EXPECT_EQ(CDate("05/03/2024"), D(2024, 3, 5));
    EXPECT_EQ(CDate("5/3/2024"), D(2024, 3, 5));
}

TEST(CDate, TriesMonthFirstWhenDayFirstIsImpossible) { EXPECT_EQ(CDate("02/13/2024"), D(2024, 2, 13)); }

TEST(CDate, SlashDashAndBlankSeparateDateParts) {
    EXPECT_EQ(CDate("15-03-2024"), D(2024, 3, 15));
    EXPECT_EQ(CDate("15 03 2024"), D(2024, 3, 15));
    EXPECT_EQ(CDate("15/03-2024"), D(2024, 3, 15));
    EXPECT_TRUE(IsDate("15-03-2024"));
}

TEST(CDate, APointIsNoDateSeparator) {
    EXPECT_FALSE(IsDate("15.03.2024"));
    EXPECT_RAISES(CDate("15.03.2024"), 13);
}

TEST(CDate, TwoDigitYears00To29AreThisCenturyAnd30To99TheLast) {
    EXPECT_EQ(CDate("15/03/24"), D(2024, 3, 15));
    EXPECT_EQ(CDate("01/01/00"), D(2000, 1, 1));
    EXPECT_EQ(CDate("01/01/29"), D(2029, 1, 1));
    EXPECT_EQ(CDate("01/01/30"), D(1930, 1, 1));
    EXPECT_EQ(CDate("31/12/99"), D(1999, 12, 31));
    EXPECT_EQ(CDate("1/1/5"), D(2005, 1, 1));
}

TEST(CDate, ReadsIsoDatesAndTimes) {
    EXPECT_EQ(CDate("2024-03-15 10:30:00"), D(2024, 3, 15, 10, 30));
    EXPECT_EQ(CDate("2024-03-15T10:30:00"), D(2024, 3, 15, 10, 30));
    EXPECT_EQ(CDate("2024-03-15"), D(2024, 3, 15));
}

TEST(CDate, ReadsDateAndTime) {
    EXPECT_EQ(CDate("05/03/2024 14:07:09"), D(2024, 3, 5, 14, 7, 9));
    EXPECT_EQ(CDate("05/03/2024 14:07"), D(2024, 3, 5, 14, 7));
    EXPECT_EQ(CDate("14:07 05/03/2024"), D(2024, 3, 5, 14, 7));
    EXPECT_EQ(CStr(CDate("05/03/2024 14:07:09")), "05/03/2024 14:07:09");
}

TEST(CDate, ATimeAloneIsOnTheZeroDay) {
    EXPECT_TRUE(IsDate("0:00:00"));
    EXPECT_EQ(CDate("0:00:00").Serial(), 0.0);
    EXPECT_DOUBLE_EQ(CDate("12:00").Serial(), 0.5);
    EXPECT_EQ(CDate("23:59:59"), D(1899, 12, 30, 23, 59, 59));
}

TEST(CDate, ReadsAMAndPM) {
    EXPECT_EQ(CDate("10:30 PM"), D(1899, 12, 30, 22, 30));
    EXPECT_EQ(CDate("12:00 AM"), D(1899, 12, 30, 0, 0));
    EXPECT_EQ(CDate("12:15:00 pm"), D(1899, 12, 30, 12, 15));
    EXPECT_FALSE(IsDate("13:00 PM"));
}

TEST(CDate, RefusesImpossibleTimes) {
    EXPECT_FALSE(IsDate("24:00"));
    EXPECT_FALSE(IsDate("10:60"));
    EXPECT_FALSE(IsDate("10:30:60"));
    EXPECT_FALSE(IsDate("10:30:00.5"));
    EXPECT_FALSE(IsDate("10:"));
}

TEST(CDate, RefusesALoneNumberAndEmptyText) {
    EXPECT_FALSE(IsDate("15324"));
    EXPECT_FALSE(IsDate(""));
    EXPECT_FALSE(IsDate("   "));
    EXPECT_RAISES(CDate("15324"), 13);
    EXPECT_RAISES(CDate(""), 13);
}

TEST(CDate, RefusesImpossibleDates) {
    EXPECT_FALSE(IsDate("31/02/2024"));
    EXPECT_FALSE(IsDate("29/02/2023"));
    EXPECT_TRUE(IsDate("29/02/2024"));
    EXPECT_FALSE(IsDate("13/13/2024"));
    EXPECT_FALSE(IsDate("15/03/20245"));
    EXPECT_FALSE(IsDate("1/2/3/4"));
    EXPECT_FALSE(IsDate("15//03/2024"));
    EXPECT_FALSE(IsDate("abc"));
    EXPECT_FALSE(IsDate("15/03/2024 abc"));
}

TEST(CDate, ReadsMonthNames) {
    EXPECT_EQ(CDate("15 marzo 2024"), D(2024, 3, 15));
    EXPECT_EQ(CDate("15-mar-2024"), D(2024, 3, 15));
    EXPECT_EQ(CDate("15 DIC 2024"), D(2024, 12, 15));
    EXPECT_EQ(CDate("March 15 2024"), D(2024, 3, 15));
    EXPECT_EQ(CDate("2024 ago 15"), D(2024, 8, 15));
}

TEST(CDate, DayAndMonthAloneAreInTheCurrentYear) {
    EXPECT_EQ(CDate("15/03"), D(ThisYear(), 3, 15));
    EXPECT_EQ(CDate("15 mar"), D(ThisYear(), 3, 15));
}

TEST(CDate, MonthAndYearAloneAreTheFirstOfTheMonth) {
    EXPECT_EQ(CDate("03/2024"), D(2024, 3, 1));
    EXPECT_EQ(CDate("2024-03"), D(2024, 3, 1));
    EXPECT_EQ(CDate("marzo 2024"), D(2024, 3, 1));
}

TEST(CDate, OfANumberIsThatDaySerial) {
    EXPECT_EQ(CDate(45366), D(2024, 3, 15));
    EXPECT_EQ(CDate(45366.5), D(2024, 3, 15, 12));
    EXPECT_EQ(CDate(int64_t(1)), Date(1));
    EXPECT_RAISES(CDate(1e7), 6);
    EXPECT_RAISES(CDate(std::numeric_limits<double>::quiet_NaN()), 6);
}

TEST(CDate, OfOtherSubtypes) {
    EXPECT_EQ(CDate(Variant()), ZeroDate);
    EXPECT_RAISES(CDate(Variant::Null()), 94);
    EXPECT_EQ(CDate(true), Date(-1));
    EXPECT_EQ(CDate(D(2024, 3, 15)), D(2024, 3, 15));
    EXPECT_RAISES(CDate(Variant(ByteArray{})), 13);
}

TEST(IsDate, IsTrueForADateAndFalseForANumber) {
    EXPECT_TRUE(IsDate(D(2024, 3, 15)));
    EXPECT_TRUE(IsDate(ZeroDate));
    EXPECT_FALSE(IsDate(45366));
    EXPECT_FALSE(IsDate(2.5));
    EXPECT_FALSE(IsDate(Variant()));
    EXPECT_FALSE(IsDate(Variant::Null()));
}
