#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "acquisition/rotator/RotatorFault.h"
#include "acquisition/rotator/RotatorTypes.h"

namespace lobegraph {

/// The lines between a program and the process that talks to the rotator (docs/rotator-protocol.md). Each
/// line ends in a line feed; numbers have a point in every locale.
inline constexpr int kRotatorProtocol = 1;
inline constexpr std::size_t kLongestRotatorLine = 512;

/// What the process is told to do. Every line of this kind also says that its user is alive.
struct RotatorOrder {
  enum class Kind { Alive, List, Open, Every, GoTo, Left, Right, Stop, Park, Close };

  Kind What = Kind::Alive;
  int Number = 0;  ///< counted by the sender; its answer carries it. None for Alive, List and Every
  RotatorChoice Choice = {};  ///< of Open
  double Deg = 0;             ///< of GoTo
  int Ms = 0;                 ///< of Every: between two questions for the position; 0: none are asked

  bool operator==(const RotatorOrder&) const = default;
};

/// Without the line feed. A port's control characters are left out.
std::string TextOf(const RotatorOrder& order);
/// None for a line that is no order: it is not obeyed in parts.
std::optional<RotatorOrder> OrderIn(std::string_view line);

/// What the process tells.
namespace told {

struct Hello {
  int Protocol = 0;
  bool operator==(const Hello&) const = default;
};
/// The last of the models has been told.
struct ListEnds {
  bool operator==(const ListEnds&) const = default;
};
/// The order was carried out.
struct Done {
  int Number = 0;
  bool operator==(const Done&) const = default;
};
/// The order was not carried out.
struct Failed {
  int Number = 0;
  RotatorFault Why{};
  bool operator==(const Failed&) const = default;
};
/// A question for the position got no answer.
struct NoPosition {
  RotatorFault Why{};
  bool operator==(const NoPosition&) const = default;
};
/// A call to the rotator has been on for so long.
struct Waiting {
  double Seconds = 0;
  bool operator==(const Waiting&) const = default;
};
/// The process has stopped the antenna without being told to.
struct StoppedItself {
  bool operator==(const StoppedItself&) const = default;
};

}  // namespace told

using RotatorNews =
    std::variant<told::Hello, RotatorModel, told::ListEnds, RotatorAbilities, RotatorPosition, told::Done,
                 told::Failed, told::NoPosition, told::Waiting, told::StoppedItself>;

std::string TextOf(const RotatorNews& news);
/// None for a line that is none of these, or whose numbers are beyond a rotator's: bearings within +-1080,
/// times not negative.
std::optional<RotatorNews> NewsIn(std::string_view line);

}  // namespace lobegraph
