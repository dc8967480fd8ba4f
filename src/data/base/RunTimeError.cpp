#include "data/base/RunTimeError.h"

#include <new>
#include <utility>

namespace lobegraph {
namespace {

std::string_view DescriptionOf(int number) {
  switch (number) {
    case fault::kInvalidProcedureCall:
      return "Invalid procedure call or argument";
    case fault::kOverflow:
      return "Overflow";
    case fault::kOutOfMemory:
      return "Out of memory";
    case fault::kSubscript:
      return "Subscript out of range";
    case fault::kDivisionByZero:
      return "Division by zero";
    case fault::kTypeMismatch:
      return "Type mismatch";
    case fault::kInternal:
      return "Internal error";
    case fault::kFileNotFound:
      return "File not found";
    case fault::kDeviceIo:
      return "Device I/O error";
    case fault::kFileExists:
      return "File already exists";
    case fault::kDiskFull:
      return "Disk full";
    case fault::kInputPastEnd:
      return "Input past end of file";
    case fault::kPathFileAccess:
      return "Path/File access error";
    case fault::kPathNotFound:
      return "Path not found";
    case fault::kPrinter:
      return "Printer error";
    default:
      return "Application-defined or object-defined error";
  }
}

}  // namespace

RunTimeError::RunTimeError(int number, std::string detail, std::source_location where)
    : number_(number), detail_(std::move(detail)), line_(where.line()) {
  what_ = "Error " + std::to_string(number_) + " (" + Description() + ")";
  if (!detail_.empty()) what_ += ": " + detail_;
}

RunTimeError::RunTimeError(int number, Advice advice, std::source_location where)
    : RunTimeError(number, advice.Text, where) {
  advice_ = std::move(advice.Text);
}

std::string RunTimeError::Description() const { return std::string(DescriptionOf(number_)); }

RunTimeError FaultFrom(const std::exception& exception) {
  if (const auto* fault = dynamic_cast<const RunTimeError*>(&exception)) return *fault;
  const bool memory = dynamic_cast<const std::bad_alloc*>(&exception) != nullptr;
  return RunTimeError(memory ? fault::kOutOfMemory : fault::kInternal, exception.what());
}

std::string RunTimeErrorText(const RunTimeError& error, std::string_view procedure, std::string_view form) {
  const std::string above = error.AdviceText().empty() ? "" : error.AdviceText() + "\r\n";
  return above + "Error " + std::to_string(error.Number()) + " (" + error.Description() + ") in line " +
         std::to_string(error.Line()) + " of procedure " + std::string(procedure) + " of Form " +
         std::string(form);
}

}  // namespace lobegraph
