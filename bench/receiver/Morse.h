#pragma once

#include <string_view>
#include <vector>

namespace lobegraph {

/// A beacon's key: a text in Morse code, again and again.
class MorseKey {
 public:
  /// @param text letters, digits and blanks; anything else is a blank
  /// @param wordsPerMinute by the word PARIS: 50 dots
  MorseKey(std::string_view text, double wordsPerMinute);

  /// Envelope of the tone at a time: 0 up, 1 down, rising and falling within 5 ms inside the stroke.
  double At(double seconds) const;

 private:
  double dotSeconds_;
  std::vector<bool> dots_;  ///< one a dot's length, the pause before the text begins anew included
};

}  // namespace lobegraph
