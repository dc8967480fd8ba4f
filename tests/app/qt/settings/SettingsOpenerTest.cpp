#include "app/qt/settings/SettingsOpener.h"

#include <QMenu>

#include "app/qt/WindowFixture.h"

namespace lobegraph {
namespace {

using test::BoxWatch;
using test::RealWindow;

/// The ways into the settings dialog, on the real window.
class SettingsOpenerTest : public ::testing::Test {
 protected:
  void Operate(const std::function<void()>& way) {
    BoxWatch boxes([&](QDialog& box) {
      opened_ << box.objectName();
      box.reject();
    });
    way();
    RealWindow::Settle();
  }
  void PressKeys() { QTest::keyClick(&window_.Window, Qt::Key_Comma, Qt::ControlModifier); }
  void DoubleClick() { QTest::mouseDClick(&Plot(), Qt::LeftButton, Qt::NoModifier, kOnThePlot); }
  void UseMenu() {
    QContextMenuEvent asked(QContextMenuEvent::Mouse, kOnThePlot, Plot().mapToGlobal(kOnThePlot));
    QApplication::sendEvent(&Plot(), &asked);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) return;
    entries_ << menu->actions().first()->text();
    menu->actions().first()->trigger();
    menu->close();
  }
  PlotWidget& Plot() { return *window_.Window.findChild<PlotWidget*>(); }

  static constexpr QPoint kOnThePlot{250, 300};
  RealWindow window_;
  QStringList opened_;
  QStringList entries_;
};

TEST_F(SettingsOpenerTest, KeysDoubleClickAndMenuOpenIt) {
  Operate([&] { PressKeys(); });
  Operate([&] { DoubleClick(); });
  Operate([&] { UseMenu(); });
  EXPECT_EQ(opened_, QStringList({"frmSettings", "frmSettings", "frmSettings"}));
  EXPECT_EQ(entries_, QStringList{"Settings..."});
}

TEST_F(SettingsOpenerTest, TheMouseBelongsToTheAnalysisLinesWhileTheyAreShown) {
  window_.LoadBeam();
  window_.Press("cmdLinear");
  window_.Press("cmdPatternAnalysis");
  Operate([&] { DoubleClick(); });
  Operate([&] { UseMenu(); });
  EXPECT_EQ(opened_, QStringList());
  EXPECT_EQ(entries_, QStringList());
  Operate([&] { PressKeys(); });
  EXPECT_EQ(opened_, QStringList{"frmSettings"});
  window_.Press("cmdLinear");
  Operate([&] { DoubleClick(); });
  EXPECT_EQ(opened_.size(), 2) << "on the polar plot there are no such lines";
}

TEST_F(SettingsOpenerTest, ADoubleClickOnTheOperatorAsksForTheOperatorOnly) {
  Operate([&] { QTest::mouseDClick(&window_.Find<QLabel>("lblOperator"), Qt::LeftButton); });
  EXPECT_EQ(opened_.size(), 1);
  EXPECT_FALSE(opened_.contains("frmSettings"));
}

TEST_F(SettingsOpenerTest, AnotherButtonThanTheLeftOneOpensNothing) {
  Operate([&] { QTest::mouseDClick(&Plot(), Qt::MiddleButton, Qt::NoModifier, kOnThePlot); });
  EXPECT_EQ(opened_, QStringList());
}

TEST_F(SettingsOpenerTest, ThePlotSaysHow) {
  EXPECT_EQ(Plot().toolTip(), "Double-click, or Ctrl+comma, for the settings");
}

}  // namespace
}  // namespace lobegraph
