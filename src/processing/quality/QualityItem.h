#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "processing/quality/Arcs.h"

namespace lobegraph {

enum class Verdict { Good, NotKnown, Doubtful, Bad };

/// "good", "not known", "doubtful", "bad".
std::string_view WordOf(Verdict verdict);

/// What a turn is looked at for; the order is that of their weight where several are equally bad.
enum class QualityKind {
  Clipping,
  Silence,
  Agc,
  Tone,
  Steps,
  Floor,
  Lost,
  Key,
  Closure,
  Drift,
  Spikes,
  Late
};

/// "Clipping", "Floor", ...
std::string_view NameOf(QualityKind kind);

/// One thing that a turn says of itself.
struct QualityItem {
  QualityKind Kind = QualityKind::Clipping;
  std::string Value = {};  ///< for people: "nothing clipped", "0.3 dB"
  Verdict Found = Verdict::NotKnown;
  std::string Finding = {};           ///< a sentence for the hint where it is doubtful or bad; else empty
  std::string WhatToDo = {};          ///< a sentence; empty when there is nothing to do
  std::vector<Arc> Arcs = {};         ///< the readings concerned
  std::optional<double> Number = {};  ///< the value for programs: dB, hertz, or how many readings

  /// The item with its value and verdict.
  QualityItem Judged(std::string value, Verdict found) &&;
  /// The same with what is wrong and what to do about it.
  QualityItem Blamed(std::string value, Verdict found, std::string finding, std::string whatToDo) &&;
};

/// "0.3 dB"; whole decibels from 10 on.
std::string DbText(double value);

}  // namespace lobegraph
