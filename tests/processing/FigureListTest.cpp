#include "processing/FigureList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace lobegraph {
namespace {

using ::testing::HasSubstr;

CutFigures All() {
  CutFigures figures;
  double value = 1.0;
  for (auto* figure : {&figures.Hpbw, &figures.Hpbw10, &figures.Fnbw, &figures.PeakBearing,
                       &figures.BeamCentre, &figures.Squint, &figures.FrontToBack, &figures.FrontToRear,
                       &figures.FrontToRearSector, &figures.FrontToSide, &figures.SideLobeLevel,
                       &figures.SideLobeAngle, &figures.Ripple, &figures.Closure, &figures.Directivity.Kraus,
                       &figures.Directivity.TaiPereira, &figures.Directivity.Integrated})
    *figure = value++;
  return figures;
}

TEST(FigureList, EveryFigureHasARowWithItsUnitAndItsDefinition) {
  const auto rows = FigureRows(All());
  ASSERT_EQ(rows.size(), 17U);
  std::set<std::string> names, definitions;
  for (std::size_t index = 0; index < rows.size(); ++index) {
    EXPECT_THAT(rows[index].Value, ::testing::StartsWith(std::to_string(index + 1) + ".0"))
        << rows[index].Name;
    EXPECT_THAT(rows[index].Value, ::testing::ContainsRegex(" (degrees|dB|dBi)$"));
    EXPECT_TRUE(rows[index].Definition.ends_with('.'));
    names.insert(rows[index].Name);
    definitions.insert(rows[index].Definition);
  }
  EXPECT_EQ(names.size(), 17U);
  EXPECT_EQ(definitions.size(), 17U);
  EXPECT_EQ(rows[0].Name, "Beamwidth");
  EXPECT_EQ(rows[0].Value, "1.0 degrees");
  EXPECT_EQ(rows[16].Value, "17.00 dBi");
}

TEST(FigureList, WhatAPatternDoesNotHaveIsADash) {
  for (const FigureRow& row : FigureRows({})) EXPECT_EQ(row.Value, "-") << row.Name;
}

TEST(FigureList, AsTextEachFigureIsALine) {
  const std::string text = FigureText(FigureRows(All()));
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 17);
  EXPECT_THAT(text, HasSubstr("Front to back\t7.0 dB\n"));
}

}  // namespace
}  // namespace lobegraph
