#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lobegraph {

/// The compiled guide, in the program's folder.
inline constexpr const char* kHelpFileName = "LBGHelp.chm";

/// A page of the guide. @var Context its number in the compiled guide, for viewers that want one
struct HelpPage {
  std::string_view File;
  int Context;

  bool operator==(const HelpPage&) const = default;
};

/// The page to which nothing more fitting is known.
HelpPage FirstHelpPage();

/// The page about a window, by its name in the program, or about a box of the desktop, by its kind
/// ("QFileDialog"). None for a window without a page.
std::optional<HelpPage> HelpPageOf(std::string_view window);

/// Every page that a window opens.
std::vector<HelpPage> HelpPages();

/// Where the messages page tells about a message: the code in front of it, or nothing.
std::string HelpAnchorOf(std::string_view message);

/// The command that opens the guide at a page. @param desktopFile the desktop's viewer, "xchm.desktop"; with
/// one that cannot be told a page the guide opens at its front
std::vector<std::string> ViewerCommand(std::string_view desktopFile, const std::string& helpFile,
                                       const HelpPage& page);

}  // namespace lobegraph
