#include "processing/PlotRange.h"

#include <cmath>

#include "data/base/Numbers.h"
#include "data/base/Rounding.h"

namespace lobegraph {
namespace {

constexpr std::int16_t kMostReadings = 360;
constexpr std::int16_t kFewestReadings = 60;

RangeCheck Refused(std::string message, std::optional<PlacementPart> part = std::nullopt) {
  return {false, std::move(message), part};
}

/// @throws RunTimeError 6 for a number beyond singles, whether or not a double could hold it
float RotationTyped(double degrees) {
  if (std::isinf(degrees)) throw RunTimeError(fault::kOverflow);
  return ToSingle(degrees);
}

/// The last reading that one trim leaves, in the 16 bits of the record. @throws RunTimeError 6
std::int16_t LastAfter(const ReadingsRecord& record, std::int16_t trim) {
  return ToInt16(record.NumReadings - trim);
}

}  // namespace

Placement PlacementOf(const ReadingsRecord& record) {
  return {LeadingNumber(SingleText(record.Rotate)), static_cast<double>(record.TrimFront),
          static_cast<double>(record.TrimEnd)};
}

std::int16_t PlottedCount(const ReadingsRecord& record) {
  const std::int16_t withoutFront = ToInt16(record.NumReadings - record.TrimFront);
  return ToInt16(ToInt16(withoutFront - record.TrimEnd) + 1);
}

std::optional<std::string> CountRefusal(std::int16_t count, bool anyLength) {
  if (count > kMostReadings) return kTooManyReadings;
  if (count >= 2 && count < kFewestReadings && !anyLength) return kTooFewReadings;
  return std::nullopt;
}

RangeCheck CheckRange(ReadingsRecord& record, const Placement& placement, bool anyLength) {
  record.Rotate = RotationTyped(placement.Rotate);
  record.TrimFront = ToInt16(placement.TrimFront);
  record.TrimEnd = ToInt16(placement.TrimEnd);
  if (record.Rotate < 0.F || record.Rotate > 359.F) {
    record.Rotate = 0.F;
    return Refused("LBG007 Value for Rotate must be in the range 1 - 359", PlacementPart::Rotate);
  }
  if (record.TrimFront > LastAfter(record, record.TrimEnd) || record.TrimFront < 0) {
    record.TrimFront = 0;
    return Refused("LBG008 Value for Trim Front or Trim End is out of range", PlacementPart::TrimFront);
  }
  if (record.TrimEnd > LastAfter(record, record.TrimFront) || record.TrimEnd < 0) {
    record.TrimEnd = 0;
    return Refused("LBG009 Value for Trim End or Trim Front is out of range", PlacementPart::TrimEnd);
  }
  record.ReadingsPlotted = PlottedCount(record);
  if (record.ReadingsPlotted == 1) return {};
  if (auto refusal = CountRefusal(record.ReadingsPlotted, anyLength)) return Refused(*std::move(refusal));
  return {true, std::nullopt, std::nullopt};
}

float DegreesBetween(std::int16_t readingsPlotted, bool plot180) {
  const float degrees = 360.F / static_cast<float>(readingsPlotted);
  return plot180 ? degrees / 2.F : degrees;
}

float RotationFor(const ReadingsRecord& record, bool rectangular) {
  if (!record.Plot180) return record.Rotate;
  return rectangular ? 0.F : 270.F;
}

float WholeRotation(float degrees) {
  const auto whole = static_cast<float>(RoundHalfEven(degrees));
  return whole == 360.F ? 0.F : whole;
}

}  // namespace lobegraph
