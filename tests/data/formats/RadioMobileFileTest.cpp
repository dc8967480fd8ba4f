#include "data/formats/RadioMobileFile.h"

#include <gmock/gmock.h>

#include "support/LopsidedTable.h"
#include "support/TextOf.h"

namespace lobegraph {
namespace {

using ::testing::HasSubstr;

TEST(RadioMobile, HoldsOneLevelALineAndTakesDecimalCommas) {
  const std::string text = WriteRadioMobile(LopsidedTable());
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 360);
  EXPECT_THAT(text, HasSubstr("\r\n0.000\r\n"));
  std::string other;
  for (int d = 0; d < 541; ++d) other += d == 7 ? "0,0\n" : "-12,5\n";
  const PatternTable table = ReadRadioMobile(TextOf(other));
  EXPECT_EQ(table.Points.size(), 360U) << "elevation follows";
  EXPECT_EQ(WholeDegrees(table)[8], -12.5);
}

}  // namespace
}  // namespace lobegraph
