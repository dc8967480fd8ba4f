#pragma once

#include <cstdint>
#include <source_location>

namespace lobegraph {

/// Nearest whole number, halves to the even neighbour: the one rounding of the program.
double RoundHalfEven(double value);

/// RoundHalfEven into the named width.
/// @throws RunTimeError 6 (Overflow) when the rounded value does not fit or is not a number.
std::int16_t ToInt16(double value, std::source_location where = std::source_location::current());
std::int32_t ToInt32(double value, std::source_location where = std::source_location::current());

/// @throws RunTimeError 6 (Overflow) when a finite double lies outside the range of a single.
float ToSingle(double value, std::source_location where = std::source_location::current());

}  // namespace lobegraph
