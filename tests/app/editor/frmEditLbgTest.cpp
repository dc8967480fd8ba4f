#include "app/editor/frmEditLbg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

class frmEditLbgTest : public testing::Test, protected AppFixture {
 protected:
  frmEditLbgTest() {
    Start();
    Tick(Control::chkEditor, true);
  }
  frmEditLbg& Commands() { return Form.Editor(); }
  std::string Value(int row) { return Commands().Grid().Text(row, EditorColumn::Value); }
  std::string Posn(int row) { return Commands().Grid().Text(row, EditorColumn::Posn); }
  void Import(const std::string& text) {
    Files.Held["/home/ham/x.csv"] = text;
    Editor.CsvFile = "/home/ham/x.csv";
    Commands().cmdGetDataFromFile_Click();
  }
};

TEST_F(frmEditLbgTest, the_box_shows_and_unloads_the_window) {
  EXPECT_TRUE(Editor.IsOpen);
  Tick(Control::chkEditor, false);
  EXPECT_FALSE(Editor.IsOpen);
}

TEST_F(frmEditLbgTest, closing_the_window_unticks_the_box) {
  Commands().Form_Unload();
  EXPECT_FALSE(View.Of(Control::chkEditor).Checked);
}

TEST_F(frmEditLbgTest, starts_empty_and_is_not_filled_from_the_plot) {
  HoldBeam();
  Commands().EditValue(1, "7");
  Tick(Control::chkEditor, false);
  Tick(Control::chkEditor, true);
  EXPECT_EQ(Value(1), "0");
  EXPECT_EQ(Posn(2), "0");
}

TEST_F(frmEditLbgTest, gets_the_values_of_the_plot) {
  HoldBeam();
  Commands().cmdGetDataFromPlot_Click();
  EXPECT_EQ(Value(1), "900");
  EXPECT_EQ(Posn(360), "359.00");
  EXPECT_EQ(Editor.TimesShown, 2);  // once empty, once all rows together
}

TEST_F(frmEditLbgTest, imports_a_CSV_file_and_says_what_was_read) {
  Import("Level\n2\n3\n");
  EXPECT_EQ(Editor.Folder, "/home/ham/");
  EXPECT_EQ(Value(1) + " " + Value(2) + " " + Value(3), "0 2 3");
  EXPECT_EQ(Posn(3), "240.00");
  EXPECT_EQ(Editor.Status, "3 values read, 1 were not numbers");
  EXPECT_EQ(Editor.TimesShown, 2);
}

TEST_F(frmEditLbgTest, an_import_empties_the_grid_first) {
  Commands().EditValue(300, "7");
  Import("1,2,3");
  EXPECT_EQ(Value(300), "0");
  EXPECT_EQ(Posn(300), "0");
}

TEST_F(frmEditLbgTest, a_name_without_ending_opens_as_csv) {
  Files.Held["/home/ham/pattern.csv"] = "5";
  Editor.CsvFile = "/home/ham/pattern";
  Commands().cmdGetDataFromFile_Click();
  EXPECT_EQ(Value(1), "5");
}

TEST_F(frmEditLbgTest, a_name_in_capitals_is_opened_as_it_is) {
  Files.Held["/home/ham/DATA.CSV"] = "5";
  Editor.CsvFile = "/home/ham/DATA.CSV";
  Commands().cmdGetDataFromFile_Click();
  EXPECT_EQ(Value(1), "5");
}

TEST_F(frmEditLbgTest, a_cancelled_or_empty_file_dialog_changes_nothing) {
  Commands().EditValue(1, "7");
  for (const auto& answer : {std::optional<std::string>(), std::optional<std::string>("")}) {
    Editor.CsvFile = answer;
    Commands().cmdGetDataFromFile_Click();
    EXPECT_EQ(Value(1), "7");
  }
}

TEST_F(frmEditLbgTest, a_file_that_is_not_there_is_named_without_a_box) {
  Editor.CsvFile = "/home/ham/none";
  Commands().cmdGetDataFromFile_Click();
  EXPECT_EQ(Editor.Status, "Error 53 (File not found): none.csv");
  EXPECT_THAT(Dialogs.Messages, IsEmpty());
}

TEST_F(frmEditLbgTest, a_mistyped_name_leaves_the_rows_that_were_edited) {
  Commands().EditValue(1, "7");
  Editor.CsvFile = "/home/ham/none";
  Commands().cmdGetDataFromFile_Click();
  EXPECT_EQ(Value(1), "7");
}

TEST_F(frmEditLbgTest, inserts_and_deletes_at_the_current_row) {
  Import("1,2,3");
  Editor.Row = 2;
  Commands().cmdInsert_Click();
  EXPECT_EQ(Value(2) + Value(3), "02");
  EXPECT_EQ(Posn(2), "90.00");
  Commands().cmdDelete_Click();
  EXPECT_EQ(Value(2) + Value(3), "23");
  EXPECT_EQ(Editor.TimesShown, 4);
}

TEST_F(frmEditLbgTest, inserts_and_deletes_at_row_1_when_nothing_is_selected) {
  Import("1,2,3");
  Commands().cmdInsert_Click();
  EXPECT_EQ(Value(1) + Value(2), "01");
  Commands().cmdDelete_Click();
  EXPECT_EQ(Value(1), "1");
}

TEST_F(frmEditLbgTest, clears_all_values) {
  Import("1,2,3");
  Commands().Command1_Click();
  EXPECT_EQ(Value(1), "0");
  EXPECT_EQ(Posn(2), "0");
  EXPECT_EQ(Editor.Status, "");
}

