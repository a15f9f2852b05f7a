// The text comparison's ASCII fast path against the collator it stands in
// for, pair by pair.
#include <gtest/gtest.h>

#include <random>

#include "platform/ConversionsDetail.h"

using namespace OVT_ZARO;

namespace {
int Sign(int x) { return x < 0 ? -1 : (x > 0 ? 1 : 0); }
}  // namespace

TEST(TextComparison, AsciiFastPathAgreesWithTheCollator) {
    std::mt19937 rng(12345);
    const std::string alphabet =
        std::string("aAbBzZ09 -_.,;:!?'\"()[]{}@#$%&*/\\+<=>^`|~\t\n") + '\x01' + '\x1f' + '\x7f';
    std::uniform_int_distribution<size_t> pick(0, alphabet.size() - 1), len(0, 6);
    int disagreements = 0;
    for (int i = 0; i < 20000; ++i) {
        std::string a, b;
        for (size_t k = len(rng); k > 0; --k) a += alphabet[pick(rng)];
        b = a.substr(0, len(rng) % (a.size() + 1));
        for (size_t k = len(rng); k > 0; --k) b += alphabet[pick(rng)];
        if (Sign(convdetail::CompareTextAscii(a, b)) != Sign(convdetail::CompareTextIcu(a, b))) {
            ++disagreements;
            ADD_FAILURE() << "'" << a << "' vs '" << b << "'";
            if (disagreements > 5) break;
        }
    }
    EXPECT_EQ(disagreements, 0);
}

TEST(TextComparison, EveryPairOfAsciiCharactersAgreesWithTheCollator) {
    for (int x = 0; x < 128; ++x)
        for (int y = 0; y < 128; ++y) {
            const std::string a(1, char(x)), b(1, char(y));
            ASSERT_EQ(Sign(convdetail::CompareTextAscii(a + "a", b + "b")),
                      Sign(convdetail::CompareTextIcu(a + "a", b + "b")))
                << x << " " << y;
        }
}
