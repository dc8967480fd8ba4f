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
  plot_.SetUpperLayer(layer);
  EXPECT_NE(plot_.grab().toImage().convertToFormat(before.format()), before);
  EXPECT_EQ(surface_.Picture(), before);
}

TEST_F(PlotWidgetTest, APictureOfAnotherRatioIsAnnouncedOnce) {
  QSignalSpy announced(&plot_, &PlotWidget::RatioChanged);
  surface_.Resize(kSize, 2.0);
  surface_.Clear();
  plot_.repaint();
  plot_.repaint();
  ASSERT_EQ(announced.count(), 1);
  EXPECT_EQ(announced[0][0].toReal(), 1.0);
}

TEST(RatioTest, AnotherRatioDrawsThePlotAnew) {
  RealWindow window;
  window.LoadBeam();
  window.MarkDrawing();
  emit window.Window.findChild<PlotWidget*>()->RatioChanged(2.0);
  RealWindow::Settle();
  EXPECT_TRUE(window.DrawnSinceMark());
}

}  // namespace
}  // namespace lobegraph
