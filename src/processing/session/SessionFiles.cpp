// Patterns that come from files and go into them.
#include "data/base/FileAccess.h"
#include "data/formats/PatternFile.h"
#include "processing/Transforms.h"
#include "processing/session/PatternSession.h"

namespace lobegraph {
namespace {

constexpr const char* kProcedure = "cmdGetData_Click";

}  // namespace

Outcome PatternSession::Load(const std::string& path, const PatternReader& read) {
  return Do(kProcedure, [&](Outcome& outcome) { LoadInto(outcome, path, read, false); });
}

Outcome PatternSession::Overlay(const std::string& path, const PatternReader& read) {
  return Do(kProcedure, [&](Outcome& outcome) { LoadInto(outcome, path, read, true); });
}

/// A file that cannot be read at all leaves everything as it is.
void PatternSession::LoadInto(Outcome& outcome, const std::string& path, const PatternReader& read,
                              bool over) {
  ReadingsRecord next = state_.Record;
  next.Plot180 = false;
  ClearPlotFields(next, state_.DescriptionLoaded);
  next.FilePath = path;
  next.FileName = FileNameOf(path);
  const LoadOutcome loaded = read({.Overlay = over, .PeakInputLevel = rules_.PeakInputLevel}, next);
  outcome.Add(show::HalfTurn{false});
  if (!over) outcome.Add(Grid());
  if (!over)
    state_.Beneath.reset();
  else if (Drawable())
    state_.Beneath = state_.Record;
  ShowCleared(outcome);
  state_.Record = std::move(next);
  ForgetTurn();
  TakeUp(outcome, loaded, over);
}

void PatternSession::TakeUp(Outcome& outcome, const LoadOutcome& loaded, bool over) {
  state_.DescriptionLoaded = loaded.DescriptionRead;
  state_.HalfLoaded = loaded.Error.has_value();
  for (const std::string& message : loaded.Messages) outcome.Add(show::Message{message});
  ShowRecord(outcome);
  if (loaded.Error) {
    lastFault_ = loaded.Error;
    outcome.Add(show::Fault{*loaded.Error, kProcedure});
  } else {
    Draw(outcome, over);
  }
  state_.Record.SaveReadings();
}

const ReadingsRecord& PatternSession::CapForFile() {
  lobegraph::CapForFile(state_.Record);
  return state_.Record;
}

void PatternSession::SavedAs(const std::string& path) {
  state_.Record.FilePath = path;
  state_.Record.FileName = FileNameOf(path);
  if (state_.Turn) state_.Turn = std::make_shared<const TurnLog>(*TurnToSave());
}

}  // namespace lobegraph
