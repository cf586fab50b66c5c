#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Environment.hpp"
#include "VemraPlatform/ui/Event.hpp"
#include "VemraPlatform/ui/EventObserver.hpp"
#include "VemraPlatform/ui/Node.hpp"
#include "VemraPlatform/ui/Patch.hpp"
#include "VemraPlatform/ui/WorkCount.hpp"

#include <cstddef>
#include <memory>
#include <vector>

namespace vemra::ui {

/// The tree of nodes that a view describes: the only part that keeps state.
///
///     describe (body) -> reconcile -> diff -> apply (Renderer), and back: deliver(node, event)
///
/// The graph compares a new description with its nodes: a node whose identity is described again
/// stays, with its state; the other nodes are removed with their state. Each change becomes a patch
/// for the renderer. Handlers stay in the graph, which looks them up when an event arrives, so that
/// an event never calls an outdated handler.
///
/// The graph handles one event completely before the next: it runs the action, then describes once
/// every composite whose state has changed, then hands the renderer the patches. Events, roots and
/// row requests that arrive meanwhile are queued; nothing is dropped and nothing recurses.
///
/// Rows of a `ForEach` are described on request. A row that the renderer no longer shows goes to
/// sleep: its nodes are removed, but state that differs from its initial value is saved for the
/// row's return.
///
/// An exception never stops the other work. The call that caused it rethrows the first exception at
/// its end, after all work is done. The effect depends on the code that throws:
/// - an action or a binding's `set`: its writes before the exception stay;
/// - a body or a row's closure: the composite or the row keeps its present content (a new one shows
///   nothing; a row that was to wake up stays asleep, and so does the saved state below a composite
///   in it), and is described again like any other;
/// - any other code that a description calls (a binding's `get`, a strings table, a row's id): the
///   graph removes the whole tree, with its state, and the renderer gets the removal; the next root
///   starts afresh.
///
/// No callback of a graph may destroy the graph; that stops the process. Main thread only.
class VEMRA_EXPORT ViewGraph final {
 public:
  /// The default environment is fixed (en_US, UTC, no translations), for tests and reproducible
  /// output; a host passes `Environment::system()`.
  explicit ViewGraph(Environment environment = {});
  ~ViewGraph();
  ViewGraph(const ViewGraph&) = delete;
  ViewGraph& operator=(const ViewGraph&) = delete;

  /// Shows the tree through `renderer`: it gets insertions for the whole tree and, if it demands
  /// every row, for all rows. The previous renderer gets one `remove` of the root, then no further
  /// patches. Attaching the present renderer again changes nothing. The renderer must outlive the
  /// graph or be detached.
  ///
  /// Describes the tree again, so it throws what a body throws; the renderer stays attached then.
  /// When called from inside a callback, it takes effect when the present event has been handled.
  void attach(Renderer& renderer);
  /// Detaches this renderer: it gets no further patches, not even a `remove` of the root. The tree
  /// stays. Does nothing when another renderer has replaced it.
  void detach(const Renderer& renderer);
  /// Detaches the present renderer, if any.
  void detach();

  /// Describes the whole tree anew. During an event, the root takes effect when the event ends; of
  /// several roots, the last one wins. Throws what a body or a row's closure threw, after all work.
  void setRoot(View root);
  /// Describes the whole tree again in this environment; state is kept. Takes effect and throws
  /// like `setRoot`.
  void setEnvironment(Environment environment);
  /// The environment in which the tree was last described.
  const Environment& environment() const;

  /// Delivers an event to a node. Events for nodes that are gone or disabled do nothing. An event
  /// delivered from inside a callback is queued, and its result is not reported. Throws what the
  /// action or a description threw, after all work.
  Delivery deliver(NodeID node, Event event);

  /// Calls `observer` for each event from now on, after the observers before it, until the returned
  /// object or the graph is destroyed; both destroy the observer. Called by an observer, it begins
  /// with the next event.
  EventObservation observeEvents(EventObserver observer);

  /// Makes exactly these rows of a `ForEach` the shown rows. Ranges may touch, overlap and have any
  /// order; indexes past the end are ignored. Does nothing when the renderer demands every row,
  /// when the list is inside a picker (which always has all its rows), or when the node is not a
  /// `ForEach` or is gone. Throws what a row's closure or a body threw, after all work.
  void showRows(NodeID forEach, std::vector<RowRange> ranges);

  /// Describes one row without showing it (for assistive technology and automation) and returns its
  /// root, or the root of the shown row. No patch reports it. The row's nodes stay until the list
  /// is described again or 64 other rows have been described this way; its state stays longer.
  /// Returns no node when there is no such row, or when an event is being handled and the row has
  /// no nodes yet.
  NodeID peekRow(NodeID forEach, std::size_t index);

  /// The ids of all rows of a `ForEach`, shown or not; nullptr for other nodes. A new object
  /// whenever the list is described again, possibly before the renderer gets the patches.
  std::shared_ptr<const RowIDs> rowIDs(NodeID forEach) const;

  /// The rows of a `ForEach` whose content may differ from their source's description, because they
  /// hold state, asleep or not, that differs from its initial value. Indexes, ascending, each once.
  /// Describes no row.
  std::vector<std::size_t> rowsWithState(NodeID forEach);

  /// The node, or nullptr when it is gone. Valid until the graph gets its next root, event or other
  /// request.
  const Node* find(NodeID node) const;
  /// The root, or nullptr when nothing is shown.
  const Node* root() const;

  /// The properties that a composite reports; empty for other nodes.
  Properties properties(NodeID node) const;

  /// Counters of the graph's work since it was made.
  const WorkCount& work() const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace vemra::ui
