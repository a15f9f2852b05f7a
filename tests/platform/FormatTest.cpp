// The format function under the default host locale.
#include <gtest/gtest.h>

#include "PlatformTestSupport.h"
#include "ZARODatos/platform/Conversions.h"

using namespace OVT_ZARO;
using OVT_ZARO::testing_support::Text;

namespace {
Date D(int y, int m, int d, int h = 0, int mi = 0, int s = 0) { return Date::FromParts(y, m, d, h, mi, s); }
std::string F(const Variant& v, std::string_view pattern) { return Text(Format(v, pattern)); }
}  // namespace

// ---- Number patterns ------------------------------------------------------

TEST(FormatNumber, GroupsThousandsWithTheLocaleSeparator) {
    EXPECT_EQ(F(1234, "#,##0"), "1.234");
    EXPECT_EQ(F(1234567, "#,##0"), "1.234.567");
    EXPECT_EQ(F(123, "#,##0"), "123");
    EXPECT_EQ(F(-1234567.891, "#,##0"), "-1.234.568");
}

TEST(FormatNumber, FixedDecimalsUseTheLocaleDecimalSeparator) {
    EXPECT_EQ(F(1234.5, "#,##0.00"), "1.234,50");
    EXPECT_EQ(F(0.5, "0.00"), "0,50");
    EXPECT_EQ(F(-1234.5, "#,##0.00"), "-1.234,50");
    EXPECT_EQ(F(3, "0.000"), "3,000");
}

TEST(FormatNumber, HashShowsNothingForZero) {
    EXPECT_EQ(F(0, "#"), "");
    EXPECT_EQ(F(0.5, "#.##"), ",5");
    EXPECT_EQ(F(0, "#,##0"), "0");
}

TEST(FormatNumber, APointWithoutDigitsAfterItIsStillWritten) { EXPECT_EQ(F(5, "#.##"), "5,"); }

TEST(FormatNumber, ExtraIntegerDigitsAreAlwaysShown) {
    EXPECT_EQ(F(123456, "00"), "123456");
    EXPECT_EQ(F(12345, "00000000"), "00012345");
    EXPECT_EQ(F(1234, "00-00"), "12-34");
    EXPECT_EQ(F(123456, "00-00"), "1234-56");
}

TEST(FormatNumber, RoundsHalfAwayFromZero) {
    EXPECT_EQ(F(2.5, "0"), "3");
    EXPECT_EQ(F(-2.5, "0"), "-3");
    EXPECT_EQ(F(0.125, "0.00"), "0,13");
    EXPECT_EQ(F(9.995, "0.00"), "10,00");
    // On the digits the value shows: 1,005 rounds up, although the double is a hair below.
    EXPECT_EQ(F(1.005, "0.00"), "1,01");
}

TEST(FormatNumber, ANegativeValueThatRoundsToZeroHasNoMinus) { EXPECT_EQ(F(-0.001, "0.00"), "0,00"); }

TEST(FormatNumber, PercentMultipliesBy100) {
    EXPECT_EQ(F(0.5, "0%"), "50%");
    EXPECT_EQ(F(0.1234, "0.0%"), "12,3%");
}

TEST(FormatNumber, ScientificNotation) {
    EXPECT_EQ(F(1234.5, "0.00E+00"), "1,23E+03");
    EXPECT_EQ(F(0.000123, "0.0E-0"), "1,2E-4");
    EXPECT_EQ(F(1234.5, "0.0E-0"), "1,2E3");
    EXPECT_EQ(F(9.999, "0.00E+00"), "1,00E+01");
    EXPECT_EQ(F(0, "0.00E+00"), "0,00E+00");
    EXPECT_EQ(F(-1234.5, "0.00e+00"), "-1,23e+03");
}

TEST(FormatNumber, CommaBeforeThePointDividesByAThousand) {
    EXPECT_EQ(F(1234567, "#,"), "1235");
    EXPECT_EQ(F(1234567, "#,##0,"), "1.235");
    EXPECT_EQ(F(1234567890, "0,,.0"), "1234,6");
}

TEST(FormatNumber, BackslashAndQuotesWriteLiterals) {
    EXPECT_EQ(F(5, "\"Total: \"0"), "Total: 5");
    EXPECT_EQ(F(5, "0\\h"), "5h");
    EXPECT_EQ(F(5, "0 \"#,0\""), "5 #,0");
    EXPECT_EQ(F(5, "0 \xE2\x82\xAC"), "5 \xE2\x82\xAC");
}

TEST(FormatNumber, SectionsForPositiveNegativeZeroAndNull) {
    const char* p = "0.0;(0.0);\\c\\e\\r\\o;\\n\\u\\l\\o";
    EXPECT_EQ(F(5, p), "5,0");
    EXPECT_EQ(F(-5, p), "(5,0)");
    EXPECT_EQ(F(0, p), "cero");
    EXPECT_EQ(F(Variant::Null(), p), "nulo");
}

