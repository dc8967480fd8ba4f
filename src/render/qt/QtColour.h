#pragma once

#include <QColor>

#include "render/Colour.h"

namespace lobegraph {

inline QColor ToQt(Colour colour) { return {colour.Red, colour.Green, colour.Blue}; }
inline Colour FromQt(const QColor& colour) {
  return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
          static_cast<std::uint8_t>(colour.blue())};
}

}  // namespace lobegraph
