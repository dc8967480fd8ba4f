#include "cli/RepeatReport.h"

#include <nlohmann/json.hpp>
#include <optional>

#include "cli/OpenPattern.h"
#include "data/base/Numbers.h"
#include "processing/Beamwidth.h"
#include "processing/Figures.h"
#include "processing/compare/Alignment.h"
#include "processing/compare/FigureSpread.h"

namespace lobegraph {
namespace {

using Json = nlohmann::ordered_json;

struct TurnOfFile {
  DegreeLevels Levels{};
  CutFigures Figures;
};

/// Why a pattern cannot be laid on others; empty: it can.
std::string TakeTurn(const PatternSession& session, TurnOfFile& turn) {
  if (!session.Plot().PlotDone) return session.Plot().Message.value_or("it cannot be plotted");
  const auto cut = CutOf(session.Record());
  if (!cut) return "its readings have no dB values";
  if (!cut->FullTurn) return "it is half a turn: only whole turns can be laid on each other";
  turn.Levels = ByDegrees(*cut);
  turn.Figures = FiguresOfRecord(session.Record());
  return {};
}

/// @return whether every file could be used; the others are complained about
bool TakeTurns(const ReportRequest& request, const CommandParts& parts, std::vector<TurnOfFile>& turns) {
  bool all = true;
  for (const std::string& file : request.Files) {
    const OpenedPattern pattern = OpenPattern(parts.Files, file, request.Pattern);
    TurnOfFile turn;
    std::string complaint;
    if (const auto& error = pattern.Error())
      complaint = ComplaintAbout(file, *error);
    else if (const std::string wrong = TakeTurn(pattern.Session, turn); !wrong.empty())
      complaint = ComplaintAbout(file, wrong);
    parts.Complaints << complaint;
    all = all && complaint.empty();
    turns.push_back(turn);
  }
  return all;
}

/// Hundredths are finer than any rotator; a figure in a table is read by people.
std::string Rounded(double value) { return FixedText(value, 2); }

std::string Padded(std::string text, std::size_t width) {
  text.insert(0, text.size() < width ? width - text.size() : 0, ' ');
  return text;
}

std::string TableOf(const RepeatedTurns& repeated, const std::vector<FigureSpread>& spreads,
                    const std::vector<std::string>& files) {
  std::string text = Padded("Figure", 18) + Padded("Mean", 10) + Padded("+-", 8) + Padded("Turns", 7) + "\n";
  for (const FigureSpread& spread : spreads)
    text += Padded(std::string(spread.Key), 18) + Padded(spread.Mean ? Rounded(*spread.Mean) : "-", 10) +
            Padded(spread.Deviation ? Rounded(*spread.Deviation) : "-", 8) +
            Padded(std::to_string(spread.Turns), 7) + "\n";
  text += "\n" + Padded("Turned by", 18) + Padded("Level", 10) + "  File\n";
  for (std::size_t i = 0; i < files.size(); ++i)
    text += Padded(Rounded(repeated.Alignments[i].TurnDeg), 18) +
            Padded(Rounded(repeated.Alignments[i].OffsetDb), 10) + "  " + files[i] + "\n";
  return text;
}

Json OrNull(const std::optional<double>& value) { return value ? Json(*value) : Json(); }

std::string LineOf(const RepeatedTurns& repeated, const std::vector<FigureSpread>& spreads,
                   const std::vector<std::string>& files) {
  Json report;
  report["turns"] = Json::array();
  for (std::size_t i = 0; i < files.size(); ++i)
    report["turns"].push_back({{"file", files[i]},
                               {"turnedBy", repeated.Alignments[i].TurnDeg},
                               {"levelOffset", repeated.Alignments[i].OffsetDb}});
  for (const FigureSpread& spread : spreads)
    report["figures"][std::string(spread.Key)] = {
        {"mean", OrNull(spread.Mean)}, {"deviation", OrNull(spread.Deviation)}, {"turns", spread.Turns}};
  report["mean"] = repeated.MeanDb;
  report["deviation"] = repeated.DeviationDb;
  return report.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace

int RunRepeat(const ReportRequest& request, const CommandParts& parts) {
  std::vector<TurnOfFile> turns;
  if (!TakeTurns(request, parts, turns)) return kSomeFailed;
  std::vector<DegreeLevels> levels;
  std::vector<CutFigures> figures;
  for (const TurnOfFile& turn : turns) {
    levels.push_back(turn.Levels);
    figures.push_back(turn.Figures);
  }
  const RepeatedTurns repeated = Repeated(levels);
  const std::vector<FigureSpread> spreads = SpreadsOf(figures);
  parts.Output << (request.Json ? LineOf(repeated, spreads, request.Files)
                                : TableOf(repeated, spreads, request.Files));
  return kAllDone;
}

}  // namespace lobegraph
