#include "render/qt/FontFaces.h"

#include <QFontDatabase>
#include <algorithm>

#include "data/base/RunTimeError.h"

namespace lobegraph {

QStringList FamiliesFor(const QString& name) {
  if (name != QLatin1String("Arial")) return {name};
  return {name,        "Liberation Sans", "Arimo", "Nimbus Sans", "Nimbus Sans L", "TeX Gyre Heros",
          "Helvetica", "FreeSans"};
}

FontFaces::FontFaces(const QString& defaultName) { known_.emplace(defaultName.toStdString(), defaultName); }

const QString& FontFaces::FamilyFor(const std::string& name) {
  const auto known = known_.find(name);
  if (known != known_.end()) return known->second;
  const QStringList candidates = FamiliesFor(QString::fromStdString(name));
  const auto found = std::find_if(candidates.begin(), candidates.end(),
                                  [](const QString& family) { return QFontDatabase::hasFamily(family); });
  if (found == candidates.end()) throw RunTimeError(fault::kInvalidProcedureCall, "no typeface " + name);
  return known_.emplace(name, *found).first->second;
}

}  // namespace lobegraph
