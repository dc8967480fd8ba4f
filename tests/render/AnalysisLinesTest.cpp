#include "render/AnalysisLines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lobegraph {
namespace {

using enum AnalysisSide;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr PlotStyle kLogarithmic{.ScaleSetting = 35};
constexpr PlotStyle kFifty{.Scale = PlotScale::Db50};
constexpr PlotStyle kAmplitude{.Scale = PlotScale::Linear};

struct LevelRow {
  const char* Name;
  PlotStyle Style;
  float Height;
  std::optional<std::string> Text;
};
class AnalysisLevel : public testing::TestWithParam<LevelRow> {};

TEST_P(AnalysisLevel, of_a_height) {
  EXPECT_EQ(LevelText(GetParam().Height, 234.F, GetParam().Style), GetParam().Text);
}

INSTANTIATE_TEST_SUITE_P(
    Heights, AnalysisLevel,
    testing::Values(LevelRow{"logarithmic_top", kLogarithmic, 234.F, "0"},
                    LevelRow{"logarithmic_half", kLogarithmic, 117.F, "-10.5"},
                    LevelRow{"logarithmic_near_the_top", kLogarithmic, 231.F, "-0.2"},
                    LevelRow{"logarithmic_of_another_factor", {.ScaleSetting = 20}, 23.4F, "-20"},
                    LevelRow{"logarithmic_lowest", kLogarithmic, 1.F, "-82.9"},
                    LevelRow{"deliberate_logarithmic_bottom_has_none", kLogarithmic, 0.F, std::nullopt},
                    LevelRow{"logarithmic_below", kLogarithmic, -1.F, std::nullopt},
                    LevelRow{"dB_top", kFifty, 234.F, "0"}, LevelRow{"dB_half", kFifty, 117.F, "-25"},
                    LevelRow{"dB_one_decimal", kFifty, 219.96F, "-3"},
                    LevelRow{"dB_a_unit", kFifty, 233.F, "-0.2"},
                    LevelRow{"deliberate_dB_bottom_has_one", kFifty, 0.F, "-50"},
                    LevelRow{"dB_below", kFifty, -1.F, std::nullopt},
                    LevelRow{"amplitude_top", kAmplitude, 234.F, "100"},
                    LevelRow{"amplitude_half_power", kAmplitude, 165.438F, "71"},
                    LevelRow{"deliberate_amplitude_bottom_has_one", kAmplitude, 0.F, "0"},
                    LevelRow{"amplitude_below", kAmplitude, -1.F, std::nullopt}),
    [](const auto& row) { return row.param.Name; });

class AnalysisLinesTest : public testing::Test {
 protected:
  /// The height at which a line is shown; none when it is not.
  std::optional<float> ShownAt(AnalysisSide side) const {
    const auto& shown = lines_.Layer().Lines();
    const auto found = shown.find(static_cast<int>(side));
    if (found == shown.end()) return std::nullopt;
    return found->second.From.Y;
  }
  AnalysisLines lines_{PlotGeometry{}};  // area 26,160 to 494,394
};

TEST_F(AnalysisLinesTest, angles_run_from_minus_180_to_180_across_the_area) {
  EXPECT_EQ(AngleText(26, lines_.Area()), "-180");
  EXPECT_EQ(AngleText(260, lines_.Area()), "0");
  EXPECT_EQ(AngleText(494, lines_.Area()), "180");
  EXPECT_EQ(AngleText(377, lines_.Area()), "90");
  EXPECT_EQ(AngleText(27, lines_.Area()), "-179");
  EXPECT_EQ(AngleText(25, lines_.Area()), "-181");
}

TEST_F(AnalysisLinesTest, captions_name_the_unit) {
  EXPECT_EQ(LineCaption(Upper, kLogarithmic), "Upper line: -dB level");
  EXPECT_EQ(LineCaption(Lower, kLogarithmic), "Lower line: -dB level");
  EXPECT_EQ(LineCaption(Upper, kFifty), "Upper line: -dB level");
  EXPECT_EQ(LineCaption(Upper, kAmplitude), "Upper line: % peak value");
  EXPECT_EQ(LineCaption(Lower, kAmplitude), "Lower line: % peak value");
}

TEST_F(AnalysisLinesTest, edges_belong_to_the_area) {
  for (const SurfacePoint corner : {SurfacePoint{26, 160}, {494, 160}, {26, 394}, {494, 394}})
    EXPECT_TRUE(lines_.Inside(corner));
  for (const SurfacePoint outside : {SurfacePoint{25, 200}, {495, 200}, {100, 159}, {100, 395}})
    EXPECT_FALSE(lines_.Inside(outside));
}

TEST_F(AnalysisLinesTest, a_line_that_was_never_set_has_no_positions) {
  EXPECT_EQ(lines_.Line(Upper), (AnalysisLine{false, -1, -1, -1, -1, -1}));
}

TEST_F(AnalysisLinesTest, the_left_button_sets_the_upper_line) {
  lines_.Press(kLeftButton, {100.4F, 200});
  EXPECT_EQ(lines_.Line(Upper), (AnalysisLine{true, 100, 200, -1, -1, 200}));
  EXPECT_EQ(lines_.Line(Lower), AnalysisLine{});
  const LayerLine line = lines_.Layer().Lines().at(static_cast<int>(Upper));
  EXPECT_EQ(line, (LayerLine{{26, 200}, {494, 200}, kWhite, true, true}));
}

TEST_F(AnalysisLinesTest, the_right_button_sets_the_lower_line) {
  lines_.Press(kRightButton, {100, 300});
  EXPECT_EQ(lines_.Line(Lower), (AnalysisLine{true, 100, 300, -1, -1, 300}));
  EXPECT_EQ(lines_.Line(Upper), AnalysisLine{});
}

TEST_F(AnalysisLinesTest, both_buttons_set_both_lines) {
  lines_.Press(kLeftButton | kRightButton, {100, 300});
  EXPECT_TRUE(lines_.Line(Upper).Active && lines_.Line(Lower).Active);
}

TEST_F(AnalysisLinesTest, a_press_without_the_left_button_ends_the_upper_lines_following) {
  lines_.Press(kLeftButton, {100, 200});
  lines_.Press(kRightButton, {100, 300});
  EXPECT_FALSE(lines_.Line(Upper).Active);
  lines_.Move({100, 250});
  EXPECT_EQ(ShownAt(Upper), 200.F);
  EXPECT_EQ(ShownAt(Lower), 250.F);
}

TEST_F(AnalysisLinesTest, a_press_outside_starts_no_line) {
  lines_.Press(kLeftButton | kRightButton, {100, 395});
  EXPECT_EQ(lines_.Line(Upper), AnalysisLine{});
  EXPECT_THAT(lines_.Layer().Lines(), IsEmpty());
}

TEST_F(AnalysisLinesTest, a_line_that_is_moved_leaves_nothing_behind) {
  lines_.Press(kLeftButton, {100, 200});
  lines_.Move({300, 210});
  lines_.Move({300, 220});
  EXPECT_THAT(lines_.Layer().Lines(), SizeIs(1));
  EXPECT_EQ(ShownAt(Upper), 220.F);
  EXPECT_EQ(lines_.Line(Upper).Drawn, 220);
}

TEST_F(AnalysisLinesTest, outside_a_line_waits_where_it_was) {
  lines_.Press(kLeftButton, {100, 200});
  lines_.Move({100, 150});
  EXPECT_EQ(ShownAt(Upper), 200.F);
  EXPECT_TRUE(lines_.Line(Upper).Active);
}

TEST_F(AnalysisLinesTest, release_inside_keeps_the_position_and_the_level) {
  lines_.Press(kLeftButton, {100, 200});
  EXPECT_THAT(lines_.Release(kLeftButton, {110, 210}), ElementsAre(true, false));
  EXPECT_EQ(lines_.Line(Upper).ReleaseX, 110);
  EXPECT_EQ(lines_.Line(Upper).ReleaseY, 210);
  EXPECT_FALSE(lines_.Line(Upper).Active);
}

TEST_F(AnalysisLinesTest, release_outside_keeps_nothing_and_ends_the_following) {
  lines_.Press(kRightButton, {100, 200});
  EXPECT_THAT(lines_.Release(kRightButton, {110, 500}), ElementsAre(false, false));
  EXPECT_EQ(lines_.Line(Lower).ReleaseY, -1);
  EXPECT_FALSE(lines_.Line(Lower).Active);
}

TEST_F(AnalysisLinesTest, releasing_one_button_keeps_both_levels_but_ends_only_its_own_line) {
  lines_.Press(kLeftButton | kRightButton, {100, 200});
  EXPECT_THAT(lines_.Release(kRightButton, {100, 200}), ElementsAre(true, true));
  EXPECT_TRUE(lines_.Line(Upper).Active);
  EXPECT_FALSE(lines_.Line(Lower).Active);
}

TEST_F(AnalysisLinesTest, a_new_press_forgets_the_former_release) {
  lines_.Press(kLeftButton, {100, 200});
  lines_.Release(kLeftButton, {100, 200});
  lines_.Press(kLeftButton, {100, 220});
  EXPECT_EQ(lines_.Line(Upper).ReleaseX, -1);
  EXPECT_EQ(lines_.Line(Upper).ReleaseY, -1);
}

TEST_F(AnalysisLinesTest, clear_takes_one_line_away) {
  lines_.Press(kLeftButton | kRightButton, {100, 200});
  lines_.Clear(Upper);
  EXPECT_EQ(ShownAt(Upper), std::nullopt);
  EXPECT_EQ(lines_.Line(Upper).Drawn, -1);
  EXPECT_EQ(ShownAt(Lower), 200.F);
  lines_.Clear(Lower);
  EXPECT_THAT(lines_.Layer().Lines(), IsEmpty());
}

TEST_F(AnalysisLinesTest, a_cleared_surface_forgets_both_lines) {
  lines_.Press(kLeftButton | kRightButton, {100, 200});
  lines_.Reset();
  EXPECT_EQ(lines_.Line(Upper), AnalysisLine{});
  EXPECT_EQ(lines_.Line(Lower), AnalysisLine{});
  EXPECT_THAT(lines_.Layer().Lines(), IsEmpty());
}

TEST_F(AnalysisLinesTest, keys_move_a_line_within_the_area) {
  EXPECT_EQ(lines_.Step(Upper, 1), 234.F);
  EXPECT_EQ(ShownAt(Upper), 160.F);
  EXPECT_EQ(lines_.Step(Upper, -1), 234.F);
  EXPECT_EQ(lines_.Step(Upper, 10), 224.F);
  EXPECT_EQ(lines_.Step(Upper, -1), 225.F);
  EXPECT_EQ(lines_.Step(Upper, 1000), 0.F);
  EXPECT_EQ(ShownAt(Upper), 394.F);
  EXPECT_EQ(ShownAt(Lower), std::nullopt);
}

}  // namespace
}  // namespace lobegraph
