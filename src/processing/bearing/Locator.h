#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lobegraph {

/// A point on the globe, degrees; north and east are positive.
struct GlobePoint {
  double LatitudeDeg = 0;
  double LongitudeDeg = 0;
};

/// The middle of a Maidenhead locator's field: 4, 6, 8 or 10 characters ("JO50", "JO62QM"), blanks around
/// them and either case allowed. None for any other text.
std::optional<GlobePoint> LocatorCentre(std::string_view locator);

/// The way on the great circle.
struct GlobeWay {
  double BearingDeg = 0;  ///< at its beginning, clockwise from north, 0 to below 360
  double Km = 0;
};
/// None between points that are the same, or opposite ends of the globe: there every bearing is right.
std::optional<GlobeWay> WayBetween(const GlobePoint& from, const GlobePoint& to);

/// The bearing of a signal as a user gives it: a number ("211.5", in degrees), or two locators, one's own
/// first
/// ("JO62QM JO50", parted by blanks or "to").
struct SignalBearing {
  double Deg = 0;   ///< 0 to below 360
  std::string How;  ///< "typed", or "from JO62QM to JO50, 230 km"
};
std::optional<SignalBearing> ReadSignalBearing(std::string_view text);

}  // namespace lobegraph
