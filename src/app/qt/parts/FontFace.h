#pragma once

#include <QFont>
#include <QString>
#include <QWidget>
#include <functional>

namespace lobegraph {

/// The face of the desktop's menu font; what the user reads everywhere else is easiest to read here.
QString MenuFontFace();

/// Gives every control of a window the face; sizes are the window's own, because its controls have fixed
/// places.
void ApplyFace(QWidget& form, const QString& face);

/// The largest size in pixels, kSmallest to kLargest, at which everything fits its place in the given face.
/// @param fits tells whether all texts fit in a font
int LargestFittingSize(const QString& face, const std::function<bool(const QFont&)>& fits);

}  // namespace lobegraph
