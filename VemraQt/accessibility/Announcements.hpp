#pragma once

#include "VemraQt/atspi/ChildSignals.hpp"
#include "VemraQt/page/PageObserver.hpp"

#include <optional>
#include <vector>

#include <QAccessible>
#include <QString>
#include <QTimer>

namespace vemra::qt {

class AccessibleObject;
class AccessibleRow;
class AccessibleTree;
struct ElementSlot;

/// Notifies clients of changes to the objects that they have asked for.
///
/// Changes are collected while the page is working and sent when it is at rest, because a notified
/// client may ask the tree anything. When a client changes something meanwhile, that change is sent
/// afterwards, so that clients get all changes in order. Main thread only.
class Announcements final : public PageObserver {
 public:
  /// Becomes the observer of the tree's page.
  explicit Announcements(AccessibleTree& tree);
  /// Stops the process when a client or an observer destroys the page while it is being notified:
  /// the pass that notifies them would continue with a destroyed page.
  ~Announcements();
  Announcements(const Announcements&) = delete;
  Announcements& operator=(const Announcements&) = delete;

  void patched(const ui::Changes& changes) override;
  void removing(const page::Node& node) override;
  void settled() override;
  void focusMoved(ui::NodeID node);

 private:
  /// A difference between an object and its state last reported to clients.
  struct Change {
    enum class What { name, description, value, enabled, shown, hidden };
    QAccessible::Id object;
    What what;
  };

  static QAccessible::Event eventOf(Change::What what);
  void childrenChanged(const page::Node& parent);
  void announceNews();
  void announceTitle();
  void compareSomeRows();
  template <class Send>
  void notify(Send send);
  void send(const std::vector<atspi::ChildChange>& changes);
  void send(const atspi::ChildChange& change) const;
  void send(const std::vector<Change>& changes);
  void compare(ElementSlot& slot, std::vector<Change>& changes) const;
  void compareNameAround(const AccessibleObject& element, std::vector<Change>& changes) const;
  void compareName(AccessibleRow& row, std::vector<Change>& changes) const;
  static void compareDescriptions(const std::vector<ElementSlot>& elements,
                                  std::vector<Change>& changes);
  void compareShowing(std::vector<Change>& changes);
  ElementSlot* knownSlot(ui::NodeID node);

  AccessibleTree& tree_;
  std::vector<ui::NodeID> changedRows_, updated_;
  std::optional<QString> title_;  ///< of the page, as last reported
  QTimer comparing_;
  bool notifying_ = false;  ///< clients are being notified and may ask or change anything
  bool hasNews_ = false;    ///< something may have changed since the last notification
};

}  // namespace vemra::qt
