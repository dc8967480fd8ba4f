#pragma once

#include <string>
#include <vector>

namespace lobegraph {

/// What a remark after a turn is about, the most urgent first.
enum class RemarkRank {
  DataInDanger,  ///< nothing but this program holds the readings
  SourceLost,    ///< the readings end, or stop being true, where the source broke off
  Silent,        ///< readings without a fresh value, or nothing heard at all
  Late,          ///< readings whose time was not theirs: the program was held up, or suspended
  Part,          ///< the turn is no whole one
  Quality,       ///< how far the readings can be trusted
  NextStep,      ///< what to do now
};

/// One sentence (or two) of what can be said after a turn.
struct TurnRemark {
  RemarkRank Rank = RemarkRank::NextStep;
  std::string Text;
  bool operator==(const TurnRemark&) const = default;
};

/// Takes what each room has to say and ranks it: what loses data before what makes the readings false, before
/// what they are worth, before the next step. Of one rank the first that was told comes first; what was told
/// twice stands once.
class TurnHint {
 public:
  /// An empty text says nothing.
  void Add(RemarkRank rank, std::string text);

  /// What the window shows: the most urgent remark; empty when there is none.
  std::string Shown() const;
  /// All of them, the most urgent first: for the log.
  const std::vector<TurnRemark>& All() const { return remarks_; }
  /// All of them in one line, with blanks between: for those who hear the window.
  std::string Spoken() const;

 private:
  std::vector<TurnRemark> remarks_;
};

}  // namespace lobegraph
