// Numbers as text under the default host locale (decimal ",", group "."):
// CStr of numbers, CDbl, CLng, CInt, CBool, IsNumeric and Val.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "PlatformTestSupport.h"
#include "ZARODatos/platform/Conversions.h"

using namespace OVT_ZARO;

namespace {
struct Thing : Object {
    std::string TypeName() const override { return "Thing"; }
};
}  // namespace

// ---- CStr of numbers ------------------------------------------------------

TEST(CStrNumber, DoubleUsesTheLocaleDecimalSeparator) {
    EXPECT_EQ(CStr(12.5), "12,5");
    EXPECT_EQ(CStr(1234567.25), "1234567,25");
    EXPECT_EQ(CStr(-2.5), "-2,5");
}

TEST(CStrNumber, DoubleBelowOneKeepsItsLeadingZero) { EXPECT_EQ(CStr(0.5), "0,5"); }

TEST(CStrNumber, DoubleIsRoundedTo15SignificantDigits) {
    EXPECT_EQ(CStr(3.141592653589793), "3,14159265358979");
    EXPECT_EQ(CStr(0.1 + 0.2), "0,3");
    EXPECT_EQ(CStr(1.0 / 3.0), "0,333333333333333");
    EXPECT_EQ(CStr(2.0 / 3.0), "0,666666666666667");
}

TEST(CStrNumber, DoubleRoundingDecidesOnTheExactValueWhenTheShortestTextEndsIn5) {
    // Shortest texts 9.524673882682695 (exactly ...2694880...) and
    // 7.030407620656315 (exactly ...6315081...).
    EXPECT_EQ(CStr(9.524673882682695), "9,52467388268269");
    EXPECT_EQ(CStr(7.030407620656315), "7,03040762065632");
}

TEST(CStrNumber, DoubleExactlyHalfwayAt15DigitsRoundsAwayFromZero) {
    EXPECT_EQ(CStr(123456789012344.5), "123456789012345");
    EXPECT_EQ(CStr(-123456789012344.5), "-123456789012345");
    EXPECT_EQ(CStr(1000000000000005.0), "1,00000000000001E+15");
}

TEST(CStrNumber, DoubleWholeNumbersHaveNoDecimals) {
    EXPECT_EQ(CStr(100.0), "100");
    EXPECT_EQ(CStr(0.0), "0");
    EXPECT_EQ(CStr(-0.0), "0");
    EXPECT_EQ(CStr(999999999999999.0), "999999999999999");
}

TEST(CStrNumber, DoubleFrom1E15IsInENotation) {
    EXPECT_EQ(CStr(1e15), "1E+15");
    EXPECT_EQ(CStr(1.234e16), "1,234E+16");
    EXPECT_EQ(CStr(1e100), "1E+100");
    EXPECT_EQ(CStr(-2.5e20), "-2,5E+20");
    // 999999999999999.9 rounds to 15 digits as 1E+15.
    EXPECT_EQ(CStr(999999999999999.9), "1E+15");
}

TEST(CStrNumber, DoubleBelow1EMinus4IsFixedWhile15DecimalsSuffice) {
    EXPECT_EQ(CStr(0.0001), "0,0001");
    EXPECT_EQ(CStr(0.00001), "0,00001");
    EXPECT_EQ(CStr(1.5e-10), "0,00000000015");
    EXPECT_EQ(CStr(1e-15), "0,000000000000001");
    EXPECT_EQ(CStr(1.5e-15), "1,5E-15");
    EXPECT_EQ(CStr(5.6789e-12), "5,6789E-12");
    EXPECT_EQ(CStr(1e-300), "1E-300");
}

TEST(CStrNumber, IntegersArePlainDigits) {
    EXPECT_EQ(CStr(int16_t(-32768)), "-32768");
    EXPECT_EQ(CStr(int32_t(1234567)), "1234567");
    EXPECT_EQ(CStr(int32_t(-5)), "-5");
    EXPECT_EQ(CStr(int64_t(9223372036854775807LL)), "9223372036854775807");
}

TEST(CStrNumber, BooleanIsTrueOrFalseInEnglish) {
    EXPECT_EQ(CStr(true), "True");
    EXPECT_EQ(CStr(false), "False");
}

