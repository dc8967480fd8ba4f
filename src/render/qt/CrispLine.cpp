#include "render/qt/CrispLine.h"

#include <algorithm>
#include <cmath>

namespace lobegraph {
namespace {

constexpr float kShortestCrispUnits = 1.99F;

/// First pixel and pixel count of a stretch of the given centre line or ends, in device pixels.
struct Stretch {
  qreal First;
  qreal Count;
};

Stretch Across(float centre, int width, qreal ratio) {
  return {std::floor(qreal{centre} * ratio - width / 2.0 + 0.5), qreal(width)};
}

Stretch Along(float a, float b, qreal ratio) {
  const qreal first = std::floor(qreal{std::min(a, b)} * ratio + 0.5);
  const qreal end = std::floor(qreal{std::max(a, b)} * ratio + 0.5);
  return {first, end - first};
}

QRectF InUnits(Stretch x, Stretch y, qreal ratio) {
  return {x.First / ratio, y.First / ratio, x.Count / ratio, y.Count / ratio};
}

}  // namespace

int DevicePenWidth(int penWidth, qreal devicePixelRatio) {
  return std::max(1, static_cast<int>(std::ceil(penWidth * devicePixelRatio - 0.5)));
}

std::optional<QRectF> CrispLine(SurfacePoint from, SurfacePoint to, int penWidth, qreal devicePixelRatio) {
  const int width = DevicePenWidth(penWidth, devicePixelRatio);
  if (from.Y == to.Y && std::abs(from.X - to.X) >= kShortestCrispUnits) {
    return InUnits(Along(from.X, to.X, devicePixelRatio), Across(from.Y, width, devicePixelRatio),
                   devicePixelRatio);
  }
  if (from.X == to.X && std::abs(from.Y - to.Y) >= kShortestCrispUnits) {
    return InUnits(Across(from.X, width, devicePixelRatio), Along(from.Y, to.Y, devicePixelRatio),
                   devicePixelRatio);
  }
  return std::nullopt;
}

QRectF OnPixels(const QRectF& units, qreal devicePixelRatio) {
  const auto left = static_cast<float>(units.left());
  const auto top = static_cast<float>(units.top());
  return InUnits(Along(left, static_cast<float>(units.right()), devicePixelRatio),
                 Along(top, static_cast<float>(units.bottom()), devicePixelRatio), devicePixelRatio);
}

}  // namespace lobegraph
