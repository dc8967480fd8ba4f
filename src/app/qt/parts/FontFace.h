#pragma once

#include <QFont>
#include <QString>
#include <QWidget>
#include <functional>

namespace lobegraph {

/// The face of the desktop's menu font; what the user reads everywhere else is easiest to read here.
QString MenuFontFace();

/// Gives every control of a window the face; sizes are the window's own.
void ApplyFace(QWidget& form, const QString& face);

/// How much larger the desktop's menu font is than the usual one of 9 points at 96 dots to the inch; 1 for a
/// smaller one. Widths that were made for the usual font are multiplied by it.
qreal FontFactor();

/// The largest size in pixels at which everything fits its place in the given face: that of the desktop's
/// menu font, or as much smaller as a wide face needs, down to two thirds of it.
/// @param fits tells whether all texts fit in a font
int LargestFittingSize(const QString& face, const std::function<bool(const QFont&)>& fits);

}  // namespace lobegraph
