// The rows that the page asks for.

#include "VemraQt/Page.hpp"

namespace vemra::qt {

page::PinnedRows Page::pinnedRows() const {
  page::PinnedRows pinned;
  pinned.focused = page::rowOf(focusedNode());
  pinned.next = focusKeeper_.row();
  return pinned;
}

bool Page::askForRows() {
  const page::PinnedRows pinned = pinnedRows();
  if (pinned.focused) tree_.find(pinned.focused->id)->focusedAt = ++focusCount_;
  // All requests are found before the first is made: rows that come may bring lists of their own.
  std::vector<page::RowRequest> requests = page::rowRequests(tree_, viewport(), margins_, pinned);
  for (page::RowRequest& request : requests) {
    errors_.attempt([&] { graph_.showRows(request.list, std::move(request.ranges)); });
  }
  return !requests.empty();
}

}  // namespace vemra::qt
