#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lobegraph {

/// Why a rotator did not do what it was told.
enum class RotatorFault {
  NobodyThere,  ///< port or daemon cannot be reached, or has gone
  NoAnswer,     ///< not in time
  Nonsense,     ///< an answer that says nothing
  Refused,
  CannotDoThat,
  OutOfRange,
  Busy,     ///< the line is used by another
  NoRight,  ///< the port may not be opened by this user
  UnknownModel,
  Inside,  ///< the library or its process failed
};

/// One word of the protocol: "nobody-there".
std::string_view WordOf(RotatorFault fault);
std::optional<RotatorFault> FaultNamed(std::string_view word);

/// A sentence for the user, with what can be done about it.
std::string SentenceOf(RotatorFault fault);

}  // namespace lobegraph
