#pragma once

#include <cstddef>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lobegraph {

/// The lines of a text one after the other, however long the text is: only the line in hand is kept. A line
/// is UTF-8; one that is none is read as Windows-1252, and a byte-order mark in front is dropped.
class TextLines {
 public:
  /// No line of a pattern comes near it.
  static constexpr std::size_t kLongestLine = 1U << 20U;

  /// @param bytes outlives the lines; can be rewound when Restart is called
  explicit TextLines(std::istream& bytes);

  /// The next line without its end (CR LF or LF), good until the next call; none behind the last one.
  /// @throws RunTimeError 13 (Type mismatch) for a line beyond kLongestLine, 57 (Device I/O error) when the
  /// file breaks off
  std::optional<std::string_view> Next();

  /// Begins again with the first line.
  void Restart();

 private:
  bool Fill();
  std::string_view Text(std::string_view line);

  std::streambuf& bytes_;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;  ///< of what is not yet taken from the buffer
  std::size_t end_ = 0;
  std::string line_;     ///< a line that does not stand in the buffer in one piece
  std::string decoded_;  ///< a line that is no UTF-8
  bool first_ = true;
};

}  // namespace lobegraph
