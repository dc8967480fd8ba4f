#include "meter/RadioMeter.h"

#include <algorithm>
#include <thread>

#include "data/base/Numbers.h"
#include "data/base/TextEncoding.h"

namespace lobegraph {
namespace {

constexpr std::chrono::milliseconds kRetry{500};
constexpr std::chrono::seconds kShowEvery{1};
constexpr int kMostRetractions = 20;
constexpr std::chrono::milliseconds kBetweenRetractions{100};

}  // namespace

RadioMeter::RadioMeter(const MeterOptions& options, CalibrationTable calibration, SettingsStore& store,
                       std::ostream& shown, std::function<bool()> ended)
    : options_(options),
      calibration_(std::move(calibration)),
      published_(store, !calibration_.Empty()),
      shown_(shown),
      ended_(std::move(ended)) {
  if (options.ReferenceDb) referenceDb_ = calibration_.TrueDb(*options.ReferenceDb);
}

void RadioMeter::Run() {
  while (!ended_()) {
    auto rest = std::chrono::milliseconds(options_.IntervalMs);
    try {
      Step();
    } catch (const LinkError& problem) {
      link_.reset();
      published_.Retract();
      SayOnce(problem.what());
      rest = kRetry;
    }
    std::this_thread::sleep_for(rest);
  }
  End();
}

/// What was published must not outlive its program; whoever prints comes second.
void RadioMeter::End() {
  bool retracted = published_.Retract();
  for (int again = 0; !retracted && again < kMostRetractions; ++again) {
    std::this_thread::sleep_for(kBetweenRetractions);
    retracted = published_.Retract();
  }
  Say(retracted ? "ended; nothing is published any more"
                : "ended; the last value could not be taken back, its beat has stopped");
}

void RadioMeter::Step() {
  if (!link_) {
    link_ = std::make_unique<RadioLink>(options_.Host, options_.Port,
                                        std::chrono::milliseconds(options_.LimitMs));
    lastProblem_.clear();
    Say("connected to " + options_.Host + ":" + std::to_string(options_.Port));
  }
  const std::string answer = link_->Ask("l STRENGTH");
  const std::optional<double> reported = ParseStrength(answer);
  if (reported) return Take(*reported);
  published_.Retract();
  SayOnce("the radio does not tell its signal strength (" + answer + ")");
}

void RadioMeter::Take(double reportedDb) {
  const double trueDb = calibration_.TrueDb(reportedDb);
  if (!referenceDb_) return Look(trueDb);
  const std::string text = PublishedText(trueDb, *referenceDb_);
  Publish(text, reportedDb, trueDb);
}

void RadioMeter::Publish(const std::string& text, double reportedDb, double trueDb) {
  if (!published_.Publish(text)) return SayOnce("not published: the store cannot be written now");
  lastProblem_.clear();
  if (Time::now() - lastShown_ < kShowEvery) return;
  lastShown_ = Time::now();
  Say("S9 " + FixedText(reportedDb, 0) + " dB (" + FixedText(kS9Dbm + trueDb, 0) + " dBm), published " +
      text);
}

void RadioMeter::Look(double trueDb) {
  lastProblem_.clear();
  if (!strongestDb_) {
    lookedSince_ = Time::now();
    Say("turn the antenna once, slowly: looking for the strongest level for " +
        FixedText(options_.FindSeconds, 0) + " s");
  }
  strongestDb_ = std::max(strongestDb_.value_or(trueDb), trueDb);
  if (std::chrono::duration<double>(Time::now() - lookedSince_).count() < options_.FindSeconds) return;
  referenceDb_ = strongestDb_;
  Say("the strongest is S9 " + FixedText(*referenceDb_, 1) + " dB; it is published as " +
      FixedText(kStrongestDbm, 0));
}

void RadioMeter::Say(const std::string& text) { shown_ << PrintableText(text) << std::endl; }

void RadioMeter::SayOnce(const std::string& text) {
  if (text != lastProblem_) Say(text);
  lastProblem_ = text;
}

}  // namespace lobegraph
