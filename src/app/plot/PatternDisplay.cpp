#include "app/plot/PatternDisplay.h"

#include <algorithm>

#include "app/plot/FigureNotes.h"
#include "data/base/Numbers.h"
#include "processing/Beamwidth.h"

namespace lobegraph {
namespace {

Control BoxOf(PlacementPart part) {
  switch (part) {
    case PlacementPart::Rotate:
      return Control::txtRotate;
    case PlacementPart::TrimFront:
      return Control::txtTrimFront;
    default:
      return Control::txtTrimEnd;
  }
}

/// Messages and faults of an outcome, as one text.
std::string RefusalOf(const Outcome& outcome) {
  std::string text;
  for (const Step& step : outcome.Steps) {
    if (const auto* message = std::get_if<show::Message>(&step)) text += message->Text + '\n';
    if (const auto* fault = std::get_if<show::Fault>(&step))
      text += RunTimeErrorText(fault->Error, fault->Procedure) + '\n';
  }
  return text;
}

bool Draws(const Outcome& outcome) {
  return std::any_of(outcome.Steps.begin(), outcome.Steps.end(),
                     [](const Step& step) { return std::holds_alternative<show::Grid>(step); });
}

}  // namespace

Outcome PatternDisplay::Run(const Command& command, const std::string& advice) {
  Outcome outcome = Ask(command);
  if (Draws(outcome)) refused_ = RefusalOf(outcome);
  advice_ = advice;
  Show(outcome, Telling::Boxes);
  advice_.clear();
  return outcome;
}

void PatternDisplay::Redraw() {
  const Outcome outcome = Ask(&PatternSession::Redraw);
  const bool told = RefusalOf(outcome) == refused_;
  refused_ = RefusalOf(outcome);
  Show(outcome, told ? Telling::Line : Telling::Boxes);
}

void PatternDisplay::RedrawBeneathDialog() { Show(Ask(&PatternSession::Redraw), Telling::Nothing); }

void PatternDisplay::DialogCloses() {
  board_.ReleaseColours();
  Redraw();
}

void PatternDisplay::Show(const Outcome& outcome) { Show(outcome, Telling::Boxes); }

/// Runs a command on what boxes and settings say.
Outcome PatternDisplay::Ask(const Command& command) {
  const SettingsValues& settings = parts_.Shared.Settings;
  const auto typed = [this](PlacementPart part) { return TypedNumber(parts_.View.Text(BoxOf(part))); };
  parts_.Pattern.Type(
      {typed(PlacementPart::Rotate), typed(PlacementPart::TrimFront), typed(PlacementPart::TrimEnd)});
  parts_.Pattern.SetRules({.PeakInputLevel = settings.PeakInputLevel,
                           .SpikeDetectLevel = settings.SpikeDetectLevel,
                           .AnyLength = parts_.View.Checked(Control::chkCalibrate)});
  Outcome outcome = command(parts_.Pattern);
  const PlotStyle& style = parts_.Pattern.Style();
  parts_.Shared.Settings.LinearMode = style.Rectangular;
  parts_.Shared.Settings.ShowLogScale = style.Logarithmic();
  return outcome;
}

void PatternDisplay::Show(const Outcome& outcome, Telling telling) {
  telling_ = telling;
  ++showing_;
  for (const Step& step : outcome.Steps) std::visit([this](const auto& one) { Do(one); }, step);
  --showing_;
}

void PatternDisplay::Do(const show::Message& message) {
  Tell(message.Text, [&] { parts_.Dialogs.ShowText(message.Text); });
}

void PatternDisplay::Do(const show::Fault& fault) {
  Tell(RunTimeErrorText(fault.Error, fault.Procedure),
       [&] { ReportFault(parts_.Dialogs, fault.Error, fault.Procedure, "Form1", advice_); });
}

void PatternDisplay::Tell(const std::string& text, const std::function<void()>& box) {
  if (telling_ == Telling::Line) parts_.View.SetText(Control::lblHint, text);
  if (telling_ == Telling::Boxes) box();
}

void PatternDisplay::Do(const show::PlotFields& fields) {
  parts_.View.SetText(Control::txtRotate, SingleText(fields.Rotate));
  parts_.View.SetText(Control::txtFileName, fields.FileName);
  parts_.View.SetText(Control::txtReadingsPlotted, std::to_string(fields.ReadingsPlotted));
  parts_.View.SetText(Control::txtTrimFront, std::to_string(fields.TrimFront));
  parts_.View.SetText(Control::txtTrimEnd, std::to_string(fields.TrimEnd));
  parts_.View.SetText(Control::txtDescription, IsDescription(fields.Description) ? fields.Description : "");
  parts_.View.SetText(Control::lblFileDescription, fields.Description);
}

void PatternDisplay::Do(const show::Details& details) {
  parts_.View.SetText(Control::cboElements, details.Elements);
  parts_.View.SetChecked(Control::chk180, details.Plot180);
  parts_.View.SetValue(Control::Slider1, details.ScaleSetting);
  parts_.View.SetText(Control::lblCollectedBy, details.CollectedBy);
  parts_.View.SetText(Control::lblCollectedDate, details.CollectedDate);
  Do(show::Polarization{details.PolarizationHorizontal});
}

void PatternDisplay::Do(const show::Cleared& cleared) {
  for (const Control box : {Control::txtTrimEnd, Control::txtTrimFront, Control::txtRotate})
    parts_.View.SetText(box, "0");
  parts_.View.SetText(Control::txtFileName, "");
  if (!cleared.Description) return;
  parts_.View.SetText(Control::txtDescription, "");
  parts_.View.SetText(Control::lblFileDescription, "");
}

void PatternDisplay::Do(const show::PlacementNumber& number) {
  parts_.View.SetText(BoxOf(number.Part), FixedText(number.Value, 0));
}

void PatternDisplay::Do(const show::Polarization& polarization) {
  parts_.View.SetText(Control::cmdPolarization, polarization.Horizontal ? "Hori&zontal" : "Vertic&al");
}

void PatternDisplay::Do(const show::Figures& figures) {
  const std::string angle = BeamwidthText(figures.Beam.BeamwidthDeg);
  const std::string gain = GainText(figures.Beam.GainDbi);
  parts_.View.SetText(Control::txtAngle, angle);
  parts_.View.SetText(Control::txtGain, gain);
  parts_.View.SetToolTip(Control::txtAngle, AngleNote(angle));
  parts_.View.SetToolTip(Control::txtGain, GainNote(gain, figures.Elements, figures.Horizontal));
}

void PatternDisplay::Do(const show::IntegratedGain& gain) {
  parts_.View.SetText(Control::txtGain, GainText(gain.GainDbi));
  parts_.View.SetToolTip(Control::txtGain, IntegratedGainNote(gain.Elements, gain.Horizontal));
}

}  // namespace lobegraph
