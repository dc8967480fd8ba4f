#include "data/formats/SplatFile.h"

#include <gmock/gmock.h>

#include "support/LopsidedTable.h"
#include "support/TextOf.h"

namespace lobegraph {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(Splat, HoldsFieldStrengthsAndARotation) {
  const std::string text = WriteSplat(LopsidedTable());
  EXPECT_THAT(text, StartsWith("0.0\n0\t"));
  EXPECT_THAT(text, HasSubstr("\n40\t1.000000\n"));
  const PatternTable table = ReadSplat(TextOf("; made by hand\n 90.0\n0 1.0 ; front\n180\t0.1\n"));
  EXPECT_EQ(WholeDegrees(table)[90], 0);
  EXPECT_NEAR(WholeDegrees(table)[270], -20, 1e-9);
}

TEST(Splat, AFieldOfNothingIsTheFaintestLevel) {
  EXPECT_EQ(WholeDegrees(ReadSplat(TextOf("0\n0 1\n90 0\n180 1\n270 1\n")))[90], kFaintestDb);
}

}  // namespace
}  // namespace lobegraph