TEST(CStrNumber, EmptyIsEmptyTextAndNullRaises94) {
    EXPECT_EQ(CStr(Variant()), "");
    EXPECT_RAISES(CStr(Variant::Null()), 94);
}

TEST(CStrNumber, ObjectRaises13AndByteArrayGivesItsBytes) {
    EXPECT_RAISES(CStr(Variant(std::make_shared<Thing>())), 13);
    EXPECT_RAISES(CStr(Variant(nullptr)), 13);
    EXPECT_EQ(CStr(Variant(ByteArray{'a', 'b', 'c'})), "abc");
}

TEST(CStrNumber, InfinityAndNaNOverflow) {
    EXPECT_RAISES(CStr(std::numeric_limits<double>::infinity()), 6);
    EXPECT_RAISES(CStr(std::numeric_limits<double>::quiet_NaN()), 6);
}

TEST(CStrNumber, TextReadsBackToTheSameDoubleWhenItHas15Digits) {
    const double values[] = {12.5, 1234567.25, 0.001, 123456789012345.0, 1e-5, 98765.4321, 1e20, 3.5e-12};
    for (double x : values) EXPECT_EQ(CDbl(CStr(x)), x) << CStr(x);
}

// ---- CDbl -----------------------------------------------------------------

TEST(CDbl, ReadsTheLocaleDecimalSeparator) {
    EXPECT_EQ(CDbl("12,5"), 12.5);
    EXPECT_EQ(CDbl(",5"), 0.5);
    EXPECT_EQ(CDbl("5,"), 5.0);
}

TEST(CDbl, SkipsGroupSeparatorsAfterTheFirstDigit) {
    EXPECT_EQ(CDbl("1.234,5"), 1234.5);
    EXPECT_EQ(CDbl("1.5"), 15.0);
    EXPECT_EQ(CDbl("1.2.3"), 123.0);
    EXPECT_EQ(CDbl("1."), 1.0);
}

TEST(CDbl, RefusesAGroupSeparatorBeforeTheFirstDigit) {
    EXPECT_RAISES(CDbl(".5"), 13);
    EXPECT_RAISES(CDbl("-.5"), 13);
}

TEST(CDbl, AcceptsBlanksAroundAndSignsBeforeOrAfter) {
    EXPECT_EQ(CDbl("  12,5 "), 12.5);
    EXPECT_EQ(CDbl("\t7\n"), 7.0);
    EXPECT_EQ(CDbl("-5"), -5.0);
    EXPECT_EQ(CDbl("+5"), 5.0);
    EXPECT_EQ(CDbl("5-"), -5.0);
    EXPECT_EQ(CDbl("5+"), 5.0);
    EXPECT_EQ(CDbl("- 5"), -5.0);
}

TEST(CDbl, ReadsParenthesesAsANegativeNumber) {
    EXPECT_EQ(CDbl("(5)"), -5.0);
    EXPECT_EQ(CDbl("(1.234,5)"), -1234.5);
    EXPECT_RAISES(CDbl("(5"), 13);
    EXPECT_RAISES(CDbl("5)"), 13);
    EXPECT_RAISES(CDbl("(-5)"), 13);
}

TEST(CDbl, RefusesTwoSigns) {
    EXPECT_RAISES(CDbl("--5"), 13);
    EXPECT_RAISES(CDbl("-5-"), 13);
    EXPECT_RAISES(CDbl("+-5"), 13);
}

TEST(CDbl, ReadsAnExponent) {
    EXPECT_EQ(CDbl("1e3"), 1000.0);
    EXPECT_EQ(CDbl("1,5E+2"), 150.0);
    EXPECT_EQ(CDbl("25e-1"), 2.5);
    EXPECT_RAISES(CDbl("1e"), 13);
    EXPECT_RAISES(CDbl("1e+"), 13);
    EXPECT_RAISES(CDbl("1D2"), 13);
}

TEST(CDbl, ReadsHexadecimalAndOctal) {
    EXPECT_EQ(CDbl("&H1F"), 31.0);
    EXPECT_EQ(CDbl("&h1f"), 31.0);
    EXPECT_EQ(CDbl("&O17"), 15.0);
    EXPECT_EQ(CDbl(" &H1F "), 31.0);
    EXPECT_RAISES(CDbl("&H"), 13);
    EXPECT_RAISES(CDbl("&O8"), 13);
    EXPECT_RAISES(CDbl("&X1"), 13);
}

