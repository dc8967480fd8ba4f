#include "cli/PatternSession.h"

#include <algorithm>
#include <utility>

#include "data/base/Numbers.h"
#include "data/base/Rounding.h"
#include "data/formats/PatternFormats.h"
#include "processing/Beamwidth.h"
#include "processing/Directivity.h"
#include "processing/Transforms.h"

namespace lobegraph {
namespace {

/// The scale slider: its ends, and where it stands before a pattern moves it.
constexpr float kLeastScale = 10.F;
constexpr float kMostScale = 100.F;
constexpr int kUsualScale = 35;

}  // namespace

PatternSession::PatternSession(SessionOptions options, std::optional<float> overlayScale)
    : options_(std::move(options)),
      overlayScale_(overlayScale),
      slider1_(overlayScale ? ToInt32(*overlayScale) : kUsualScale) {
  record_.ScaleSetting = static_cast<float>(slider1_);
}

void PatternSession::Run(FileAccess& files, const std::string& path) {
  const bool loaded = Guarded("cmdGetData_Click", [&] { Load(files, path); });
  if (!loaded || halfLoaded_) return;
  Type();
  for (const Transform transform : options_.Apply) Apply(transform);
}

bool PatternSession::Guarded(const char* procedure, const Action& action) {
  try {
    action();
    return true;
  } catch (const RunTimeError& error) {
    Report(error, procedure);
    return false;
  }
}

void PatternSession::Report(const RunTimeError& error, const char* procedure) {
  messages_.push_back(RunTimeErrorText(error, procedure));
  error_ = error;
}

void PatternSession::Load(FileAccess& files, const std::string& path) {
  record_.FilePath = path;
  record_.FileName = FileNameOf(path);
  const LoadRules rules{.Overlay = overlayScale_.has_value(),
                        .PeakInputLevel = options_.PeakInputLevel,
                        .Columns = options_.Table};
  const LoadOutcome outcome = ReadPattern(files, path, rules, record_);
  messages_.insert(messages_.end(), outcome.Messages.begin(), outcome.Messages.end());
  halfLoaded_ = outcome.Error.has_value();
  ShowRecord();
  if (outcome.Error)
    Report(*outcome.Error, "cmdGetData_Click");
  else
    ReDraw();
  record_.SaveReadings();
}

void PatternSession::Type() {
  if (!options_.txtRotate && !options_.txtTrimFront && !options_.txtTrimEnd) return;
  boxes_.txtRotate = options_.txtRotate.value_or(boxes_.txtRotate);
  boxes_.txtTrimFront = options_.txtTrimFront.value_or(boxes_.txtTrimFront);
  boxes_.txtTrimEnd = options_.txtTrimEnd.value_or(boxes_.txtTrimEnd);
  ReDraw();
}

void PatternSession::Apply(Transform transform) {
  switch (transform) {
    case Transform::Smooth:
      if (Guarded("cmdSmooth_Click", [&] { Smooth(record_); })) ReDraw();
      return;
    case Transform::Reverse:
      ReversePattern(record_, *this);
      OrientPattern(record_, *this);
      return;
    case Transform::DeSpike:
      Guarded("cmdDeSpike_Click", [&] {
        if (DeSpikePattern(record_, options_.SpikeDetectLevel, *this)) OrientPattern(record_, *this);
      });
      return;
    case Transform::Orient:
      OrientPattern(record_, *this);
      return;
    case Transform::Original:
      if (record_.Held()) Guarded("cmdOriginalData_Click", [&] { ShowOriginal(); });
  }
}

void PatternSession::ShowOriginal() {
  record_.ScaleSetting = static_cast<float>(slider1_);
  beamwidthDeg_ = 0.F;
  plot_ = {};
  plot_ = PlotOriginal(record_, Options());
  ShowRecord();
  txtAngle_ = plot_.txtAngle;
  txtGain_ = plot_.txtGain;
}

void PatternSession::ShowRecord() {
  ShowPlotFields();
  slider1_ = ToInt32(std::clamp(record_.ScaleSetting, kLeastScale, kMostScale));
  record_.ScaleSetting = static_cast<float>(slider1_);
}

void PatternSession::ShowPlotFields() {
  boxes_ = {SingleText(record_.Rotate), std::to_string(record_.TrimFront), std::to_string(record_.TrimEnd)};
}

PlotResult PatternSession::ReDraw() {
  plot_ = {};
  error_.reset();
  Guarded("ReDraw", [&] { PlotPattern(record_, *this, plot_); });
  return plot_;
}

void PatternSession::ShowPlot(const PlotResult& plot) {
  beamwidthDeg_ = plot.BeamwidthDeg;
  txtAngle_ = plot.txtAngle;
  txtGain_ = plot.txtGain;
}

void PatternSession::SetBox(PlotBox box, const std::string& text) {
  switch (box) {
    case PlotBox::Rotate:
      boxes_.txtRotate = text;
      return;
    case PlotBox::TrimFront:
      boxes_.txtTrimFront = text;
      return;
    case PlotBox::TrimEnd:
      boxes_.txtTrimEnd = text;
  }
}

std::optional<std::string> PatternSession::IntegratedGainText() const {
  ReadingsRecord record = record_;
  try {
    if (!CheckRange(record, boxes_, options_.Calibrate).Passed) return std::nullopt;
    const auto gain = IntegratedGain(record);
    return gain ? std::optional(GainText(*gain)) : std::nullopt;
  } catch (const RunTimeError&) {
    return std::nullopt;  // the box keeps its text
  }
}

PlotOptions PatternSession::Options() const {
  return {.LinearMode = options_.LinearMode,
          .ShowLogScale = options_.Scale == PlotScale::Logarithmic,
          .chkPlotInDB = options_.Scale != PlotScale::Linear,
          .chkCalibrate = options_.Calibrate,
          .PeakInputLevel = options_.PeakInputLevel,
          .ScaleSetting = static_cast<float>(slider1_)};
}

}  // namespace lobegraph
