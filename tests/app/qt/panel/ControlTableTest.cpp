#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QSlider>
#include <algorithm>
#include <set>

#include "app/qt/WindowFixture.h"

namespace lobegraph {
namespace {

using test::RealWindow;
using test::Stored;

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool IsOfKind(ControlKind kind, const QWidget& widget) {
  const auto* box = qobject_cast<const QLineEdit*>(&widget);
  switch (kind) {
    case ControlKind::Button:
      return qobject_cast<const QPushButton*>(&widget) != nullptr;
    case ControlKind::CheckBox:
      return qobject_cast<const QCheckBox*>(&widget) != nullptr;
    case ControlKind::Slider:
      return qobject_cast<const QSlider*>(&widget) != nullptr;
    case ControlKind::DropDown:
      return qobject_cast<const QComboBox*>(&widget) != nullptr;
    case ControlKind::Label:
      return qobject_cast<const QLabel*>(&widget) != nullptr;
    default:
      return box != nullptr && box->isReadOnly() == (kind == ControlKind::ReadOnlyBox);
  }
}

bool ShowsItsCaption(ControlKind kind) {
  return kind == ControlKind::Button || kind == ControlKind::CheckBox;
}

TEST(ControlTableOnScreenTest, EveryRowIsAWidgetOfItsKindWithCaptionAndToolTip) {
  RealWindow window;
  for (const ControlRow& row : ControlTable()) {
    SCOPED_TRACE(row.Name);
    QWidget& widget = window.Widget(row);
    EXPECT_TRUE(IsOfKind(row.Kind, widget));
    if (ShowsItsCaption(row.Kind)) {
      EXPECT_EQ(widget.property("text").toString(), Q(row.Caption).trimmed());
    }
    EXPECT_EQ(widget.toolTip(), Q(row.ToolTip));
  }
}

TEST(ControlTableOnScreenTest, CaptionOnlyLabelsSayTheirWords) {
  RealWindow window;
  const std::map<const char*, const char*> captions = {{"lblDescription", "Description"},
                                                       {"lblFile", "File Name"},
                                                       {"lblGain", "Est Gain"},
                                                       {"lblAngle", "Angle"},
                                                       {"lblTrim", "Front <- Readings trimmed -> Back"},
                                                       {"lblNumberOfReadings", "No. of Readings"},
                                                       {"lblDegreesRotated", "Degrees Rotated"},
                                                       {"Label9", "Rotation Time"},
                                                       {"Label8", "Reading"},
                                                       {"lblScalePlot", "Rescale Plot"},
                                                       {"lblElements", "Elements"},
                                                       {"Label1", "Polarization"},
                                                       {"lblCollectTitle", "Collected by:"}};
  for (const auto& [name, caption] : captions) EXPECT_EQ(window.Caption(name), caption);
}

TEST(ControlTableOnScreenTest, FrameAndSeparatorLinesStandInThePanel) {
  RealWindow window;
  auto& frame = window.Find<QWidget>("Frame1");
  EXPECT_EQ(frame.width(), 257);
  for (const char* line : {"Line1", "Line2", "Line3", "Line4", "Line5"})
    EXPECT_EQ(window.Find<QFrame>(line).parentWidget(), &frame) << line;
}

TEST(ControlTableOnScreenTest, AtStartAllIsEnabledButHalt) {
  RealWindow window;
  std::set<std::string_view> disabled;
  for (const ControlRow& row : ControlTable())
    if (!window.Widget(row).isEnabled()) disabled.insert(row.Name);
  EXPECT_EQ(disabled, std::set<std::string_view>{"cmdHaltInput"});
}

TEST(ControlTableOnScreenTest, AtStartOnlyWhatThePlotDoesNotNeedIsHidden) {
  RealWindow window;
  std::set<std::string_view> hidden;
  for (const ControlRow& row : ControlTable())
    if (!window.Widget(row).isVisible()) hidden.insert(row.Name);
  EXPECT_EQ(hidden, (std::set<std::string_view>{"cmdTrigger", "cmdGrow", "cmdPatternAnalysis", "txtX", "txtY",
                                                "lblLeftButtonValue", "txtLeftY", "cmdClearLeftY",
                                                "lblRightButtonValue", "txtRightY", "cmdClearRightY"}));
}

TEST(ControlTableOnScreenTest, StartValuesStandInTheControls) {
  RealWindow window;
  EXPECT_TRUE(window.Find<QCheckBox>("chkPlotInDB").isChecked());
  EXPECT_TRUE(window.Find<QCheckBox>("chkShow3dB").isChecked());
  EXPECT_FALSE(window.Find<QCheckBox>("chk180").isChecked());
  EXPECT_EQ(window.Find<QSlider>("Slider1").minimum(), 10);
  EXPECT_EQ(window.Find<QSlider>("Slider1").maximum(), 100);
  EXPECT_EQ(window.Find<QSlider>("Slider1").value(), 35);
  EXPECT_EQ(window.Find<QSlider>("Slider2").minimum(), 1);
  EXPECT_EQ(window.Find<QSlider>("Slider2").maximum(), 120);
  EXPECT_EQ(window.Find<QSlider>("Slider2").value(), 60);
  for (const char* box : {"txtTrimFront", "txtTrimEnd", "txtRotate"}) EXPECT_EQ(window.Text(box), "0") << box;
  EXPECT_EQ(window.Text("txtChan1"), "0.0");
  EXPECT_EQ(window.Text("txtAngle"), "0.00");
  EXPECT_EQ(window.Find<QComboBox>("cboElements").currentText(), "");
}

TEST(ControlTableOnScreenTest, StoredRotationTimeAboveTheDefaultMaximumSurvives) {
  RealWindow window(Stored{{"RotateTime", "600"}, {"MaxRotationTime", "20"}});
  EXPECT_EQ(window.Find<QSlider>("Slider2").value(), 600);
  EXPECT_EQ(window.Caption("lblRotationTime"), "600");
}

TEST(ControlTableOnScreenTest, ElementsAreOfferedPadded) {
  RealWindow window;
  auto& box = window.Find<QComboBox>("cboElements");
  QStringList items;
  for (int i = 0; i < box.count(); ++i) items << box.itemText(i);
  EXPECT_EQ(items, QStringList({"  1", "  2", "  3", "  4", "  5", "  8", "  > 8!"}));
}

TEST(ControlTableOnScreenTest, WhatTheUserMovesOrChoosesRunsItsHandler) {
  RealWindow window;
  window.LoadBeam();
  const std::string before = window.Text("txtGain");
  window.Find<QSlider>("Slider2").setValue(90);
  EXPECT_EQ(window.Caption("lblRotationTime"), "90");
  auto& elements = window.Find<QComboBox>("cboElements");
  elements.setFocus();
  QTest::keyClick(&elements, Qt::Key_Up);
  EXPECT_EQ(elements.currentText(), "  2");
  EXPECT_NE(window.Text("txtGain"), before);
  window.MarkDrawing();
  window.Find<QSlider>("Slider1").setValue(50);
  EXPECT_TRUE(window.DrawnSinceMark());
}

TEST(ControlTableOnScreenTest, EveryControlHasATrueAccessibleName) {
  RealWindow window;
  std::set<std::pair<std::string, int>> names;
  for (const ControlRow& row : ControlTable()) {
    QWidget& widget = window.Widget(row);
    const QString name = QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
    EXPECT_FALSE(name.trimmed().isEmpty()) << row.Name;
    EXPECT_FALSE(name.contains('&')) << row.Name;
    if (row.Kind != ControlKind::Label) {
      EXPECT_TRUE(names.emplace(name.toStdString(), static_cast<int>(row.Kind)).second)
          << row.Name << " shares its name";
    }
  }
}

TEST(ControlTableOnScreenTest, LabelsSayWhatTheyShowToAScreenReader) {
  RealWindow window;
  window.LoadBeam();
  for (const char* name : {"lblFileDescription", "lblOperator", "lblSource", "lblHint", "lblDateTime"}) {
    auto& label = window.Find<QLabel>(name);
    EXPECT_FALSE(label.text().isEmpty()) << name;
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Description), label.text())
        << name;
  }
}

TEST(ControlTableOnScreenTest, AcceleratorsAreUniqueAmongWhatIsShown) {
  std::set<QChar> letters;
  for (const ControlRow& row : ControlTable()) {
    const QString caption = Q(row.Caption);
    const auto mark = caption.indexOf('&');
    if (mark >= 0) {
      EXPECT_TRUE(letters.insert(caption[mark + 1].toLower()).second) << row.Name;
    }
  }
}

}  // namespace
}  // namespace lobegraph
