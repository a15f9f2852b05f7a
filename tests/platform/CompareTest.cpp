// Comparing texts and values: binary and text comparison, the variant
// comparison table, ContainsText and Trim.
#include <gtest/gtest.h>

#include <limits>

#include "PlatformTestSupport.h"
#include "ZARODatos/platform/Conversions.h"

using namespace OVT_ZARO;

namespace {
constexpr auto Text = CompareMethod::Text;
constexpr auto Binary = CompareMethod::Binary;
}  // namespace

// ---- StrComp ----------------------------------------------------------------

TEST(TextComparison, IgnoresCase) {
    EXPECT_EQ(StrComp("abc", "ABC", Text), 0);
    EXPECT_TRUE(TextEquals("Hola Mundo", "hola mundo"));
}

TEST(TextComparison, IgnoresCaseOfAccentedLetters) {
    EXPECT_EQ(StrComp("\xC3\xA1", "\xC3\x81", Text), 0);             // á Á
    EXPECT_EQ(StrComp("A\xC3\x91O", "a\xC3\xB1o", Text), 0);         // AÑO año
    EXPECT_EQ(StrComp("canci\xC3\xB3n", "CANCI\xC3\x93N", Text), 0);  // canción CANCIÓN
}

TEST(TextComparison, AccentsCount) { EXPECT_NE(StrComp("a", "\xC3\xA1", Text), 0); }

TEST(TextComparison, AccentedLettersSortBesideTheirBaseLetter) {
    // a < á < b, and "áa" before "ab".
    EXPECT_LT(StrComp("a", "\xC3\xA1", Text), 0);
    EXPECT_LT(StrComp("\xC3\xA1", "b", Text), 0);
    EXPECT_LT(StrComp("\xC3\xA1" "a", "ab", Text), 0);
    EXPECT_LT(StrComp("\xC3\xA9", "f", Text), 0);  // é < f
}

TEST(TextComparison, EnyeSortsAfterN) {
    EXPECT_LT(StrComp("nz", "\xC3\xB1" "a", Text), 0);  // nz < ña
    EXPECT_LT(StrComp("\xC3\xB1" "a", "o", Text), 0);   // ña < o
}

TEST(TextComparison, SmallLettersSortAmongCapitals) {
    EXPECT_LT(StrComp("a", "B", Text), 0);
    EXPECT_GT(StrComp("b", "A", Text), 0);
}

TEST(TextComparison, DigitsSortAsText) {
    EXPECT_LT(StrComp("10", "9", Text), 0);
    EXPECT_LT(StrComp("", "a", Text), 0);
    EXPECT_GT(StrComp("ab", "a", Text), 0);
}

TEST(TextComparison, IllFormedTextIsComparedWithoutFailing) {
    const int r = StrComp("\xFF\xFE", "a", Text);
    EXPECT_TRUE(r == -1 || r == 0 || r == 1);
    EXPECT_EQ(StrComp("\xC3", "\xC3", Text), 0);
}

TEST(BinaryComparison, PutsAllCapitalsBeforeSmallLetters) {
    EXPECT_LT(StrComp("B", "a", Binary), 0);
    EXPECT_LT(StrComp("Z", "a", Binary), 0);
    EXPECT_NE(StrComp("abc", "ABC", Binary), 0);
}

TEST(BinaryComparison, PutsAccentedLettersAfterBoth) {
    EXPECT_LT(StrComp("z", "\xC3\xA1", Binary), 0);
    EXPECT_LT(StrComp("Z", "\xC3\x81", Binary), 0);
}

TEST(BinaryComparison, ComparesByCharacterCodeAndLength) {
    EXPECT_EQ(StrComp("abc", "abc", Binary), 0);
    EXPECT_EQ(StrComp("ab", "abc", Binary), -1);
    EXPECT_EQ(StrComp("abd", "abc", Binary), 1);
    EXPECT_EQ(StrComp("", "", Binary), 0);
}

// ---- CompareVariants ----------------------------------------------------------

TEST(CompareVariants, NumbersCompareNumerically) {
    EXPECT_EQ(CompareVariants(9, 10, Text), CompareResult::Less);
    EXPECT_EQ(CompareVariants(2.5, 2, Text), CompareResult::Greater);
    EXPECT_EQ(CompareVariants(int16_t(3), 3.0, Text), CompareResult::Equal);
    EXPECT_EQ(CompareVariants(int64_t(5), int32_t(7), Text), CompareResult::Less);
}

TEST(CompareVariants, LongLongAgainstDoubleIsExact) {
    EXPECT_EQ(CompareVariants(int64_t(9007199254740993LL), 9007199254740992.0, Text), CompareResult::Greater);
    EXPECT_EQ(CompareVariants(int64_t(9007199254740992LL), 9007199254740992.0, Text), CompareResult::Equal);
}

TEST(CompareVariants, DatesCompareAsTheirSerial) {
    EXPECT_EQ(CompareVariants(Date(45366.0), Date(45367.0), Text), CompareResult::Less);
    EXPECT_EQ(CompareVariants(Date(45366.0), 45366, Text), CompareResult::Equal);
}

