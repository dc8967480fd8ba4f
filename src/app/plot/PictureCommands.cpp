#include "app/plot/PictureCommands.h"

#include <array>

namespace lobegraph {
namespace {

constexpr std::array<PictureKind, 5> kKinds = {{{"PNG picture", ".png", 1},
                                                {"PNG picture, 2 times as fine", ".png", 2},
                                                {"PNG picture, 4 times as fine", ".png", 4},
                                                {"SVG drawing", ".svg", 0},
                                                {"PDF page", ".pdf", 0}}};

/// As the file dialogs take it.
std::string Filter() {
  std::string filter;
  for (const PictureKind& kind : kKinds) {
    const std::string ending(kind.Ending);
    filter += (filter.empty() ? "" : "|") + std::string(kind.Name) + " (*" + ending + ")|*" + ending;
  }
  return filter;
}

std::string OfferedName(const ReadingsRecord& record) {
  const std::string& file = record.FileName;
  const std::string stem = file.substr(0, file.find_last_of('.'));
  return (stem.empty() ? "pattern" : stem) + std::string(kKinds[0].Ending);
}

/// The kind that the ending of a typed name asks for, or else the one that was chosen.
const PictureKind& KindOf(const ChosenFile& chosen) {
  const PictureKind& picked = kKinds.at(chosen.Kind < kKinds.size() ? chosen.Kind : 0);
  if (chosen.Path.ends_with(picked.Ending)) return picked;
  for (const PictureKind& kind : kKinds)
    if (chosen.Path.ends_with(kind.Ending)) return kind;
  return picked;
}

}  // namespace

std::span<const PictureKind> PictureKinds() { return kKinds; }

bool PictureCommands::Ready() const {
  if (files_ != nullptr && !board_.Shown().Patterns.empty()) return true;
  parts_.View.SetText(Control::lblHint, "There is no pattern to make a picture of.");
  return false;
}

void PictureCommands::Save() {
  if (!Ready()) return;
  const std::string offered = parts_.Shared.WorkingFolder + OfferedName(parts_.Pattern.Record());
  const auto chosen = parts_.Dialogs.SavePicture(offered, Filter());
  if (!chosen || chosen->Path.empty()) return;
  const PictureKind& kind = KindOf(*chosen);
  const std::string path = WithEnding(chosen->Path, std::string(kind.Ending));
  Guarded(parts_.Dialogs, "SavePicture", [&] { Write(path, kind); });
}

void PictureCommands::Write(const std::string& path, const PictureKind& kind) {
  if (parts_.Files.Exists(path) &&
      !parts_.Dialogs.AskYesNo("LBG004 Filename " + parts_.System.UpperCase(FileNameOf(path)) +
                               " already exists\r\nDo you wish to replace it?"))
    return;
  parts_.Files.Replace(path, BytesOf(kind));
  parts_.View.SetText(Control::lblHint, "Picture saved in " + path);
}

std::string PictureCommands::BytesOf(const PictureKind& kind) const {
  const Picture picture = board_.Shown();
  if (kind.PixelsPerUnit > 0)
    return files_->Png(picture, kPictureWidth * kind.PixelsPerUnit,
                       PictureHeightOf(picture.Patterns.size()) * kind.PixelsPerUnit);
  return kind.Ending == ".svg" ? SvgOf(picture) : files_->Pdf(picture);
}

}  // namespace lobegraph
