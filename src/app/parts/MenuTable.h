#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "app/parts/Controls.h"

namespace lobegraph {

/// What the menu does beside pressing the window's own controls.
enum class MenuCommand {
  None,
  Undo,
  Redo,
  CopyPicture,
  CopyFigures,
  SavePicture,
  Figures,
  FullScreen,
  Settings,
  Operator,
  Guide,
  About
};

/// One entry of a menu: a control of the window, or a command that has none. An entry with neither is a line
/// between two groups.
struct MenuRow {
  std::string_view Menu = {};
  std::optional<Control> Id = {};
  MenuCommand Command = MenuCommand::None;
  std::string_view Caption = {};  ///< of a command; a control brings its own
  std::string_view Keys = {};     ///< "Ctrl+O"; empty for none
  /// The keys belong to another part of the window, which has rules of its own for them; here they are only
  /// shown.
  bool KeysElsewhere = false;
  /// The command only shows something, so a run leaves it.
  bool InARun = false;
};

/// From left to right and top to bottom. Everything that the panel offers is there, so that it is in reach
/// while the panel is hidden. No caption takes a letter that a button of the panel has.
std::span<const MenuRow> MenuTable();

}  // namespace lobegraph
