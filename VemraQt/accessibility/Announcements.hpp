#pragma once

#include "VemraQt/accessibility/ChildSteps.hpp"
#include "VemraQt/atspi/ChildSignals.hpp"
#include "VemraQt/page/PageObserver.hpp"

#include <vector>

#include <QAccessible>
#include <QTimer>

namespace vemra::qt {

class AccessibleObject;
class AccessibleRow;
class AccessibleTree;

/// Tells clients what has changed, for the objects that they have asked for.
///
/// Changes are noted while the page is at work and sent when it has come to rest, since a client may
/// ask the tree anything while it is notified. What it changes meanwhile is announced after that, so
/// that clients hear of all changes in their order. Main thread only.
class Announcements final : public PageObserver {
 public:
  /// Hears of what the tree's page does from now on.
  explicit Announcements(AccessibleTree& tree);
  /// Stops the process when a client or an observer destroys the page while it is being notified:
  /// the pass that notifies would go on with a page that is not there.
  ~Announcements();
  Announcements(const Announcements&) = delete;
  Announcements& operator=(const Announcements&) = delete;

  void patched(const ui::Changes& changes) override;
  void removing(const page::Node& node) override;
  void settled() override;
  void focusMoved(ui::NodeID node);

  /// Children of a row, or of the page, came or went; sent when the page has come to rest.
  void noteChild(const atspi::ChildChange& change) { childChanges_.push_back(change); }
  /// A client has been told whether that object is showing, and will hear when it changes.
  void noteShowing(AccessibleObject& object, bool isShowing);

 private:
  /// What is other than clients have heard of an object.
  struct Change {
    enum class What { name, value, enabled, shown, hidden };
    QAccessible::Id object;
    What what;
  };

  void childrenChanged(const page::Node& parent);
  void announceNews();
  void compareSomeRows();
  template <class Tell>
  void notify(Tell tell);
  void tell(const std::vector<atspi::ChildChange>& changes);
  void tell(const atspi::ChildChange& change) const;
  void tell(const std::vector<Change>& changes);
  void compare(ElementSlot& slot, std::vector<Change>& changes) const;
  void compareName(AccessibleRow& row, std::vector<Change>& changes) const;
  void compareShowing(std::vector<Change>& changes);
  bool isShowing(AccessibleObject& object);
  ElementSlot* knownSlot(ui::NodeID node);

  AccessibleTree& tree_;
  std::vector<ui::NodeID> changedRows_, updated_;
  std::vector<atspi::ChildChange> childChanges_;
  std::vector<QAccessible::Id> showing_;  ///< what clients have heard to be in the viewport
  QTimer comparing_;
  bool notifying_ = false;  ///< clients are being notified; they may ask and change anything
  bool hasNews_ = false;    ///< something may have changed since they were notified
};

}  // namespace vemra::qt