TEST(FormatNumber, AnEmptyNegativeSectionUsesTheFirstWithAMinus) {
    EXPECT_EQ(F(-5, "0;;\\z"), "-5");
    EXPECT_EQ(F(0, "0;;\\z"), "z");
    EXPECT_EQ(F(0, "0;(0)"), "0");
}

TEST(FormatNumber, TheSectionIsChosenBeforeRounding) { EXPECT_EQ(F(0.001, "0;-0;\\z"), "0"); }

TEST(FormatNumber, IntegersKeepAllTheirDigits) {
    EXPECT_EQ(F(int64_t(9223372036854775807LL), "#,##0"), "9.223.372.036.854.775.807");
    EXPECT_EQ(F(int64_t(-9223372036854775807LL - 1), "0"), "-9223372036854775808");
    EXPECT_EQ(F(int16_t(-5), "00"), "-05");
}

TEST(FormatNumber, BooleanIsMinus1Or0) {
    EXPECT_EQ(F(true, "0"), "-1");
    EXPECT_EQ(F(false, "0.0"), "0,0");
}

TEST(FormatNumber, ADateUnderANumberPatternIsItsSerial) { EXPECT_EQ(F(D(2024, 3, 15, 12), "0.00"), "45366,50"); }

TEST(FormatNumber, LargeAndTinyDoubles) {
    EXPECT_EQ(F(1e20, "#,##0"), "100.000.000.000.000.000.000");
    EXPECT_EQ(F(1e-20, "0.00"), "0,00");
    EXPECT_RAISES(Format(std::numeric_limits<double>::infinity(), "0"), 6);
}

// ---- Date patterns ----------------------------------------------------------

TEST(FormatDate, DayMonthYear) {
    const Date d = D(2024, 3, 15);
    EXPECT_EQ(F(d, "dd-mm-yyyy"), "15-03-2024");
    EXPECT_EQ(F(d, "dd/mm/yyyy"), "15/03/2024");
    EXPECT_EQ(F(d, "d/m/yy"), "15/3/24");
    EXPECT_EQ(F(D(2024, 3, 5), "d-m-yyyy"), "5-3-2024");
}

TEST(FormatDate, TokensIgnoreCase) {
    EXPECT_EQ(F(D(2024, 3, 15), "dd-MM-yyyy"), "15-03-2024");
    EXPECT_EQ(F(D(2024, 3, 15), "DD/MM/YYYY"), "15/03/2024");
}

TEST(FormatDate, MAfterHIsMinutes) {
    const Date d = D(2024, 3, 15, 14, 7, 9);
    EXPECT_EQ(F(d, "hh:mm:ss"), "14:07:09");
    EXPECT_EQ(F(d, "h:m"), "14:7");
    EXPECT_EQ(F(d, "hh:mm dd/mm/yyyy"), "14:07 15/03/2024");
    EXPECT_EQ(F(d, "yyyy-mm-dd hh:nn"), "2024-03-15 14:07");
    EXPECT_EQ(F(d, "HH:MM"), "14:07");
}

TEST(FormatDate, AMPMGivesTheTwelveHourClock) {
    EXPECT_EQ(F(D(2024, 3, 15, 14, 7), "h:nn AM/PM"), "2:07 PM");
    EXPECT_EQ(F(D(2024, 3, 15, 0, 7), "hh:nn am/pm"), "12:07 am");
    EXPECT_EQ(F(D(2024, 3, 15, 9, 0), "h A/P"), "9 A");
    EXPECT_EQ(F(D(2024, 3, 15, 12, 0), "h AMPM"), "12 PM");
}

TEST(FormatDate, SpanishDayAndMonthNames) {
    const Date d = D(2024, 3, 15);
    EXPECT_EQ(F(d, "ddd"), "vie");
    EXPECT_EQ(F(d, "dddd"), "viernes");
    EXPECT_EQ(F(d, "mmm"), "mar");
    EXPECT_EQ(F(d, "mmmm"), "marzo");
    EXPECT_EQ(F(d, "dddd, d \\d\\e mmmm"), "viernes, 15 de marzo");
    EXPECT_EQ(F(D(2024, 3, 13), "dddd"), "mi\xC3\xA9rcoles");
    EXPECT_EQ(F(D(2024, 3, 16), "ddd"), "s\xC3\xA1" "b");
}

TEST(FormatDate, DayOfYearWeekdayWeekAndQuarter) {
    const Date d = D(2024, 3, 15);
    EXPECT_EQ(F(d, "y"), "75");
    EXPECT_EQ(F(d, "w"), "6");   // Friday, with Sunday as day 1
    EXPECT_EQ(F(d, "ww"), "11");  // week 1 holds 1 January
    EXPECT_EQ(F(d, "q"), "1");
    EXPECT_EQ(F(D(2024, 1, 6), "ww"), "1");
    EXPECT_EQ(F(D(2024, 1, 7), "ww"), "2");
}

