#pragma once

#include <optional>
#include <span>
#include <vector>

#include "app/parts/Controls.h"

namespace lobegraph {

/// A control in a row of the panel. Controls that stand below each other have the same share.
struct PanelCell {
  std::optional<Control> Id;  ///< none: nothing stands there
  int Share = 1;              ///< of the row's width
};

using PanelRow = std::vector<PanelCell>;
using PanelGroup = std::vector<PanelRow>;

/// The panel from top to bottom, in the order in which a person works: input, collect, plot, readings,
/// figures, file.
std::span<const PanelGroup> PanelGroups();

/// Between two cells, between the panel's edge and them, between two rows, and between two groups in which a
/// line stands: pixels at the usual font.
inline constexpr int kCellGap = 4;
inline constexpr int kPanelMargin = 8;
inline constexpr int kRowGap = 3;
inline constexpr int kGroupGap = 6;

/// What a control of the panel has for itself in a panel of a width; 0 for one that stands elsewhere.
int CellWidth(Control control, int panelWidth);

}  // namespace lobegraph
