#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lobegraph {

/// The compiled guide, in the program's folder.
inline constexpr const char* kHelpFileName = "LBGHelp.chm";

/// The page to which nothing more fitting is known.
inline constexpr std::string_view kFirstHelpPage = "index.html";

/// The page about a window, by its name in the program, or about a box of the desktop, by its kind
/// ("QFileDialog"). None for a window without a page.
std::optional<std::string_view> HelpPageOf(std::string_view window);

/// Every page that a window opens.
std::vector<std::string_view> HelpPages();

/// Where the messages page tells about a message: the code in front of it, or nothing.
std::string HelpAnchorOf(std::string_view message);

/// The command that opens the compiled guide at a page. @param desktopFile the desktop's viewer,
/// "kchmviewer.desktop" @return empty: that viewer cannot be told a page, so it is as good as none
std::vector<std::string> ViewerCommand(std::string_view desktopFile, const std::string& helpFile,
                                       std::string_view page);

}  // namespace lobegraph
