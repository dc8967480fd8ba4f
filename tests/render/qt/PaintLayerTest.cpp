#include "render/qt/PaintLayer.h"

#include <gtest/gtest.h>

#include <QImage>

namespace lobegraph {
namespace {

int BlackPixels(const QImage& image, int y) {
  int count = 0;
  for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == qRgb(0, 0, 0) ? 1 : 0;
  return count;
}

QImage Painted(const PictureLayer& layer) {
  QImage window(60, 40, QImage::Format_RGB32);
  window.fill(Qt::white);
  QPainter painter(&window);
  painter.setPen(Qt::red);
  PaintLayer(painter, layer);
  EXPECT_EQ(painter.pen().color(), QColor(Qt::red)) << "the painter comes back as it was";
  return window;
}

TEST(PaintLayer, a_dashed_line_leaves_gaps_and_a_solid_one_none) {
  PictureLayer layer;
  layer.Show(1, {{10, 20}, {50, 20}, kBlack});
  layer.Show(2, {{10, 30}, {50, 30}, kBlack, false});
  const QImage window = Painted(layer);
  EXPECT_EQ(BlackPixels(window, 30), 40);
  EXPECT_GT(BlackPixels(window, 20), 15);
  EXPECT_LT(BlackPixels(window, 20), 40);
}

TEST(PaintLayer, an_inverting_line_is_seen_on_light_and_dark) {
  QImage window(60, 40, QImage::Format_RGB32);
  window.fill(Qt::white);
  QPainter painter(&window);
  painter.fillRect(30, 0, 30, 40, Qt::black);
  painter.fillRect(0, 20, 5, 1, QColor(224, 0, 1));
  PictureLayer layer;
  layer.Show(1, {{0, 20}, {60, 20}, kWhite, false, true});
  layer.Show(2, {{0, 30}, {60, 30}, kBlack, false});
  PaintLayer(painter, layer);
  painter.end();
  EXPECT_EQ(window.pixel(2, 20), qRgb(31, 255, 254));
  EXPECT_EQ(window.pixel(10, 20), qRgb(0, 0, 0));
  EXPECT_EQ(window.pixel(50, 20), qRgb(255, 255, 255));
  EXPECT_EQ(BlackPixels(window, 30), 60) << "the line after it is drawn as ever";
}

TEST(PaintLayer, a_hidden_line_shows_again_what_is_beneath) {
  PictureLayer layer;
  layer.Show(1, {{10, 20}, {50, 20}, kBlack});
  layer.Hide(1);
  EXPECT_EQ(BlackPixels(Painted(layer), 20), 0);
}

TEST(PaintLayer, the_rectangle_to_repaint_holds_the_line) {
  EXPECT_EQ(TouchedBy({{50, 20}, {10, 20}, kBlack}), QRect(9, 19, 42, 2));
}

TEST(PaintLayer, a_text_stands_around_its_place_in_its_colour) {
  PictureLayer layer;
  layer.Write({{{30, 20}, "180", 9.F, kBlack}});
  const QImage window = Painted(layer);
  QRect inked;
  for (int y = 0; y < window.height(); ++y)
    for (int x = 0; x < window.width(); ++x)
      if (qGray(window.pixel(x, y)) < 128) inked |= QRect(x, y, 1, 1);
  EXPECT_NEAR(inked.center().x(), 30, 1);
  EXPECT_NEAR(inked.center().y(), 20, 1);
  EXPECT_NEAR(inked.height(), 9, 1) << "12 units high letters have capitals of 8.6";
  EXPECT_TRUE(TouchedBy(layer.Texts()[0]).contains(inked));
}

}  // namespace
}  // namespace lobegraph
