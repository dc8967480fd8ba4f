#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lobegraph {

/// Name of a turn's files in the state folder: "turn 000042 2026-11-21 10.22.33.lbg" and, beside it,
/// ".turn.csv". The number rises by one with each turn whatever the clock says, so it is what they are
/// ordered by. A name without a number is one of an earlier version's.
struct TurnName {
  std::int64_t Number = 0;  ///< 0: an earlier version's
  std::string When;         ///< "2026-11-21 10.22.33"
  std::string Stem;         ///< the file's name without ".lbg"
};

/// What a file's name says; none for any name but exactly such a one. What a user saved beside the turns is
/// never one of them.
std::optional<TurnName> TurnNameOf(std::string_view fileName);

/// The log that belongs to a pattern file by its name: ".lbg" (in any letter case) becomes ".turn.csv".
std::string LogPathOf(const std::string& patternPath);

/// The folder of what the program keeps for the user unasked: "lobegraph" in $XDG_STATE_HOME when that is an
/// absolute path, else in .local/state of the user's own folder.
std::string StateFolder();

/// A turn that the state folder keeps.
struct KeptTurn {
  TurnName Name;
  std::string Path;  ///< of the pattern file
};

/// Whether a pattern file is worth being kept among the thirty: it heard something and has 20 readings or
/// more. One that cannot be read is worthy: nobody knows.
bool WorthKeeping(const std::string& patternPath);

inline constexpr std::size_t kWorthyKept = 30;
inline constexpr std::size_t kShortKept = 10;
inline constexpr int kFewestWorthy = 20;

/// Every turn in the folder, the newest first. An unreadable folder has none.
std::vector<KeptTurn> KeptTurns(const std::string& folder);

/// Drops what is beyond the thirty newest worthy turns and the ten newest short or silent ones, pattern and
/// log together. A turn that any running program holds stays, and counts.
void DropOldTurns(const std::string& folder);

}  // namespace lobegraph
