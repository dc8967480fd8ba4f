#pragma once

#include <exception>
#include <source_location>
#include <string>
#include <string_view>
#include <utility>

namespace lobegraph {

/// The numbers a user meets in an error box. Their descriptions are those of RunTimeError::Description.
namespace fault {
inline constexpr int kInvalidProcedureCall = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kSubscript = 9;
inline constexpr int kDivisionByZero = 11;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kInternal = 51;
inline constexpr int kFileNotFound = 53;
inline constexpr int kDeviceIo = 57;
inline constexpr int kFileExists = 58;
inline constexpr int kDiskFull = 61;
inline constexpr int kInputPastEnd = 62;
inline constexpr int kPathFileAccess = 75;
inline constexpr int kPathNotFound = 76;
inline constexpr int kPrinter = 482;
}  // namespace fault

/// A sentence that a user is told beside number and description: what stands in the way and what to do.
struct Advice {
  explicit Advice(std::string text) : Text(std::move(text)) {}
  std::string Text;
};

/// A fault that ends the command in hand: never a refusal that the user can mend by typing another value
/// (those are return values). Caught at one edge, which shows RunTimeErrorText.
class RunTimeError : public std::exception {
 public:
  /// @param detail for standard error only (a file, a key); the box shows number and description.
  explicit RunTimeError(int number, std::string detail = {},
                        std::source_location where = std::source_location::current());
  RunTimeError(int number, Advice advice, std::source_location where = std::source_location::current());

  int Number() const { return number_; }
  std::string Description() const;
  /// The source line that raised the fault: what a user reports is then enough to find it.
  unsigned Line() const { return line_; }
  const std::string& Detail() const { return detail_; }
  /// Empty: number and description say it all.
  const std::string& AdviceText() const { return advice_; }
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  int number_;
  std::string detail_;
  std::string advice_;
  unsigned line_;
  std::string what_;
};

/// Any other exception as a fault: what it says becomes the detail.
RunTimeError FaultFrom(const std::exception& exception);

/// The run-time error text: "Error 11 (Division by zero) in line 57 of procedure ReDraw of Form Form1". An
/// advice stands on a line of its own above it.
std::string RunTimeErrorText(const RunTimeError& error, std::string_view procedure,
                             std::string_view form = "Form1");

}  // namespace lobegraph
