#include "app/qt/print/WindowPicture.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>

#include "app/qt/WindowFixture.h"

namespace lobegraph {
namespace {

constexpr QSize kWindow(400, 200);
constexpr QRect kPlot(0, 0, 200, 200);
constexpr QRect kButton(220, 20, 160, 40);
constexpr Colour kGround{224, 224, 224};
constexpr Colour kRed{255, 0, 0};

/// Steps between neighbouring pixels within one unit of the window: an enlarged picture of the screen has
/// none.
int EdgesWithinUnits(const QImage& image, const QRect& units) {
  constexpr int kStep = 40;
  const int ratio = static_cast<int>(image.devicePixelRatio());
  int count = 0;
  for (int y = units.top() * ratio; y < (units.bottom() + 1) * ratio; ++y)
    for (int x = units.left() * ratio; x < (units.right() + 1) * ratio - 1; ++x)
      if ((x + 1) % ratio != 0 && std::abs(qGray(image.pixel(x, y)) - qGray(image.pixel(x + 1, y))) > kStep)
        ++count;
  return count;
}

/// A window with a plot and a button.
class WindowPictureTest : public testing::Test {
 protected:
  WindowPictureTest() {
    test::UseTheProgramsStyle();
    window_.resize(kWindow);
    plot_.setGeometry(kPlot);
    button_.setGeometry(kButton);
    drawing_.Clear();
    drawing_.Line({10.F, 10.F}, {190.F, 150.F}, kRed);
    layer_.Show(0, {.From = {0.F, 180.F}, .To = {199.F, 180.F}, .LineColour = {0, 0, 255}, .Dashed = false});
    plot_.AddLayer(layer_);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window_));
  }
  QImage Take() const { return WindowPicture(window_, plot_, surface_, drawing_).Take(); }

  mutable QWidget window_;
  ImageSurface surface_{kPlot.size(), 1.0, kGround};
  ReplaySurface drawing_{surface_};
  PictureLayer layer_;
  mutable PlotWidget plot_{surface_, &window_};
  QPushButton button_{"Collect", &window_};
};

TEST_F(WindowPictureTest, HasManyPixelsToEachUnitOfTheWindow) {
  const QImage picture = Take();
  EXPECT_EQ(picture.devicePixelRatio(), 12.0);
  EXPECT_EQ(picture.size(), kWindow * 12);
  EXPECT_EQ(picture.deviceIndependentSize(), QSizeF(kWindow));
}

TEST_F(WindowPictureTest, ALargeWindowNeedsFewerPixelsToAUnit) {
  window_.resize(3000, 200);
  EXPECT_EQ(Take().devicePixelRatio(), 1.0);
}

TEST_F(WindowPictureTest, ThePlotIsDrawnAnewNotEnlarged) {
  const QImage picture = Take();
  EXPECT_GT(EdgesWithinUnits(picture, QRect(10, 10, 180, 140)), 1000);
  EXPECT_EQ(picture.pixelColor(100 * 12, 80 * 12), QColor(255, 0, 0)) << "the middle of the line";
  EXPECT_EQ(picture.pixelColor(20 * 12, 100 * 12), QColor(224, 224, 224));
}

TEST_F(WindowPictureTest, ButtonsAreDrawnAnewLetterAndFrame) {
  const QImage picture = Take();
  EXPECT_GT(EdgesWithinUnits(picture, kButton), 500);
  const QRect corner(kButton.topLeft(), QSize(4, 4));
  EXPECT_GT(EdgesWithinUnits(picture, corner), 0) << "its round corner is round";
}

TEST_F(WindowPictureTest, WhatLiesAboveThePlotIsInIt) {
  EXPECT_EQ(Take().pixelColor(100 * 12, 180 * 12), QColor(0, 0, 255));
}

TEST_F(WindowPictureTest, StandsUprightAndShowsWhatTheScreenShows) {
  const QImage screen = window_.grab().toImage();
  const QImage small = Take().scaled(kWindow, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  long difference = 0;
  for (int y = 0; y < kWindow.height(); ++y)
    for (int x = 0; x < kWindow.width(); ++x)
      difference += std::abs(qGray(screen.pixel(x, y)) - qGray(small.pixel(x, y)));
  EXPECT_LT(difference / (kWindow.width() * kWindow.height()), 4);
}

TEST_F(WindowPictureTest, LeavesTheScreenAsItWas) {
  const QImage before = window_.grab().toImage();
  const QImage plot = surface_.Picture().copy();
  Take();
  EXPECT_EQ(window_.grab().toImage(), before);
  EXPECT_EQ(surface_.Picture(), plot);
}

}  // namespace
}  // namespace lobegraph
