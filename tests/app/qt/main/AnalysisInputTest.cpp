#include "app/qt/main/AnalysisInput.h"

#include <gtest/gtest.h>

#include "app/qt/WindowFixture.h"

namespace lobegraph {
namespace {

using test::RealWindow;

/// The rectangular drawing with the analysis switched on; its area is 26,160 to 494,394.
class AnalysisInputTest : public testing::Test {
 protected:
  AnalysisInputTest() {
    window_.LoadBeam();
    window_.Press("cmdLinear");
    window_.Press("cmdPatternAnalysis");
    Move({260, 100});
  }
  PlotWidget& Plot() { return *window_.Window.findChild<PlotWidget*>(); }
  void Send(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons pressed) {
    QMouseEvent event(type, at, Plot().mapToGlobal(at), button, pressed, Qt::NoModifier);
    QApplication::sendEvent(&Plot(), &event);
  }
  void Move(QPoint at, Qt::MouseButtons pressed = Qt::NoButton) {
    Send(QEvent::MouseMove, at, Qt::NoButton, pressed);
  }
  void Drag(Qt::MouseButton button, QPoint from, QPoint to) {
    Send(QEvent::MouseButtonPress, from, button, button);
    Move(to, button);
    Send(QEvent::MouseButtonRelease, to, button, Qt::NoButton);
  }
  QImage Drawing() { return Plot().grab(QRect(26, 160, 469, 235)).toImage(); }
  bool Visible(const char* name) { return window_.Find<QWidget>(name).isVisible(); }

