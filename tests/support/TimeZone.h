#pragma once

#include <cstdlib>
#include <ctime>

namespace lobegraph {

/// Local time as in another place, until the end of the test.
class TimeZone {
 public:
  explicit TimeZone(const char* zone) { Set(zone); }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;
  ~TimeZone() {
    unsetenv("TZ");
    tzset();
  }

  static void Set(const char* zone) {
    setenv("TZ", zone, 1);
    tzset();
  }
};

}  // namespace lobegraph
