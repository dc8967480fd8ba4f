#include "app/qt/panel/WindowLayout.h"

#include <QFontDatabase>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>
#include <algorithm>
#include <cmath>
#include <set>

#include "app/qt/WindowFixture.h"
#include "app/qt/panel/PanelRows.h"
#include "render/AxisLabels.h"
#include "render/PlotGeometry.h"
#include "render/qt/PaintLayer.h"

namespace lobegraph {
namespace {

using test::RealWindow;
using test::Stored;

/// Faces of desktops, a wide one last.
class LayoutTest : public testing::TestWithParam<const char*> {
 protected:
  LayoutTest() {
    if (!QFontDatabase::hasFamily(GetParam())) ADD_FAILURE() << "install the face " << GetParam();
    test::UseTheProgramsStyle();
    QApplication::setFont(QFont(GetParam(), 9), "QMenu");
  }
};

INSTANTIATE_TEST_SUITE_P(Faces, LayoutTest,
                         testing::Values("DejaVu Sans", "Liberation Sans", "DejaVu Sans Mono"),
                         [](const auto& test) { return QString(test.param).remove(' ').toStdString(); });

std::vector<QWidget*> Shown(RealWindow& window) {
  std::vector<QWidget*> shown;
  for (const ControlRow& row : ControlTable()) {
    QWidget& widget = window.Widget(row);
    if (!widget.isHidden()) shown.push_back(&widget);
  }
  return shown;
}

void ExpectNothingOverlaps(RealWindow& window) {
  const auto shown = Shown(window);
  for (std::size_t i = 0; i < shown.size(); ++i) {
    const QWidget& one = *shown[i];
    EXPECT_TRUE(one.parentWidget()->rect().contains(one.geometry())) << one.objectName().toStdString();
    for (std::size_t j = i + 1; j < shown.size(); ++j)
      if (one.parentWidget() == shown[j]->parentWidget()) {
        EXPECT_FALSE(one.geometry().intersects(shown[j]->geometry()))
            << one.objectName().toStdString() << " and " << shown[j]->objectName().toStdString();
      }
  }
}

/// Where the style lets the control write.
QRect PlaceForText(const ControlRow& row, const QWidget& widget) {
  QStyleOptionButton button;
  button.initFrom(&widget);
  if (row.Kind == ControlKind::Button) {
    button.features = QStyleOptionButton::AutoDefaultButton;
    return widget.style()->subElementRect(QStyle::SE_PushButtonContents, &button, &widget);
  }
  if (row.Kind == ControlKind::CheckBox)
    return widget.style()->subElementRect(QStyle::SE_CheckBoxContents, &button, &widget);
  if (row.Kind == ControlKind::Label) return widget.contentsRect();
  QStyleOptionFrame frame;
  frame.initFrom(&widget);
  frame.lineWidth = widget.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &frame, &widget);
  // The box itself keeps two units on each side of its text.
  return widget.style()->subElementRect(QStyle::SE_LineEditContents, &frame, &widget).adjusted(2, 0, -2, 0);
}

void ExpectTextFits(const ControlRow& row, const QWidget& widget, const QString& text) {
  const QSize needed = widget.fontMetrics().size(Qt::TextSingleLine | Qt::TextShowMnemonic, text);
  const QRect place = PlaceForText(row, widget);
  EXPECT_LE(needed.width(), place.width()) << row.Name << " \"" << text.toStdString() << '"';
  EXPECT_LE(needed.height(), place.height()) << row.Name;
}

TEST_P(LayoutTest, NothingOverlapsInThePolarPlot) {
  RealWindow window;
  window.Find<QWidget>("cmdTrigger").show();
  window.Find<QWidget>("cmdGrow").show();
  ExpectNothingOverlaps(window);
}

TEST_P(LayoutTest, NothingOverlapsInTheRectangularDrawingWithItsAnalysis) {
  RealWindow window(Stored{{"LinearMode", "True"}});
  EXPECT_TRUE(window.Find<QWidget>("cmdPatternAnalysis").isVisible());
  for (const Control control : AnalysisControls()) window.Widget(RowOf(control)).show();
  window.Find<QWidget>("cmdTrigger").show();
  window.Find<QWidget>("cmdGrow").show();
  ExpectNothingOverlaps(window);
}

TEST_P(LayoutTest, EveryCaptionFitsItsPlace) {
  RealWindow window;
  EXPECT_EQ(window.Widget(RowOf(Control::cmdExit)).font().family(), GetParam());
  for (const ControlRow& row : ControlTable())
    if (row.Kind != ControlKind::Slider && row.Kind != ControlKind::DropDown)
      ExpectTextFits(row, window.Widget(row), QString::fromUtf8(row.Caption.data()).trimmed());
}

TEST_P(LayoutTest, EveryValueFitsItsPlace) {
  RealWindow window;
  const std::vector<std::pair<Control, const char*>> widest = {
      {Control::txtChan1, "1,023.9"},
      {Control::txtReadingNumber, "360"},
      {Control::lblRotationTime, "1200"},
      {Control::txtTrimFront, "359"},
      {Control::txtTrimEnd, "359"},
      {Control::txtRotate, "359"},
      {Control::txtReadingsPlotted, "360"},
      {Control::txtAngle, "179.00"},
      {Control::txtGain, "14.97 dBi"},
      {Control::cmdPolarization, "Vertic&al"},
      {Control::lblSource, "Monitor of Built-in Audio"},
      {Control::lblNotice, "No warranty. Figures are estimates."},
      {Control::lblDateTime, "12:00:00 PM 12/31/2026"},
      {Control::lblCollectedDate, "12:00:00 PM 12/31/2026"},
      {Control::lblHint, "Nothing was heard: check cable, volume and input."},
      {Control::lblHint, "360 readings. Rescale turns the beam up; then Save File."}};
  for (const auto& [control, text] : widest)
    ExpectTextFits(RowOf(control), window.Widget(RowOf(control)), text);
}

TEST_P(LayoutTest, BoldCalibrateCaptionFits) {
  RealWindow window;
  QWidget& box = window.Find<QWidget>("chkCalibrate");
  QFont bold = box.font();
  bold.setBold(true);
  box.setFont(bold);
  ExpectTextFits(RowOf(Control::chkCalibrate), box, "Calibrate Input");
}

double DistanceFrom(const PlotGeometry& plot, const QRect& rect) {
  const QRectF place(rect);
  const double dx = std::max({place.left() - plot.X, 0.0, plot.X - place.right()});
  const double dy = std::max({place.top() - plot.Y, 0.0, plot.Y - place.bottom()});
  return std::hypot(dx, dy);
}

TEST(PlotLabelsTest, NothingLiesOnTheOuterRing) {
  const PlotGeometry plot = MakePlotGeometry(kSurfaceWidth, kSurfaceHeight, kPanelWidth);
  EXPECT_FLOAT_EQ(plot.X, 250.5F);
  EXPECT_FLOAT_EQ(plot.Y, 283.F);
  std::vector<Control> onPolar(LabelsOnPlot().begin(), LabelsOnPlot().end());
  onPolar.insert(onPolar.end(), {Control::cmdShrink, Control::cmdGrow});
  for (const Control control : onPolar)
    EXPECT_GT(DistanceFrom(plot, PlaceOf(control)), plot.R + 1) << RowOf(control).Name;
}

TEST(PlotLabelsTest, NothingLiesOnTheAngles) {
  for (const bool rectangular : {false, true})
    for (const LayerText& label : AxisLabels({.Rectangular = rectangular}, PlotGeometry{}, kBlack))
      for (const ControlRow& row : ControlTable()) {
        const bool shown =
            OnPlot(row.Id) && (rectangular || std::ranges::count(AnalysisControls(), row.Id) == 0);
        if (shown && row.Id != Control::cmdPatternAnalysis) {
          EXPECT_FALSE(QRectF(PlaceOf(row.Id)).intersects(QRectF(TouchedBy(label)).adjusted(3, 5, -3, -5)))
              << label.Text << " beneath " << row.Name;
        }
      }
}

TEST(PlotLabelsTest, AnalysisControlsLieAboveTheRectangularDrawing) {
  const PlotArea area = MakePlotArea(MakePlotGeometry(kSurfaceWidth, kSurfaceHeight, kPanelWidth));
  for (const Control control : AnalysisControls())
    EXPECT_LT(PlaceOf(control).bottom(), area.Top) << RowOf(control).Name;
  EXPECT_LT(PlaceOf(Control::cmdPatternAnalysis).bottom(), area.Top);
}

TEST(PanelTest, EachControlStandsInThePanelOrOnThePlotOnce) {
  std::multiset<Control> found;
  for (const PanelGroup& group : PanelGroups())
    for (const PanelRow& row : group)
      for (const PanelCell& cell : row)
        if (cell.Id) found.insert(*cell.Id);
  for (const ControlRow& row : ControlTable())
    EXPECT_EQ(found.count(row.Id), OnPlot(row.Id) ? 0U : 1U) << row.Name;
}

TEST(PanelTest, RowsOfOneKindStandInColumns) {
  RealWindow window;
  const auto left = [&](const char* name) { return window.Find<QWidget>(name).x(); };
  EXPECT_EQ(left("Slider2"), left("Slider1"));
  EXPECT_EQ(left("Slider1"), left("txtRotate"));
  EXPECT_EQ(left("cboElements"), left("txtAngle"));
  EXPECT_EQ(left("txtReadingNumber"), left("cboElements"));
  EXPECT_EQ(left("cmdPolarization"), left("txtGain"));
  EXPECT_EQ(left("txtFileName"), left("txtDescription"));
  EXPECT_EQ(left("cmdLogLin"), left("cmdOriginalData"));
}

/// The font that the user has chosen for the whole desktop.
class DesktopFontTest : public testing::Test {
 protected:
  explicit DesktopFontTest() : before_(QApplication::font("QMenu")) {}
  ~DesktopFontTest() override { QApplication::setFont(before_, "QMenu"); }
  static void Choose(int points) { QApplication::setFont(QFont("Liberation Sans", points), "QMenu"); }

 private:
  QFont before_;
};

TEST_F(DesktopFontTest, ALargerFontWidensThePanelAndBothWidths) {
  test::UseTheProgramsStyle();
  Choose(18);
  RealWindow window;
  const QFont font = window.Find<QWidget>("cmdExit").font();
  EXPECT_GE(font.pixelSize(), 22);
  EXPECT_EQ(window.Find<QWidget>("Frame1").width(), 2 * kPanelWidth);
  window.Press("cmdShrink");
  EXPECT_EQ(window.Window.width(), 2 * kPlotWidth);
  window.Press("cmdGrow");
  EXPECT_EQ(window.Window.width(), 2 * kSurfaceWidth);
  window.Window.resize(2 * kSurfaceWidth, 2 * kSurfaceHeight);
  RealWindow::Settle();
  ExpectNothingOverlaps(window);
}

TEST_F(DesktopFontTest, ASmallerFontKeepsTheUsualWidths) {
  test::UseTheProgramsStyle();
  Choose(7);
  RealWindow window;
  EXPECT_EQ(window.Window.width(), kSurfaceWidth);
}

}  // namespace
}  // namespace lobegraph
