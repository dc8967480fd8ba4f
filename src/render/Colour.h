#pragma once

#include <cstdint>

namespace lobegraph {

/// 24-bit colour.
struct Colour {
  std::uint8_t Red = 0;
  std::uint8_t Green = 0;
  std::uint8_t Blue = 0;

  /// The store's whole number: red + 256 green + 65536 blue. Bits above the third byte are ignored.
  static constexpr Colour FromStored(std::int32_t value) {
    return {static_cast<std::uint8_t>(value & 255), static_cast<std::uint8_t>((value >> 8) & 255),
            static_cast<std::uint8_t>((value >> 16) & 255)};
  }
  constexpr std::int32_t Stored() const { return Red + 256 * Green + 65536 * Blue; }
  constexpr bool operator==(const Colour&) const = default;
};

inline constexpr Colour kBlack{0, 0, 0};
inline constexpr Colour kWhite{255, 255, 255};

namespace status_colour {
inline constexpr Colour kYellow{255, 255, 0};         ///< idle, or too weak
inline constexpr Colour kGreen{0, 255, 0};            ///< ready
inline constexpr Colour kLightRed{255, 192, 192};     ///< overload, or calibrating
inline constexpr Colour kRed{255, 0, 0};              ///< error
inline constexpr Colour kLightYellow{255, 255, 192};  ///< the calibrate box at rest
}  // namespace status_colour

/// Black or white, whichever has the higher contrast (WCAG 2.1 relative luminance) as text on the given
/// colour.
Colour ReadableOn(Colour background);

}  // namespace lobegraph
