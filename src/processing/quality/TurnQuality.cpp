#include "processing/quality/TurnQuality.h"

#include <algorithm>
#include <cmath>

#include "processing/quality/LevelChecks.h"
#include "processing/quality/SoundChecks.h"
#include "processing/quality/SourceChecks.h"

namespace lobegraph {
namespace {

void Join(std::string& text, const std::string& part) {
  if (!text.empty()) text += "; ";
  text += part;
}

/// What is good of a turn in which nothing is wrong.
std::string Praise(const TurnQuality& quality) {
  std::string text;
  const QualityItem& closure = quality.ItemOf(QualityKind::Closure);
  if (closure.Found == Verdict::Good)
    Join(text, "The turn closes within " + DbText(std::abs(*closure.Number)));
  const QualityItem& floor = quality.ItemOf(QualityKind::Floor);
  if (floor.Found == Verdict::Good) Join(text, (text.empty() ? "Floor " : "floor ") + DbText(*floor.Number));
  const QualityItem& clipping = quality.ItemOf(QualityKind::Clipping);
  if (clipping.Found == Verdict::Good) Join(text, text.empty() ? "Nothing clipped" : "nothing clipped");
  return text.empty() ? text : text + ".";
}

}  // namespace

const QualityItem& TurnQuality::ItemOf(QualityKind kind) const {
  return *std::ranges::find(Items, kind, &QualityItem::Kind);
}

const QualityItem* TurnQuality::Worst() const {
  const auto worst = std::ranges::max_element(Items, {}, &QualityItem::Found);
  return worst == Items.end() || worst->Found <= Verdict::NotKnown ? nullptr : &*worst;
}

std::string TurnQuality::Sentence() const {
  const QualityItem* worst = Worst();
  return worst == nullptr ? Praise(*this) : worst->Finding + " " + worst->WhatToDo;
}

std::string TurnQuality::Text() const {
  std::string text;
  for (const QualityItem& item : Items) {
    text += std::string(NameOf(item.Kind)) + ": " + item.Value + " (" + std::string(WordOf(item.Found)) + ")";
    if (!item.WhatToDo.empty()) text += ". " + item.WhatToDo;
    text += "\n";
  }
  return text;
}

TurnQuality QualityOf(const TurnReadings& turn) {
  return {{CheckClipping(turn), CheckSilence(turn), CheckAgc(turn), CheckTone(turn), CheckSteps(turn),
           CheckFloor(turn), CheckLost(turn), CheckKey(turn), CheckClosure(turn), CheckDrift(turn),
           CheckSpikes(turn), CheckLate(turn)}};
}

}  // namespace lobegraph
