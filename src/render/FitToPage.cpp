#include "render/FitToPage.h"

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr double kTwipsPerInch = 1440.0;
constexpr double kHiMetricPerInch = 2540.0;
constexpr double kMarginTwips = 1080.0;
constexpr double kMarginHiMetric = 1080.0;

double WithoutMargins(double twips) { return TwipsToHiMetric(twips - kMarginTwips) - kMarginHiMetric; }

}  // namespace

double TwipsToHiMetric(double twips) { return twips * kHiMetricPerInch / kTwipsPerInch; }
double HiMetricToTwips(double hiMetric) { return hiMetric * kTwipsPerInch / kHiMetricPerInch; }

Extent FitToPage(const Extent& pictureHiMetric, const Extent& areaTwips) {
  const double pictureRatio = pictureHiMetric.Width / pictureHiMetric.Height;
  const double width = WithoutMargins(areaTwips.Width);
  const double height = WithoutMargins(areaTwips.Height);
  if (width <= 0.0 || height <= 0.0) throw RunTimeError(fault::kInvalidProcedureCall, "no room on the page");
  const Extent printed = pictureRatio >= width / height ? Extent{width, width / pictureRatio}
                                                        : Extent{height * pictureRatio, height};
  return {HiMetricToTwips(printed.Width), HiMetricToTwips(printed.Height)};
}

}  // namespace lobegraph