TEST(FormatDate, LocaleFormsAndGeneralDate) {
    const Date d = D(2024, 3, 5, 14, 7, 9);
    EXPECT_EQ(F(d, "ddddd"), "05/03/2024");
    EXPECT_EQ(F(d, "ttttt"), "14:07:09");
    EXPECT_EQ(F(d, "c"), "05/03/2024 14:07:09");
    EXPECT_EQ(F(d, "dddddd"), "martes, 5 de marzo de 2024");
}

TEST(FormatDate, ANumberUnderADatePatternIsADaySerial) {
    EXPECT_EQ(F(45366, "dd/mm/yyyy"), "15/03/2024");
    EXPECT_RAISES(Format(1e9, "dd/mm/yyyy"), 6);
}

TEST(FormatDate, ADateWithNoPatternIsItsDefaultText) {
    EXPECT_EQ(F(D(2024, 3, 5, 14, 7, 9), ""), "05/03/2024 14:07:09");
    EXPECT_EQ(F(Date(0), ""), "0:00:00");
}

// ---- Text, Empty, Null ------------------------------------------------------

TEST(FormatText, TextThatReadsAsANumberIsFormattedAsThatNumber) {
    EXPECT_EQ(F("1.5", "0.00"), "15,00");
    EXPECT_EQ(F("1234,5", "#,##0.00"), "1.234,50");
    EXPECT_EQ(F(" 7 ", "000"), "007");
}

TEST(FormatText, TextThatReadsAsADateIsFormattedAsThatDate) {
    EXPECT_EQ(F("15/03/2024", "dd-mm-yyyy"), "15-03-2024");
    EXPECT_EQ(F("2024-03-15", "dd/mm/yy"), "15/03/24");
}

TEST(FormatText, OtherTextComesBackUnchanged) {
    EXPECT_EQ(F("abc", "#,##0"), "abc");
    EXPECT_EQ(F("abc", "dd/mm/yyyy"), "abc");
    EXPECT_EQ(F("abc", ""), "abc");
    EXPECT_EQ(F("", "0.00"), "");
}

TEST(FormatText, TextWithNoPatternIsNotReformatted) { EXPECT_EQ(F("1.5", ""), "1.5"); }

TEST(FormatText, NumbersWithNoPatternGiveTheirDefaultText) {
    EXPECT_EQ(F(12.5, ""), "12,5");
    EXPECT_EQ(F(7, ""), "7");
    EXPECT_EQ(F(true, ""), "True");
}

TEST(FormatText, NullGivesNull) {
    EXPECT_TRUE(Format(Variant::Null()).IsNull());
    EXPECT_TRUE(Format(Variant::Null(), "#,##0").IsNull());
    EXPECT_TRUE(Format(Variant::Null(), "dd/mm/yyyy").IsNull());
}

TEST(FormatText, EmptyGivesEmptyTextWithoutPatternAndZeroUnderANumberPattern) {
    EXPECT_EQ(F(Variant(), ""), "");
    EXPECT_EQ(F(Variant(), "#,##0.00"), "0,00");
    EXPECT_EQ(F(Variant(), "#"), "");
    EXPECT_EQ(F(Variant(), "dd/mm/yyyy"), "");
}

TEST(FormatText, AnObjectRaises13) {
    struct Thing : Object {
        std::string TypeName() const override { return "Thing"; }
    };
    EXPECT_RAISES(Format(Variant(std::make_shared<Thing>()), "0"), 13);
}

// ---- Named formats ----------------------------------------------------------

TEST(FormatNamed, NumberFormats) {
    EXPECT_EQ(F(1234.5, "Standard"), "1.234,50");
    EXPECT_EQ(F(1234.5, "Fixed"), "1234,50");
    EXPECT_EQ(F(0.5, "Percent"), "50,00%");
    EXPECT_EQ(F(1234.5, "Scientific"), "1,23E+03");
    EXPECT_EQ(F(1234.5, "general number"), "1234,5");
    EXPECT_EQ(F(-1234.5, "Currency"), "-1.234,50 \xE2\x82\xAC");
}

TEST(FormatNamed, YesNoTrueFalseOnOff) {
    EXPECT_EQ(F(5, "Yes/No"), "Yes");
    EXPECT_EQ(F(0, "Yes/No"), "No");
    EXPECT_EQ(F(true, "True/False"), "True");
    EXPECT_EQ(F("0", "On/Off"), "Off");
}

TEST(FormatNamed, DateFormats) {
    const Date d = D(2024, 3, 5, 14, 7, 9);
    EXPECT_EQ(F(d, "Short Date"), "05/03/2024");
    EXPECT_EQ(F(d, "Long Time"), "14:07:09");
    EXPECT_EQ(F(d, "Short Time"), "14:07");
    EXPECT_EQ(F(d, "Medium Time"), "02:07 PM");
    EXPECT_EQ(F(d, "Medium Date"), "05-mar-24");
    EXPECT_EQ(F(d, "Long Date"), "martes, 5 de marzo de 2024");
    EXPECT_EQ(F(d, "General Date"), "05/03/2024 14:07:09");
}
