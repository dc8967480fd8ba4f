#include "app/parts/MenuTable.h"

#include <array>

namespace lobegraph {
namespace {

using enum Control;

constexpr MenuRow Press(std::string_view menu, Control control, std::string_view keys = "") {
  return {.Menu = menu, .Id = control, .Keys = keys};
}

constexpr MenuRow Between(std::string_view menu) { return {.Menu = menu}; }

constexpr MenuRow Do(std::string_view menu, MenuCommand command, std::string_view caption,
                     std::string_view keys = "") {
  return {.Menu = menu, .Command = command, .Caption = caption, .Keys = keys};
}

constexpr MenuRow Look(std::string_view menu, MenuCommand command, std::string_view caption,
                       std::string_view keys = "") {
  return {.Menu = menu, .Command = command, .Caption = caption, .Keys = keys, .InARun = true};
}

constexpr MenuRow KeysElsewhere(MenuRow row) {
  row.KeysElsewhere = true;
  return row;
}

constexpr std::string_view kFile = "&File";
constexpr std::string_view kEdit = "Edit";
constexpr std::string_view kMeasure = "Measure";
constexpr std::string_view kView = "View";
constexpr std::string_view kSettings = "Settings";
constexpr std::string_view kHelp = "Help";

constexpr auto kTable = std::to_array<MenuRow>({
    Press(kFile, cmdGetData, "Ctrl+O"),
    Press(kFile, cmdOverlay),
    Between(kFile),
    Press(kFile, cmdSaveData, "Ctrl+S"),
    Do(kFile, MenuCommand::SavePicture, "Save picture...", "Ctrl+Shift+E"),
    Press(kFile, cmdPrint, "Ctrl+P"),
    Between(kFile),
    Press(kFile, cmdExit, "Ctrl+Q"),

    KeysElsewhere(Do(kEdit, MenuCommand::Undo, "Undo", "Ctrl+Z")),
    KeysElsewhere(Do(kEdit, MenuCommand::Redo, "Redo", "Ctrl+Shift+Z")),
    Between(kEdit),
    Do(kEdit, MenuCommand::CopyPicture, "Copy picture", "Ctrl+C"),
    Do(kEdit, MenuCommand::CopyFigures, "Copy figures", "Ctrl+Shift+C"),
    Between(kEdit),
    Press(kEdit, cmdRescaleData),
    Press(kEdit, cmdOriginalData),
    Press(kEdit, cmdSmooth),
    Press(kEdit, cmdReverse),
    Press(kEdit, cmdDeSpike),
    Press(kEdit, chkEditor),

    Press(kMeasure, cmdCollectData),
    Press(kMeasure, cmdHaltInput),
    Press(kMeasure, cmdTrigger),
    Between(kMeasure),
    Press(kMeasure, chkAutoStart),
    Press(kMeasure, chkAutoStop),
    Press(kMeasure, chkTrigger),
    Between(kMeasure),
    Press(kMeasure, chkCalibrate),
    Press(kMeasure, cmdChooseInput),

    Look(kView, MenuCommand::Figures, "Figures", "F4"),
    Press(kView, cmdIntegrate),
    Press(kView, cmdPolarization),
    Between(kView),
    Press(kView, cmdLinear),
    Press(kView, cmdLogLin),
    Press(kView, chkPlotInDB),
    Press(kView, chk180),
    Press(kView, chkShow3dB),
    Press(kView, cmdPatternAnalysis),
    Between(kView),
    Look(kView, MenuCommand::FullScreen, "Full screen", "F11"),
    Press(kView, cmdShrink),
    Press(kView, cmdGrow),

    KeysElsewhere(Do(kSettings, MenuCommand::Settings, "Settings...", "Ctrl+,")),
    Do(kSettings, MenuCommand::Operator, "Operator..."),

    KeysElsewhere(Look(kHelp, MenuCommand::Guide, "Guide", "F1")),
    Look(kHelp, MenuCommand::About, "About Lobegraph"),
});

}  // namespace

std::span<const MenuRow> MenuTable() { return kTable; }

}  // namespace lobegraph
