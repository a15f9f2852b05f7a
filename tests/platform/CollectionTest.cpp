// The platform's Collection: one-based positions, case-insensitive keys and
// its errors.
#include <gtest/gtest.h>

#include <limits>

#include "PlatformTestSupport.h"
#include "ZARODatos/platform/Collection.h"

using namespace OVT_ZARO;

namespace {
Collection Abc() {
    Collection c;
    c.Add(Variant("a"), "Uno");
    c.Add(Variant("b"), "Dos");
    c.Add(Variant("c"), "Tres");
    return c;
}
std::string At(Collection& c, const Variant& index) { return c.Item(index).Get<std::string>(); }
}  // namespace

TEST(Collection, PositionsAreOneBased) {
    Collection c = Abc();
    EXPECT_EQ(c.Count(), 3);
    EXPECT_EQ(c.Item(1).Get<std::string>(), "a");
    EXPECT_EQ(c.Item(3).Get<std::string>(), "c");
}

TEST(Collection, APositionOutOfRangeRaises9) {
    Collection c = Abc();
    EXPECT_RAISES(c.Item(0), 9);
    EXPECT_RAISES(c.Item(4), 9);
    EXPECT_RAISES(c.Item(-1), 9);
    EXPECT_RAISES(c.Remove(4), 9);
}

TEST(Collection, KeysIgnoreCase) {
    Collection c = Abc();
    EXPECT_EQ(c.Item("dos").Get<std::string>(), "b");
    EXPECT_EQ(c.Item("TRES").Get<std::string>(), "c");
    Collection d;
    d.Add(Variant(1), "A\xC3\x91O");  // AÑO
    EXPECT_EQ(d.Item("a\xC3\xB1o").Get<int32_t>(), 1);
}

TEST(Collection, ADuplicateKeyRaises457AndAddsNothing) {
    Collection c = Abc();
    EXPECT_RAISES(c.Add(Variant("x"), "UNO"), 457);
    EXPECT_EQ(c.Count(), 3);
    try {
        c.Add(Variant("x"), "uno");
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.Description, "This key is already associated with an element of this collection");
    }
}

TEST(Collection, AMissingKeyRaises5) {
    Collection c = Abc();
    EXPECT_RAISES(c.Item("Cuatro"), 5);
    EXPECT_RAISES(c.Remove("Cuatro"), 5);
    try {
        c.Item("x");
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.Description, "Invalid procedure call or argument");
    }
}

TEST(Collection, RemoveClosesTheGap) {
    Collection c = Abc();
    c.Remove(2);
    EXPECT_EQ(c.Count(), 2);
    EXPECT_EQ(c.Item(2).Get<std::string>(), "c");
    EXPECT_EQ(c.Item("Tres").Get<std::string>(), "c");
    EXPECT_RAISES(c.Item("Dos"), 5);
    c.Remove("uno");
    EXPECT_EQ(c.Count(), 1);
    EXPECT_EQ(c.Item(1).Get<std::string>(), "c");
}

TEST(Collection, ItemsWithoutKeysCanBeAddedTwice) {
    Collection c;
    c.Add(Variant(1));
    c.Add(Variant(2));
    EXPECT_EQ(c.Count(), 2);
    EXPECT_RAISES(c.Item(""), 5);
}

TEST(Collection, EnumeratesInInsertionOrder) {
    Collection c = Abc();
    std::string all;
    for (const Variant& v : c) all += v.Get<std::string>();
    EXPECT_EQ(all, "abc");
}

TEST(Collection, ANumericIndexIsAPositionAndAStringAKey) {
    Collection c = Abc();
    EXPECT_EQ(At(c, Variant(int16_t(2))), "b");
    EXPECT_EQ(At(c, Variant(int32_t(3))), "c");
    EXPECT_EQ(At(c, Variant(int64_t(1))), "a");
    EXPECT_EQ(At(c, Variant("dos")), "b");
    Collection d;
    d.Add(Variant("x"), "2");
    d.Add(Variant("y"), "1");
    // The text "1" is a key, not a position.
    EXPECT_EQ(At(d, Variant("1")), "y");
}

TEST(Collection, ADoubleIndexRoundsHalfToEven) {
    Collection c = Abc();
    EXPECT_EQ(At(c, Variant(1.5)), "b");
    EXPECT_EQ(At(c, Variant(2.5)), "b");
    EXPECT_EQ(At(c, Variant(2.6)), "c");
    EXPECT_RAISES(At(c, Variant(0.5)), 9);
    EXPECT_RAISES(At(c, Variant(3.5)), 9);
}

TEST(Collection, AnIndexBeyond32BitsIsOutOfRange) {
    Collection c = Abc();
    EXPECT_RAISES(At(c, Variant(1e12)), 9);
    EXPECT_RAISES(At(c, Variant(int64_t(1) << 40)), 9);
    EXPECT_RAISES(At(c, Variant(std::numeric_limits<double>::quiet_NaN())), 9);
}

TEST(Collection, ANullIndexRaises94AndOtherSubtypes13) {
    Collection c = Abc();
    EXPECT_RAISES(At(c, Variant::Null()), 94);
    EXPECT_RAISES(At(c, Variant()), 13);
    EXPECT_RAISES(At(c, Variant(true)), 13);
    EXPECT_RAISES(At(c, Variant(Date(1.0))), 13);
    EXPECT_RAISES(c.Remove(Variant()), 13);
}

TEST(Collection, RemoveByVariantIndex) {
    Collection c = Abc();
    c.Remove(Variant(1.0));
    c.Remove(Variant("TRES"));
    EXPECT_EQ(c.Count(), 1);
    EXPECT_EQ(c.Item(1).Get<std::string>(), "b");
}

TEST(Collection, TypeNameIsCollection) {
    auto c = std::make_shared<Collection>();
    EXPECT_EQ(TypeName(Variant(c)), "Collection");
}
