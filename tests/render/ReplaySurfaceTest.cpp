#include "render/ReplaySurface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/base/RunTimeError.h"
#include "support/FaultOf.h"
#include "support/RecordingSurface.h"

namespace lobegraph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Colour kRed{255, 0, 0};

class ReplaySurfaceTest : public testing::Test {
 protected:
  std::vector<std::string> Replayed() const {
    RecordingSurface target;
    replay_.DrawOn(target);
    return target.Operations;
  }
  RecordingSurface shown_;
  ReplaySurface replay_{shown_};
};

TEST_F(ReplaySurfaceTest, hands_everything_on_and_draws_it_again) {
  replay_.SetPenWidth(2);
  replay_.SetFillColour(kRed);
  replay_.SetFillStyle(FillStyle::Solid);
  replay_.SetFontName("Arial");
  replay_.SetFontSize(7);
  replay_.Line({1, 2}, {3, 4}, kRed);
  replay_.Dot({5, 6}, kRed);
  replay_.Circle({7, 8}, 9, kRed);
  replay_.BoxOutline({1, 1}, {2, 2}, kRed);
  replay_.FilledBox({3, 3}, {4, 4}, kRed);
  replay_.SetCurrentPosition({10, 11});
  replay_.Text(" -2 ", kRed);
  EXPECT_THAT(
      shown_.Operations,
      ElementsAre("pen 2", "fill colour #ff0000", "fill solid", "font Arial", "size 7",
                  "line 1,2 3,4 #ff0000", "dot 5,6 #ff0000", "circle 7,8 r9 #ff0000", "box 1,1 2,2 #ff0000",
                  "filled box 3,3 4,4 #ff0000", "at 10,11", "text [ -2 ] #ff0000"));
  EXPECT_EQ(Replayed(), shown_.Operations);
}

TEST_F(ReplaySurfaceTest, answers_for_the_surface_that_is_shown) {
  replay_.SetFillColour(kRed);
  replay_.SetFontSize(7);
  replay_.SetCurrentPosition({1, 2});
  EXPECT_EQ(replay_.FillColour(), kRed);
  EXPECT_EQ(replay_.CurrentFillStyle(), FillStyle::Transparent);
  EXPECT_EQ(replay_.FontName(), "Sans");
  EXPECT_EQ(replay_.FontSize(), 7.F);
  EXPECT_EQ(replay_.CurrentPosition(), (SurfacePoint{1, 2}));
  EXPECT_EQ(replay_.BackgroundColour(), shown_.Background);
}

TEST_F(ReplaySurfaceTest, a_clear_forgets_what_was_drawn_and_keeps_pen_fill_and_font) {
  replay_.SetPenWidth(3);
  replay_.SetFillStyle(FillStyle::Solid);
  replay_.SetFontName("Arial");
  replay_.Line({1, 2}, {3, 4}, kRed);
  replay_.Clear();
  replay_.Dot({5, 6}, kRed);
  EXPECT_THAT(Replayed(), ElementsAre("pen 3", "fill solid", "font Arial", "clear", "dot 5,6 #ff0000"));
}

TEST_F(ReplaySurfaceTest, a_refused_font_is_not_drawn_again) {
  shown_.MissingFonts = {"Nowhere"};
  EXPECT_NE(FaultOf([&] { replay_.SetFontName("Nowhere"); }), 0);
  EXPECT_THAT(Replayed(), IsEmpty());
}

}  // namespace
}  // namespace lobegraph
