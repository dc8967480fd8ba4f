#include "data/formats/PlanetFile.h"

#include <gmock/gmock.h>

#include "support/LopsidedTable.h"
#include "support/TextOf.h"

namespace lobegraph {
namespace {

using ::testing::HasSubstr;
using ::testing::Optional;
using ::testing::StartsWith;

TEST(Planet, HasBothCutsWithoutMinusSignsAndNamesItsUnits) {
  const std::string text = WritePlanet(LopsidedTable());
  EXPECT_THAT(text, StartsWith("NAME 3 el, yagi\r\n"));
  for (const char* line : {"\r\nH_WIDTH 60.50\r\n", "\r\nFRONT_TO_BACK 14.00\r\n", "\r\nGAIN 8.25 dBi\r\n",
                           "\r\nPOLARIZATION VERTICAL\r\n", "\r\nHORIZONTAL 360\r\n", "\r\n40 0.00\r\n",
                           "\r\nVERTICAL 360\r\n0 0.00\r\n", "\r\n359 0.00\r\n"})
    EXPECT_THAT(text, HasSubstr(line));
  EXPECT_EQ(text.find('-'), std::string::npos);
  EXPECT_THAT(text, HasSubstr("unknown"));
}

TEST(Planet, ReadsTheDirtOfOtherWriters) {
  const PatternTable table = ReadPlanet(
      TextOf("NAME x y\nFREQUENCY 2.437 GHz\nGAIN 6.00\nPOLARIZATION HORIZONTAL\nNOISE 7 what\nHORIZONTAL "
             "359\n0.00\t-0.0\n"
             "90 10\n180.0 20\n 270\t10\nVERTICAL 360\n0 55\n"));
  EXPECT_EQ(table.Name, "x y");
  EXPECT_THAT(table.FrequencyMHz, Optional(2437.0));
  EXPECT_THAT(table.GainDbi, Optional(8.15)) << "without a unit it is over a dipole";
  EXPECT_THAT(table.Horizontal, Optional(true));
  ASSERT_EQ(table.Points.size(), 4U);
  EXPECT_EQ(WholeDegrees(table)[180], -20);
}

}  // namespace
}  // namespace lobegraph
