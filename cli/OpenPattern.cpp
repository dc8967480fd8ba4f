#include "cli/OpenPattern.h"

#include "data/base/Numbers.h"
#include "data/formats/PatternFormats.h"

namespace lobegraph {
namespace {

/// Keeps of an outcome what is told in words.
struct Listener {
  OpenedPattern& Pattern;

  void operator()(const show::Message& message) const { Pattern.Messages.push_back(message.Text); }
  void operator()(const show::Fault& fault) const {
    Pattern.Messages.push_back(RunTimeErrorText(fault.Error, fault.Procedure));
  }
  void operator()(const show::PlotFields& fields) const { Pattern.RotateText = SingleText(fields.Rotate); }
  void operator()(const show::PlacementNumber& number) const {
    if (number.Part == PlacementPart::Rotate) Pattern.RotateText = FixedText(number.Value, 0);
  }
  template <typename Drawing>
  void operator()(const Drawing&) const {}
};

void Take(const Outcome& outcome, OpenedPattern& pattern) {
  for (const Step& step : outcome.Steps) std::visit(Listener{pattern}, step);
}

/// @return the whole file was read
bool Load(FileAccess& files, const std::string& path, const PatternOptions& options, bool over,
          OpenedPattern& pattern) {
  bool whole = false;
  const PatternReader read = [&](LoadRules rules, ReadingsRecord& record) {
    rules.Columns = options.Table;
    const LoadOutcome loaded = ReadPattern(files, path, rules, record);
    whole = !loaded.Error;
    return loaded;
  };
  PatternSession& session = pattern.Session;
  Take(over ? session.Overlay(path, read) : session.Load(path, read), pattern);
  return whole;
}

void Type(const PatternOptions& options, OpenedPattern& pattern) {
  if (!options.Rotate && !options.TrimFront && !options.TrimEnd) return;
  Placement typed = pattern.Session.Typed();
  if (options.Rotate) typed.Rotate = TypedNumber(pattern.RotateText = *options.Rotate);
  if (options.TrimFront) typed.TrimFront = TypedNumber(*options.TrimFront);
  if (options.TrimEnd) typed.TrimEnd = TypedNumber(*options.TrimEnd);
  pattern.Session.Type(typed);
  Take(pattern.Session.Place(), pattern);
}

Outcome Apply(Transform transform, PatternSession& session) {
  switch (transform) {
    case Transform::Smooth:
      return session.Smooth();
    case Transform::Reverse:
      return session.Reverse();
    case Transform::DeSpike:
      return session.DeSpike();
    case Transform::Orient:
      return session.Orient();
    default:
      return session.Original();
  }
}

}  // namespace

OpenedPattern OpenPattern(FileAccess& files, const std::string& path, const PatternOptions& options,
                          std::optional<int> overScale) {
  OpenedPattern pattern;
  PlotStyle style = options.Style;
  style.ScaleSetting = overScale.value_or(style.ScaleSetting);
  pattern.Session.SetStyle(style);
  pattern.Session.SetRules(options.Rules);
  if (!Load(files, path, options, overScale.has_value(), pattern)) return pattern;
  Type(options, pattern);
  for (const Transform transform : options.Apply) Take(Apply(transform, pattern.Session), pattern);
  return pattern;
}

}  // namespace lobegraph
