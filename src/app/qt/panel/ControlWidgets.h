#pragma once

#include <QFont>
#include <QWidget>

#include "app/parts/Controls.h"

namespace lobegraph {

/// Makes the widget of a row of the control table: object name, caption, tooltip, accessible name. It lives
/// in its parent.
QWidget* MakeWidget(const ControlRow& row, QWidget& parent);

/// Whether the row's caption, or the widest text that it shows later, fits into a width in a font.
bool CaptionFits(const ControlRow& row, const QFont& font, int width);

}  // namespace lobegraph