TEST_F(frmEditLbgTest, update_plots_the_values_and_they_can_be_saved) {
  std::string text;
  for (int i = 0; i < 360; ++i) text += std::to_string(100 + i) + "\n";
  Import(text);
  Forget();
  Commands().cmdUpdate_Click();
  EXPECT_EQ(Record().NumReadings, 359);
  EXPECT_EQ(Record().ReadingCount, 360.0);
  EXPECT_EQ(Text(Control::txtReadingsPlotted), "360");
  EXPECT_GT(Surface.Count("line", kTraceColour), 300);
  EXPECT_THAT(Dialogs.Messages, IsEmpty());
  SaveAs("/home/ham/new.lbg");
  EXPECT_TRUE(Files.Held.contains("/home/ham/new.lbg"));
}

TEST_F(frmEditLbgTest, an_update_ends_an_overlay) {
  HoldPair();
  ASSERT_TRUE(Pattern.Beneath());
  Commands().cmdGetDataFromPlot_Click();
  Commands().cmdUpdate_Click();
  EXPECT_FALSE(Pattern.Beneath());
}

TEST_F(frmEditLbgTest, after_the_first_update_of_a_fresh_window_original_brings_its_readings_back) {
  std::string text;
  for (int i = 0; i < 360; ++i) text += std::to_string(100 + i) + "\n";
  Import(text);
  Commands().cmdUpdate_Click();
  Press(Control::cmdSmooth);
  Press(Control::cmdOriginalData);
  EXPECT_EQ(Record().NumReadings, 359);
  EXPECT_EQ(Record().Readings(0), 100.F);
  SaveAs("/home/ham/new.lbg");
  EXPECT_NE(Files.Held["/home/ham/new.lbg"].find("\r\n459\r\n"), std::string::npos);
}

TEST_F(frmEditLbgTest, an_update_without_any_level_is_refused_and_original_still_works) {
  HoldBeam();
  const std::string before = WritePatternText(Record(), "");
  Commands().cmdUpdate_Click();  // the grid is empty
  EXPECT_EQ(Editor.Status, "No row has a level: the plot stays as it is");
  EXPECT_EQ(WritePatternText(Record(), ""), before);
  EXPECT_THAT(Dialogs.Messages, IsEmpty());
  EXPECT_EQ(Grids(), 0);
  Press(Control::cmdSmooth);
  Press(Control::cmdOriginalData);
  EXPECT_EQ(Record().Readings(0), 900.F);
}

TEST_F(frmEditLbgTest, update_with_an_empty_value_opens_no_box_and_changes_nothing) {
  HoldBeam();
  const ReadingArray before = Record().Readings;
  Commands().EditValue(5, "");
  Commands().cmdUpdate_Click();
  EXPECT_EQ(Record().Readings, before);
  EXPECT_THAT(Dialogs.Messages, IsEmpty());
  EXPECT_EQ(Grids(), 0);
  EXPECT_EQ(Editor.Status, "Row 5 is empty: the plot stays as it is");
}

TEST_F(frmEditLbgTest, a_value_that_is_no_number_is_an_error_that_names_and_selects_its_row) {
  HoldBeam();
  const ReadingArray before = Record().Readings;
  Commands().EditValue(12, "abc");
  Commands().cmdUpdate_Click();
  EXPECT_EQ(Record().Readings, before);
  EXPECT_THAT(
      Dialogs.Texts(),
      ElementsAre(MatchesRegex(
          "Row 12 reads \"abc\", which is no number. Type a level with digits and a point, or 0 for an "
          "empty place.\r\n\r\nError 13 .Type mismatch. in line [0-9]+ of procedure cmdUpdate_Click of "
          "Form frmEditLbg")));
  EXPECT_EQ(Editor.SelectedRow, 12);
  EXPECT_EQ(Editor.Status, "Row 12 is no number: the plot stays as it is");
  EXPECT_EQ(Grids(), 0);
}

TEST_F(frmEditLbgTest, a_value_below_0_is_named_with_its_row_before_the_fault_of_the_drawing) {
  HoldBeam();
  Commands().cmdGetDataFromPlot_Click();
  Commands().EditValue(7, "-1");
  Commands().cmdUpdate_Click();
  EXPECT_THAT(
      Dialogs.Texts(),
      ElementsAre(MatchesRegex("Row 7 reads \"-1\", which is below 0. Levels begin at 0: type another one "
                               "and update again.\r\n\r\nError 5 .Invalid procedure call or argument. in "
                               "line [0-9]+ of procedure ReDraw of Form Form1")));
}

TEST_F(frmEditLbgTest, pasted_values_are_counted) {
  Commands().Paste(1, EditorColumn::Value, "1\n2\n3\n");
  EXPECT_EQ(Posn(3), "240.00");
  EXPECT_EQ(Editor.Status, "3 values pasted");
  Commands().ClearValues(1, 2);
  EXPECT_EQ(Value(1) + Value(2) + Value(3), "003");
}

TEST_F(frmEditLbgTest, a_run_switches_update_and_import_off_and_on_again) {
  Import("1,2,3");
  bool seen = false;
  OnYield = [&] {
    if (seen || ReadingsDone() < 5) return;
    seen = true;
    EXPECT_FALSE(Editor.UpdateAllowed);
    const std::int16_t last = Record().NumReadings;
    Commands().cmdUpdate_Click();
    Editor.CsvFile = "/home/ham/none";
    Commands().cmdGetDataFromFile_Click();
    EXPECT_EQ(Record().NumReadings, last);
    EXPECT_EQ(Value(3), "3");
    Tick(Control::chkEditor, false);
    Tick(Control::chkEditor, true);
    EXPECT_FALSE(Editor.UpdateAllowed);
    Press(Control::cmdHaltInput);
  };
  Press(Control::cmdCollectData);
  EXPECT_TRUE(seen);
  EXPECT_TRUE(Editor.UpdateAllowed);
}

}  // namespace
}  // namespace lobegraph
