#include "app/help/HelpPages.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace lobegraph {
namespace {

struct Row {
  std::string_view Window;
  std::string_view Page;
};

constexpr auto kRows = std::to_array<Row>({
    {"Form1", "window.html"},
    {"frmSettings", "settings.html"},
    {"frmChooseInput", "chooser.html"},
    {"frmdBMeter", "meterwindow.html"},
    {"frmEditLbg", "editor.html"},
    {"QMessageBox", "messages.html"},
    {"QFileDialog", "files.html"},
    {"QColorDialog", "settings.html"},
    {"QInputDialog", "first.html"},
    {"QPrintDialog", "printing.html"},
});

constexpr std::size_t kCodeLength = 6;  // "LBG007"

}  // namespace

std::optional<std::string_view> HelpPageOf(std::string_view window) {
  const auto* row =
      std::find_if(kRows.begin(), kRows.end(), [&](const Row& r) { return r.Window == window; });
  return row == kRows.end() ? std::nullopt : std::optional(row->Page);
}

std::vector<std::string_view> HelpPages() {
  std::vector<std::string_view> pages = {kFirstHelpPage};
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
                                       std::string_view page) {
  if (desktopFile != "kchmviewer.desktop") return {};
  return {"kchmviewer", "-showPage", std::string(page), helpFile};
}

}  // namespace lobegraph
