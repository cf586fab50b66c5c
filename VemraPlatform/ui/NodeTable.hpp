#pragma once

#include "VemraPlatform/ui/NodeID.hpp"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>

namespace vemra::ui {

/// Maps node ids to values. A value's address stays the same until the value is erased.
///
/// The graph numbers its nodes consecutively, so the nodes of a row and of neighbouring rows have
/// neighbouring numbers and share a page. A tree of thousands of nodes takes a fraction of the
/// allocations and cache misses of a hash table. A page is freed together with its last value.
///
/// A value's destructor may look up other values, but does not find its own. It must neither insert
/// nor erase a value, because that could free its own page too early. Not thread-safe.
template <class Value>
class NodeTable {
 public:
  /// The value, or nullptr when the node has none.
  Value* find(NodeID id) {
    const auto page = pages_.find(id.value / pageSize);
    if (page == pages_.end() || !(page->second->used & bitOf(id))) return nullptr;
    return &page->second->places[id.value % pageSize].value;
  }
  const Value* find(NodeID id) const { return const_cast<NodeTable*>(this)->find(id); }

  /// Inserts a value. The node must not have one. When memory runs out, the table stays unchanged.
  Value& insert(NodeID id, Value value) {
    const std::uint64_t number = id.value / pageSize;
    auto found = pages_.find(number);
    // Make the page first: if memory for it runs out, `pages_` stays unchanged.
    if (found == pages_.end()) {
      found = pages_.emplace(number, std::make_unique_for_overwrite<Page>()).first;
    }
    Page& page = *found->second;
    Value& made = *std::construct_at(&page.places[id.value % pageSize].value, std::move(value));
    page.used |= bitOf(id);
    return made;
  }

  /// Destroys the node's value; does nothing when it has none.
  void erase(NodeID id) {
    Value* const value = find(id);
    if (!value) return;
    const std::uint64_t number = id.value / pageSize;
    pages_.at(number)->used &= ~bitOf(id);
    std::destroy_at(value);
    if (const auto page = pages_.find(number); page->second->used == 0) pages_.erase(page);
  }

  /// The number of nodes with a value. Takes one step for each page.
  std::size_t size() const {
    std::size_t size = 0;
    for (const auto& [number, page] : pages_)
      size += static_cast<std::size_t>(std::popcount(page->used));
    return size;
  }

  /// Calls `visit` with every value, in no particular order. It must not change the table.
  template <class Visit>
  void forEach(const Visit& visit) {
    for (auto& [number, page] : pages_) {
      for (std::uint32_t left = page->used; left != 0; left &= left - 1) {
        visit(page->places[std::countr_zero(left)].value);
      }
    }
  }

 private:
  static constexpr std::uint64_t pageSize = 32;

  union Place {
    Place() {}
    ~Place() {}
    Value value;
  };
  struct Page {
    Page() = default;
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;
    ~Page() {
      while (used != 0) {
        const int place = std::countr_zero(used);
        used &= used - 1;
        std::destroy_at(&places[place].value);
      }
    }
    std::uint32_t used = 0;  ///< one bit for every place with a value
    Place places[pageSize];
  };

  static std::uint32_t bitOf(NodeID id) { return std::uint32_t{1} << (id.value % pageSize); }

  std::unordered_map<std::uint64_t, std::unique_ptr<Page>> pages_;
};

}  // namespace vemra::ui
