#pragma once

#include <string>
#include <vector>

#include "data/base/Numbers.h"
#include "processing/Beamwidth.h"
#include "processing/session/Outcome.h"

namespace lobegraph {

/// A step in a few characters: "grid", "trace", "trace over, unmarked", "fields 30 2 4", "details",
/// "cleared", "Rotate=270", "180", "not 180", "Vertical", "figures 130.00 2.42 dBi", "integrated 5.00 dBi",
/// the text of a message, "fault 11 of ReDraw".
struct StepText {
  std::string operator()(const show::Grid&) const { return "grid"; }
  std::string operator()(const show::Trace& trace) const {
    return std::string("trace") + (trace.Overlay ? " over" : "") + (trace.Marks ? "" : ", unmarked");
  }
  std::string operator()(const show::PlotFields& fields) const {
    return "fields " + SingleText(fields.Rotate) + " " + std::to_string(fields.TrimFront) + " " +
           std::to_string(fields.TrimEnd);
  }
  std::string operator()(const show::Details&) const { return "details"; }
  std::string operator()(const show::Cleared& cleared) const {
    return cleared.Description ? "cleared" : "cleared but the description";
  }
  std::string operator()(const show::PlacementNumber& number) const {
    constexpr const char* kNames[] = {"Rotate", "TrimFront", "TrimEnd"};
    return std::string(kNames[static_cast<int>(number.Part)]) + "=" + FixedText(number.Value, 0);
  }
  std::string operator()(const show::HalfTurn& half) const { return half.Plot180 ? "180" : "not 180"; }
  std::string operator()(const show::Polarization& polarization) const {
    return polarization.Horizontal ? "Horizontal" : "Vertical";
  }
  std::string operator()(const show::Figures& figures) const {
    return "figures " + BeamwidthText(figures.Beam.BeamwidthDeg) + " " + GainText(figures.Beam.GainDbi);
  }
  std::string operator()(const show::IntegratedGain& gain) const {
    return "integrated " + GainText(gain.GainDbi);
  }
  std::string operator()(const show::Message& message) const { return message.Text; }
  std::string operator()(const show::Fault& fault) const {
    return "fault " + std::to_string(fault.Error.Number()) + " of " + fault.Procedure;
  }
};

inline std::vector<std::string> Told(const Outcome& outcome) {
  std::vector<std::string> texts;
  for (const Step& step : outcome.Steps) texts.push_back(std::visit(StepText{}, step));
  return texts;
}

}  // namespace lobegraph
