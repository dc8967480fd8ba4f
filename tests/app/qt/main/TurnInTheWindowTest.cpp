#include <QSlider>

#include "app/qt/WindowFixture.h"

namespace lobegraph {
namespace {

using test::BoxWatch;
using test::RealWindow;
using test::Stored;

/// A meter program that publishes one level stands for the source: a turn of one second needs no sound.
class TurnInTheWindowTest : public testing::Test {
 protected:
  TurnInTheWindowTest()
      : window_(Stored{{"InputDeviceIsdBMeter", "True"},
                       {"GaugeBridge", "True"},
                       {"StartupDelay", "0"},
                       {"RotateTime", "1"}}) {
    FileSettingsStore store;
    store.Save("GaugeBridge", "Settings", "Active", "Y");
    store.Save("GaugeBridge", "Settings", "Reading", "-20");
  }

  /// Collects; `deed` is done once, in the middle of the turn.
  void CollectAnd(const std::function<void()>& deed, int afterMs = 100) {
    QTimer::singleShot(afterMs, &window_.Window, deed);
    window_.Press("cmdCollectData");
  }
  bool Collecting() { return window_.Find<QWidget>("cmdHaltInput").isEnabled(); }

  RealWindow window_;
};

TEST_F(TurnInTheWindowTest, TheLiveTraceRepaintsNoMoreThanItself) {
  QRegion painted;
  class Watch : public QObject {
   public:
    explicit Watch(QRegion& region) : region_(region) {}
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint) region_ += static_cast<QPaintEvent*>(event)->region();
      return false;
    }
    QRegion& region_;
  } watch(painted);
  auto& plot = *window_.Window.findChild<PlotWidget*>();
  CollectAnd([&] {
    painted = {};
    plot.installEventFilter(&watch);
    QTimer::singleShot(100, &plot, [&] {
      plot.removeEventFilter(&watch);
      window_.Press("cmdHaltInput");
    });
  });
  ASSERT_FALSE(painted.isEmpty());
  EXPECT_LT(painted.boundingRect().height(), 200);
}

TEST_F(TurnInTheWindowTest, AClickThatWasOnItsWayDoesNotLeaveInTheMiddle) {
  window_.Find<QAbstractButton>("cmdExit").animateClick();  // a screen reader's; it clicks after 100 ms
  bool wasCollecting = false;
  bool visible = false;
  const auto look = [&] {
    wasCollecting = Collecting();
    visible = window_.Window.isVisible();
    window_.Press("cmdHaltInput");
  };
  CollectAnd(look, 300);
  EXPECT_TRUE(wasCollecting);
  EXPECT_TRUE(visible);
}

TEST_F(TurnInTheWindowTest, EnterInABoxDoesNothingMeanwhile) {
  bool wasCollecting = false;
  bool drawn = true;
  CollectAnd([&] {
    wasCollecting = Collecting();
    window_.MarkDrawing();
    window_.Enter("txtRotate", "90");
    drawn = window_.DrawnSinceMark();
    window_.Press("cmdHaltInput");
  });
  EXPECT_TRUE(wasCollecting);
  EXPECT_FALSE(drawn);
}

TEST_F(TurnInTheWindowTest, ActivationDrawsNothingMeanwhile) {
  bool drawn = true;
  CollectAnd([&] {
    window_.MarkDrawing();
    QEvent activated(QEvent::WindowActivate);
    QApplication::sendEvent(&window_.Window, &activated);
    QTimer::singleShot(50, &window_.Window, [&] {
      drawn = window_.DrawnSinceMark();
      window_.Press("cmdHaltInput");
    });
  });
  EXPECT_FALSE(drawn);
}

TEST_F(TurnInTheWindowTest, HaltHasTheFocusMeanwhileAndRescaleAfterwards) {
  QString meanwhile;
  CollectAnd([&] {
    meanwhile = QApplication::focusWidget()->objectName();
    window_.Press("cmdHaltInput");
  });
  EXPECT_EQ(meanwhile, "cmdHaltInput");
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "cmdRescaleData");
  EXPECT_FALSE(Collecting());
}

TEST_F(TurnInTheWindowTest, AWindowThatGrowsMeanwhileKeepsTheLiveTrace) {
  auto& plot = *window_.Window.findChild<PlotWidget*>();
  const QImage empty = plot.grab().toImage();
  bool drawnMeanwhile = true;
  QImage live;
  BoxWatch tooFewReadings;
  CollectAnd([&] {
    window_.MarkDrawing();
    window_.Window.resize(window_.Window.width() + 501, 2 * 560);
    drawnMeanwhile = window_.DrawnSinceMark();
    live = plot.grab().toImage();
    window_.Press("cmdHaltInput");
  });
  EXPECT_FALSE(drawnMeanwhile) << "no grid over the trace";
  EXPECT_EQ(plot.PixelsPerUnit(), 2.0);
  EXPECT_NE(live.size(), empty.size());
}

TEST_F(TurnInTheWindowTest, ClosingTheWindowEndsTheTurnAndSavesTheSettings) {
  window_.Find<QSlider>("Slider1").setValue(77);
  bool stillShown = false;
  CollectAnd([&] {
    window_.Window.close();
    stillShown = window_.Window.isVisible();
  });
  EXPECT_TRUE(stillShown) << "the run ends first";
  EXPECT_FALSE(window_.Window.isVisible());
  EXPECT_EQ(window_.Home.Setting("Scale"), "77");
}

TEST_F(TurnInTheWindowTest, LeavingWithABoxOpenClosesTheBox) {
  BoxWatch boxes([&](QDialog&) { window_.Window.LeaveNow(); });
  window_.Press("cmdSaveData");
  EXPECT_EQ(boxes.Seen, 1);
  EXPECT_FALSE(window_.Window.isVisible());
  EXPECT_NE(window_.Home.Setting("Scale"), "(missing)");
}

}  // namespace
}  // namespace lobegraph
