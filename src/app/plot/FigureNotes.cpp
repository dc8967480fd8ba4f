#include "app/plot/FigureNotes.h"

#include "data/base/Numbers.h"
#include "processing/Beamwidth.h"
#include "processing/Directivity.h"

namespace lobegraph {
namespace {

constexpr const char* kGain = "Estimate of gain";

bool IsFigure(std::string_view text) { return ScanNumber(text).Length > 0; }

std::string ElementsWords(std::string_view elements) {
  const auto first = elements.find_first_not_of(' ');
  if (first == std::string_view::npos) return "no number of elements chosen, as for 3";
  const std::string count(elements.substr(first, elements.find_last_not_of(' ') - first + 1));
  return count == "1" ? "1 element" : count + " elements";
}

std::string PolarizationWord(bool horizontal) { return horizontal ? "horizontal" : "vertical"; }

}  // namespace

std::string AngleNote(std::string_view figure) {
  const std::string base = "Angle of -3dB down points";
  return IsFigure(figure) ? base + ": read at whole readings, nothing assumed between them" : base;
}

std::string GainNote(std::string_view figure, std::string_view elements, bool horizontal) {
  if (!IsFigure(figure)) return kGain;
  const auto ratio = ElementRatioOf(elements, horizontal);
  const std::string other = ratio ? "assumed " + FixedText(*ratio, 2) + " times as wide as this one"
                                  : "assumed to radiate all round";
  return std::string(kGain) + " from the beamwidth: the other plane is " + other + " (" +
         ElementsWords(elements) + ", " + PolarizationWord(horizontal) + ")";
}

std::string IntegratedGainNote(std::string_view elements, bool horizontal) {
  const double correction = ElementCorrection(elements, horizontal).value_or(0.0);
  return std::string(kGain) + " by integration: the beam is assumed round, less " + FixedText(correction, 2) +
         " dB for the other plane (" + ElementsWords(elements) + ", " + PolarizationWord(horizontal) + ")";
}

}  // namespace lobegraph
