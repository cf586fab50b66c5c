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
  for (std::size_t i = 0; i < order_.size(); ++i) {
    for (std::size_t j = i + 1; j < order_.size() && order_[j].first == order_[i].first; ++j) {
      const std::string& first = entries_[order_[i].second].key;
      const std::string& second = entries_[order_[j].second].key;
      if (text::equal(first, second)) return Repetition{first, second};
    }
  }
  return std::nullopt;
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
