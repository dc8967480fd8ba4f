#include "cli/RenderCommand.h"

#include <filesystem>
#include <map>
#include <utility>

#include "cli/ColoursFile.h"
#include "cli/Progress.h"

namespace lobegraph {
namespace {

constexpr const char* kPng = ".png";
constexpr const char* kSvg = ".svg";
constexpr const char* kPdf = ".pdf";

bool EndsWith(const std::string& path, const char* ending) { return WithEnding(path, ending) == path; }

bool KnownPicture(const std::string& path) {
  return EndsWith(path, kPng) || EndsWith(path, kSvg) || EndsWith(path, kPdf);
}

/// "pictures/{}.png" and "field/beam.lbg" make "pictures/beam.png".
std::string OutputFor(std::string out, const std::string& file) {
  const std::string name = std::filesystem::path(FileNameOf(file)).stem().string();
  for (auto at = out.find("{}"); at != std::string::npos; at = out.find("{}", at + name.size()))
    out.replace(at, 2, name);
  return out;
}

/// One picture after the other.
class Renderer {
 public:
  Renderer(const RenderRequest& request, const CommandParts& parts, PictureFiles& pictures,
           const PlotColours& colours)
      : request_(request), parts_(parts), pictures_(pictures), colours_(colours) {}

  bool Render(const std::string& file) {
    Picture picture{request_.Pattern.Style, {}, colours_, request_.Title};
    if (!Add(picture, file, request_.Pattern)) return false;
    bool allDrawn = true;
    for (const std::string& overlay : request_.Overlays) allDrawn = AddOver(picture, overlay) && allDrawn;
    const std::string out = OutputFor(request_.Out, file);
    try {
      parts_.Files.Replace(out, BytesOf(picture, out));
    } catch (const RunTimeError& error) {
      parts_.Complaints << ComplaintAbout(out, error);
      return false;
    }
    return allDrawn;
  }

 private:
  bool AddOver(Picture& picture, const std::string& file) {
    PatternOptions options = request_.Pattern;
    options.Rotate.reset();
    options.TrimFront.reset();
    options.TrimEnd.reset();
    return Add(picture, file, options, picture.Style.ScaleSetting);
  }

  bool Add(Picture& picture, const std::string& file, const PatternOptions& options,
           std::optional<int> scale = std::nullopt) {
    const OpenedPattern pattern = OpenPattern(parts_.Files, file, options, scale);
    if (const auto& error = pattern.Error())
      parts_.Complaints << ComplaintAbout(file, *error);
    else
      for (const std::string& message : pattern.Messages) parts_.Complaints << ComplaintAbout(file, message);
    const PatternSession& session = pattern.Session;
    if (!pattern.Error() && pattern.Messages.empty() && session.Plot().Trace.empty())
      parts_.Complaints << ComplaintAbout(file, "no reading is there to draw");
    if (pattern.Error() || session.Plot().Trace.empty()) return false;
    if (picture.Patterns.empty()) picture.Style = session.Style();
    picture.Patterns.push_back({session.Plot(), LegendName(session.Record())});
    return true;
  }

  std::string BytesOf(const Picture& picture, const std::string& out) {
    if (EndsWith(out, kSvg)) return SvgOf(picture);
    if (EndsWith(out, kPdf)) return pictures_.Pdf(picture);
    return pictures_.Png(picture, request_.Width, request_.Height);
  }

  const RenderRequest& request_;
  const CommandParts& parts_;
  PictureFiles& pictures_;
  PlotColours colours_;
};

/// What stands in the way of the pictures that are to be made; empty: nothing. Before the first is written.
std::string Collision(const RenderRequest& request, FileAccess& files) {
  if (request.Out.find("{}") == std::string::npos) return "";
  std::map<std::string, std::string> sources;
  for (const std::string& file : request.Files) {
    const std::string out = OutputFor(request.Out, file);
    const auto [place, isNew] = sources.emplace(out, file);
    if (!isNew) return ComplaintAbout(out, "would be the picture of " + place->second + " and of " + file);
    if (!request.Force && files.Exists(out))
      return ComplaintAbout(out, "is there already; --force replaces it and any other");
  }
  return "";
}

}  // namespace

int RunRender(const RenderRequest& request, const CommandParts& parts, PictureFiles& pictures) {
  if (!KnownPicture(request.Out)) {
    parts.Complaints << ComplaintAbout(request.Out, "a picture's name ends in .png, .svg or .pdf");
    return kWrongUse;
  }
  if (const std::string collision = Collision(request, parts.Files); !collision.empty()) {
    parts.Complaints << collision;
    return kWrongUse;
  }
  PlotColours colours = DefaultColours();
  try {
    if (!request.ColoursFile.empty()) colours = ReadColours(parts.Files.Read(request.ColoursFile));
  } catch (const RunTimeError& error) {
    parts.Complaints << ComplaintAbout(request.ColoursFile, error);
    return kWrongUse;
  }
  Renderer renderer(request, parts, pictures, colours);
  Progress progress(parts.Complaints, parts.OnTerminal, request.Files.size());
  bool allDone = true;
  for (std::size_t index = 0; index < request.Files.size(); ++index) {
    allDone = renderer.Render(request.Files[index]) && allDone;
    progress.Show(index + 1);
  }
  return allDone ? kAllDone : kSomeFailed;
}

}  // namespace lobegraph
