#include "render/qt/ImageSurface.h"

#include <gtest/gtest.h>

#include "data/base/RunTimeError.h"
#include "render/Trace.h"
#include "render/grid/CircularGrid.h"
#include "render/qt/QtColour.h"

namespace lobegraph {
namespace {

constexpr Colour kGrey{224, 224, 224};
constexpr Colour kBlue{0, 0, 128};

struct Canvas {
  explicit Canvas(qreal ratio = 1.0) : Surface(QSize(100, 80), ratio, kGrey) { Surface.TakeTouched(); }
  Colour At(int x, int y) { return FromQt(Surface.Picture().pixelColor(x, y)); }
  ImageSurface Surface;
};

class Ratios : public testing::TestWithParam<double> {};

TEST_P(Ratios, the_picture_has_its_pixels_and_96_units_to_the_inch) {
  ImageSurface surface(QSize(758, 560), GetParam(), kGrey);
  const QImage& picture = surface.Picture();
  EXPECT_EQ(picture.width(), 758 * GetParam());
  EXPECT_EQ(picture.height(), 560 * GetParam());
  EXPECT_EQ(picture.devicePixelRatio(), GetParam());
  EXPECT_EQ(picture.logicalDpiY(), 96);
  EXPECT_EQ(FromQt(picture.pixelColor(0, 0)), kGrey);
}

TEST_P(Ratios, text_is_as_large_beside_the_plot_on_every_screen) {
  Canvas canvas(GetParam());
  canvas.Surface.SetFontName("Arial");
  canvas.Surface.SetFontSize(7);
  canvas.Surface.SetCurrentPosition({10, 20});
  canvas.Surface.Text("-10", kBlack);
  EXPECT_EQ(canvas.Surface.CurrentPosition(), (SurfacePoint{10, 20}));
  const QRect touched = canvas.Surface.TakeTouched();
  EXPECT_NEAR(touched.width(), 13.5 + 4, 2);
  EXPECT_NEAR(touched.height(), 9.33 + 4, 3);
  EXPECT_TRUE(QRect(8, 18, 20, 16).contains(touched));
}

INSTANTIATE_TEST_SUITE_P(Screens, Ratios, testing::Values(1.0, 1.5, 2.0));

TEST(ImageSurface, horizontal_and_vertical_lines_are_crisp) {
  Canvas canvas;
  canvas.Surface.Line({10, 40}, {30, 40}, kBlue);
  canvas.Surface.Line({50.5F, 10}, {50.5F, 30}, kBlue);
  EXPECT_EQ(canvas.At(20, 40), kBlue);
  EXPECT_EQ(canvas.At(20, 39), kGrey);
  EXPECT_EQ(canvas.At(20, 41), kGrey);
  EXPECT_EQ(canvas.At(50, 20), kBlue);
  EXPECT_EQ(canvas.At(49, 20), kGrey);
  EXPECT_EQ(canvas.At(51, 20), kGrey);
}

TEST(ImageSurface, the_pen_width_counts_in_units) {
  Canvas canvas(2.0);
  canvas.Surface.SetPenWidth(2);
  canvas.Surface.Line({10, 40}, {30, 40}, kBlue);
  for (int y = 78; y <= 81; ++y) EXPECT_EQ(canvas.At(40, y), kBlue) << y;
  EXPECT_EQ(canvas.At(40, 77), kGrey);
  EXPECT_EQ(canvas.At(40, 82), kGrey);
}

TEST(ImageSurface, a_slanted_line_passes_through_its_points) {
  Canvas canvas;
  canvas.Surface.SetPenWidth(2);
  canvas.Surface.Line({10, 10}, {50, 50}, kBlue);
  EXPECT_EQ(canvas.At(30, 30), kBlue);
  EXPECT_EQ(canvas.At(40, 30), kGrey);
  EXPECT_EQ(canvas.Surface.CurrentPosition(), (SurfacePoint{50, 50}));
}

TEST(ImageSurface, a_dot_is_as_wide_as_the_pen) {
  Canvas canvas;
  canvas.Surface.SetPenWidth(4);
  canvas.Surface.Dot({20, 20}, kBlue);
  EXPECT_EQ(canvas.At(20, 20), kBlue);
  EXPECT_EQ(canvas.At(19, 19), kBlue);
  EXPECT_EQ(canvas.At(23, 20), kGrey);
}

class CircleWidths : public testing::TestWithParam<int> {};

TEST_P(CircleWidths, the_rim_has_the_pen_the_middle_the_fill) {
  Canvas canvas;
  canvas.Surface.SetPenWidth(GetParam());
  canvas.Surface.Line({20, 40}, {80, 40}, kBlack);
  canvas.Surface.Circle({50, 40}, 20, kBlue);
  EXPECT_EQ(canvas.At(45, 40), kBlack) << "transparent at first";
  EXPECT_NE(canvas.At(50, 20), kGrey);
  EXPECT_NE(canvas.At(30, 40), kGrey);
  canvas.Surface.SetFillColour(kWhite);
  canvas.Surface.SetFillStyle(FillStyle::Solid);
  canvas.Surface.Circle({50, 40}, 20, kBlue);
  EXPECT_EQ(canvas.At(45, 40), kWhite);
  EXPECT_EQ(canvas.At(75, 40), kBlack) << "outside";
  canvas.Surface.SetFillStyle(FillStyle::Transparent);
  canvas.Surface.Circle({50, 40}, 30, kBlue);
  EXPECT_EQ(canvas.At(75, 40), kBlack);
}

INSTANTIATE_TEST_SUITE_P(PenWidths, CircleWidths, testing::Values(1, 2));

TEST(ImageSurface, boxes_are_outlined_or_filled_on_whole_pixels) {
  Canvas canvas;
  canvas.Surface.SetPenWidth(2);
  canvas.Surface.FilledBox({10, 10}, {30, 30}, kWhite);
  EXPECT_EQ(canvas.At(10, 10), kWhite);
  EXPECT_EQ(canvas.At(29, 29), kWhite);
  EXPECT_EQ(canvas.At(9, 9), kGrey);
  canvas.Surface.BoxOutline({10, 10}, {30, 30}, kBlue);
  for (const int edge : {9, 10, 29, 30}) {
    EXPECT_EQ(canvas.At(edge, 20), kBlue) << edge;
    EXPECT_EQ(canvas.At(20, edge), kBlue) << edge;
  }
  EXPECT_EQ(canvas.At(9, 9), kBlue);
  EXPECT_EQ(canvas.At(11, 20), kWhite);
  EXPECT_EQ(canvas.At(31, 20), kGrey);
  EXPECT_EQ(canvas.Surface.CurrentPosition(), (SurfacePoint{30, 30}));
}

TEST(ImageSurface, a_label_clears_the_line_beneath_it) {
  Canvas canvas;
  canvas.Surface.Line({5, 15}, {95, 15}, kBlack);
  canvas.Surface.SetFontSize(7);
  canvas.Surface.SetCurrentPosition({20, 9});
  canvas.Surface.Text("      ", kBlack);
  EXPECT_EQ(canvas.At(22, 15), kGrey);
  EXPECT_EQ(canvas.At(10, 15), kBlack);
}

TEST(ImageSurface, clearing_fills_with_the_background_of_now) {
  Canvas canvas;
  canvas.Surface.Line({5, 15}, {95, 15}, kBlack);
  canvas.Surface.SetBackgroundColour(kWhite);
  EXPECT_EQ(canvas.Surface.BackgroundColour(), kWhite);
  canvas.Surface.Clear();
  EXPECT_EQ(canvas.At(10, 15), kWhite);
  EXPECT_EQ(canvas.Surface.CurrentPosition(), SurfacePoint{});
  EXPECT_EQ(canvas.Surface.TakeTouched(), QRect(0, 0, 100, 80));
}

TEST(ImageSurface, another_size_begins_an_empty_picture_and_keeps_pen_and_font) {
  Canvas canvas;
  canvas.Surface.SetFontSize(7);
  canvas.Surface.Line({5, 15}, {95, 15}, kBlack);
  canvas.Surface.Resize(QSize(200, 50), 2.0);
  EXPECT_EQ(canvas.Surface.SizeUnits(), QSize(200, 50));
  EXPECT_EQ(canvas.Surface.Picture().size(), QSize(400, 100));
  EXPECT_EQ(canvas.At(20, 30), kGrey);
  EXPECT_EQ(canvas.Surface.FontSize(), 7.0F);
  EXPECT_EQ(canvas.Surface.TakeTouched(), QRect(0, 0, 200, 50));
}

TEST(ImageSurface, Arial_has_a_face_and_an_unknown_typeface_is_refused) {
  Canvas canvas;
  const std::string before = canvas.Surface.FontName();
  canvas.Surface.SetFontName("Arial");
  EXPECT_EQ(canvas.Surface.FontName(), "Arial");
  EXPECT_THROW(canvas.Surface.SetFontName("No Such Typeface 7"), RunTimeError);
  EXPECT_EQ(canvas.Surface.FontName(), "Arial");
  canvas.Surface.SetFontName(before);
  EXPECT_EQ(canvas.Surface.FontName(), before);
}

TEST(ImageSurface, a_font_size_of_8_25_is_kept_as_it_is) {
  Canvas canvas;
  EXPECT_EQ(canvas.Surface.FontSize(), 8.25F);
}

TEST(ImageSurface, nothing_is_touched_until_something_is_drawn) {
  Canvas canvas;
  canvas.Surface.SetPenWidth(2);
  canvas.Surface.SetCurrentPosition({4, 4});
  EXPECT_TRUE(canvas.Surface.TakeTouched().isEmpty());
}

TEST(ImageSurface, a_live_reading_touches_its_own_rectangle_only) {
  ImageSurface surface(QSize(758, 560), 1.0, kGrey);
  Plotter plotter(surface, PlotGeometry{});
  DrawCircularGrid(plotter, {}, {});
  StartTrace(plotter, kBlue, 0);
  DrawTracePoint(plotter, 90, 200);
  EXPECT_EQ(surface.TakeTouched(), QRect(0, 0, 758, 560));
  DrawTracePoint(plotter, 91, 203);
  const QRect touched = surface.TakeTouched();
  EXPECT_TRUE(touched.contains(QRect(450, 283, 3, 3)));
  EXPECT_LE(touched.width(), 9);
  EXPECT_LE(touched.height(), 9);
  EXPECT_TRUE(surface.TakeTouched().isEmpty());
}

TEST(ImageSurface, what_is_drawn_differs_from_the_picture_before_in_the_touched_rectangle_only) {
  Canvas canvas(1.5);
  const QImage before = canvas.Surface.Picture().copy();
  canvas.Surface.SetPenWidth(2);
  canvas.Surface.Line({30.3F, 30.7F}, {41.1F, 22.9F}, kBlue);
  const QRect touched = canvas.Surface.TakeTouched();
  const QImage after = canvas.Surface.Picture();
  bool changedInside = false;
  for (int y = 0; y < after.height(); ++y) {
    for (int x = 0; x < after.width(); ++x) {
      if (after.pixel(x, y) == before.pixel(x, y)) continue;
      changedInside = true;
      ASSERT_TRUE(QRectF(touched).contains(QPointF(x, y) / 1.5)) << x << "," << y;
    }
  }
  EXPECT_TRUE(changedInside);
}

TEST(ImageSurface, the_circle_of_a_plot_lies_where_the_mouse_finds_it) {
  ImageSurface surface(QSize(758, 560), 1.0, kGrey);
  Plotter plotter(surface, PlotGeometry{});
  DrawCircularGrid(plotter, {}, {});
  const QImage& picture = surface.Picture();
  EXPECT_LT(qGray(picture.pixel(250, 516)), 60) << "the rim at 180 degrees";
  EXPECT_EQ(FromQt(picture.pixelColor(250, 60)), kBlack) << "the line to 0 degrees";
  EXPECT_EQ(FromQt(picture.pixelColor(700, 300)), kGrey) << "the panel's place";
}

}  // namespace
}  // namespace lobegraph
