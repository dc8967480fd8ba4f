#include "app/print/PrintCommands.h"

#include <filesystem>

namespace lobegraph {

void PrintCommands::cmdPrint_Click() {
  if (parts_.Printer == nullptr) return;
  const std::int16_t result = Printer().ShowDialog();
  if (result == kPrintConfirmed) return PrintCopies();
  if (result != kPrintCancelled)
    parts_.Dialogs.ShowText("LBG999 Print request returned extended error code " + std::to_string(result) +
                            "\r\nPlease note this number and call for support");
}

void PrintCommands::PrintCopies() {
  const int copies = Printer().CopyCount();
  Printer().SetCopyCount(1);
  if (!MayReplace(copies)) return;
  for (int number = 1; number <= copies; ++number)
    if (!Print({.Number = number, .Of = copies})) return;
  if (copies < 1) return;
  const std::string printed = copies == 1 ? "Printed to " : std::to_string(copies) + " copies printed to ";
  parts_.View.SetText(Control::lblHint, printed + Printer().Destination());
}

bool PrintCommands::MayReplace(int copies) {
  int there = 0;
  std::string first;
  for (int number = 1; copies > 1 && number <= copies; ++number) {
    const std::string file = Printer().FileOf({.Number = number, .Of = copies});
    if (file.empty() || !parts_.Files.Exists(file)) continue;
    if (there++ == 0) first = FileNameOf(file);
  }
  return there == 0 || parts_.Dialogs.AskYesNo(first + " already exists (" + std::to_string(there) + " of " +
                                               std::to_string(copies) +
                                               " copies)\r\nDo you wish to replace what is there?");
}

bool PrintCommands::Print(const PrintCopy& copy) {
  const Extent picture = Printer().CaptureWindow();
  int fault = 0;
  try {
    Printer().PaintPicture(FitToPage(picture, Printer().ScaleArea()), copy);
    Printer().EndDoc();
  } catch (const RunTimeError& error) {
    fault = error.Number();
    if (!error.Detail().empty()) std::cerr << "lobegraph: " << error.what() << '\n';
  }
  Printer().ClearPicture();
  if (fault != 0)
    parts_.Dialogs.ShowText("LBG014 Printing error not presently handled, Code=" + std::to_string(fault));
  return fault == 0;
}

std::string CopyFileName(const std::string& chosen, const PrintCopy& copy) {
  if (copy.Of <= 1) return chosen;
  std::filesystem::path path(chosen);
  const std::string ending = path.extension().string();
  const std::string stem = path.stem().string();
  return path.replace_filename(stem + "-" + std::to_string(copy.Number) + ending).string();
}

}  // namespace lobegraph
