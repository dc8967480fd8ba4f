#include "render/PlotMapping.h"

#include <cmath>

#include "data/base/Rounding.h"

namespace lobegraph {
namespace {

constexpr double kRadiansPerDegree = 0.0174532925199433;

SurfacePoint InQuadrant(int quadrant, SurfacePoint centre, float dx, float dy) {
  const bool right = quadrant == 1 || quadrant == 2;
  const bool up = quadrant == 1 || quadrant == 4;
  return {right ? centre.X + dx : centre.X - dx, up ? centre.Y - dy : centre.Y + dy};
}

}  // namespace

std::optional<SurfacePoint> PlotMapping::PointAt(float& angleDeg, float radius) const {
  if (Rectangular) return RectangularPoint(angleDeg, radius);
  return PolarPoint(angleDeg, radius);
}

std::optional<SurfacePoint> PlotMapping::PolarPoint(float& angleDeg, float radius) const {
  const int degrees = ToInt32(RotationOffset + angleDeg) % 360;
  angleDeg = static_cast<float>(degrees);
  if (degrees < 0) return std::nullopt;
  const int quadrant = degrees / 90 + 1;
  const int rest = degrees % 90;
  const int fromVertical = quadrant == 2 || quadrant == 4 ? 90 - rest : rest;
  const auto radians = static_cast<float>(fromVertical * kRadiansPerDegree);
  const auto dx = static_cast<float>(radius * std::sin(static_cast<double>(radians)));
  const auto dy = static_cast<float>(radius * std::cos(static_cast<double>(radians)));
  return InQuadrant(quadrant, geometry_.Centre(), dx, dy);
}

SurfacePoint PlotMapping::RectangularPoint(float& angleDeg, float radius) const {
  angleDeg = std::fmod(RotationOffset + angleDeg, 360.0F);
  if (angleDeg < 0.0F) angleDeg += 360.0F;
  const float position = std::fmod(angleDeg + 180.0F, 360.0F);
  return {area_.Left + position * 2.0F * geometry_.R / 360.0F, area_.Bottom - radius};
}

}  // namespace lobegraph
