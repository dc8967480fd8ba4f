#include "app/qt/WindowFixture.h"

namespace lobegraph {
namespace {

using test::BoxWatch;
using test::RealWindow;

TEST(ActivationTest, ComingBackFromAnotherWindowRedraws) {
  RealWindow window;
  window.LoadBeam();
  QWidget other;
  other.show();
  RealWindow::Activate(other);
  window.MarkDrawing();
  RealWindow::Activate(window.Window);
  EXPECT_TRUE(window.DrawnSinceMark());
}

TEST(ActivationTest, ClosingAnOwnBoxIsNoActivation) {
  RealWindow window;
  BoxWatch boxes([&](QDialog& box) {
    window.MarkDrawing();
    box.accept();
  });
  window.Press("cmdSaveData");
  RealWindow::Activate(window.Window);
  EXPECT_EQ(boxes.Texts, std::vector<std::string>{"LBG003 No data to save"});
  EXPECT_FALSE(window.DrawnSinceMark());
}

TEST(ActivationTest, AFaultThatEachRedrawMeetsIsShownOnce) {
  RealWindow window;
  ReadingsRecord record = BeamRecord();
  record.Readings(100) = 0.F;
  const std::string path = window.WritePattern("zero.lbg", record);
  BoxWatch boxes([&](QDialog& box) {
    if (qobject_cast<QFileDialog*>(&box)) return test::TypePath(box, path);
    box.accept();
  });
  window.Press("cmdGetData");
  QTest::qWait(200);
  ASSERT_EQ(boxes.Texts.size(), 1U);
  EXPECT_TRUE(boxes.Texts[0].starts_with("Error 11 (Division by zero) in line ")) << boxes.Texts[0];
  EXPECT_TRUE(boxes.Texts[0].ends_with(" of procedure ReDraw of Form Form1")) << boxes.Texts[0];
}

TEST(ActivationTest, ARefusalAtComingBackIsShownOnce) {
  RealWindow window;
  window.LoadBeam();
  QWidget other;
  other.show();
  RealWindow::Activate(other);
  window.Find<QLineEdit>("txtRotate").setText("400");
  BoxWatch boxes;
  RealWindow::Activate(window.Window);
  QTest::qWait(200);
  EXPECT_EQ(boxes.Texts, std::vector<std::string>{"LBG007 Value for Rotate must be in the range 1 - 359"});
  EXPECT_EQ(window.Text("txtRotate"), "0");
}

TEST(ActivationTest, ABoxThatOpenedInTheBackgroundIsNoActivationEither) {
  RealWindow window;
  window.LoadBeam();
  QWidget other;
  other.show();
  RealWindow::Activate(other);
  BoxWatch boxes([&](QDialog& box) {
    window.MarkDrawing();
    box.accept();
  });
  window.Enter("txtTrimFront", "400");
  RealWindow::Activate(window.Window);
  EXPECT_EQ(boxes.Seen, 1);
  EXPECT_FALSE(window.DrawnSinceMark());
}

TEST(ActivationTest, AfterABoxTheNextReturnRedrawsAgain) {
  RealWindow window;
  BoxWatch boxes;
  window.Press("cmdSaveData");
  RealWindow::Activate(window.Window);
  QWidget other;
  other.show();
  RealWindow::Activate(other);
  window.MarkDrawing();
  RealWindow::Activate(window.Window);
  EXPECT_TRUE(window.DrawnSinceMark());
}

}  // namespace
}  // namespace lobegraph
