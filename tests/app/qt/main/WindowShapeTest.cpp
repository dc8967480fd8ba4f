#include <QScrollBar>
#include <QWindow>
#include <cmath>

#include "app/qt/WindowFixture.h"
#include "app/qt/panel/WindowLayout.h"

namespace lobegraph {
namespace {

using test::BoxWatch;
using test::RealWindow;

constexpr QSize kGrown(758, 560);
constexpr QSize kShrunk(501, 560);

TEST(WindowShapeTest, StartsGrownWithItsCaption) {
  RealWindow window;
  EXPECT_EQ(window.Window.size(), kGrown);
  EXPECT_EQ(window.Window.windowTitle(), "Lobegraph V2.1.0     User = N0CALL");
  EXPECT_TRUE(window.Find<QWidget>("Frame1").isVisible());
}

TEST(WindowShapeTest, ShrinkingHidesThePanelAndGrowingShowsIt) {
  RealWindow window;
  window.Press("cmdShrink");
  EXPECT_EQ(window.Window.size(), kShrunk);
  EXPECT_FALSE(window.Find<QWidget>("Frame1").isVisible());
  EXPECT_TRUE(window.Find<QWidget>("cmdGrow").isVisible());
  EXPECT_TRUE(window.Find<QWidget>("cmdShrink").isVisible());
  window.Press("cmdGrow");
  EXPECT_EQ(window.Window.size(), kGrown);
  EXPECT_TRUE(window.Find<QWidget>("Frame1").isVisible());
  EXPECT_FALSE(window.Find<QWidget>("cmdGrow").isVisible());
  EXPECT_TRUE(window.Find<QWidget>("cmdShrink").isVisible());
}

PlotWidget& Plot(RealWindow& window) { return *window.Window.findChild<PlotWidget*>(); }
int PanelLeft(RealWindow& window) {
  return window.Find<QWidget>("Frame1").mapTo(&window.Window, QPoint(0, 0)).x();
}

TEST(WindowShapeTest, InItsNaturalSizeAUnitIsAPixel) {
  RealWindow window;
  EXPECT_EQ(Plot(window).PixelsPerUnit(), 1.0);
  EXPECT_EQ(Plot(window).Origin(), QPointF(0, 0));
  EXPECT_EQ(PanelLeft(window), kShrunk.width());
}

TEST(WindowShapeTest, AMaximisedWindowIsFilledByThePlot) {
  RealWindow window;
  window.Window.showMaximized();
  RealWindow::Settle();
  const QSize size = window.Window.size();
  ASSERT_GT(size.width(), kGrown.width());
  EXPECT_EQ(PanelLeft(window), size.width() - kPanelWidth);
  EXPECT_EQ(Plot(window).size(), QSize(size.width() - kPanelWidth, size.height()));
  EXPECT_NEAR(Plot(window).PixelsPerUnit(),
              std::min((size.width() - kPanelWidth) / 501.0, size.height() / 560.0), 1e-9);
}

TEST(WindowShapeTest, ALargerPlotIsDrawnAnewAndNothingElseHappens) {
  RealWindow window;
  window.LoadBeam();
  window.MarkDrawing();
  window.Window.resize(kPanelWidth + 2 * kShrunk.width(), 2 * kShrunk.height());
  RealWindow::Settle();
  EXPECT_EQ(Plot(window).PixelsPerUnit(), 2.0);
  EXPECT_FALSE(window.DrawnSinceMark()) << "the same drawing, not another";
  const QImage shown = Plot(window).grab().toImage();
  ASSERT_EQ(shown.size(), QSize(1002, 1120));
  int steps = 0;  // between the two pixels of a unit, where an enlarged picture has none
  for (int y = 98; y < 1034; ++y)
    for (int x = 34; x < 968; x += 2)
      if (std::abs(qGray(shown.pixel(x, y)) - qGray(shown.pixel(x + 1, y))) > 100) ++steps;
  EXPECT_GT(steps, 1000);
}

TEST(WindowShapeTest, AMaximisedWindowRefusesToShrinkAndIgnoresGrow) {
  RealWindow window;
  window.Window.showMaximized();
  RealWindow::Settle();
  const QSize size = window.Window.size();
  BoxWatch boxes;
  window.Press("cmdShrink");
  EXPECT_EQ(boxes.Texts, std::vector<std::string>{"The screen cannot be shrunk when it is maximised"});
  window.Press("cmdGrow");
  EXPECT_EQ(boxes.Seen, 1);
  EXPECT_EQ(window.Window.size(), size);
}

TEST(WindowShapeTest, WhatStandsOnThePlotKeepsItsCornerAndItsSize) {
  RealWindow window;
  window.Press("cmdPatternAnalysis");
  const auto places = [&] {
    std::map<Control, QRect> found;
    for (const ControlRow& row : ControlTable())
      if (OnPlot(row.Id)) found[row.Id] = window.Widget(row).geometry();
    return found;
  };
  const auto natural = places();
  for (const auto& [control, place] : natural) EXPECT_EQ(place, PlaceOf(control)) << RowOf(control).Name;
  window.Window.resize(kPanelWidth + 2 * 501, 2 * 560);
  RealWindow::Settle();
  for (const auto& [control, place] : places()) {
    EXPECT_EQ(place.height(), natural.at(control).height()) << RowOf(control).Name;
    EXPECT_TRUE(Plot(window).rect().contains(place)) << RowOf(control).Name;
  }
  EXPECT_EQ(window.Find<QWidget>("cmdShrink").size(), natural.at(Control::cmdShrink).size());
  EXPECT_EQ(window.Find<QWidget>("lblDateTime").pos(), QPoint(16, 8));
  EXPECT_EQ(window.Find<QWidget>("lblDateTime").width(), 2 * 180) << "a text has more room";
  EXPECT_EQ(window.Find<QWidget>("lblCollectTitle").geometry().right(), 2 * 493 - 1);
  EXPECT_EQ(window.Find<QWidget>("lblHint").geometry().bottom(), 2 * 556 + 1);
}

TEST(WindowShapeTest, InAWindowThatIsTooLowThePanelScrolls) {
  RealWindow window;
  window.Window.resize(758, 420);
  RealWindow::Settle();
  auto& area = *window.Window.findChild<PanelArea*>();
  EXPECT_TRUE(area.verticalScrollBar()->isVisible());
  EXPECT_FALSE(area.horizontalScrollBar()->isVisible()) << "nothing is cut at the side";
  auto& last = window.Find<QWidget>("txtDescription");
  EXPECT_TRUE(last.visibleRegion().isEmpty());
  area.ensureWidgetVisible(&last);
  RealWindow::Settle();
  EXPECT_EQ(last.visibleRegion().boundingRect(), last.rect());
  window.Window.resize(758, 560);
  RealWindow::Settle();
  EXPECT_FALSE(area.verticalScrollBar()->isVisible());
}

TEST(WindowShapeTest, AMinimisedWindowGivesTheSameMessage) {
  RealWindow window;
  window.Window.showMinimized();
  RealWindow::Settle();
  BoxWatch boxes;
  window.Press("cmdShrink");
  EXPECT_EQ(boxes.Texts, std::vector<std::string>{"The screen cannot be shrunk when it is maximised"});
}

TEST(WindowShapeTest, AShrunkWindowThatIsMaximisedAndRestoredIsStillShrunk) {
  RealWindow window;
  window.Press("cmdShrink");
  window.Window.showMaximized();
  RealWindow::Settle();
  EXPECT_EQ(Plot(window).size(), window.Window.size()) << "the plot has it all";
  window.Window.showNormal();
  RealWindow::Settle();
  EXPECT_EQ(window.Window.size(), kShrunk);
}

TEST(WindowShapeTest, AFullScreenWindowCountsAsMaximised) {
  RealWindow window;
  window.Window.showFullScreen();
  RealWindow::Settle();
  BoxWatch boxes;
  window.Press("cmdShrink");
  EXPECT_EQ(boxes.Texts, std::vector<std::string>{"The screen cannot be shrunk when it is maximised"});
  EXPECT_TRUE(window.Find<QWidget>("Frame1").isVisible());
}

/// What a window manager decides, whatever size the window asks for.
void Impose(RealWindow& window, const QSize& size) {
  window.Window.windowHandle()->resize(size);
  RealWindow::Settle();
  ASSERT_EQ(window.Window.size(), size);
}

TEST(WindowShapeTest, ARefusedShrinkGivesThePlotTheWholeWindow) {
  RealWindow window;
  window.Press("cmdShrink");
  Impose(window, kGrown);
  EXPECT_EQ(Plot(window).size(), kGrown);
  EXPECT_TRUE(window.Find<QWidget>("cmdGrow").isVisible());
  window.Press("cmdGrow");
  EXPECT_EQ(Plot(window).size(), kShrunk);
  EXPECT_TRUE(window.Find<QWidget>("Frame1").isVisible());
}

TEST(WindowShapeTest, ARefusedGrowLeavesThePlotWholeAndShrinkInReach) {
  RealWindow window;
  window.Press("cmdShrink");
  window.Press("cmdGrow");
  Impose(window, kShrunk);
  EXPECT_GE(Plot(window).width(), kShrunk.width() / 2);
  EXPECT_TRUE(window.Window.rect().contains(window.Find<QWidget>("cmdShrink").geometry()));
  window.Press("cmdShrink");
  EXPECT_EQ(Plot(window).size(), kShrunk);
  EXPECT_TRUE(window.Find<QWidget>("cmdGrow").isVisible());
}

}  // namespace
}  // namespace lobegraph
