#include "data/formats/WinPropFile.h"

#include <gmock/gmock.h>

#include "support/FaultOf.h"
#include "support/TextOf.h"

namespace lobegraph {
namespace {

using ::testing::Optional;

TEST(WinProp, PairsStandInAnyOrderAndAtAnyStepWithComments) {
  const PatternTable table = ReadWinProp(TextOf(
      "* a horizontal pattern\n# of two lines\n\n5  * pairs\n180 -12.5\n0\t7.5 # forward\n  90.0 -2.5\n\n270 "
      "-2.5\n45 2.5\n"));
  EXPECT_THAT(table.GainDbi, Optional(7.5));
  const auto levels = WholeDegrees(table);
  EXPECT_EQ(levels[0], 0);
  EXPECT_EQ(levels[45], -5);
  EXPECT_EQ(levels[180], -20);
  EXPECT_EQ(levels[315], -5) << "gaps are bridged along a straight line";
}

TEST(WinProp, APairTooFewIsACutFile) {
  EXPECT_EQ(FaultOf([] { ReadWinProp(TextOf("3\n0 1\n90 2\n")); }), fault::kInputPastEnd);
  EXPECT_EQ(FaultOf([] { ReadWinProp(TextOf("1e9\n0 1\n90 2\n")); }), fault::kInputPastEnd);
}

TEST(WinProp, WhatIsNoPairIsNoPattern) {
  for (const char* text : {"", "# nothing\n", "0\n", "hello\nworld\n", "1\n0 1\n90 2\n", "2\n0 1\n90 x\n",
                           "2\n0 1\n90\n", "2\n0 1\n90 2 3\n", "0 1\n90 2\n"})
    EXPECT_EQ(FaultOf([&] { ReadWinProp(TextOf(text)); }), fault::kTypeMismatch) << text;
}

}  // namespace
}  // namespace lobegraph
