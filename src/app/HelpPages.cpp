#include "app/HelpPages.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace lobegraph {
namespace {

struct Row {
  std::string_view Window;
  HelpPage Page;
};

// The numbers stand in help/LBGHelp.hhp as well.
constexpr auto kRows = std::to_array<Row>({
    {"Form1", {"window.html", 2}},
    {"frmSettings", {"settings.html", 3}},
    {"frmChooseInput", {"chooser.html", 4}},
    {"frmdBMeter", {"meterwindow.html", 5}},
    {"frmEditLbg", {"editor.html", 6}},
    {"QMessageBox", {"messages.html", 7}},
    {"QFileDialog", {"files.html", 8}},
    {"QColorDialog", {"settings.html", 3}},
    {"QInputDialog", {"first.html", 9}},
    {"QPrintDialog", {"printing.html", 10}},
});

constexpr std::size_t kCodeLength = 6;  // "LBG007"

}  // namespace

HelpPage FirstHelpPage() { return {"index.html", 1}; }

std::optional<HelpPage> HelpPageOf(std::string_view window) {
  const auto* row =
      std::find_if(kRows.begin(), kRows.end(), [&](const Row& r) { return r.Window == window; });
  return row == kRows.end() ? std::nullopt : std::optional(row->Page);
}

std::vector<HelpPage> HelpPages() {
  std::vector<HelpPage> pages = {FirstHelpPage()};
  for (const Row& row : kRows) pages.push_back(row.Page);
  return pages;
}

std::string HelpAnchorOf(std::string_view message) {
  const std::string_view code = message.substr(0, kCodeLength);
  const bool digits = code.size() == kCodeLength && std::all_of(code.begin() + 3, code.end(), [](char c) {
                        return std::isdigit(static_cast<unsigned char>(c)) != 0;
                      });
  return digits && code.starts_with("LBG") ? std::string(code) : "";
}

std::vector<std::string> ViewerCommand(std::string_view desktopFile, const std::string& helpFile,
                                       const HelpPage& page) {
  if (desktopFile == "xchm.desktop") return {"xchm", "-c", std::to_string(page.Context), helpFile};
  if (desktopFile == "kchmviewer.desktop")
    return {"kchmviewer", "-showPage", std::string(page.File), helpFile};
  return {"xdg-open", helpFile};
}

}  // namespace lobegraph