TEST(CompareVariants, TrueIsMinus1) {
    EXPECT_EQ(CompareVariants(true, 0, Text), CompareResult::Less);
    EXPECT_EQ(CompareVariants(true, -1, Text), CompareResult::Equal);
    EXPECT_EQ(CompareVariants(false, true, Text), CompareResult::Greater);
}

TEST(CompareVariants, StringsCompareByTheMethod) {
    EXPECT_EQ(CompareVariants("abc", "ABC", Text), CompareResult::Equal);
    EXPECT_EQ(CompareVariants("abc", "ABC", Binary), CompareResult::Greater);
    EXPECT_EQ(CompareVariants("10", "9", Text), CompareResult::Less);
}

TEST(CompareVariants, ANumberIsLessThanAnyString) {
    EXPECT_EQ(CompareVariants(1000000, "0", Text), CompareResult::Less);
    EXPECT_EQ(CompareVariants("", 5, Text), CompareResult::Greater);
    EXPECT_EQ(CompareVariants(Date(1.0), "a", Text), CompareResult::Less);
    EXPECT_EQ(CompareVariants(true, "", Binary), CompareResult::Less);
}

TEST(CompareVariants, EmptyIsZeroAgainstANumber) {
    EXPECT_EQ(CompareVariants(Variant(), 0, Text), CompareResult::Equal);
    EXPECT_EQ(CompareVariants(Variant(), -1, Text), CompareResult::Greater);
    EXPECT_EQ(CompareVariants(0.5, Variant(), Text), CompareResult::Greater);
}

TEST(CompareVariants, EmptyIsEmptyTextAgainstAString) {
    EXPECT_EQ(CompareVariants(Variant(), "", Text), CompareResult::Equal);
    EXPECT_EQ(CompareVariants(Variant(), "a", Text), CompareResult::Less);
    EXPECT_EQ(CompareVariants("a", Variant(), Binary), CompareResult::Greater);
    EXPECT_EQ(CompareVariants(Variant(), Variant(), Text), CompareResult::Equal);
}

TEST(CompareVariants, AComparisonWithNullIsNull) {
    EXPECT_EQ(CompareVariants(Variant::Null(), 1, Text), CompareResult::Null);
    EXPECT_EQ(CompareVariants("a", Variant::Null(), Binary), CompareResult::Null);
    EXPECT_EQ(CompareVariants(Variant::Null(), Variant::Null(), Text), CompareResult::Null);
}

TEST(CompareVariants, NaNIsUnordered) {
    EXPECT_EQ(CompareVariants(std::numeric_limits<double>::quiet_NaN(), 1, Text), CompareResult::Null);
}

TEST(CompareVariants, ObjectsAndByteArraysRaise13) {
    struct Thing : Object {
        std::string TypeName() const override { return "Thing"; }
    };
    EXPECT_RAISES(CompareVariants(Variant(std::make_shared<Thing>()), 1, Text), 13);
    EXPECT_RAISES(CompareVariants(Variant(nullptr), 1, Text), 13);
    EXPECT_RAISES(CompareVariants("a", Variant(ByteArray{'a'}), Text), 13);
}

// ---- ContainsText and Trim ------------------------------------------------------

TEST(ContainsText, FindsTextIgnoringCase) {
    EXPECT_TRUE(ContainsText("Hola Mundo", "MUNDO"));
    EXPECT_TRUE(ContainsText("Hola Mundo", "a m"));
    EXPECT_FALSE(ContainsText("Hola Mundo", "mundos"));
    EXPECT_TRUE(ContainsText("canci\xC3\xB3n", "CI\xC3\x93N"));
    EXPECT_FALSE(ContainsText("canci\xC3\xB3n", "cion"));
}

TEST(ContainsText, FindsTheTextWhereverItStandsAndWhateverTheCaseOfEachLetter) {
    EXPECT_TRUE(ContainsText("order by a", "ORDER BY"));
    EXPECT_TRUE(ContainsText("select a from t ORDER By a", "order by"));
    EXPECT_TRUE(ContainsText("select a from t order by", "order by"));
    EXPECT_TRUE(ContainsText("ooOrder by", "order by"));
    EXPECT_TRUE(ContainsText("Orde Order byX", "order by"));
    EXPECT_FALSE(ContainsText("select COD_OP from t orden by a", "order by"));
    EXPECT_FALSE(ContainsText("order b", "order by"));
    EXPECT_FALSE(ContainsText("ab", "abc"));
    EXPECT_TRUE(ContainsText("x = 1 and y = 2", " = 2"));
    EXPECT_FALSE(ContainsText("x = 1 and y = 2", " = 3"));
    EXPECT_TRUE(ContainsText("a", "A"));
}

TEST(ContainsText, EmptyNeedleIsAlwaysFound) {
    EXPECT_TRUE(ContainsText("abc", ""));
    EXPECT_TRUE(ContainsText("", ""));
    EXPECT_FALSE(ContainsText("", "a"));
}

TEST(Trim, RemovesSpacesAtBothEndsOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\t"), "\ta\t");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
}