TEST(CDbl, HexadecimalUpTo4DigitsIsA16BitValueAndUpTo8A32BitOne) {
    EXPECT_EQ(CDbl("&HFFFF"), -1.0);
    EXPECT_EQ(CDbl("&H7FFF"), 32767.0);
    EXPECT_EQ(CDbl("&H8000"), -32768.0);
    EXPECT_EQ(CDbl("&H10000"), 65536.0);
    EXPECT_EQ(CDbl("&HFFFFFFFF"), -1.0);
    EXPECT_EQ(CDbl("&O177777"), -1.0);
    EXPECT_RAISES(CDbl("&H100000000"), 6);
}

TEST(CDbl, AcceptsTheCurrencySymbolBeforeOrAfter) {
    EXPECT_EQ(CDbl("5 \xE2\x82\xAC"), 5.0);
    EXPECT_EQ(CDbl("\xE2\x82\xAC" "5"), 5.0);
    EXPECT_EQ(CDbl("-1.234,50\xE2\x82\xAC"), -1234.5);
    EXPECT_RAISES(CDbl("\xE2\x82\xAC" "5\xE2\x82\xAC"), 13);
    EXPECT_RAISES(CDbl("$5"), 13);
}

TEST(CDbl, RefusesEmptyTextLettersAndInnerBlanks) {
    EXPECT_RAISES(CDbl(""), 13);
    EXPECT_RAISES(CDbl("   "), 13);
    EXPECT_RAISES(CDbl("abc"), 13);
    EXPECT_RAISES(CDbl("12abc"), 13);
    EXPECT_RAISES(CDbl("1 2"), 13);
    EXPECT_RAISES(CDbl("1,2,3"), 13);
    EXPECT_RAISES(CDbl("-"), 13);
    EXPECT_RAISES(CDbl(","), 13);
}

