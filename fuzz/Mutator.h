#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace lobegraph::fuzz {

/// A text of a known format, under the ending that makes programs read it as such.
struct Sample {
  std::string Name;  ///< of its file
  std::string Text;
  bool Table = false;  ///< a CSV file of several columns
};

/// Changes whole texts where formats have their joints: lines, fields, numbers, heads, line ends. What comes
/// out is mostly still a file of its format, so that it gets deeper into a program than damaged bytes.
class Mutator {
 public:
  /// @param seeds at least one
  explicit Mutator(std::vector<Sample> seeds) : seeds_(std::move(seeds)) {}

  /// The same for the same number, in every run and on every computer.
  Sample Make(std::uint64_t number);

 private:
  std::size_t Below(std::size_t limit) { return random_() % limit; }
  void ChangeLines(std::vector<std::string>& lines);
  void ChangeField(std::string& line);
  std::string HostileText();

  std::vector<Sample> seeds_;
  std::minstd_rand random_;
};

}  // namespace lobegraph::fuzz
