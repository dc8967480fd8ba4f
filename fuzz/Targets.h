#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "data/formats/PatternFormats.h"

namespace lobegraph::fuzz {

/// Something that a parser promises for every input did not hold.
class BrokenPromise : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};
/// @throws BrokenPromise that names the promise
void Promise(bool holds, const char* promise);

/// One kind of foreign bytes and everything that reads them. Any bytes may be tried: what a parser refuses it
/// refuses by its documented error, and what it accepts keeps its promises.
struct Target {
  std::string Name;  ///< also of its folder below corpus/
  /// @throws BrokenPromise; anything else that comes out is a fault as well
  std::function<void(std::string_view input)> Try;
};
/// A target for each format of patterns, and those of everything else that is read.
const std::vector<Target>& Targets();

/// A foreign format of the table; the pattern file promises more and has a target of its own.
void TryFormat(const PatternFormat& format, std::string_view input);
void TryPatternFile(std::string_view input);
void TryCsvReadings(std::string_view input);
void TryEditorCells(std::string_view input);
void TryNumbers(std::string_view input);
void TrySettingsFile(std::string_view input);
void TryPlotColours(std::string_view input);
void TrySerialMeters(std::string_view input);
void TryExternalMeter(std::string_view input);
void TryRadioAnswers(std::string_view input);
void TryLocators(std::string_view input);
void TryBearings(std::string_view input);
void TryRotatorNews(std::string_view input);
void TryRotatorOrders(std::string_view input);
void TrySoundBlocks(std::string_view input);
void TryTurnLog(std::string_view input);
void TryCalibration(std::string_view input);
void TrySoundReadings(std::string_view input);

}  // namespace lobegraph::fuzz
