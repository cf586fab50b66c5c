#pragma once

#include "VemraPlatform/ui/ViewGraph.hpp"
#include "VemraQt/accessibility/ElementSlot.hpp"
#include "VemraQt/accessibility/RowIdentifiers.hpp"
#include "VemraQt/atspi/ChildSignals.hpp"
#include "VemraQt/atspi/IdentifierBus.hpp"
#include "VemraQt/page/PageObserver.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include <QAccessible>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QTimer>

class QAbstractScrollArea;

namespace vemra::page {
struct Node;
}  // namespace vemra::page

namespace vemra::qt {

class AccessibleElement;
class AccessibleObject;
class AccessibleRow;
class Page;

/// The whole page as one tree of accessible objects: every text and control of every row, whether
/// or not it has a widget just now.
///
///     page
///       text, button, …           the elements outside lists, in tree order
///       row "Ada"                 a group named by its first text or title
///         button, text, …         its elements, in tree order
///       row "Bo"
///
/// Objects are made when somebody asks for them and last as long as what they stand for: an element
/// by its identity, a row by its id, also while its nodes come and go with scrolling. A row without
/// nodes is described for a look (`ViewGraph::lookAtRow`). What an object stands for may go at any
/// moment; from then on the object answers like an empty one, and is deleted with the next turn of
/// the event loop. Finding a child or its index looks at no other row.
class AccessibleTree final : public QObject, public PageObserver, public atspi::IdentifierSource {
 public:
  /// Hears of what the page does from now on.
  AccessibleTree(QAbstractScrollArea& area, Page& page);
  /// Stops the process when a client or an observer destroys the page while it is being notified:
  /// the pass that notifies would go on with a page that is not there.
  ~AccessibleTree() override;

  /// \name The page's children: elements and rows @{
  int childCount();
  QAccessibleInterface* child(int index);
  int indexOf(const QAccessibleInterface* object);
  /// @}

  /// The object of an element that is shown; nullptr when it is no accessible element.
  AccessibleElement* objectOf(const page::Node& leaf);

  QString identifier(QAccessible::Id element) const override;
  QList<QAccessible::Id> find(const QString& identifier, int most) const override;
  bool scrollIn(QAccessible::Id element) const override;

  /// \name Telling clients what has changed
  /// What changes before is announced with `settled`, when the page has come to rest. @{
  /// Whether anybody may be there to be told: a client on the bus, or one who has asked before.
  bool isWatched() const { return hasBeenAsked() || QAccessible::isActive(); }
  void patched(const std::vector<ui::Patch>& patches) override;
  void removing(const page::Node& node) override;
  void rowsReplaced() override;
  void settled() override;
  void focusMoved(ui::NodeID node);
  /// @}

  /// \name For the objects @{
  /// The slots of the page, or of a row; up to date.
  std::vector<ElementSlot>& elementsOf(AccessibleRow* row);
  const ElementSlot* slot(AccessibleRow* row, std::uint64_t path);
  AccessibleElement* object(AccessibleRow* row, ElementSlot& slot);
  /// The row's node, described for a look if need be; nullptr when the row is gone.
  const ui::Node* nodeOf(AccessibleRow& row);
  const ui::Node* find(ui::NodeID node) const;
  /// On the screen. Of what has no frame just now, an estimate.
  QRect rectOf(AccessibleRow* row, ui::NodeID node);
  QRect rectOf(AccessibleRow& row);
  bool isInViewport(const QRect& onScreen) const;
  /// A client has been told whether that object is showing, and will hear when it changes.
  void noteShowing(AccessibleObject& object, bool isShowing);
  void press(AccessibleRow* row, ui::NodeID node);
  /// Scrolls an element in and gives it the focus, unless it cannot have it.
  void focus(AccessibleRow* row, ui::NodeID node);
  void scrollIn(AccessibleRow* row, ui::NodeID node);
  void deliver(ui::NodeID node, ui::Event event);
  QAccessibleInterface* pageObject() const;
  QAbstractScrollArea& area() const { return area_; }
  Page& page() const { return page_; }
  /// @}

 private:
  /// A child of the node came, went or moved.
  void childrenChanged(const page::Node& parent);
  bool hasBeenAsked() const { return pageVersion_ != neverAsked; }

