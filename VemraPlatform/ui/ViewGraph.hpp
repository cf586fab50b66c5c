#pragma once

#include "VemraPlatform/ui/Environment.hpp"
#include "VemraPlatform/ui/Event.hpp"
#include "VemraPlatform/ui/Node.hpp"
#include "VemraPlatform/ui/NodeTable.hpp"
#include "VemraPlatform/ui/Patch.hpp"

#include <cstdint>
#include <deque>
#include <exception>
#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vemra::ui {

struct SavedState;

/// The rows from `first` up to, but not including, `last`.
struct RowRange {
  std::size_t first = 0;
  std::size_t last = 0;
};

/// What the graph has done so far, counted: the guard against work that nobody sees.
struct WorkCount {
  std::uint64_t bodies = 0;    ///< composites described
  std::uint64_t rows = 0;      ///< rows described
  std::uint64_t nodes = 0;     ///< nodes made
  std::uint64_t patches = 0;   ///< patches handed to the renderer
  std::uint64_t idPasses = 0;  ///< passes over all row ids
};

/// The living tree behind a view: the only part that remembers anything.
///
///     describe (body) -> resolve (here) -> diff -> apply (Renderer), and back: deliver(node,
///     event)
///
/// Resolving holds a new description against the nodes: a node whose identity is described again
/// stays, with its state; one that is not goes, and its state with it. What changed becomes patches
/// for the renderer. Handlers stay here and are looked up when an event arrives, so that an event
/// never meets a stale one.
///
/// An event is handled to its end before the next one: its action runs, then every composite whose
/// state it changed is described once, then the renderer is told. Events, roots and row requests
/// that arrive meanwhile wait their turn; nothing is dropped and nothing recurses.
///
/// Rows of a `ForEach` are described when somebody asks. A row that leaves the renderer's rows goes
/// to sleep: its nodes go, while state that has left its initial value is kept for its return.
///
/// Exceptions never stop the rest, and the first one comes out of the call that led to it, after
/// everything has settled. After one of
/// - an action or a binding's `set`: what it had written until then stays written;
/// - a body or a row's closure: the composite, or the row, goes on showing what it showed before
///   (a new one nothing; a row that was to wake sleeps on, and so does what slept below a composite
///   in it), and is described again like any other;
/// - anything else that a description calls (a binding's `get`, a strings table, a row's id): the
///   whole tree is gone, its state with it, and the renderer is told; the next root starts afresh.
///
/// A graph must not be destroyed by what it calls; that stops the process. Main thread only.
class ViewGraph final : private StateCell::Owner {
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
  const Environment& environment() const { return environment_; }

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

  /// The rows of a `ForEach` that need not look as their source alone describes them: those with
  /// state in them that has left its initial value, asleep or not. By index, ascending, each once.
  /// Asks no row for its description.
  std::vector<std::size_t> rowsWithState(NodeID forEach);

  /// The node, or nullptr when it is gone. Valid until the graph is next told anything.
  const Node* find(NodeID node) const;
  /// The root, or nullptr when nothing is shown.
  const Node* root() const { return root_; }

  /// What a composite tells of itself; empty for other nodes.
  Properties properties(NodeID node) const;

  const WorkCount& work() const { return work_; }

 private:
  struct QueuedEvent {
    NodeID node;
    Event event;
  };
  struct RowRequest {
    NodeID forEach;
    std::vector<RowRange> ranges;
  };
  struct RowPlace {
    std::size_t index = 0;
    Node* node = nullptr;  // none: to be made
    View view;             // absent: to be described
  };
  /// Whether the renderer is told of a change. It never hears of rows that were only looked at.
  enum class Emission { silent, told };
  struct Restoring;
  using WakingRows = std::unordered_map<NodeID, SavedState>;

  void stateChanged(StateCell& cell) override;
  Delivery act(NodeID node, const Event& event) const;
  Delivery actCatching(NodeID node, const Event& event);
  void settle();
  bool somethingWaits() const;
  void runPass();
  void takeUp();
  void changeRenderer();
  void describeDirty();
  void flushPatches();
  void abandonTree();
  void rememberError();

  /// Runs a body or a row's closure. Nil when it threw; the error is remembered.
  template <class Make>
  std::optional<View> describe(const Make& make) {
    const bool outer = std::exchange(describing_, true);
    std::optional<View> view;
    try {
      view = make();
    } catch (...) {
      rememberError();
    }
    describing_ = outer;
    return view;
  }

  // Resolving (ViewGraphResolve.cpp)
  void resolveRoot(const View& root);
  Node& allocate(Node* parent, const View& view, Identity identity);
  void mount(Node& node, NodeID after, Emission emission);
  void update(Node& node, const View& view, Emission emission);
  void resolveContent(Node& node, Emission emission);
  void resolveChildren(Node& parent, std::span<const View> views, Emission emission);
  void describeComposite(Node& node, Emission emission);
  void destroy(Node& node);
  void bury();
  Emission emissionOf(const Node& node) const;
  void recordPatch(Patch::Kind kind, const Node& node, NodeID after, Emission emission);
  void emitInserted(const Node& node, NodeID after);
  Node* mutableNode(NodeID id);

  // Rows (ViewGraphRows.cpp)
  bool demandsEverything(const Node& forEach) const;
  void resolveRows(Node& forEach, Emission emission);
  void placeRows(Node& forEach, std::vector<RowPlace> places, Emission emission);
  void placeFirstRows(Node& forEach, const std::vector<RowPlace>& places, Emission emission);
  void applyRowRequest(const RowRequest& request);
  std::optional<View> describeRow(const Node& forEach, std::size_t index);
  Node& allocateRow(Node& forEach, const RowPlace& place);
  Node& allocateRow(Node& forEach, std::size_t index, const std::optional<View>& view);

  // Rows that sleep and wake (ViewGraphSleep.cpp)
  NodeID lookAt(Node& forEach, std::size_t index);
  void mountRow(Node& row, WakingRows& waking, NodeID after, Emission emission);
  WakingRows wakeRows(Node& forEach, std::vector<Node*> rows);
  void sleepRows(Node& forEach, const std::vector<Node*>& rows);
  void restoreState(Node& node);
  void resolveBody(Node& node, const View& body, Emission emission);
  void keepAsleepBelow(Node& node);
  void forgetLookedAtRows(Node& forEach);

  Environment environment_;
  Renderer* renderer_ = nullptr;
  Renderer* pendingRenderer_ = nullptr;
  NodeID shownRoot_;  // the root that the renderer knows of
  NodeTable<Node> nodes_;
  std::vector<NodeID> gone_;  // of this pass, not freed yet
  std::uint64_t lastID_ = 0;
  Node* root_ = nullptr;
  View rootView_;

  std::vector<Patch> patches_;
  bool rowsReplaced_ = false;
  std::vector<NodeID> dirty_;
  std::optional<View> pendingRoot_;
  std::optional<Environment> pendingEnvironment_;
  std::deque<RowRequest> pendingRows_;
  std::deque<QueuedEvent> pendingEvents_;
  bool busy_ = false;
  bool describing_ = false;
  std::uint64_t pass_ = 0;
  std::exception_ptr error_;        // the first one of what is being handled
  Restoring* restoring_ = nullptr;  // the row that is waking
  WorkCount work_;
};

}  // namespace vemra::ui
