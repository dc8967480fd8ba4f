#include "data/editor/EditorGrid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

using enum EditorColumn;
using testing::ElementsAre;
using testing::ElementsAreArray;

std::vector<std::string> Column(const EditorGrid& grid, EditorColumn column, int last, int first = 1) {
  std::vector<std::string> texts;
  for (int row = first; row <= last; ++row) texts.push_back(grid.Text(row, column));
  return texts;
}

EditorGrid Holding(const std::vector<std::string>& values) {
  EditorGrid grid;
  int row = 1;
  for (const std::string& value : values) grid.SetValue(row++, value);
  return grid;
}

EditorGrid FromCsv(const std::string& text) {
  std::istringstream file(text);
  EditorGrid grid;
  grid.GetFromCsv(ReadCsv(file));
  return grid;
}

TEST(EditorGrid, starts_with_360_numbered_empty_slots) {
  const EditorGrid grid;
  for (int row = 1; row <= 360; ++row) {
    EXPECT_EQ(grid.Text(row, No), std::to_string(row));
    EXPECT_EQ(grid.Text(row, Value), "0");
    EXPECT_EQ(grid.Text(row, Posn), "0");
  }
}

TEST(EditorGrid, reset_empties_every_row) {
  EditorGrid grid = Holding({"5", "6"});
  grid.Reset();
  EXPECT_THAT(Column(grid, Value, 2), ElementsAre("0", "0"));
  EXPECT_THAT(Column(grid, Posn, 2), ElementsAre("0", "0"));
}

TEST(EditorGrid, positions_of_three_readings) {
  const EditorGrid grid = FromCsv("1,2,3");
  EXPECT_THAT(Column(grid, Value, 4), ElementsAre("1", "2", "3", "0"));
  EXPECT_THAT(Column(grid, Posn, 4), ElementsAre("0.00", "120.00", "240.00", "0"));
}

TEST(EditorGrid, zeros_at_the_end_are_empty_slots_and_not_counted) {
  EXPECT_THAT(Column(Holding({"5", "0", "7", "0", "0"}), Posn, 5),
              ElementsAre("0.00", "120.00", "240.00", "0", "0"));
}

TEST(EditorGrid, an_empty_text_at_the_end_is_not_counted_but_any_other_text_is) {
  EXPECT_THAT(Column(Holding({"5", "6", ""}), Posn, 3), ElementsAre("0.00", "180.00", "0"));
  EXPECT_THAT(Column(Holding({"5", "6", "0.0"}), Posn, 3), ElementsAre("0.00", "120.00", "240.00"));
}

TEST(EditorGrid, rows_behind_the_last_reading_keep_their_position) {
  EditorGrid grid = Holding({"1", "2", "3"});
  grid.SetValue(3, "0");
  EXPECT_THAT(Column(grid, Posn, 3), ElementsAre("0.00", "180.00", "240.00"));
}

TEST(EditorGrid, without_any_reading_positions_stay) {
  EditorGrid grid = Holding({"1", "2"});
  grid.ClearValues(1, 2);
  EXPECT_THAT(Column(grid, Posn, 2), ElementsAre("0.00", "180.00"));
}

TEST(EditorGrid, steps_are_rounded_to_two_decimals) {
  EXPECT_THAT(Column(Holding({"1", "1", "1", "1", "1", "1", "1"}), Posn, 7),
              ElementsAre("0.00", "51.43", "102.86", "154.29", "205.71", "257.14", "308.57"));
}

TEST(EditorGrid, takes_values_from_the_plot_in_their_shortest_form) {
  ReadingArray readings;
  readings(0) = 0.5F;
  readings(1) = 1000.F;
  readings(2) = 12.25F;
  readings(359) = 7.F;
  readings(360) = 99.F;
  EditorGrid grid = Holding({"x"});
  grid.GetFromPlot(readings);
  EXPECT_THAT(Column(grid, Value, 4), ElementsAre(".5", "1000", "12.25", "0"));
  EXPECT_EQ(grid.Text(360, Value), "7");
  EXPECT_EQ(grid.Text(360, Posn), "359.00");
}

TEST(EditorGrid, a_CSV_of_400_numbers_fills_360_rows) {
  std::string text;
  for (int i = 1; i <= 400; ++i) text += std::to_string(i) + "\n";
  const EditorGrid grid = FromCsv(text);
  EXPECT_EQ(grid.Text(1, Value), "1");
  EXPECT_EQ(grid.Text(360, Value), "360");
}

