#pragma once

namespace lobegraph {

/// What a coloured field tells the user; the window knows the shades.
enum class StatusColour {
  Yellow,       ///< idle, or too weak
  Green,        ///< ready, good
  LightRed,     ///< near overload, or calibrating
  Red,          ///< error
  LightYellow,  ///< the calibrate box at rest
};

}  // namespace lobegraph
