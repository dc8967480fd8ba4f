#pragma once

#include <string>
#include <string_view>

#include "data/record/ReadingsRecord.h"
#include "data/turns/TurnLog.h"

namespace lobegraph {

/// What a log and a pattern are told by: "sha256:" and 64 hexadecimal digits of the readings from the first
/// to the last, each as a pattern file writes it and followed by a line feed. Trims, rotation and words do
/// not count. (FIPS PUB 180-4, Secure Hash Standard.)
std::string DigestOf(const ReadingsRecord& record);

/// Whose log it is.
enum class LogOwner {
  Collected,   ///< the readings are those that were collected
  Saved,       ///< they are those that were saved, with the commands named there
  Unfinished,  ///< the turn never ended (a kill); reading by reading the levels are those of the pattern
  Another,     ///< another pattern's: nothing in it is to be believed of this one
};

/// Says what a log's digests say of a pattern. A turn that was killed has none, so its levels are compared:
/// up to the shorter of the two, which may lack the one reading that was in hand.
LogOwner OwnerOf(const TurnLog& log, const ReadingsRecord& record);

/// Notes the digest of the readings as they were collected.
void NoteCollected(TurnLog& log, const ReadingsRecord& record);

/// Notes the digest of readings that are saved.
/// @param commands what was done to them since the collection, in words, with commas between ("smoothed,
/// reversed"); empty when nothing was
void NoteSaved(TurnLog& log, const ReadingsRecord& record, std::string_view commands);

/// The commands that a saved digest of these readings was noted with; empty for none.
std::string CommandsOf(const TurnLog& log, const ReadingsRecord& record);

}  // namespace lobegraph