  static constexpr std::uint64_t neverAsked = ~std::uint64_t{0};
  struct Segment {
    std::size_t slot = 0;  ///< of an element outside lists
    ui::NodeID list;       ///< of a list: its node; none for an element
    std::size_t first = 0, count = 1;
  };
  struct List {
    std::shared_ptr<const ui::RowSource> source;  ///< as of when `rows` was last right
    std::unordered_map<std::size_t, AccessibleRow*> rows;
    QAccessible::Id idAt(std::size_t index) const;
    std::optional<RowIdentifiers> identifiers;  ///< once somebody has looked in every row
    std::vector<QAccessible::Id> uncompared;    ///< rows that may be others than clients have heard
  };
  /// What is other than clients have heard of an object.
  struct Change {
    enum class What { name, value, enabled, shown, hidden };
    QAccessible::Id object;
    What what;
  };
  /// In which rows an identifier is looked for.
  enum class Search { rowsNamedInIt, everyRow };

  /// How one list of children became another one.
  struct ChildSteps {
    struct Left {
      std::size_t index;
      QAccessible::Id child;  ///< 0: nobody has asked for it
    };
    std::vector<Left> left;         ///< by their places before, ascending
    std::vector<std::size_t> came;  ///< their places afterwards, ascending
    bool areComplete = true;        ///< false: too much has changed to be told one by one
  };

  void refreshPage();
  /// The row's node, described for a look if need be: an empty one when that throws. None when there
  /// is no such row, or no answer while an event is being handled.
  ui::NodeID lookAtRow(ui::NodeID list, std::size_t index);
  std::vector<std::size_t> rowsWithState(ui::NodeID list);
  std::vector<Segment> segmentsOf(const std::vector<ElementSlot>& elements) const;
  ChildSteps stepsOfPage(const std::vector<Segment>& before, const ChildSteps& ofElements,
                         const std::unordered_map<ui::NodeID, ChildSteps>& ofRows) const;
  ChildSteps adopt(std::vector<ElementSlot>& elements, std::vector<ElementSlot> fresh);
  ChildSteps followRows(ui::NodeID list);
  void note(AccessibleRow* row, const ChildSteps& steps);
  void tell(const std::vector<atspi::ChildChange>& changes);
  void tell(const atspi::ChildChange& change) const;
  void tell(const std::vector<Change>& changes);
  void announceNews();
  template <class Tell>
  void notify(Tell tell);
  void compare(ElementSlot& slot, std::vector<Change>& changes) const;
  void compareName(AccessibleRow& row, std::vector<Change>& changes) const;
  void compareShowing(std::vector<Change>& changes);
  void compareSomeRows();
  bool isShowing(AccessibleObject& object);
  std::vector<AccessibleObject*> knownInViewport();
  AccessibleElement* knownObject(ui::NodeID node, ElementSlot** slot = nullptr);
  void refreshList(ui::NodeID list);
  AccessibleRow* rowAt(ui::NodeID list, std::size_t index);
  const ui::Node* rowHolding(ui::NodeID node) const;
  AccessibleRow* knownRow(ui::NodeID rowNode) const;
  std::vector<std::size_t> rowsToSearch(ui::NodeID list, const std::string& identifier,
                                        Search search);
  ChildSteps moveRows(List& list, const std::shared_ptr<const ui::RowSource>& source);
  const RowIdentifiers* notedIdentifiers(ui::NodeID list) const;
  void noteIdentifiers(ui::NodeID list);
  void findInRow(ui::NodeID list, std::size_t index, const std::string& identifier,
                 QList<QAccessible::Id>& found);
  void bury(QAccessibleInterface& object);
  void bury(AccessibleRow& row);
  void deleteBuried();

  QAbstractScrollArea& area_;
  Page& page_;
  std::uint64_t pageVersion_ = neverAsked;
  std::vector<ElementSlot> slots_;
  std::vector<Segment> segments_;
  std::unordered_map<ui::NodeID, List> lists_;
  std::vector<QAccessible::Id> buried_;

  std::vector<ui::NodeID> changedRows_, updated_;
  /// Told when all is up to date: a client may ask the tree anything while it is being told.
  std::vector<atspi::ChildChange> childChanges_;
  std::vector<QAccessible::Id> showing_;  ///< what clients have heard to be in the viewport
  QTimer comparing_;
  bool notifying_ = false;  ///< clients are being notified; they may ask and change anything
  bool hasNews_ = false;    ///< something may have changed since they were notified
};

}  // namespace vemra::qt