TEST(CDbl, TooLargeOverflowsAndTooSmallIsZero) {
    EXPECT_RAISES(CDbl("1e400"), 6);
    EXPECT_RAISES(CDbl("2e308"), 6);
    EXPECT_EQ(CDbl("1e-400"), 0.0);
    EXPECT_EQ(CDbl("1,7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(CDbl("4,9e-324"), std::numeric_limits<double>::denorm_min());
}

TEST(CDbl, LongDigitStringsAreRoundedCorrectly) {
    std::string ones(1000, '1');
    EXPECT_DOUBLE_EQ(CDbl(ones + "e-999"), 1.1111111111111112);
    std::string zeros = "0," + std::string(500, '0') + "1e501";
    EXPECT_EQ(CDbl(zeros), 1.0);
    EXPECT_EQ(CDbl("0,1"), 0.1);
    EXPECT_EQ(CDbl("123456789012345678901234567890"), 1.2345678901234568e29);
}

TEST(CDbl, OfOtherSubtypes) {
    EXPECT_EQ(CDbl(Variant()), 0.0);
    EXPECT_RAISES(CDbl(Variant::Null()), 94);
    EXPECT_EQ(CDbl(true), -1.0);
    EXPECT_EQ(CDbl(false), 0.0);
    EXPECT_EQ(CDbl(Date(45366.5)), 45366.5);
    EXPECT_EQ(CDbl(int16_t(-3)), -3.0);
    EXPECT_EQ(CDbl(int64_t(1) << 40), 1099511627776.0);
    EXPECT_RAISES(CDbl(Variant(std::make_shared<Thing>())), 13);
    EXPECT_RAISES(CDbl(Variant(ByteArray{'1'})), 13);
}

// ---- CLng and CInt --------------------------------------------------------

TEST(CLng, RoundsHalfToEven) {
    EXPECT_EQ(CLng(0.5), 0);
    EXPECT_EQ(CLng(1.5), 2);
    EXPECT_EQ(CLng(2.5), 2);
    EXPECT_EQ(CLng(3.5), 4);
    EXPECT_EQ(CLng(-2.5), -2);
    EXPECT_EQ(CLng(-3.5), -4);
    EXPECT_EQ(CLng(2.4999), 2);
    EXPECT_EQ(CLng(2.5001), 3);
}

TEST(CLng, OfLettersRaises13) {
    EXPECT_RAISES(CLng("abc"), 13);
    EXPECT_RAISES(CLng(""), 13);
}

TEST(CLng, OutOfRangeOverflows) {
    EXPECT_RAISES(CLng(3e10), 6);
    EXPECT_RAISES(CLng(2147483647.5), 6);
    EXPECT_EQ(CLng(2147483647.4), 2147483647);
    EXPECT_EQ(CLng(-2147483648.5), -2147483647 - 1);
    EXPECT_RAISES(CLng(-2147483649.0), 6);
    EXPECT_RAISES(CLng(int64_t(1) << 31), 6);
    EXPECT_RAISES(CLng("2147483648"), 6);
    EXPECT_RAISES(CLng(std::numeric_limits<double>::quiet_NaN()), 6);
    EXPECT_RAISES(CLng("1e400"), 6);
}

TEST(CLng, ReadsTextUnderTheLocale) {
    EXPECT_EQ(CLng("2,5"), 2);
    EXPECT_EQ(CLng("3,5"), 4);
    EXPECT_EQ(CLng("1.234"), 1234);
    EXPECT_EQ(CLng("&HFFFFFFFF"), -1);
    EXPECT_EQ(CLng(" (12) "), -12);
}

TEST(CLng, NullRaises94EmptyIs0AndTrueIsMinus1) {
    EXPECT_RAISES(CLng(Variant::Null()), 94);
    EXPECT_EQ(CLng(Variant()), 0);
    EXPECT_EQ(CLng(true), -1);
    EXPECT_EQ(CLng(false), 0);
}

TEST(CLng, OfADateIsItsRoundedSerial) {
    EXPECT_EQ(CLng(Date(45366.5)), 45366);
    EXPECT_EQ(CLng(Date(45367.5)), 45368);
}

TEST(CLng, OfAnObjectOrByteArrayRaises13) {
    EXPECT_RAISES(CLng(Variant(std::make_shared<Thing>())), 13);
    EXPECT_RAISES(CLng(Variant(ByteArray{})), 13);
}

TEST(CInt, OverflowsOutside16Bits) {
    EXPECT_RAISES(CInt(32767.5), 6);
    EXPECT_EQ(CInt(32766.5), 32766);
    EXPECT_EQ(CInt(-32768.5), -32768);
    EXPECT_RAISES(CInt(-32769.0), 6);
    EXPECT_RAISES(CInt(int32_t(70000)), 6);
    EXPECT_RAISES(CInt("40000"), 6);
}

TEST(CInt, RoundsHalfToEvenAndReadsText) {
    EXPECT_EQ(CInt(2.5), 2);
    EXPECT_EQ(CInt(3.5), 4);
    EXPECT_EQ(CInt("&HFFFF"), -1);
    EXPECT_EQ(CInt("12,5"), 12);
    EXPECT_EQ(CInt(true), -1);
    EXPECT_EQ(CInt(Variant()), 0);
    EXPECT_RAISES(CInt(Variant::Null()), 94);
}

// ---- CBool ----------------------------------------------------------------

TEST(CBool, ReadsTrueAndFalseInAnyCase) {
    EXPECT_TRUE(CBool("True"));
    EXPECT_TRUE(CBool(" TRUE "));
    EXPECT_FALSE(CBool("false"));
    EXPECT_TRUE(CBool("Verdadero"));
    EXPECT_FALSE(CBool("Falso"));
}

TEST(CBool, ANumberIsTrueWhenNotZero) {
    EXPECT_TRUE(CBool("2,5"));
    EXPECT_FALSE(CBool("0"));
    EXPECT_TRUE(CBool(-1));
    EXPECT_FALSE(CBool(0.0));
    EXPECT_FALSE(CBool(Variant()));
}

TEST(CBool, OfOtherTextRaises13AndOfNull94) {
    EXPECT_RAISES(CBool("abc"), 13);
    EXPECT_RAISES(CBool(""), 13);
    EXPECT_RAISES(CBool(Variant::Null()), 94);
}

// ---- IsNumeric --------------------------------------------------------------

TEST(IsNumeric, EmptyTextIsNotNumeric) { EXPECT_FALSE(IsNumeric("")); }

TEST(IsNumeric, GroupedAndDecimalTextIsNumeric) {
    EXPECT_TRUE(IsNumeric("1.234,5"));
    EXPECT_TRUE(IsNumeric("12.5"));
    EXPECT_TRUE(IsNumeric("1.2.3"));
    EXPECT_TRUE(IsNumeric("12,5"));
    EXPECT_TRUE(IsNumeric(" -12,5e3 "));
    EXPECT_TRUE(IsNumeric("(5)"));
    EXPECT_TRUE(IsNumeric("&H1F"));
    EXPECT_TRUE(IsNumeric("5 \xE2\x82\xAC"));
}

TEST(IsNumeric, TextCDblRefusesIsNotNumeric) {
    EXPECT_FALSE(IsNumeric("abc"));
    EXPECT_FALSE(IsNumeric("1e"));
    EXPECT_FALSE(IsNumeric(".5"));
    EXPECT_FALSE(IsNumeric("1e400"));
    EXPECT_FALSE(IsNumeric("&HFFFFFFFFF"));
    EXPECT_FALSE(IsNumeric("12 34"));
}

TEST(IsNumeric, AgreesWithCDblNearTheLargestDouble) {
    EXPECT_TRUE(IsNumeric("1,7976931348623157e308"));
    EXPECT_FALSE(IsNumeric("1,7976931348623159e308"));
    EXPECT_TRUE(IsNumeric("9e307"));
}

TEST(IsNumeric, OfOtherSubtypes) {
    EXPECT_TRUE(IsNumeric(Variant()));
    EXPECT_FALSE(IsNumeric(Variant::Null()));
    EXPECT_FALSE(IsNumeric(Date(45366.0)));
    EXPECT_TRUE(IsNumeric(5));
    EXPECT_TRUE(IsNumeric(2.5));
    EXPECT_TRUE(IsNumeric(int64_t(5)));
    EXPECT_TRUE(IsNumeric(true));
    EXPECT_FALSE(IsNumeric(Variant(ByteArray{'1'})));
    EXPECT_FALSE(IsNumeric(Variant(std::make_shared<Thing>())));
}

// ---- Val ------------------------------------------------------------------

TEST(Val, ReadsTheLeadingNumberWithAPoint) {
    EXPECT_EQ(Val("12.5abc"), 12.5);
    EXPECT_EQ(Val("1,5"), 1.0);
    EXPECT_EQ(Val("3.21E-04"), 0.000321);
    EXPECT_EQ(Val("-.5"), -0.5);
    EXPECT_EQ(Val("+7"), 7.0);
}

TEST(Val, RemovesBlanksTabsAndLineFeeds) {
    EXPECT_EQ(Val(" 2 45 7"), 2457.0);
    EXPECT_EQ(Val("\t1\n2 . 5"), 12.5);
}

TEST(Val, IsZeroWithoutANumber) {
    EXPECT_EQ(Val("abc"), 0.0);
    EXPECT_EQ(Val(""), 0.0);
    EXPECT_EQ(Val("-"), 0.0);
    EXPECT_EQ(Val("."), 0.0);
    EXPECT_EQ(Val("--5"), 0.0);
}

TEST(Val, AnExponentMarkWithoutDigitsEndsTheNumber) {
    EXPECT_EQ(Val("1e"), 1.0);
    EXPECT_EQ(Val("1e+"), 1.0);
    EXPECT_EQ(Val("2E3x"), 2000.0);
}

TEST(Val, OnlyEMarksAnExponent) { EXPECT_EQ(Val("1D2"), 1.0); }

TEST(Val, ReadsHexadecimalAndOctal) {
    EXPECT_EQ(Val("&HFFFF"), -1.0);
    EXPECT_EQ(Val("&H1F"), 31.0);
    EXPECT_EQ(Val("&H1Fxyz"), 31.0);
    EXPECT_EQ(Val("&O17"), 15.0);
    EXPECT_EQ(Val("&H10000"), 65536.0);
    EXPECT_EQ(Val("&Q1"), 0.0);
}

TEST(Val, ANumberTooLargeOverflows) {
    EXPECT_RAISES(Val("&H123456789"), 6);
    EXPECT_RAISES(Val("1e400"), 6);
}

TEST(Val, IgnoresTheLocale) {
    EXPECT_EQ(Val("1.234"), 1.234);
    EXPECT_EQ(Val("1.234,5"), 1.234);
}
