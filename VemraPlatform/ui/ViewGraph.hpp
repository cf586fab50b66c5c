#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Environment.hpp"
#include "VemraPlatform/ui/Event.hpp"
#include "VemraPlatform/ui/Node.hpp"
#include "VemraPlatform/ui/Patch.hpp"
#include "VemraPlatform/ui/WorkCount.hpp"

#include <cstddef>
#include <memory>
#include <vector>

namespace vemra::ui {

/// The living tree behind a view: the only part that remembers anything.
///
///     describe (body) -> reconcile -> diff -> apply (Renderer), and back: deliver(node, event)
///
/// Reconciling compares a new description with the nodes: a node whose identity is described again
/// stays, with its state; one that is not goes, and its state with it. Each change becomes a patch
/// for the renderer. Handlers stay here and are looked up when an event arrives, so that an event
/// never meets a stale one.
///
/// An event is handled to its end before the next one: its action runs, then every composite whose
/// state it changed is described once, then the renderer gets the patches. Events, roots and row
/// requests that arrive meanwhile wait their turn; nothing is dropped and nothing recurses.
///
/// Rows of a `ForEach` are described on request. A row that leaves the renderer's rows goes to sleep:
/// its nodes go, while state that has left its initial value is kept for its return.
///
/// Exceptions never stop the rest, and the first one comes out of the call that led to it, after
/// everything has settled. After one of
/// - an action or a binding's `set`: what it had written until then stays written;
/// - a body or a row's closure: the composite, or the row, goes on showing what it showed before
///   (a new one nothing; a row that was to wake sleeps on, and so does what slept below a composite
///   in it), and is described again like any other;
/// - anything else that a description calls (a binding's `get`, a strings table, a row's id): the
///   whole tree is removed, its state with it, from the renderer too; the next root starts afresh.
///
/// A graph must not be destroyed by what it calls; that stops the process. Main thread only.
class VEMRA_EXPORT ViewGraph final {
 public:
  /// The default environment is fixed (en_US, UTC, no translations), for tests and reproducible
  /// output; a host hands in `Environment::system()`.
  explicit ViewGraph(Environment environment = {});
  ~ViewGraph();
  ViewGraph(const ViewGraph&) = delete;
  ViewGraph& operator=(const ViewGraph&) = delete;

  /// Shows the tree through `renderer`: it gets the whole tree as insertions and, when it wants
  /// every row, the rows too. Another one that showed it is told that its tree is gone and hears
  /// nothing more; attaching the one that shows it already changes nothing. It must outlive the
  /// graph or be detached.
  void attach(Renderer& renderer);
  /// Tells this renderer nothing more, not even that the tree is gone. The tree stays. Does nothing
  /// to another one that has taken its place.
  void detach(const Renderer& renderer);
  /// The same for whichever renderer there is.
  void detach();

  /// Describes the whole tree anew. From inside an event the root is taken up when the event ends;
  /// of several, the last one.
  void setRoot(View root);
  void setEnvironment(Environment environment);
  const Environment& environment() const;

  /// Hands an event to a node. Events for nodes that are gone or disabled do nothing. One from
  /// inside a callback is queued, and what becomes of it is not told.
  Delivery deliver(NodeID node, Event event);

  /// Makes exactly these rows of a `ForEach` the shown ones. Ranges may touch, overlap and stand in
  /// any order; what lies past the end is ignored. Does nothing for a renderer of every row, or
  /// when the node is not a `ForEach` (any more).
  void showRows(NodeID forEach, std::vector<RowRange> ranges);

  /// Describes one row without showing it (for assistive technology and automation) and returns its
  /// root, or the shown row's. No patch speaks of it. It stays until the list is described again or
  /// 64 other rows have been looked at; its state stays longer. None when there is no such row, or
  /// while an event is being handled and the row is not there yet.
  NodeID lookAtRow(NodeID forEach, std::size_t index);

  /// The ids of all rows of a `ForEach`, shown or not; nullptr for other nodes. Another object as soon
  /// as the list is described anew, which may be before the renderer has the patches.
  std::shared_ptr<const RowIDs> rowIDs(NodeID forEach) const;

  /// The rows of a `ForEach` that need not look as their source alone describes them: those with
  /// state in them that has left its initial value, asleep or not. By index, ascending, each once.
  /// Asks no row for its description.
  std::vector<std::size_t> rowsWithState(NodeID forEach);

  /// The node, or nullptr when it is gone. Valid until the graph is next told anything.
  const Node* find(NodeID node) const;
  /// The root, or nullptr when nothing is shown.
  const Node* root() const;

  /// What a composite tells of itself; empty for other nodes.
  Properties properties(NodeID node) const;

  const WorkCount& work() const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace vemra::ui
