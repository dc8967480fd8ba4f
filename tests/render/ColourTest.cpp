#include "render/Colour.h"

#include <gtest/gtest.h>

namespace lobegraph {
namespace {

TEST(Colour, stored_numbers_are_red_256_green_65536_blue) {
  EXPECT_EQ(Colour::FromStored(8388608), (Colour{0, 0, 128}));
  EXPECT_EQ(Colour::FromStored(65535), (Colour{255, 255, 0}));
  EXPECT_EQ(Colour::FromStored(14737632), (Colour{224, 224, 224}));
  EXPECT_EQ((Colour{1, 2, 3}.Stored()), 1 + 2 * 256 + 3 * 65536);
  EXPECT_EQ(Colour::FromStored(-1).Stored(), 0xFFFFFF);
}

struct Readable {
  Colour Background;
  Colour Text;
};
class ReadableOnTest : public testing::TestWithParam<Readable> {};

TEST_P(ReadableOnTest, text_stands_out) { EXPECT_EQ(ReadableOn(GetParam().Background), GetParam().Text); }

INSTANTIATE_TEST_SUITE_P(Colours, ReadableOnTest,
                         testing::Values(Readable{{0, 0, 0}, kWhite}, Readable{{255, 255, 255}, kBlack},
                                         Readable{{224, 224, 224}, kBlack}, Readable{{128, 0, 0}, kWhite},
                                         Readable{{0, 0, 128}, kWhite}, Readable{{0, 128, 0}, kWhite},
                                         Readable{{255, 255, 0}, kBlack}, Readable{{0, 255, 0}, kBlack},
                                         Readable{{255, 0, 0}, kBlack}, Readable{{128, 128, 128}, kBlack},
                                         Readable{{9, 9, 9}, kWhite}));

// The darkest background of a hue on which black stands out, and its neighbour.
INSTANTIATE_TEST_SUITE_P(WhereTheTextTurns, ReadableOnTest,
                         testing::Values(Readable{{236, 0, 0}, kWhite}, Readable{{237, 0, 0}, kBlack},
                                         Readable{{0, 137, 0}, kWhite}, Readable{{0, 138, 0}, kBlack},
                                         Readable{{0, 107, 255}, kWhite}, Readable{{0, 108, 255}, kBlack},
                                         Readable{{188, 0, 255}, kWhite}, Readable{{189, 0, 255}, kBlack},
                                         Readable{{235, 10, 20}, kBlack}, Readable{{117, 117, 117}, kWhite},
                                         Readable{{118, 118, 118}, kBlack}));

}  // namespace
}  // namespace lobegraph
