#include "fuzz/Companion.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <utility>

#include "cli/ConvertCommand.h"
#include "cli/RenderCommand.h"
#include "cli/ReportCommand.h"
#include "data/base/RunTimeError.h"
#include "data/base/TextEncoding.h"
#include "data/formats/PatternFormats.h"
#include "fuzz/Targets.h"

namespace lobegraph::fuzz {
namespace {

/// Files in memory.
class Shelf final : public FileAccess {
 public:
  std::map<std::string, std::string> Held;
  std::string Read(const std::string& path) override {
    const auto found = Held.find(path);
    if (found == Held.end()) throw RunTimeError(fault::kFileNotFound, path);
    return found->second;
  }
  bool Exists(const std::string& path) override { return Held.contains(path); }
  void Replace(const std::string& path, std::string_view bytes) override { Held[path] = bytes; }
  void Remove(const std::string& path) override { Held.erase(path); }
};

/// Pixels and pages are the toolkit's business.
class NoPictures final : public PictureFiles {
 public:
  std::string Png(const Picture&, int, int) override { return "png"; }
  std::string Pdf(const Picture&) override { return "pdf"; }
};

/// The verbs over one shelf, and what holds after each of them.
class Companion {
 public:
  Shelf Files;

  int Report(const std::string& file, bool table, bool json) {
    Forget();
    ReportRequest request{.Files = {file}, .Json = json, .Extras = {json, json}, .Jobs = 1};
    request.Pattern.Table = table;
    const int code = Checked(RunReport(request, Parts()));
    if (json) PromiseObject();
    return code;
  }
  void Render(const std::string& file, bool table) {
    Forget();
    RenderRequest request{.Files = {file}, .Out = "picture.svg"};
    request.Pattern.Table = table;
    request.Pattern.Apply = {Transform::DeSpike, Transform::Smooth, Transform::Reverse, Transform::Orient};
    NoPictures pictures;
    if (Checked(RunRender(request, Parts(), pictures)) == kAllDone) PromisePicture(Files.Held["picture.svg"]);
  }
  int Convert(const std::string& in, const std::string& out, bool table) {
    Forget();
    return Checked(RunConvert({.In = in, .Out = out, .Table = table}, Parts(), "V1"));
  }

 private:
  CommandParts Parts() { return {Files, output_, complaints_, false}; }
  void Forget() {
    output_.str("");
    complaints_.str("");
  }
  int Checked(int code) {
    Promise(code == kAllDone || code == kSomeFailed || code == kWrongUse, "an exit code is one of three");
    std::istringstream lines(complaints_.str());
    for (std::string line; std::getline(lines, line);) {
      Promise(PrintableText(line) == line, "what is said is printable");
      Promise(line.starts_with("lobegraph-cli: "), "what is said is said by the program");
    }
    Promise(code == kAllDone || !complaints_.str().empty(), "who fails says why");
    return code;
  }
  void PromiseObject() const {
    const std::string text = output_.str();
    Promise(text.ends_with('\n') && text.find('\n') == text.size() - 1, "an object stands on one line");
    const auto object = nlohmann::json::parse(text, nullptr, false);
    Promise(object.is_object(), "a report is an object");
  }
  static void PromisePicture(const std::string& svg) {
    Promise(svg.ends_with("</svg>\n"), "a picture has its end");
    for (const char* nowhere : {"=\"nan", "=\"inf", "=\"-nan", "=\"-inf"})
      Promise(svg.find(nowhere) == std::string::npos, "every point is somewhere");
  }

  std::ostringstream output_, complaints_;
};

/// There and back: what was written is read, and written again it is the same to the byte once levels between
/// the readings (the second copy) have been rounded (the third).
void TryRoundTrip(Companion& companion, const Sample& sample, bool drawn, const PatternFormat& format) {
  const bool columns = format.Columns.value_or(sample.Table);
  if (columns != sample.Table && HasEnding(sample.Name, ".csv")) return;  // one flag serves both names
  const std::string ending(WordsOf(format.Endings).front());
  std::string before = sample.Name, copy;
  for (const char* name : {"first", "second", "third", "fourth"}) {
    copy = name + ending;
    const bool written = companion.Convert(before, copy, columns) == kAllDone;
    if (!written && before == sample.Name) return;
    Promise(written, "what was written is written again");
    Promise(!drawn || companion.Report(copy, columns, false) == kAllDone, "what could be drawn still can");
    std::swap(before, copy);
  }
  Promise(companion.Files.Held[copy] == companion.Files.Held[before], "a copy is like the one before");
}

}  // namespace

void TryCompanion(const Sample& sample) {
  Companion companion;
  companion.Files.Held[sample.Name] = sample.Text;
  const bool drawn = companion.Report(sample.Name, sample.Table, true) == kAllDone;
  companion.Report(sample.Name, sample.Table, false);
  companion.Render(sample.Name, sample.Table);
  for (const PatternFormat& format : PatternFormats())
    if (format.Writes()) TryRoundTrip(companion, sample, drawn, format);
}

}  // namespace lobegraph::fuzz
