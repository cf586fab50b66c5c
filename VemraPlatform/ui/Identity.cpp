#include "VemraPlatform/ui/Identity.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "VemraPlatform/text/TextMap.hpp"

#include <functional>

namespace vemra::ui {

namespace {

constexpr char kindAddresses[std::variant_size_v<Content>] = {};

const void* typeOf(const Content& content) {
  if (auto* composite = std::get_if<CompositeContent>(&content)) {
    return composite->composite->type();
  }
  return &kindAddresses[content.index()];
}

}  // namespace

bool operator==(const Identity& a, const Identity& b) {
  if (!sameKind(a, b) || a.keyed != b.keyed) return false;
  return a.keyed ? a.occurrence == b.occurrence && text::equal(a.key, b.key) : a.slot == b.slot;
}

std::size_t IdentityHash::operator()(const Identity& identity) const {
  const std::size_t place =
      identity.keyed ? text::hash(identity.key) + identity.occurrence : identity.slot;
  return std::hash<const void*>()(identity.type) ^ std::hash<std::uint64_t>()(identity.branch) ^
         place * 0x9E3779B97F4A7C15U;
}

bool sameKind(const Identity& a, const Identity& b) {
  return a.type == b.type && a.branch == b.branch;
}

Identity identityOf(const View& view, std::size_t slot) {
  const Description& description = view.description();
  Identity identity{typeOf(description.content), description.branch, slot, false, {}, 0};
  if (description.key) {
    identity.keyed = true;
    identity.key = *description.key;
  }
  return identity;
}

std::vector<RowIdentity> rowIdentities(const RowIDs& rows,
                                       const std::vector<std::size_t>& indexes) {
  if (indexes.empty()) return {};
  std::vector<RowIdentity> identities;
  text::TextMap<std::string_view, std::size_t> seen;
  for (std::size_t index : indexes) seen.emplace(rows.key(index), 0);
  auto wanted = indexes.begin();
  for (std::size_t index = 0; index <= indexes.back(); ++index) {
    auto found = seen.find(rows.key(index));
    if (found == seen.end()) continue;
    if (index == *wanted) {
      identities.push_back({rows.key(index), found->second});
      ++wanted;
    }
    ++found->second;
  }
  return identities;
}

std::vector<std::size_t> locateRows(const RowIDs& rows,
                                    const std::vector<RowIdentity>& identities) {
  std::vector<std::size_t> places(identities.size(), absentRow);
  struct Sought {
    std::size_t seen = 0;
    std::vector<std::size_t> positions;  // the positions of the identities with this key
  };
  text::TextMap<std::string_view, Sought> sought;
  for (std::size_t i = 0; i < identities.size(); ++i) {
    sought[identities[i].key].positions.push_back(i);
  }
  std::size_t missing = identities.size();
  const std::size_t count = rows.count();
  for (std::size_t index = 0; index < count && missing > 0; ++index) {
    auto found = sought.find(rows.key(index));
    if (found == sought.end()) continue;
    const std::size_t occurrence = found->second.seen++;
    for (std::size_t position : found->second.positions) {
      if (identities[position].occurrence != occurrence) continue;
      places[position] = index;
      --missing;
    }
  }
  return places;
}

}  // namespace vemra::ui
