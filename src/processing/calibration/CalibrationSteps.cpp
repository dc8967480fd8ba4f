#include "processing/calibration/CalibrationSteps.h"

#include <algorithm>
#include <cmath>

#include "data/base/Numbers.h"
#include "processing/calibration/CalibratedLevel.h"

namespace lobegraph {
namespace {

constexpr double kSilentLevel = 1.5;
constexpr double kMostAttenuationDb = 200.0;

std::string Db(double value) {
  const bool whole = value == std::round(value);
  return FixedText(value, whole ? 0 : 1) + " dB";
}

}  // namespace

double CalibrationSteps::NextDb() const { return steps_.empty() ? 0.0 : lastDb_ + stepDb_; }

std::string CalibrationSteps::Prompt() const {
  return "Set the attenuator to " + Db(NextDb()) + ", then Take.";
}

std::string CalibrationSteps::Take(double attenuatorDb, const Heard& heard) {
  if (!(std::abs(attenuatorDb) <= kMostAttenuationDb)) return "No attenuator has " + Db(attenuatorDb) + ".";
  if (heard.Clipped) return "The sound is clipped: turn the audio down and begin anew.";
  if (!heard.Steady) return "The level does not stand still: wait, or use a steady signal.";
  if (heard.Level < kSilentLevel)
    return "Nothing is heard at " + Db(attenuatorDb) + ": end with the points taken so far.";
  std::vector<Step> steps = steps_;
  std::erase_if(steps, [&](const Step& step) { return step.AttenuatorDb == attenuatorDb; });
  const auto place = std::ranges::lower_bound(steps, attenuatorDb, {}, &Step::AttenuatorDb);
  const auto taken = steps.insert(place, {attenuatorDb, HeardDbOf(heard.Level)});
  const auto isLouder = [](const Step& weaker, const Step& stronger) {
    return weaker.HeardDb >= stronger.HeardDb;
  };
  const bool wrong = (taken != steps.begin() && isLouder(*taken, *(taken - 1))) ||
                     (taken + 1 != steps.end() && isLouder(*(taken + 1), *taken));
  if (wrong)
    return "At " + Db(attenuatorDb) + " the level (" + FixedText(taken->HeardDb, 1) +
           " dB) does not lie between its neighbours: the receiver's AGC is on, or the attenuator is not "
           "there yet.";
  steps_ = std::move(steps);
  lastDb_ = attenuatorDb;
  return {};
}

bool CalibrationSteps::TakeBack() {
  const auto erased =
      std::erase_if(steps_, [this](const Step& step) { return step.AttenuatorDb == lastDb_; });
  lastDb_ = steps_.empty() ? 0.0 : steps_.back().AttenuatorDb;
  return erased > 0;
}

CalibrationOutcome CalibrationSteps::Outcome() const {
  if (steps_.size() < kFewestPoints)
    return {std::nullopt,
            "A calibration needs at least 3 points; " + std::to_string(steps_.size()) + " taken so far."};
  std::vector<CalibrationPoint> points;
  const Step& loudest = steps_.front();
  for (const Step& step : steps_)
    points.push_back({step.HeardDb, loudest.HeardDb - (step.AttenuatorDb - loudest.AttenuatorDb)});
  return CalibrationOutcome::Of(std::move(points));
}

}  // namespace lobegraph
