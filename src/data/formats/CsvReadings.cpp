#include "data/formats/CsvReadings.h"

#include <optional>
#include <streambuf>

#include "data/base/Numbers.h"
#include "data/base/Rounding.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr int kEnd = std::char_traits<char>::eof();
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
/// No number is longer; the text of a longer field is passed over without keeping it.
constexpr std::size_t kLongestNumber = 512;

bool IsBlank(int c) { return c == ' ' || c == '\t'; }
bool IsLineEnd(int c) { return c == '\r' || c == '\n'; }
bool IsSeparator(int c) { return c == ',' || IsLineEnd(c); }

/// Takes the fields of a file off its buffer, a byte at a time: nothing behind the last field asked for is
/// read.
class FieldStream {
 public:
  explicit FieldStream(std::streambuf& bytes) : bytes_(bytes) { SkipByteOrderMark(); }

  bool AtEnd() { return !owesField_ && bytes_.sgetc() == kEnd; }

  /// The text of the next field, blanks in front of it skipped. None: too long to be a number.
  std::optional<std::string> Next() {
    text_.clear();
    tooLong_ = false;
    while (IsBlank(bytes_.sgetc())) bytes_.sbumpc();
    if (bytes_.sgetc() == '"') TakeQuoted();
    while (bytes_.sgetc() != kEnd && !IsSeparator(bytes_.sgetc())) Keep(bytes_.sbumpc());
    SkipSeparator();
    return tooLong_ ? std::nullopt : std::optional(text_);
  }

 private:
  void SkipByteOrderMark() {
    for (const char expected : kByteOrderMark) {
      if (bytes_.sgetc() != std::char_traits<char>::to_int_type(expected)) return;
      bytes_.sbumpc();
    }
  }

  void TakeQuoted() {
    bytes_.sbumpc();
    for (int c = bytes_.sbumpc(); c != kEnd; c = bytes_.sbumpc()) {
      if (c == '"' && bytes_.sgetc() != '"') return;
      if (c == '"') bytes_.sbumpc();
      Keep(c);
    }
  }

  void SkipSeparator() {
    const int separator = bytes_.sbumpc();
    if (separator == '\r' && bytes_.sgetc() == '\n') bytes_.sbumpc();
    owesField_ = separator == ',';  // behind a comma there is a field, be it an empty one
  }

  void Keep(int c) {
    if (text_.size() < kLongestNumber)
      text_ += std::char_traits<char>::to_char_type(c);
    else
      tooLong_ = tooLong_ || !IsBlank(c);
  }

  std::streambuf& bytes_;
  std::string text_;
  bool tooLong_ = false;
  bool owesField_ = false;
};

std::optional<float> NumberOf(const std::optional<std::string>& field) {
  if (!field) return std::nullopt;
  if (field->find_first_not_of(" \t") == std::string::npos) return 0.F;
  try {
    return ToSingle(WholeNumberText(*field));
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

void TakeFields(std::streambuf& bytes, CsvReadings& readings) {
  FieldStream fields(bytes);
  while (readings.Values.size() < CsvReadings::kMost && !fields.AtEnd()) {
    const std::optional<float> value = NumberOf(fields.Next());
    readings.Values.push_back(value.value_or(0.F));
    if (!value) ++readings.NotNumbers;
  }
  readings.RestIgnored = !fields.AtEnd();
}

}  // namespace

CsvReadings ReadCsv(std::istream& file) {
  CsvReadings readings;
  try {
    TakeFields(*file.rdbuf(), readings);
  } catch (const std::ios_base::failure&) {
    readings.ReadError = true;
  }
  return readings;
}

std::string CsvSummary(const CsvReadings& readings) {
  return std::to_string(readings.Values.size()) + " values read, " + std::to_string(readings.NotNumbers) +
         " were not numbers" + (readings.RestIgnored ? ", the rest was ignored" : "");
}

}  // namespace lobegraph
