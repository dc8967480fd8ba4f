#pragma once

#include <QString>
#include <QStringList>
#include <map>
#include <string>

namespace lobegraph {

/// The family itself, or for Arial all the free ones of the same metrics as well, the best first.
QStringList FamiliesFor(const QString& name);

/// Which installed family stands for a typeface name. Asking the system is slow, so each name is asked for
/// once.
class FontFaces {
 public:
  /// @param defaultName always found: the family of the application's font.
  explicit FontFaces(const QString& defaultName);

  /// The family itself, or for Arial a free one of the same metrics.
  /// @throws RunTimeError 5 (Invalid procedure call or argument) when the system has none of them.
  const QString& FamilyFor(const std::string& name);

 private:
  std::map<std::string, QString> known_;
};

}  // namespace lobegraph
