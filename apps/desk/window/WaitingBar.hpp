#pragma once

#include "apps/desk/window/MessageFrame.hpp"
#include "apps/desk/window/WaitingNews.hpp"
#include "apps/desk/window/WaitingOutcomes.hpp"

#include <string>
#include <vector>

namespace vemra::desk {

/// A bar that names the outcomes that are not stored yet, the reason, and what will happen to them.
/// Hidden without such outcomes.
class WaitingBar : public MessageFrame {
  Q_OBJECT

 public:
  explicit WaitingBar(QWidget* parent = nullptr);

  void setWaiting(const std::vector<WaitingNote>& waiting);
  /// Hides the bar, and forgets what it has announced, because the window opens another store.
  void forget();
  /// The sentence for assistive technology when that outcome is stored; "" when the bar has not
  /// shown it, or for the second time.
  QString newsOfStored(const std::string& id) { return news_.ofStored(id); }

 Q_SIGNALS:
  void tryAgainWanted();
  void discardWanted();

 private:
  WaitingNews news_;
};

}  // namespace vemra::desk
