#pragma once

#include <sstream>
#include <string>

#include "data/table/TextLines.h"

namespace lobegraph {

/// A text in the place of a file's lines: ReadPlanet(TextOf("...")).
class TextOf {
 public:
  explicit TextOf(const std::string& text) : bytes_(text), lines_(bytes_) {}
  operator TextLines&() { return lines_; }  // NOLINT(google-explicit-constructor): so that a reader takes it

 private:
  std::istringstream bytes_;
  TextLines lines_;
};

}  // namespace lobegraph
