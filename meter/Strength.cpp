#include "meter/Strength.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <stdexcept>

#include "data/base/Numbers.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr double kBeyondAllSenseDb = 1000;

}  // namespace

std::optional<double> ParseStrength(std::string_view answer) {
  try {
    const double strength = WholeNumberText(answer);
    if (std::abs(strength) > kBeyondAllSenseDb) return std::nullopt;
    return strength;
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

Calibration Calibration::FromText(std::string_view text) {
  Calibration calibration;
  std::istringstream lines{std::string(text)};
  int number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    std::istringstream words(line.substr(0, line.find('#')));
    std::string reported, trueDb, more;
    if (!(words >> reported)) continue;
    words >> trueDb;
    const auto from = ParseStrength(reported), to = ParseStrength(trueDb);
    if (!from || !to || words >> more)
      throw std::runtime_error("line " + std::to_string(number) + " of the calibration is not two numbers");
    calibration.rows_.push_back({*from, *to});
  }
  auto& rows = calibration.rows_;
  std::sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) { return a.Reported < b.Reported; });
  for (std::size_t i = 1; i < rows.size(); ++i)
    if (rows[i].Reported == rows[i - 1].Reported)
      throw std::runtime_error("the calibration has " + FixedText(rows[i].Reported, 1) + " twice");
  return calibration;
}

double Calibration::TrueDb(double reportedDb) const {
  if (rows_.empty()) return reportedDb;
  const auto above =
      std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) { return row.Reported > reportedDb; });
  if (above == rows_.begin()) return reportedDb + above->True - above->Reported;
  const Row& below = *(above - 1);
  if (above == rows_.end()) return reportedDb + below.True - below.Reported;
  const double share = (reportedDb - below.Reported) / (above->Reported - below.Reported);
  return below.True + share * (above->True - below.True);
}

std::string PublishedText(double trueDb, double referenceDb) {
  return FixedText(trueDb - referenceDb + kStrongestDbm, 2);
}

}  // namespace lobegraph
