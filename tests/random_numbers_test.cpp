#include "math/random.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace {

std::vector<std::int32_t> draw(int count) {
    std::vector<std::int32_t> values;
    for (int i = 0; i < count; ++i) {
        values.push_back(math::LRand());
    }
    return values;
}

std::vector<std::int32_t> drawAfterSeed(std::int32_t seed, int count) {
    math::SetRand(seed);
    return draw(count);
}

using Sequence = std::vector<std::int32_t>;

}  // namespace

// Must run before anything else in this program seeds the generator.
TEST(RandomNumbers, UnseededStateStartsAtOne) {
    ASSERT_EQ(math::IY, 1);
    EXPECT_EQ(draw(3), (Sequence{1297131554, 17103983, 1426780792}));
    EXPECT_EQ(math::IY, 1426780792);
}

TEST(RandomNumbers, SeedsFoldOntoTheirResidueAndAreStoredUnchanged) {
    // Zero and its alias, a negative seed and its residue.
    EXPECT_EQ(drawAfterSeed(0, 3), (Sequence{453816693, 1623591814, 474883}));
    EXPECT_EQ(drawAfterSeed(-2147483647 - 1, 3), (Sequence{453816693, 1623591814, 474883}));
    EXPECT_EQ(drawAfterSeed(-1, 3), (Sequence{1757985480, 1082595997, 721652622}));
    EXPECT_EQ(drawAfterSeed(2147483647, 3), (Sequence{1757985480, 1082595997, 721652622}));
    EXPECT_EQ(drawAfterSeed(15021991, 5), (Sequence{673367888, 1879327365, 1218999126, 255411859, 487302348}));
    math::SetRand(-123456789);
    EXPECT_EQ(math::IY, -123456789);
}

TEST(RandomNumbers, ResultsStayInRangeFromExtremeSeeds) {
    for (std::int32_t seed : {-2147483647 - 1, -1, 0, 1, 2147483647}) {
        math::SetRand(seed);
        for (int i = 0; i < 10000; ++i) {
            const std::int32_t value = math::LRand();
            ASSERT_GE(value, 0) << "seed " << seed << " step " << i;
            ASSERT_EQ(value, math::IY);
        }
    }
}
