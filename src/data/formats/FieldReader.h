#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace lobegraph {

/// Takes the comma- or line-separated fields of a text one by one: leading blanks skipped, a quoted string up
/// to its closing quote (commas and line ends in it belong to it), anything else up to the next comma or line
/// end.
class FieldReader {
 public:
  /// @param text outlives the reader
  explicit FieldReader(std::string_view text) : text_(text) {}

  /// @throws RunTimeError 62 (Input past end of file) when no field is left or a quoted string is not closed.
  std::string NextText();
  /// A number from end to end of its field.
  /// @throws RunTimeError 62 as above, 13 for a field that is no number, 6 for one that does not fit its
  /// type.
  float NextSingle();
  std::int16_t NextInteger();

 private:
  using Field = std::string_view;
  Field Next();
  Field NextQuoted();
  void SkipPastSeparator();

  std::string_view text_;
  std::size_t position_ = 0;
};

}  // namespace lobegraph
