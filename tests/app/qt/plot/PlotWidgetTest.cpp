#include "app/qt/plot/PlotWidget.h"

#include <gtest/gtest.h>

#include <QPaintEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include "app/qt/WindowFixture.h"

namespace lobegraph {
namespace {

using test::RealWindow;

constexpr QSize kSize(200, 100);

/// Keeps what the widget was asked to repaint.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) Region += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
  QRegion Region;
};

class PlotWidgetTest : public testing::Test {
 protected:
  PlotWidgetTest() {
    plot_.resize(kSize);
    surface_.Clear();
    plot_.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&plot_));
    surface_.TakeTouched();
    QTest::qWait(20);
  }
  ImageSurface surface_{kSize, 1.0, Colour{224, 224, 224}};
  PlotWidget plot_{surface_, nullptr};
};

TEST_F(PlotWidgetTest, RepaintsOnlyWhatWasTouched) {
  PaintWatch paints(plot_);
  surface_.Line({20.F, 20.F}, {40.F, 30.F}, Colour{255, 0, 0});
  plot_.ShowDrawing();
  QTest::qWait(20);
  const QRect painted = paints.Region.boundingRect();
  EXPECT_TRUE(painted.contains(QRect(QPoint(20, 20), QPoint(40, 30)))) << painted.width();
  EXPECT_LT(painted.width(), 30);
  EXPECT_LT(painted.height(), 20);
}

TEST_F(PlotWidgetTest, NothingDrawnIsNothingRepainted) {
  PaintWatch paints(plot_);
  plot_.ShowDrawing();
  QTest::qWait(20);
  EXPECT_TRUE(paints.Region.isEmpty());
}

TEST_F(PlotWidgetTest, ShowsThePictureAsItIs) {
  surface_.FilledBox({10.F, 10.F}, {30.F, 30.F}, Colour{255, 0, 0});
  EXPECT_EQ(plot_.grab().toImage().convertToFormat(QImage::Format_RGB32),
            surface_.Picture().convertToFormat(QImage::Format_RGB32));
}

TEST_F(PlotWidgetTest, UpperLayerIsDrawnAboveAndLeavesThePictureAlone) {
  const QImage before = surface_.Picture().copy();
  PictureLayer layer;
  layer.Show(1, {.From = {0.F, 2.F}, .To = {20.F, 2.F}, .LineColour = Colour{0, 0, 255}, .Dashed = false});
  plot_.AddLayer(layer);
  EXPECT_NE(plot_.grab().toImage().convertToFormat(before.format()), before);
  EXPECT_EQ(surface_.Picture(), before);
}

TEST_F(PlotWidgetTest, APictureOfAnotherRatioIsAnnouncedOnce) {
  QSignalSpy announced(&plot_, &PlotWidget::RatioChanged);
  surface_.Resize(kSize, 2.0);
  surface_.Clear();
  plot_.repaint();
  plot_.repaint();
  EXPECT_EQ(announced.count(), 0) << "not in the middle of a repaint";
  QTest::qWait(20);
  EXPECT_EQ(announced.count(), 1);
  EXPECT_EQ(plot_.Ratio(), 1.0);
}

TEST_F(PlotWidgetTest, AnotherSizeIsAnotherRatioAtOnce) {
  QSignalSpy announced(&plot_, &PlotWidget::RatioChanged);
  plot_.resize(2 * kSize);
  EXPECT_EQ(announced.count(), 1);
  EXPECT_EQ(plot_.Ratio(), 2.0);
  surface_.Resize(kSize, plot_.Ratio());
  plot_.resize(2 * kSize + QSize(50, 0));
  EXPECT_EQ(announced.count(), 1) << "the same pixels, with more room beside them";
}

TEST_F(PlotWidgetTest, ThePictureStandsInTheMiddleAndPlacesGoBothWays) {
  plot_.resize(2 * kSize + QSize(60, 0));
  EXPECT_EQ(plot_.Origin(), QPointF(30, 0));
  EXPECT_EQ(plot_.PlaceOf(QRectF(10, 20, 30, 40)), QRectF(50, 40, 60, 80));
  const SurfacePoint units = plot_.UnitsAt({50, 40});
  EXPECT_EQ(units.X, 10.F);
  EXPECT_EQ(units.Y, 20.F);
  plot_.resize(kSize.width(), 3 * kSize.height());
  EXPECT_EQ(plot_.PixelsPerUnit(), 1.0);
  EXPECT_EQ(plot_.Origin(), QPointF(0, 100));
}

TEST_F(PlotWidgetTest, ALargePictureIsShownPixelForPixelAndRepaintedWhereItWasTouched) {
  plot_.resize(2 * kSize + QSize(60, 0));
  surface_.Resize(kSize, plot_.Ratio());
  surface_.Clear();
  plot_.ShowDrawing();
  QTest::qWait(20);
  PaintWatch paints(plot_);
  surface_.Line({20.F, 20.F}, {40.F, 35.F}, Colour{255, 0, 0});
  plot_.ShowDrawing();
  QTest::qWait(20);
  const QRect painted = paints.Region.boundingRect();
  EXPECT_TRUE(painted.contains(QRect(30 + 40, 40, 40, 30)));
  EXPECT_LT(painted.width(), 60);
  const QImage shown = plot_.grab().toImage().convertToFormat(QImage::Format_RGB32);
  const QImage& picture = surface_.Picture();
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      ASSERT_EQ(shown.pixel(30 + x, y), picture.pixel(x, y)) << x << ", " << y;
}

TEST_F(PlotWidgetTest, TheLayerFollowsTheSize) {
  PictureLayer layer;
  layer.Show(1,
             {.From = {0.F, 50.5F}, .To = {200.F, 50.5F}, .LineColour = Colour{0, 0, 255}, .Dashed = false});
  plot_.AddLayer(layer);
  plot_.resize(2 * kSize);
  const QImage shown = plot_.grab().toImage();
  EXPECT_EQ(shown.pixelColor(200, 101), QColor(0, 0, 255));
  EXPECT_NE(shown.pixelColor(200, 50), QColor(0, 0, 255));
}

TEST(RatioTest, AnotherRatioDrawsTheSameDrawingAnew) {
  RealWindow window;
  window.LoadBeam();
  auto& plot = *window.Window.findChild<PlotWidget*>();
  const QImage before = plot.grab().toImage();
  window.MarkDrawing();
  emit plot.RatioChanged();
  RealWindow::Settle();
  window.Find<QLabel>("lblDateTime").hide();
  const QImage after = plot.grab().toImage();
  EXPECT_FALSE(window.DrawnSinceMark());
  EXPECT_EQ(after.copy(0, 60, 501, 440), before.copy(0, 60, 501, 440));
}

}  // namespace
}  // namespace lobegraph
