#include "cli/Options.h"

#include <CLI/CLI.hpp>
#include <map>
#include <set>
#include <sstream>

#include "acquisition/serial/ComPorts.h"
#include "data/formats/PatternFormats.h"

namespace lobegraph {
namespace {

constexpr const char* kAbout =
    "Figures, pictures and other formats from Lobegraph's pattern files, one by one or by the thousand.\n"
    "Exit codes: 0 done, 1 some file failed (the others are done), 2 wrong use.";
constexpr const char* kVerbsHint = "lobegraph-cli VERB --help shows the options and examples of a verb.";
constexpr const char* kReportExamples =
    "Examples:\n"
    "  lobegraph-cli report beam.lbg\n"
    "      beamwidth, gain and front-to-back as a table\n"
    "  lobegraph-cli report --json --apply despike,smooth,orient *.lbg >figures.json\n"
    "      one object for each file and line, after the window's commands of these names\n"
    "  lobegraph-cli report --json --trace beam.lbg\n"
    "      the plotted points as well\n"
    "  lobegraph-cli report --turn beam.lbg\n"
    "      what beam.turn.csv says of the turn";
constexpr const char* kRenderExamples =
    "Examples:\n"
    "  lobegraph-cli render beam.lbg -o beam.svg --title \"3 elements, 144 MHz\"\n"
    "  lobegraph-cli render beam.lbg -o beam.png --size 1002x1120 --overlay model.nec other.lbg\n"
    "      a second and a third pattern over the first, with a legend\n"
    "  lobegraph-cli render *.lbg -o 'pictures/{}.png' --apply orient\n"
    "      a picture for each file";
constexpr const char* kConvertExamples =
    "Examples:\n"
    "  lobegraph-cli convert beam.lbg beam.msi\n"
    "  lobegraph-cli convert model.nec model.lbg\n"
    "      a model, ready to be drawn over a measurement\n"
    "  lobegraph-cli convert --table chamber.csv beam.lbg\n"
    "      finds separator, heading, decimal comma and the columns of angle and level by itself";

constexpr const char* kPortsExamples =
    "Examples:\n"
    "  lobegraph-cli ports\n"
    "      what each COM number is now; no port is opened\n"
    "  lobegraph-cli ports assign 3 /dev/ttyUSB0\n"
    "      this adapter is COM3 from now on, whichever plug it is put into";

const std::map<std::string, Transform> kTransforms = {{"smooth", Transform::Smooth},
                                                      {"reverse", Transform::Reverse},
                                                      {"despike", Transform::DeSpike},
                                                      {"orient", Transform::Orient},
                                                      {"original", Transform::Original}};
const std::map<std::string, PlotScale> kScales = {
    {"log", PlotScale::Logarithmic}, {"db50", PlotScale::Db50}, {"linear", PlotScale::Linear}};

/// Takes names from a table, so that the help says "{log,db50,linear}".
template <typename Value>
CLI::Validator OneOf(const std::map<std::string, Value>& table) {
  std::set<std::string> names;
  for (const auto& [name, value] : table) names.insert(name);
  return CLI::IsMember(names);
}

template <typename Value>
std::string NamesOf(const std::map<std::string, Value>& table) {
  std::string names;
  for (const auto& [name, value] : table) names += (names.empty() ? "" : ", ") + name;
  return names;
}

/// @return what is wrong with the list; empty: it was taken
std::string TakeTransforms(const std::string& list, PatternOptions& pattern) {
  pattern.Apply.clear();
  std::istringstream parts(list);
  for (std::string name; std::getline(parts, name, ',');) {
    const auto found = kTransforms.find(name);
    if (found == kTransforms.end()) return "'" + name + "' is none of " + NamesOf(kTransforms);
    pattern.Apply.push_back(found->second);
  }
  return "";
}

void AddPatternOptions(CLI::App& verb, PatternOptions& pattern) {
  verb.add_option_function<std::string>(
          "--scale", [&pattern](const std::string& name) { pattern.Style.Scale = kScales.at(name); },
          "How a level becomes a radius (default: log)")
      ->check(OneOf(kScales));
  const std::string commands =
      "Commands of the window to run after the load, in this order, with commas between: " +
      NamesOf(kTransforms);
  verb.add_option("--apply", commands)
      ->check([&pattern](const std::string& list) { return TakeTransforms(list, pattern); })
      ->type_name("COMMANDS");
  verb.add_option("--peak-input-level", pattern.Rules.PeakInputLevel, "Level of full scale (default: 1000)")
      ->check(CLI::Range(1.0, 1e9));
  verb.add_option("--spike-detect-level", pattern.Rules.SpikeDetectLevel,
                  "A reading this far from both neighbours is a spike (default: 50)")
      ->check(CLI::Range(0, 32767));
  verb.add_flag("--calibrate", pattern.Rules.AnyLength, "Plot a set of less than 60 readings as well");
  verb.add_option("--rotate", pattern.Rotate, "Rotation in degrees, as typed into its box");
  verb.add_option("--trim-front", pattern.TrimFront, "Readings to drop at the start, as typed");
  verb.add_option("--trim-end", pattern.TrimEnd, "Readings to drop at the end, as typed");
}

void AddReport(CLI::App& app, ReportRequest& request) {
  CLI::App* verb = app.add_subcommand("report", "Figures of patterns: a table, or objects for scripts");
  verb->footer(kReportExamples);
  verb->add_option("FILE", request.Files, "Pattern files")->required();
  verb->add_flag("--json", request.Json, "One JSON object for each file, one a line");
  CLI::Option* repeat =
      verb->add_flag("--repeat", request.Repeat,
                     "The files are turns of one antenna: their mean, and each figure with its spread");
  verb->add_flag("--turn", request.Turn,
                 "What the log of the turn beside each file says: who measured what and how, what went wrong")
      ->excludes(repeat);
  verb->add_flag("--readings", request.Extras.Readings, "With --json: all 361 readings")
      ->needs("--json")
      ->excludes(repeat);
  verb->add_flag("--trace", request.Extras.Trace, "With --json: the plotted points")
      ->needs("--json")
      ->excludes(repeat);
  verb->add_option("--jobs,-j", request.Jobs, "Files at the same time (default: one for each core)")
      ->check(CLI::Range(1, 1024));
  AddPatternOptions(*verb, request.Pattern);
}

/// "501x560"
std::string TakeSize(const std::string& text, RenderRequest& request) {
  constexpr int kLargest = 20000;
  std::istringstream parts(text);
  char cross = 0;
  const bool read = parts >> request.Width >> cross >> request.Height && parts.peek() == EOF;
  const bool fits = read && cross == 'x' && request.Width >= 16 && request.Height >= 16 &&
                    request.Width <= kLargest && request.Height <= kLargest;
  return fits ? "" : "give width and height in pixels, such as 1002x1120 (16 to 20000 each)";
}

void AddRender(CLI::App& app, RenderRequest& request) {
  CLI::App* verb = app.add_subcommand("render", "Pictures of patterns: PNG, SVG or PDF by the name");
  verb->footer(kRenderExamples);
  verb->add_option("FILE", request.Files, "Pattern files")->required();
  verb->add_option("-o,--output", request.Out, "Picture to write; {} stands for the name of the file")
      ->required();
  verb->add_option("--overlay", request.Overlays, "Patterns to draw over it, with a legend");
  verb->add_option("--size", "PNG: width and height in pixels (default: 501x560)")
      ->check([&request](const std::string& text) { return TakeSize(text, request); })
      ->type_name("WxH");
  verb->add_flag("--rectangular", request.Pattern.Style.Rectangular,
                 "Level over angle instead of the circle");
  verb->add_option("--colours", request.ColoursFile,
                   "File with colours: PlotBackground=#e0e0e0 and the like, or a settings file of Lobegraph");
  verb->add_option("--title", request.Title, "Text above the plot");
  AddPatternOptions(*verb, request.Pattern);
}

std::string Listed(const std::vector<std::string_view>& endings) {
  std::string list;
  for (const std::string_view ending : endings) list += (list.empty() ? "" : " ") + std::string(ending);
  return list;
}

/// A line for each format.
std::string FormatsHelp() {
  constexpr std::size_t kNameWidth = 28;
  std::string text = "Formats:\n";
  for (const PatternFormat& format : PatternFormats()) {
    std::string name(format.Name);
    name.resize(std::max(kNameWidth, name.size() + 1), ' ');
    text += "  " + name + std::string(format.Endings);
    if (!format.EndingsOfAnyText.empty()) text += " " + std::string(format.EndingsOfAnyText);
    if (format.Columns.value_or(false)) text += " with --table";
    text += format.Writes() ? "\n" : ", read only\n";
  }
  return text + "\n";
}

void AddConvert(CLI::App& app, ConvertRequest& request) {
  CLI::App* verb = app.add_subcommand("convert", "From one format to another by the names' endings");
  verb->footer(FormatsHelp() + kConvertExamples);
  verb->add_option("IN", request.In, "Read: " + Listed(EndingsRead()))->required();
  verb->add_option("OUT", request.Out, "Write: " + Listed(EndingsWritten()))->required();
  verb->add_flag("--table", request.Table, "CSV with several columns, read or written");
}

void AddPorts(CLI::App& app, PortAssignment& assignment) {
  CLI::App* verb = app.add_subcommand("ports", "What the COM numbers of the input chooser are");
  verb->footer(kPortsExamples);
  CLI::App* assign = verb->add_subcommand("assign", "Give a device to a COM number");
  assign->footer(kPortsExamples);
  assign->add_option("N", assignment.Number, "COM number")
      ->required()
      ->check(CLI::Range(1, kHighestComNumber));
  assign->add_option("PATH", assignment.Path, "The device, such as /dev/ttyUSB0")->required();
}

/// Wrong use is always 2, whatever the parser calls it.
void End(const CLI::App& app, const CLI::ParseError& reason, CommandLine& parsed) {
  std::ostringstream output, complaint;
  parsed.ExitCode = app.exit(reason, output, complaint) == 0 ? 0 : 2;
  parsed.Output = output.str();
  parsed.Complaint = complaint.str();
}

void Check(const RenderRequest& request) {
  const bool several = request.Files.size() > 1;
  if (several && request.Out.find("{}") == std::string::npos)
    throw CLI::ValidationError("--output", "several files need a {} in it, such as 'pictures/{}.png'");
}

}  // namespace

CommandLine ParseCommandLine(int argc, const char* const* argv, const std::string& version) {
  ReportRequest report;
  RenderRequest render;
  ConvertRequest convert;
  PortAssignment assignment;
  CLI::App app(kAbout, "lobegraph-cli");
  app.footer(kVerbsHint);
  app.set_version_flag("--version", "lobegraph-cli " + version);
  app.require_subcommand(1);
  AddReport(app, report);
  AddRender(app, render);
  AddConvert(app, convert);
  AddPorts(app, assignment);
  CommandLine parsed;
  try {
    app.parse(argc, argv);
    if (app.got_subcommand("render")) Check(render);
  } catch (const CLI::ParseError& reason) {
    End(app, reason, parsed);
    return parsed;
  }
  if (app.got_subcommand("report")) parsed.Report = std::move(report);
  if (app.got_subcommand("render")) parsed.Render = std::move(render);
  if (app.got_subcommand("convert")) parsed.Convert = std::move(convert);
  if (app.got_subcommand("ports")) {
    const bool assigns = app.get_subcommand("ports")->got_subcommand("assign");
    parsed.Ports = PortsRequest{assigns ? std::optional(assignment) : std::nullopt};
  }
  return parsed;
}

}  // namespace lobegraph
