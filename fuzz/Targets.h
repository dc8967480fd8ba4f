#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

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
  const char* Name;  ///< also of its folder below corpus/
  /// @throws BrokenPromise; anything else that comes out is a fault as well
  void (*Try)(std::string_view input);
};
std::span<const Target> Targets();

void TryPatternFile(std::string_view input);
void TryCsvReadings(std::string_view input);
void TryEditorCells(std::string_view input);
void TryModelTable(std::string_view input);
void TryLevelTable(std::string_view input);
void TryPlanningFiles(std::string_view input);
void TryNumbers(std::string_view input);
void TrySettingsFile(std::string_view input);
void TryPlotColours(std::string_view input);
void TrySerialMeters(std::string_view input);
void TryExternalMeter(std::string_view input);
void TryRadioAnswers(std::string_view input);
void TryRotatorNews(std::string_view input);
void TryRotatorOrders(std::string_view input);
void TrySoundBlocks(std::string_view input);

}  // namespace lobegraph::fuzz
