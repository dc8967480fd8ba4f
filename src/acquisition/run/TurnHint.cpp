#include "acquisition/run/TurnHint.h"

#include <algorithm>
#include <utility>

namespace lobegraph {

void TurnHint::Add(RemarkRank rank, std::string text) {
  TurnRemark remark{rank, std::move(text)};
  if (remark.Text.empty() || std::find(remarks_.begin(), remarks_.end(), remark) != remarks_.end()) return;
  const auto place =
      std::upper_bound(remarks_.begin(), remarks_.end(), remark,
                       [](const TurnRemark& a, const TurnRemark& b) { return a.Rank < b.Rank; });
  remarks_.insert(place, std::move(remark));
}

std::string TurnHint::Shown() const { return remarks_.empty() ? "" : remarks_.front().Text; }

std::string TurnHint::Spoken() const {
  std::string all;
  for (const TurnRemark& remark : remarks_) all += (all.empty() ? "" : " ") + remark.Text;
  return all;
}

}  // namespace lobegraph
