#pragma once

#include <QMimeData>
#include <optional>
#include <string>

namespace lobegraph {

/// The path of the pattern file that is being dropped: exactly one local file whose name ends in ".lbg" in
/// any letter case.
std::optional<std::string> DroppedPattern(const QMimeData& dropped);

}  // namespace lobegraph
