#pragma once

#include <string_view>

namespace lobegraph {

/// Takes the words of a line one by one. What is missing or of another kind makes the whole line wrong; the
/// values taken from it are then of no use.
class LineWords {
 public:
  /// @param line outlives the words
  explicit LineWords(std::string_view line) : rest_(line) {}

  /// Up to the next blank; wrong when nothing is left.
  std::string_view Word();
  /// Digits only. Wrong beyond a thousand million.
  int Whole();
  /// A decimal number from end to end of its word; never infinite.
  double Number(double lowest, double highest);
  /// All that is left, blanks included; may be empty.
  std::string_view Rest();

  bool AtEnd() const { return rest_.empty(); }
  /// Every word was there and nothing is left.
  bool AllWasRight() const { return right_ && rest_.empty(); }
  void Wrong() { right_ = false; }

 private:
  std::string_view rest_;
  bool right_ = true;
};

}  // namespace lobegraph