TEST(EditorGrid, CSV_values_are_trimmed_decimal_texts) {
  EXPECT_THAT(Column(FromCsv(" 007.50 ,1E3,text,"), Value, 4), ElementsAre("7.5", "1000", "0", "0"));
}

TEST(EditorGrid, insert_makes_an_empty_slot_and_the_last_row_falls_off) {
  EditorGrid grid = Holding({"1", "2", "3"});
  grid.SetValue(360, "9");
  grid.Insert(2);
  EXPECT_THAT(Column(grid, No, 4), ElementsAre("1", "2", "3", "4"));
  EXPECT_THAT(Column(grid, Value, 5), ElementsAre("1", "0", "2", "3", "0"));
  EXPECT_THAT(Column(grid, Posn, 4), ElementsAre("0.00", "90.00", "180.00", "270.00"));
  EXPECT_THAT(Column(grid, Value, 360, 359), ElementsAre("0", "0"));
  EXPECT_THAT(Column(grid, No, 360, 359), ElementsAre("359", "360"));
}

TEST(EditorGrid, insert_at_the_last_row) {
  EditorGrid grid;
  grid.SetValue(360, "9");
  grid.Insert(360);
  EXPECT_EQ(grid.Text(360, Value), "0");
  EXPECT_EQ(grid.Text(360, No), "360");
}

TEST(EditorGrid, deleting_row_1_moves_every_value_up) {
  ReadingArray readings;
  for (int i = 0; i < 360; ++i) readings(i) = static_cast<float>(i + 1);
  EditorGrid grid;
  grid.GetFromPlot(readings);
  grid.Delete(1);
  for (int row = 1; row < 360; ++row) EXPECT_EQ(grid.Text(row, Value), std::to_string(row + 1));
  EXPECT_EQ(grid.Text(360, No), "360");
  EXPECT_EQ(grid.Text(360, Value), "0");
  EXPECT_EQ(grid.Text(360, Posn), "0");
  EXPECT_EQ(grid.Text(2, Posn), "1.00");
}

TEST(EditorGrid, deleting_the_last_row_empties_it) {
  EditorGrid grid;
  grid.SetValue(360, "9");
  grid.Delete(360);
  EXPECT_EQ(grid.Text(360, Value), "0");
  EXPECT_EQ(grid.Text(360, Posn), "0");
}

TEST(EditorGrid, insert_and_delete_act_on_row_1_when_nothing_is_selected) {
  EditorGrid grid = Holding({"5"});
  grid.Insert(0);
  EXPECT_THAT(Column(grid, Value, 2), ElementsAre("0", "5"));
  grid.Delete(0);
  EXPECT_THAT(Column(grid, Value, 2), ElementsAre("5", "0"));
}

TEST(EditorGrid, update_takes_360_readings_and_the_index_of_the_last_that_is_not_0) {
  EditorGrid grid;
  for (int row = 1; row <= 36; ++row) grid.SetValue(row, std::to_string(row) + ".5");
  ReadingsRecord record;
  record.NumReadings = 359;
  record.Readings(100) = 4.F;
  record.Readings(360) = 3.F;
  int failed = 0;
  record.TakeUp(grid.Numbers(record.Readings, failed));
  EXPECT_EQ(record.NumReadings, 35);
  EXPECT_EQ(record.ReadingCount, 36.0);
  EXPECT_EQ(record.Readings(35), 36.5F);
  EXPECT_EQ(record.Readings(100), 0.F);
}

TEST(EditorGrid, deliberate_update_never_looks_at_reading_360) {
  ReadingsRecord record;
  record.Readings(360) = 3.F;
  int failed = 0;
  record.TakeUp(EditorGrid().Numbers(record.Readings, failed));
  EXPECT_EQ(record.NumReadings, -1);
  EXPECT_EQ(record.ReadingCount, 0.0);
  EXPECT_EQ(record.Readings(360), 3.F);
}

struct FailingRow {
  const char* Name;
  const char* Text;
  int Number;
};
class EditorGridFailure : public testing::TestWithParam<FailingRow> {};

TEST_P(EditorGridFailure, update_changes_nothing_and_names_the_row) {
  ReadingsRecord record;
  record.Readings(0) = 8.F;
  record.NumReadings = 100;
  record.ReadingCount = 101;
  const ReadingArray before = record.Readings;
  const EditorGrid grid = Holding({"1", "2", GetParam().Text, "4"});
  int failed = 0;
  try {
    record.TakeUp(grid.Numbers(record.Readings, failed));
    FAIL() << "no error";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), GetParam().Number);
  }
  EXPECT_EQ(failed, 3);
  EXPECT_EQ(record.Readings, before);
  EXPECT_EQ(record.NumReadings, 100);
  EXPECT_EQ(record.ReadingCount, 101.0);
}

