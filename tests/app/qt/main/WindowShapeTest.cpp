#include <QWindow>

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

/// The plot's place in the window.
QPoint PlotOrigin(RealWindow& window) {
  return window.Window.findChild<PlotWidget*>()->mapTo(&window.Window, QPoint(0, 0));
}

TEST(WindowShapeTest, AMaximisedWindowCentresTheSurface) {
  RealWindow window;
  window.Window.showMaximized();
  RealWindow::Settle();
  const QSize size = window.Window.size();
  ASSERT_GT(size.width(), kGrown.width());
  EXPECT_EQ(PlotOrigin(window), QPoint((size.width() - 758) / 2, (size.height() - 560) / 2));
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
  EXPECT_EQ(PlotOrigin(window).x(), (window.Window.width() - 501) / 2);
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

TEST(WindowShapeTest, ARefusedShrinkLeavesThePlotWholeInTheMiddle) {
  RealWindow window;
  window.Press("cmdShrink");
  Impose(window, kGrown);
  EXPECT_EQ(PlotOrigin(window).x(), (758 - 501) / 2);
  EXPECT_TRUE(window.Find<QWidget>("cmdGrow").isVisible());
  window.Press("cmdGrow");
  EXPECT_EQ(PlotOrigin(window).x(), 0);
  EXPECT_TRUE(window.Find<QWidget>("Frame1").isVisible());
}

TEST(WindowShapeTest, ARefusedGrowLeavesThePlotWholeAndShrinkInReach) {
  RealWindow window;
  window.Press("cmdShrink");
  window.Press("cmdGrow");
  Impose(window, kShrunk);
  EXPECT_EQ(PlotOrigin(window), QPoint(0, 0));
  window.Press("cmdShrink");
  EXPECT_EQ(PlotOrigin(window), QPoint(0, 0));
  EXPECT_TRUE(window.Find<QWidget>("cmdGrow").isVisible());
}

}  // namespace
}  // namespace lobegraph
