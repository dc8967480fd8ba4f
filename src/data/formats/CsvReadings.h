#pragma once

#include <istream>
#include <string>
#include <vector>

namespace lobegraph {

/// The readings of a CSV file in the order of its fields.
struct CsvReadings {
  static constexpr int kMost = 360;

  std::vector<float> Values;  ///< at most kMost
  int NotNumbers = 0;         ///< fields that read as 0 because they are no numbers
  bool RestIgnored = false;   ///< something follows the last value taken
  bool ReadError = false;     ///< the file broke off; Values holds what came before
};

/// Reads one number a field. Only commas and line ends (CR LF, LF or CR) separate; blanks around a field and
/// a byte-order mark are skipped; a field in double quotes is its text (a doubled quote is one quote). An
/// empty field is 0. A field that is not a number from end to end, or does not fit a single, is 0 and
/// counted. No header is expected. The last line end adds no field. Stops behind the 360th field, however
/// much follows.
CsvReadings ReadCsv(std::istream& file);

/// "360 values read, 2 were not numbers, the rest was ignored"; without its end when there was no rest.
std::string CsvSummary(const CsvReadings& readings);

}  // namespace lobegraph