INSTANTIATE_TEST_SUITE_P(Values, EditorGridFailure,
                         testing::Values(FailingRow{"words", "abc", 13}, FailingRow{"a_tail", "5 dB", 13},
                                         FailingRow{"a_decimal_comma", "1,5", 13},
                                         FailingRow{"a_blank", " ", 13},
                                         FailingRow{"beyond_a_single", "1E39", 6},
                                         FailingRow{"beyond_a_double", "1E999", 6}),
                         [](const auto& row) { return row.param.Name; });

TEST(EditorGrid, the_first_empty_row_is_known) {
  EXPECT_EQ(EditorGrid().EmptyRow(), std::nullopt);
  EXPECT_EQ(Holding({"1", "2", "", ""}).EmptyRow(), 3);
}

TEST(EditorGrid, a_column_of_a_spreadsheet_is_pasted) {
  EditorGrid grid;
  EXPECT_EQ(grid.Paste(2, Value, "1.5\r\n2\r\n\r\n\"3\"\r\n"), 4);
  EXPECT_THAT(Column(grid, Value, 6), ElementsAre("0", "1.5", "2", "", "3", "0"));
  EXPECT_EQ(grid.Text(5, Posn), "288.00");
}

TEST(EditorGrid, of_a_pasted_block_only_the_values_are_taken) {
  EditorGrid grid;
  EXPECT_EQ(grid.Paste(1, No, "7\t1.5\t99\n8\t2\t100"), 2);
  EXPECT_THAT(Column(grid, Value, 3), ElementsAre("1.5", "2", "0"));
  EXPECT_THAT(Column(grid, No, 2), ElementsAre("1", "2"));
  EXPECT_EQ(grid.Paste(1, No, "7\n8"), 0);
  EXPECT_EQ(grid.Paste(1, Posn, "7\n8"), 0);
  EXPECT_EQ(grid.Paste(1, Value, "4\t5"), 1);
  EXPECT_THAT(Column(grid, Value, 2), ElementsAre("4", "2"));
}

TEST(EditorGrid, what_is_pasted_below_the_last_row_is_dropped) {
  EditorGrid grid;
  EXPECT_EQ(grid.Paste(360, Value, "1\n2\n3"), 1);
  EXPECT_EQ(grid.Text(360, Value), "1");
  EXPECT_EQ(grid.Text(1, Value), "0");
}

TEST(EditorGrid, a_copied_block_can_be_pasted_into_a_spreadsheet_and_back) {
  EditorGrid grid = Holding({"1.234", "2"});
  EXPECT_EQ(grid.Copy(1, 2, Value, Value), "1.234\n2\n");
  EXPECT_EQ(grid.Copy(1, 2, No, Posn), "1\t1.234\t0.00\n2\t2\t180.00\n");
  grid.Paste(3, Value, grid.Copy(1, 2, Value, Value));
  EXPECT_THAT(Column(grid, Value, 4), ElementsAre("1.234", "2", "1.234", "2"));
}

struct ShownRow {
  const char* Value;
  const char* Shown;
};
class EditorGridShown : public testing::TestWithParam<ShownRow> {};

TEST_P(EditorGridShown, value) {
  EditorGrid grid;
  grid.SetValue(1, GetParam().Value);
  EXPECT_EQ(grid.Shown(1, Value), GetParam().Shown);
  EXPECT_EQ(grid.Text(1, Value), GetParam().Value);
}

INSTANTIATE_TEST_SUITE_P(Values, EditorGridShown,
                         testing::Values(ShownRow{"5", "5"}, ShownRow{"0", "0"}, ShownRow{"1.239", "1.24"},
                                         ShownRow{"12.50", "12.5"}, ShownRow{"0.5", ".5"},
                                         ShownRow{".001", "0"}, ShownRow{"-.001", "0"},
                                         ShownRow{"-0.25", "-.25"}, ShownRow{"1000", "1000"},
                                         ShownRow{"1E3", "1000"}, ShownRow{"100.004", "100"},
                                         ShownRow{"abc", "abc"}, ShownRow{"", ""}, ShownRow{"1,5", "1,5"}));

TEST(EditorGrid, only_values_are_shown_in_another_form) {
  const EditorGrid grid = Holding({"1.239"});
  EXPECT_EQ(grid.Shown(1, No), "1");
  EXPECT_EQ(grid.Shown(1, Posn), "0.00");
}

}  // namespace
}  // namespace lobegraph
