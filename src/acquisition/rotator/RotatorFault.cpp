#include "acquisition/rotator/RotatorFault.h"

#include <algorithm>
#include <array>

namespace lobegraph {
namespace {

struct Row {
  RotatorFault Fault;
  std::string_view Word;
  std::string_view Sentence;
};

constexpr std::array kTable{
    Row{RotatorFault::NobodyThere, "nobody-there",
        "The rotator cannot be reached. Check that its controller is on and that port or address are right."},
    Row{RotatorFault::NoAnswer, "no-answer",
        "The rotator does not answer in time. Check cable, model and speed of the port."},
    Row{RotatorFault::Nonsense, "nonsense",
        "The rotator's answers make no sense. Check that the model is the right one."},
    Row{RotatorFault::Refused, "refused", "The rotator refuses this command."},
    Row{RotatorFault::CannotDoThat, "unable", "This rotator cannot do that."},
    Row{RotatorFault::OutOfRange, "beyond", "This bearing is out of the rotator's range."},
    Row{RotatorFault::Busy, "busy", "The line to the rotator is in use by another program."},
    Row{RotatorFault::NoRight, "no-right",
        "The rotator's port may not be opened. Your user needs the right to it (on Debian the group "
        "dialout)."},
    Row{RotatorFault::UnknownModel, "unknown-model", "There is no rotator model of this number."},
    Row{RotatorFault::Inside, "inside", "The program that talks to the rotator failed."},
};

const Row& RowOf(RotatorFault fault) {
  return *std::find_if(kTable.begin(), kTable.end(), [&](const Row& row) { return row.Fault == fault; });
}

}  // namespace

std::string_view WordOf(RotatorFault fault) { return RowOf(fault).Word; }

std::optional<RotatorFault> FaultNamed(std::string_view word) {
  const auto* row = std::find_if(kTable.begin(), kTable.end(), [&](const Row& r) { return r.Word == word; });
  return row == kTable.end() ? std::nullopt : std::optional(row->Fault);
}

std::string SentenceOf(RotatorFault fault) { return std::string(RowOf(fault).Sentence); }

}  // namespace lobegraph
