#include "processing/session/PatternState.h"

namespace lobegraph {
namespace {

void ForgetWhatFollows(ReadingsRecord& record) {
  record.ReadingsPlotted = 0;
  record.PeakLevelDb = 0.F;
  record.PeakIndex = 0;
  if (record.Plot180) record.Rotate = 0.F;  // always lies across the top
  if (!record.HasDescription()) record.Description.clear();
  record.FilePath.clear();
  record.FileName.clear();
}

PatternState Essence(PatternState state) {
  ForgetWhatFollows(state.Record);
  if (state.Beneath) ForgetWhatFollows(*state.Beneath);
  state.DescriptionLoaded = false;
  state.Turn.reset();
  state.Changes.clear();
  state.ChangesOfOriginals.clear();
  return state;
}

}  // namespace

bool SamePattern(const PatternState& a, const PatternState& b) { return Essence(a) == Essence(b); }

}  // namespace lobegraph
