#pragma once

namespace lobegraph {

/// Width and height in one unit of length.
struct Extent {
  double Width = 0.0;
  double Height = 0.0;
  bool operator==(const Extent&) const = default;
};

/// 1440 twips are an inch, and so are 2540 HiMetric (0.01 mm each).
double TwipsToHiMetric(double twips);
double HiMetricToTwips(double hiMetric);

/// The largest size at which a picture of that shape stays within a printable area. Deliberate: the margin is
/// taken off twice, 1080 twips and then 1080 HiMetric more, so that a page of one computer lies over that of
/// another: of 11520 twips 17335 HiMetric are left.
/// @param pictureHiMetric above 0 @param areaTwips the printable area
/// @return twips; the picture goes to the area's top-left corner
/// @throws RunTimeError 5 when the margins leave no room
Extent FitToPage(const Extent& pictureHiMetric, const Extent& areaTwips);

}  // namespace lobegraph
