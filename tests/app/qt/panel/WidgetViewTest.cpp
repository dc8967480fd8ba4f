#include "app/qt/panel/WidgetView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>

namespace lobegraph {
namespace {

/// The controls without handlers, so that what reaches the user's side of them can be counted.
class WidgetViewTest : public testing::Test {
 protected:
  template <typename Kind>
  Kind& Widget(Control control) {
    return dynamic_cast<Kind&>(view_.Widget(control));
  }

  QWidget window_;
  ImageSurface surface_{QSize(501, 560), 1.0, Colour{224, 224, 224}};
  PlotWidget plot_{surface_, &window_};
  QWidget panel_{&window_};
  WidgetView view_{window_, plot_, panel_, surface_};
};

TEST_F(WidgetViewTest, WritingATextRunsNoHandler) {
  QSignalSpy typed(&Widget<QLineEdit>(Control::txtDescription), &QLineEdit::textChanged);
  QSignalSpy entered(&Widget<QLineEdit>(Control::txtRotate), &QLineEdit::returnPressed);
  view_.SetText(Control::txtDescription, "Beam");
  view_.SetText(Control::txtRotate, "180");
  EXPECT_EQ(typed.count() + entered.count(), 0);
  EXPECT_EQ(view_.Text(Control::txtDescription), "Beam");
  EXPECT_EQ(view_.Text(Control::txtRotate), "180");
}

TEST_F(WidgetViewTest, TickingABoxRunsNoHandler) {
  QSignalSpy clicked(&Widget<QCheckBox>(Control::chk180), &QAbstractButton::clicked);
  view_.SetChecked(Control::chk180, true);
  EXPECT_TRUE(view_.Checked(Control::chk180));
  view_.SetChecked(Control::chk180, false);
  EXPECT_FALSE(view_.Checked(Control::chk180));
  EXPECT_EQ(clicked.count(), 0);
}

TEST_F(WidgetViewTest, MovingASliderRunsNoHandler) {
  QSignalSpy moved(&Widget<QSlider>(Control::Slider2), &QSlider::valueChanged);
  view_.SetValue(Control::Slider2, 600);
  view_.SetMaximum(Control::Slider2, 120);
  EXPECT_EQ(moved.count(), 0);
  EXPECT_EQ(view_.Value(Control::Slider2), 120);
}

TEST_F(WidgetViewTest, ASliderMaximumOfNothingIsZero) {
  view_.SetMaximum(Control::Slider2, 0);
  EXPECT_EQ(view_.Value(Control::Slider2), 0);
}

TEST_F(WidgetViewTest, ARaisedMaximumRestoresTheLeastOfOne) {
  for (const int spoilt : {0, -300}) {
    view_.SetMaximum(Control::Slider2, spoilt);
    view_.SetMaximum(Control::Slider2, 300);
    EXPECT_EQ(view_.Value(Control::Slider2), 1);
    view_.SetValue(Control::Slider2, 0);
    EXPECT_EQ(view_.Value(Control::Slider2), 1) << "no turn of 0 s";
  }
}

TEST_F(WidgetViewTest, ChoosingElementsRunsNoHandler) {
  auto& box = Widget<QComboBox>(Control::cboElements);
  QSignalSpy chosen(&box, &QComboBox::activated);
  QSignalSpy changed(&box, &QComboBox::currentTextChanged);
  view_.SetText(Control::cboElements, "  3");
  EXPECT_EQ(chosen.count() + changed.count(), 0);
  EXPECT_EQ(view_.Text(Control::cboElements), "  3");
}

TEST_F(WidgetViewTest, DropDownKeepsATextThatAFileBrought) {
  view_.SetText(Control::cboElements, "6");
  EXPECT_EQ(view_.Text(Control::cboElements), "6");
  EXPECT_EQ(Widget<QComboBox>(Control::cboElements).count(), 8);
}

TEST_F(WidgetViewTest, DropDownForgetsAForeignTextWithTheNextOne) {
  auto& box = Widget<QComboBox>(Control::cboElements);
  view_.SetText(Control::cboElements, "6");
  view_.SetText(Control::cboElements, "12");
  EXPECT_EQ(box.count(), 8);
  view_.SetText(Control::cboElements, "  > 8!");
  EXPECT_EQ(box.count(), 7);
  view_.SetText(Control::cboElements, "");
  EXPECT_EQ(view_.Text(Control::cboElements), "");
}

TEST_F(WidgetViewTest, CaptionsOfButtonsAndLabelsAreText) {
  view_.SetText(Control::cmdPolarization, "Vertic&al");
  EXPECT_EQ(view_.Text(Control::cmdPolarization), "Vertic&al");
  EXPECT_EQ(view_.Widget(Control::cmdPolarization).accessibleName(), "Vertical");
  view_.SetText(Control::lblFileDescription, "<b>R&D</b>");
  EXPECT_EQ(view_.Text(Control::lblFileDescription), "<b>R&D</b>");
  EXPECT_EQ(Widget<QLabel>(Control::lblFileDescription).textFormat(), Qt::PlainText);
}

TEST_F(WidgetViewTest, ALongTextShowsHowItBegins) {
  view_.SetText(Control::txtFileName, std::string(200, 'x'));
  EXPECT_EQ(Widget<QLineEdit>(Control::txtFileName).cursorPosition(), 0);
}

TEST_F(WidgetViewTest, BackgroundsAreReadable) {
  view_.SetBackground(Control::txtChan1, Colour{255, 255, 0});
  const QPalette& yellow = Widget<QLineEdit>(Control::txtChan1).palette();
  EXPECT_EQ(yellow.color(QPalette::Base), QColor(255, 255, 0));
  EXPECT_EQ(yellow.color(QPalette::Text), QColor(Qt::black));
  view_.SetBackground(Control::txtChan1, Colour{0, 0, 0});
  EXPECT_EQ(Widget<QLineEdit>(Control::txtChan1).palette().color(QPalette::Text), QColor(Qt::white));
}

TEST_F(WidgetViewTest, CalibrateCaptionTurnsBoldAndBack) {
  view_.SetBold(Control::chkCalibrate, true);
  EXPECT_TRUE(Widget<QCheckBox>(Control::chkCalibrate).font().bold());
  view_.SetBold(Control::chkCalibrate, false);
  EXPECT_FALSE(Widget<QCheckBox>(Control::chkCalibrate).font().bold());
}

TEST_F(WidgetViewTest, EightLabelsTakeThePlotsBackground) {
  view_.SetWindowBackground(Colour{10, 20, 30});
  EXPECT_EQ(LabelsOnPlot().size(), 8U);
  for (const Control label : LabelsOnPlot())
    EXPECT_EQ(view_.Widget(label).palette().color(QPalette::Window), QColor(10, 20, 30)) << RowOf(label).Name;
  EXPECT_EQ(surface_.BackgroundColour(), (Colour{10, 20, 30}));
}

TEST_F(WidgetViewTest, AScreenReaderSaysWhatALabelShowsNow) {
  view_.SetText(Control::lblLeftButtonValue, "Upper line: % peak value");
  EXPECT_EQ(view_.Widget(Control::lblLeftButtonValue).accessibleName(), "Upper line: % peak value");
  view_.SetText(Control::lblHint, "Press Collect");
  EXPECT_EQ(view_.Widget(Control::lblHint).accessibleName(), "What to do next");
  EXPECT_EQ(view_.Widget(Control::lblHint).accessibleDescription(), "Press Collect");
  view_.SetSpoken(Control::lblHint, "Press Collect. Or wait.");
  EXPECT_EQ(view_.Widget(Control::lblHint).accessibleDescription(), "Press Collect. Or wait.");
  EXPECT_EQ(view_.Text(Control::lblHint), "Press Collect");
  view_.SetText(Control::lblHint, "Halted");
  EXPECT_EQ(view_.Widget(Control::lblHint).accessibleDescription(), "Halted") << "what was spoken is over";
}

TEST_F(WidgetViewTest, Timer1FiresOnceWhenItIsEnabled) {
  QSignalSpy fired(&view_.Timer1(), &QTimer::timeout);
  view_.EnableTimer1(true);
  EXPECT_EQ(fired.count(), 0) << "only when the event loop turns";
  fired.wait(500);
  EXPECT_FALSE(fired.wait(20));
  EXPECT_EQ(fired.count(), 1);
  view_.EnableTimer1(true);
  view_.EnableTimer1(false);
  EXPECT_FALSE(fired.wait(20));
}

}  // namespace
}  // namespace lobegraph