  RealWindow window_;
};

TEST_F(AnalysisInputTest, ThePointerIsReadOffWithoutAnyButton) {
  Move({260, 277});
  EXPECT_EQ(window_.Text("txtX"), "0");
  EXPECT_EQ(window_.Text("txtY"), "-12");
  EXPECT_EQ(Plot().cursor().shape(), Qt::CrossCursor);
  EXPECT_TRUE(Plot().hasMouseTracking());
}

TEST_F(AnalysisInputTest, OutsideTheAreaAndOutsideThePlotThePointerIsAsEver) {
  const std::function<void()> ways[] = {[&] {
                                          Move({260, 100});
                                        },
                                        [&] {
                                          QEvent leave(QEvent::Leave);
                                          QApplication::sendEvent(&Plot(), &leave);
                                        }};
  for (const auto& leave : ways) {
    Move({260, 277});
    EXPECT_TRUE(Visible("txtX") && Visible("txtY"));
    leave();
    EXPECT_FALSE(Visible("txtX") || Visible("txtY"));
    EXPECT_EQ(Plot().cursor().shape(), Qt::ArrowCursor);
  }
}

TEST_F(AnalysisInputTest, LeftAndRightButtonSetTheirLines) {
  const QImage before = Drawing();
  Drag(Qt::LeftButton, {100, 200}, {120, 277});
  EXPECT_EQ(window_.Text("txtLeftY"), "-12");
  EXPECT_EQ(window_.Text("txtRightY"), "");
  Drag(Qt::RightButton, {100, 200}, {120, 300});
  EXPECT_EQ(window_.Text("txtLeftY"), "-12");
  EXPECT_EQ(window_.Text("txtRightY"), "-15.8");
  EXPECT_NE(Drawing(), before);
}

TEST_F(AnalysisInputTest, TheMiddleButtonSetsNone) {
  const QImage before = Drawing();
  Drag(Qt::MiddleButton, {100, 200}, {120, 277});
  Move({260, 100});
  EXPECT_EQ(Drawing(), before);
}

TEST_F(AnalysisInputTest, AClickWithoutAMoveKeepsTheLevelUnderThePointer) {
  Send(QEvent::MouseButtonPress, {260, 277}, Qt::LeftButton, Qt::LeftButton);
  Send(QEvent::MouseButtonRelease, {260, 277}, Qt::LeftButton, Qt::NoButton);
  EXPECT_EQ(window_.Text("txtLeftY"), "-12");
}

TEST_F(AnalysisInputTest, TheSecondPressOfADoubleClickSetsALineAsWell) {
  Send(QEvent::MouseButtonDblClick, {260, 277}, Qt::LeftButton, Qt::LeftButton);
  Send(QEvent::MouseButtonRelease, {260, 277}, Qt::LeftButton, Qt::NoButton);
  EXPECT_EQ(window_.Text("txtLeftY"), "-12");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "the settings stay closed over the analysis";
}

TEST_F(AnalysisInputTest, ALetGoLineFollowsNoLonger) {
  Drag(Qt::LeftButton, {100, 200}, {120, 277});
  const QImage kept = Drawing();
  Move({120, 350});
  EXPECT_EQ(Drawing(), kept);
  EXPECT_EQ(window_.Text("txtLeftY"), "-12");
}

TEST_F(AnalysisInputTest, ClearingBothLinesLeavesThePictureToTheLastPixel) {
  const QImage before = Drawing();
  for (const int end : {170, 277, 394}) {
    Drag(Qt::LeftButton, {100, 200}, {120, end});
    Drag(Qt::RightButton, {100, 200}, {120, end - 10});
    EXPECT_NE(Drawing(), before);
    window_.Press("cmdClearLeftY");
    window_.Press("cmdClearRightY");
    EXPECT_EQ(Drawing(), before) << end;
  }
  EXPECT_EQ(window_.Text("txtLeftY") + window_.Text("txtRightY"), "");
}

TEST_F(AnalysisInputTest, ArrowKeysMoveTheLineOfTheirBoxOrButton) {
  for (const char* name : {"txtLeftY", "cmdClearLeftY"}) {
    auto& widget = window_.Find<QWidget>(name);
    window_.Press("cmdClearLeftY");
    QTest::keyClick(&widget, Qt::Key_Down);
    EXPECT_EQ(window_.Text("txtLeftY"), "0") << "it begins at the top edge";
    for (int step = 0; step < 11; ++step) QTest::keyClick(&widget, Qt::Key_PageDown);
    for (int step = 0; step < 8; ++step) QTest::keyClick(&widget, Qt::Key_Down);
    QTest::keyClick(&widget, Qt::Key_Up);
    EXPECT_EQ(window_.Text("txtLeftY"), "-12") << name;
    EXPECT_EQ(window_.Text("txtRightY"), "");
  }
  QTest::keyClick(&window_.Find<QWidget>("txtRightY"), Qt::Key_PageDown);
  EXPECT_EQ(window_.Text("txtRightY"), "0");
  QTest::keyClick(&window_.Find<QWidget>("cmdClearRightY"), Qt::Key_PageUp);
  EXPECT_EQ(window_.Text("txtRightY"), "0") << "the top edge holds it";
}

TEST_F(AnalysisInputTest, OnALargerPlotTheSamePlacesAreRead) {
  window_.Window.resize(window_.Window.width() + 501 + 40, 2 * 560);
  RealWindow::Settle();
  Move({20 + 2 * 260, 2 * 277});
  EXPECT_EQ(window_.Text("txtX"), "0");
  EXPECT_EQ(window_.Text("txtY"), "-12");
  Drag(Qt::LeftButton, {20 + 2 * 100, 2 * 200}, {20 + 2 * 120, 2 * 277});
  EXPECT_EQ(window_.Text("txtLeftY"), "-12");
}

TEST_F(AnalysisInputTest, OnThePolarPlotTheMouseDoesNothing) {
  window_.Press("cmdLinear");
  const QImage before = Drawing();
  Drag(Qt::LeftButton, {100, 200}, {120, 277});
  EXPECT_EQ(Drawing(), before);
  EXPECT_EQ(Plot().cursor().shape(), Qt::ArrowCursor);
}

}  // namespace
}  // namespace lobegraph
