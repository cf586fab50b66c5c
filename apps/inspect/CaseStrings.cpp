#include "apps/inspect/CaseStrings.hpp"

#include "VemraPlatform/text/Equality.hpp"

#include <algorithm>

namespace vemra::inspect {

void CaseStrings::add(std::string key, std::string translation) {
  entries_.push_back({std::move(key), std::move(translation)});
}

std::optional<CaseStrings::Repetition> CaseStrings::putInOrder() {
  order_.reserve(entries_.size());
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    order_.emplace_back(text::hash(entries_[i].key), i);
  }
  std::ranges::sort(order_);
  // Report the first repetition in the document. The order of the hashes differs from run to run,
  // so finding it takes a look at all of them.
  std::size_t repeated = entries_.size();
  std::optional<Repetition> repetition;
  for (std::size_t i = 0; i < order_.size(); ++i) {
    for (std::size_t j = i + 1; j < order_.size() && order_[j].first == order_[i].first; ++j) {
      const std::string& first = entries_[order_[i].second].key;
      const std::string& second = entries_[order_[j].second].key;
      if (!text::equal(first, second)) continue;
      if (order_[j].second < repeated) {
        repeated = order_[j].second;
        repetition = Repetition{first, second};
      }
      break;
    }
  }
  return repetition;
}

std::optional<std::string> CaseStrings::lookup(std::string_view key) const {
  const std::size_t hash = text::hash(key);
  const auto first = std::ranges::lower_bound(order_, std::pair<std::size_t, std::size_t>(hash, 0));
  for (auto place = first; place != order_.end() && place->first == hash; ++place) {
    const Entry& entry = entries_[place->second];
    if (text::equal(entry.key, key)) return entry.translation;
  }
  return std::nullopt;
}

}  // namespace vemra::inspect
