#include "cli/ReadPattern.h"

namespace lobegraph {

LoadOutcome ReadPattern(const std::string& /*path*/, std::string_view bytes, const LoadRules& rules,
                        ReadingsRecord& record) {
  return ReadPatternText(bytes, rules, record);
}

}  // namespace lobegraph
