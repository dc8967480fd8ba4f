#pragma once

#include <array>
#include <cstdint>
#include <source_location>
#include <string>
#include <string_view>

#include "data/base/RunTimeError.h"

namespace lobegraph {

/// 361 linear levels, index 0 to 360, in the order of collection; unused entries are 0.
class ReadingArray {
 public:
  static constexpr int kFirst = 0;
  static constexpr int kLast = 360;
  static constexpr int kSize = 361;

  /// @throws RunTimeError 9 (Subscript out of range) outside 0 to 360.
  float& operator()(int index, std::source_location where = std::source_location::current()) {
    return values_[Checked(index, where)];
  }
  float operator()(int index, std::source_location where = std::source_location::current()) const {
    return values_[Checked(index, where)];
  }
  auto begin() const { return values_.begin(); }
  auto end() const { return values_.end(); }
  bool operator==(const ReadingArray&) const = default;

 private:
  static std::size_t Checked(int index, std::source_location where) {
    if (index < kFirst || index > kLast) throw RunTimeError(fault::kSubscript, {}, where);
    return static_cast<std::size_t>(index);
  }
  std::array<float, kSize> values_{};
};

/// What stands for a description in a file that has none, and in the window until one is typed.
inline constexpr const char* kNoDescription = "No description";

/// Words of somebody's, not the texts that say there are none.
bool IsDescription(std::string_view text);

/// Index of the last reading that is not 0; -1 when all are. Deliberate: reading 360 is not looked at.
int LastLevel(const ReadingArray& readings);

/// One antenna pattern: the readings, the state of their plot and the words that describe them. Replaced
/// wholesale by a load or a collection. Trims and rotation are also what their boxes show.
struct ReadingsRecord {
  ReadingArray Readings;
  std::int16_t NumReadings =
      0;  ///< index of the LAST valid reading, not a count; -1 after a run halted at once
  ReadingArray SavedReadings;
  std::int16_t SavedNumReadings = 0;  ///< NumReadings when SavedReadings was taken
  bool HasSavedReadings = false;      ///< a copy was taken
  double ReadingCount = 0.0;          ///< above 0: readings are held; 0: there is nothing to save
  std::int16_t ReadingsPlotted = 0;
  std::int16_t TrimFront = 0;  ///< readings dropped at the start
  std::int16_t TrimEnd = 0;    ///< readings dropped at the end
  float Rotate = 0.0F;         ///< degrees, clockwise
  float PeakLevelDb = 0.0F;    ///< strongest reading, dB below the peak input level
  std::int16_t PeakIndex = 0;  ///< index of the strongest reading
  std::string Description;     ///< UTF-8, never with a double quote
  float ScaleSetting = 0.0F;   ///< value of the scale slider
  std::string WriterVersion;
  std::string CollectedBy;
  std::string CollectedDate;
  std::string Elements;  ///< any text a file brought is kept
  bool PolarizationHorizontal = true;
  bool Plot180 = false;  ///< the set covers 180 degrees
  std::string FilePath;
  std::string FileName;  ///< what follows the last separator of FilePath

  bool operator==(const ReadingsRecord&) const = default;
  bool HasReadings() const { return ReadingCount > 0.0; }
  /// There is a reading that trims could speak of: not after a turn that was halted at once.
  bool HasAny() const { return NumReadings >= 0; }
  bool HasDescription() const { return IsDescription(Description); }
  /// Index of the last reading that the end trim leaves.
  int LastPlotted() const { return NumReadings - TrimEnd; }

  /// Takes up readings from outside. The last index becomes that of the last level, and the count goes with
  /// it, so that the set can be saved. The first readings that a record gets this way are their own
  /// originals.
  void TakeUp(const ReadingArray& readings);
  /// Takes the copy that the original-data command returns to.
  void SaveReadings();
  /// Puts that copy back. The count is the caller's to restore: a failed de-spike keeps the present one.
  void RestoreReadings();
};

}  // namespace lobegraph
