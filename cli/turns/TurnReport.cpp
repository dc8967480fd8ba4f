#include "cli/turns/TurnReport.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>

#include "data/turns/TurnDigest.h"

namespace lobegraph {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kNameWidth = 20;

/// The readings that bear each flag, in the order of the flags' first appearance.
std::vector<std::pair<std::string, std::vector<std::string>>> FlaggedReadings(const TurnLog& log) {
  std::vector<std::pair<std::string, std::vector<std::string>>> flagged;
  for (std::size_t row = 0; row < log.Rows().size(); ++row) {
    std::istringstream flags{std::string(log.Cell(row, turncolumn::kFlags))};
    for (std::string flag; flags >> flag;) {
      auto place =
          std::find_if(flagged.begin(), flagged.end(), [&](const auto& of) { return of.first == flag; });
      if (place == flagged.end()) place = flagged.insert(place, {flag, {}});
      place->second.emplace_back(log.Cell(row, turncolumn::kReading));
    }
  }
  return flagged;
}

std::string Line(std::string name, const std::string& value) {
  name.resize(std::max(kNameWidth, name.size() + 1), ' ');
  return "  " + name + value + "\n";
}

bool IsDigest(const std::string& key) { return key == turnkey::kCollected || key == turnkey::kSaved; }

Json KeysOf(const TurnLog& log) {
  Json keys = Json::object();
  for (const auto& [key, value] : log.Keys()) {
    Json& held = keys[key];
    if (held.is_null())
      held = value;
    else if (held.is_array())
      held.push_back(value);
    else
      held = Json::array({held, value});
  }
  return keys;
}

/// A cell as a number where it is one.
Json CellOf(const TurnLog& log, std::size_t row, const std::string& column) {
  const std::string_view text = log.Cell(row, column);
  if (text.empty()) return nullptr;
  const auto number = log.Number(row, column);
  return number ? Json(*number) : Json(text);
}

Json ReadingsOf(const TurnLog& log) {
  Json readings = Json::array();
  for (std::size_t row = 0; row < log.Rows().size(); ++row) {
    Json& reading = readings.emplace_back(Json::object());
    for (const std::string& column : log.Columns()) reading[column] = CellOf(log, row, column);
  }
  return readings;
}

}  // namespace

std::string TurnTable(const std::string& file, const TurnLog& log, const ReadingsRecord& record) {
  std::string text = file + "\n";
  for (const auto& [key, value] : log.Keys())  // the digests are for programs
    if (!IsDigest(key)) text += Line(key, value);
  const std::string changes = CommandsOf(log, record);
  if (!changes.empty()) text += Line("since then", changes);
  for (const auto& [flag, readings] : FlaggedReadings(log)) {
    const std::string count =
        std::to_string(readings.size()) + (readings.size() == 1 ? " reading" : " readings");
    text += Line(flag, count + ", the first is No. " + readings.front());
  }
  return text;
}

std::string TurnLine(const std::string& file, const LogBeside& beside, const ReadingsRecord& record) {
  Json report;
  report["file"] = file;
  report["turn"] = nullptr;
  report["note"] = beside.Note.empty() ? Json() : Json(beside.Note);
  if (const auto& log = beside.Log)
    report["turn"] = {
        {"keys", KeysOf(*log)}, {"changes", CommandsOf(*log, record)}, {"readings", ReadingsOf(*log)}};
  return report.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace lobegraph
