#include <QClipboard>
#include <QSignalSpy>
#include <QWindow>

#include "app/qt/WindowFixture.h"

namespace lobegraph {
namespace {

using test::BoxWatch;
using test::RealWindow;

TEST(KeyboardTest, TabGoesThroughTheWindowInTheOrderOfWork) {
  RealWindow window;
  window.Find<QWidget>("chkCalibrate").setFocus();
  QStringList visited;
  while (visited.size() < 100 && !visited.contains(QApplication::focusWidget()->objectName())) {
    visited << QApplication::focusWidget()->objectName();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(visited.join(' ').toStdString(),
            "chkCalibrate chkAutoStart chkAutoStop chkTrigger cmdCollectData Slider2 cmdLinear cmdLogLin "
            "cmdOverlay chkPlotInDB chk180 chkShow3dB Slider1 txtTrimFront txtTrimEnd txtRotate "
            "cmdRescaleData cmdOriginalData cmdSmooth cmdReverse cmdDeSpike chkEditor cboElements "
            "cmdPolarization cmdIntegrate cmdGetData cmdSaveData cmdPrint cmdExit txtDescription lblOperator "
            "cmdShrink "
            "cmdChooseInput");
}

TEST(KeyboardTest, TypedQuoteIsSwallowedInTheDescription) {
  RealWindow window;
  QTest::keyClicks(&window.Find<QLineEdit>("txtDescription"), "a \"beam\", 3 el");
  EXPECT_EQ(window.Text("txtDescription"), "a beam, 3 el");
}

TEST(KeyboardTest, PastedQuotesAreDroppedFromTheDescription) {
  RealWindow window;
  auto& box = window.Find<QLineEdit>("txtDescription");
  box.setFocus();
  QApplication::clipboard()->setText("the \"new\" one");
  box.paste();
  EXPECT_EQ(box.text(), "the new one");
}

TEST(KeyboardTest, CursorStaysWhereItWasWhenAPastedQuoteIsDropped) {
  RealWindow window;
  auto& box = window.Find<QLineEdit>("txtDescription");
  box.setFocus();
  box.setText("left right");
  box.setCursorPosition(5);
  box.insert("\"");
  EXPECT_EQ(box.text(), "left right");
  EXPECT_LE(box.cursorPosition(), 6);
}

TEST(KeyboardTest, CtrlZTakesAChangeOfThePatternBackAndTwoKeysTakeItAgain) {
  RealWindow window;
  auto& button = window.Find<QPushButton>("cmdPolarization");
  button.setFocus();
  button.click();
  ASSERT_EQ(button.text(), "Vertic&al");
  for (const auto& redo :
       {Qt::ControlModifier | Qt::ShiftModifier, Qt::KeyboardModifiers(Qt::ControlModifier)}) {
    QTest::keyClick(&button, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(button.text(), "Hori&zontal");
    QTest::keyClick(&button, redo == Qt::ControlModifier ? Qt::Key_Y : Qt::Key_Z, redo);
    EXPECT_EQ(button.text(), "Vertic&al");
  }
}

TEST(KeyboardTest, InABoxTheUndoKeysAreTheBoxesOwn) {
  RealWindow window;
  auto& button = window.Find<QPushButton>("cmdPolarization");
  button.click();
  for (const char* name : {"txtDescription", "txtRotate", "txtTrimFront"}) {
    auto& box = window.Find<QLineEdit>(name);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(button.text(), "Vertic&al") << name;
  }
}

TEST(KeyboardTest, EnterInTheDescriptionMovesItToTheCaption) {
  RealWindow window;
  auto& box = window.Find<QLineEdit>("txtDescription");
  box.setFocus();
  QTest::keyClicks(&box, "Beam");
  EXPECT_EQ(window.Caption("lblFileDescription"), "");
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(window.Caption("lblFileDescription"), "Beam");
}

TEST(KeyboardTest, LeavingTheDescriptionMovesItToTheCaption) {
  RealWindow window;
  auto& box = window.Find<QLineEdit>("txtDescription");
  box.setFocus();
  QTest::keyClicks(&box, "Dipole");
  window.Find<QWidget>("cmdRescaleData").setFocus();
  EXPECT_EQ(window.Caption("lblFileDescription"), "Dipole");
}

TEST(KeyboardTest, FocusSelectsAllInTheBoxesOfTrimAndRotation) {
  RealWindow window;
  for (const char* name : {"txtTrimFront", "txtTrimEnd", "txtRotate"}) {
    auto& box = window.Find<QLineEdit>(name);
    box.setText("123");
    box.setFocus();
    RealWindow::Settle();
    EXPECT_EQ(box.selectedText(), "123") << name;
  }
}

TEST(KeyboardTest, FocusSelectsNothingInTheDescription) {
  RealWindow window;
  auto& box = window.Find<QLineEdit>("txtDescription");
  box.setText("Beam");
  box.setFocus(Qt::OtherFocusReason);
  RealWindow::Settle();
  EXPECT_EQ(box.selectedText(), "");
}

TEST(KeyboardTest, EnterInABoxRedraws) {
  for (const char* name : {"txtTrimFront", "txtTrimEnd", "txtRotate"}) {
    RealWindow window;
    window.LoadBeam();
    window.MarkDrawing();
    window.Find<QLineEdit>(name).setText("7");
    RealWindow::Settle();
    EXPECT_FALSE(window.DrawnSinceMark()) << name << ": other keys only edit";
    window.Enter(name, "7");
    EXPECT_TRUE(window.DrawnSinceMark()) << name;
    EXPECT_EQ(window.Text(name), "7");
  }
}

TEST(KeyboardTest, EnterPressesTheFocusedButton) {
  RealWindow window;
  auto& button = window.Find<QAbstractButton>("cmdPolarization");
  button.setFocus();
  QTest::keyClick(&button, Qt::Key_Return);
  EXPECT_EQ(button.text(), "Vertic&al");
  QTest::keyClick(&button, Qt::Key_Enter);
  EXPECT_EQ(button.text(), "Hori&zontal");
}

/// The key comes again and again from the keyboard while it is held.
void HoldKey(QWidget& widget, Qt::Key key) {
  QKeyEvent again(QEvent::KeyPress, key, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(&widget, &again);
}

TEST(KeyboardTest, HeldEnterOnCollectDoesNotPressHalt) {
  RealWindow window;
  auto& halt = window.Find<QAbstractButton>("cmdHaltInput");
  halt.setEnabled(true);
  halt.setFocus();
  QSignalSpy pressed(&halt, &QAbstractButton::clicked);
  for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) HoldKey(halt, key);
  EXPECT_EQ(pressed.count(), 0);
  QTest::keyClick(&halt, Qt::Key_Return);
  EXPECT_EQ(pressed.count(), 1) << "a fresh press counts";
}

TEST(KeyboardTest, AcceleratorsPressTheirButtonsAtOnce) {
  RealWindow window;
  const auto& button = window.Find<QAbstractButton>("cmdPolarization");
  for (const auto& [key, caption] :
       {std::pair(Qt::Key_Z, "Vertic&al"), std::pair(Qt::Key_A, "Hori&zontal")}) {
    QTest::keyClick(window.Window.windowHandle(), key, Qt::AltModifier);
    EXPECT_EQ(button.text(), caption);
  }
}

TEST(KeyboardTest, OperatorIsAskedForByDoubleClickAndByEnter) {
  RealWindow window;
  auto& label = window.Find<QLabel>("lblOperator");
  EXPECT_EQ(label.text(), " N0CALL");
  const std::function<void()> ways[] = {
      [&] { QTest::mouseDClick(&label, Qt::LeftButton); },
      [&] {
        label.setFocus();
        QTest::keyClick(&label, Qt::Key_Return);
      },
  };
  int number = 0;
  for (const auto& ask : ways) {
    const QString name = QString("OP%1").arg(++number);
    BoxWatch box([&](QDialog& dialog) {
      dialog.findChild<QLineEdit*>()->setText(name);
      dialog.accept();
    });
    ask();
    EXPECT_EQ(box.Seen, 1);
    EXPECT_EQ(label.text(), " " + name);
  }
}

}  // namespace
}  // namespace lobegraph
