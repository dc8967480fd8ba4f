#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "data/base/FileAccess.h"
#include "data/formats/CsvReadings.h"

namespace lobegraph {
namespace {

using testing::ElementsAre;
using testing::FloatEq;
using testing::Pointwise;
using testing::SizeIs;

/// A sheet of one turn as LibreOffice Calc 7.4.7 saves it as CSV, under the locale in the file's name.
CsvReadings Read(const std::string& name) {
  DiskFiles disk;
  return ReadCsv(*disk.Open(LOBEGRAPH_TEST_FILES "/csv/" + name, FileAccess::kLargestFile));
}

/// The sheet's cells: 1000 straight ahead, two decimals.
std::vector<float> Sheet() {
  std::vector<float> levels;
  for (int degrees = 0; degrees < CsvReadings::kMost; ++degrees) {
    const double half = degrees * std::numbers::pi / 360.0;
    const double level = 100.0 + 900.0 * std::pow(std::cos(half), 8);
    levels.push_back(static_cast<float>(std::round(level * 100.0) / 100.0));
  }
  return levels;
}

TEST(SpreadsheetFiles, columns_and_rows_with_decimal_points_give_the_sheets_numbers) {
  for (const char* name : {"column_en_US.csv", "row_en_US.csv", "column_de_CH.csv"}) {
    const CsvReadings readings = Read(name);
    EXPECT_THAT(readings.Values, Pointwise(FloatEq(), Sheet())) << name;
    EXPECT_EQ(CsvSummary(readings), "360 values read, 0 were not numbers") << name;
  }
}

TEST(SpreadsheetFiles, a_header_takes_the_first_row_and_pushes_the_last_value_out) {
  const CsvReadings readings = Read("header_en_US.csv");
  std::vector<float> expected = Sheet();
  expected.insert(expected.begin(), 0.F);
  expected.pop_back();
  EXPECT_THAT(readings.Values, Pointwise(FloatEq(), expected));
  EXPECT_EQ(CsvSummary(readings), "360 values read, 1 were not numbers, the rest was ignored");
}

TEST(SpreadsheetFiles, quoted_decimal_commas_are_no_numbers_and_the_user_is_told_how_many) {
  int whole = 0;
  std::vector<float> expected = Sheet();
  for (float& level : expected) {
    if (level == std::floor(level))
      ++whole;
    else
      level = 0.F;
  }
  for (const char* name : {"column_de_DE.csv", "row_fr_FR.csv"}) {
    const CsvReadings readings = Read(name);
    EXPECT_THAT(readings.Values, Pointwise(FloatEq(), expected)) << name;
    EXPECT_EQ(readings.NotNumbers, CsvReadings::kMost - whole) << name;
  }
}

TEST(SpreadsheetFiles, deliberate_a_bare_decimal_comma_separates_as_any_comma_does) {
  const CsvReadings readings = Read("column_de_DE_semicolons.csv");
  ASSERT_THAT(readings.Values, SizeIs(CsvReadings::kMost));
  EXPECT_THAT(std::vector<float>(readings.Values.begin(), readings.Values.begin() + 5),
              ElementsAre(1000.F, 999.F, 73.F, 998.F, 9.F));
  EXPECT_TRUE(readings.RestIgnored) << "which the window says";
}

}  // namespace
}  // namespace lobegraph
