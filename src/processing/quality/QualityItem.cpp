#include "processing/quality/QualityItem.h"

#include <cmath>
#include <utility>

#include "data/base/Numbers.h"

namespace lobegraph {

std::string_view WordOf(Verdict verdict) {
  switch (verdict) {
    case Verdict::Good:
      return "good";
    case Verdict::NotKnown:
      return "not known";
    case Verdict::Doubtful:
      return "doubtful";
    case Verdict::Bad:
      break;
  }
  return "bad";
}

std::string_view NameOf(QualityKind kind) {
  switch (kind) {
    case QualityKind::Clipping:
      return "Clipping";
    case QualityKind::Silence:
      return "Silent readings";
    case QualityKind::Agc:
      return "AGC";
    case QualityKind::Tone:
      return "Tone";
    case QualityKind::Steps:
      return "Steps";
    case QualityKind::Floor:
      return "Floor";
    case QualityKind::Lost:
      return "Lost sound";
    case QualityKind::Key:
      return "Key";
    case QualityKind::Closure:
      return "Closure";
    case QualityKind::Drift:
      return "Drift";
    case QualityKind::Spikes:
      return "Spikes";
    case QualityKind::Late:
      break;
  }
  return "Late readings";
}

QualityItem QualityItem::Judged(std::string value, Verdict found) && {
  Value = std::move(value);
  Found = found;
  return std::move(*this);
}

QualityItem QualityItem::Blamed(std::string value, Verdict found, std::string finding,
                                std::string whatToDo) && {
  Finding = std::move(finding);
  WhatToDo = std::move(whatToDo);
  return std::move(*this).Judged(std::move(value), found);
}

std::string DbText(double value) {
  constexpr double kWholeFromDb = 10.0;
  return FixedText(value, std::abs(value) < kWholeFromDb ? 1 : 0) + " dB";
}

}  // namespace lobegraph
