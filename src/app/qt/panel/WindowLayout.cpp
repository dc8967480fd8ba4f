#include "app/qt/panel/WindowLayout.h"

#include <algorithm>
#include <map>

namespace lobegraph {
namespace {

std::map<Control, QRect> PlotPlaces() {
  using enum Control;
  return {
      {lblDateTime, {8, 4, 180, 17}},
      // Its caption begins with a blank; the name stands below the date.
      {lblOperator, {5, 21, 183, 17}},
      {lblNotice, {8, 38, 176, 17}},
      {lblCollectTitle, {313, 4, 180, 17}},
      {lblCollectedBy, {313, 21, 180, 17}},
      {lblCollectedDate, {313, 38, 180, 17}},
      {lblFileDescription, {8, 526, 322, 16}},
      {lblHint, {8, 542, 340, 16}},
      {cmdShrink, {353, 533, 68, 22}},
      {cmdGrow, {425, 533, 68, 22}},

      {cmdPatternAnalysis, {26, 68, 118, 22}},
      {txtX, {26, 100, 58, 22}},
      {txtY, {88, 100, 58, 22}},
      {lblLeftButtonValue, {192, 100, 150, 22}},
      {txtLeftY, {346, 100, 66, 22}},
      {cmdClearLeftY, {416, 100, 62, 22}},
      {lblRightButtonValue, {192, 126, 150, 22}},
      {txtRightY, {346, 126, 66, 22}},
      {cmdClearRightY, {416, 126, 62, 22}},
  };
}

const std::map<Control, QRect>& Plot() {
  static const auto places = PlotPlaces();
  return places;
}

/// Controls that stand together hold on to the same point of the plot: a corner, or the upper corner of the
/// rectangular drawing.
constexpr int kLeftEdge = 8;
constexpr int kRightEdge = kPlotWidth - kLeftEdge;
constexpr int kTopEdge = 4;
constexpr int kBottomEdge = kSurfaceHeight - kTopEdge;
constexpr QPoint kAboveLeft(26, 148);
constexpr QPoint kAboveRight(478, 148);

bool IsAtTop(const QRect& place) { return place.bottom() < 60; }
bool IsAtBottom(const QRect& place) { return place.top() > 500; }
bool IsAtRight(const QRect& place) { return place.left() > 190; }

QPointF HoldOf(const QRect& place) {
  const bool right = IsAtRight(place);
  if (!IsAtTop(place) && !IsAtBottom(place)) return right ? kAboveRight : kAboveLeft;
  return {qreal(right ? kRightEdge : kLeftEdge), qreal(IsAtTop(place) ? kTopEdge : kBottomEdge)};
}

/// What is written in the corners may be long.
bool Grows(Control control) {
  const QRect place = PlaceOf(control);
  return RowOf(control).Kind == ControlKind::Label && (IsAtTop(place) || IsAtBottom(place));
}

}  // namespace

bool OnPlot(Control control) { return Plot().contains(control); }

QRect PlaceOf(Control control) { return Plot().at(control); }

QRectF PlaceOnPlot(Control control, qreal pixelsPerUnit, qreal fontFactor) {
  const QRect place = PlaceOf(control);
  const QPointF hold = HoldOf(place);
  const qreal natural = std::min(pixelsPerUnit, fontFactor);
  QRectF shown(hold * pixelsPerUnit + (place.topLeft() - hold) * natural, QSizeF(place.size()) * natural);
  const qreal more = Grows(control) ? place.width() * (pixelsPerUnit - natural) : 0.0;
  if (IsAtRight(place))
    shown.setLeft(shown.left() - more);
  else
    shown.setWidth(shown.width() + more);
  return shown;
}

}  // namespace lobegraph
