#pragma once

#include "apps/desk/window/MessageFrame.hpp"
#include "apps/desk/window/WaitingOutcomes.hpp"

#include <vector>

namespace vemra::desk {

/// One line for an outcome that is not stored yet: the outcome, the person and the goal.
QString lineOf(const WaitingNote& note);

/// A bar that names the outcomes that are not stored yet, the reason, and what will happen to them.
/// Hidden without such outcomes.
class WaitingBar : public MessageFrame {
  Q_OBJECT

 public:
  explicit WaitingBar(QWidget* parent = nullptr);

  void setWaiting(const std::vector<WaitingNote>& waiting);

 Q_SIGNALS:
  void tryAgainWanted();
  void discardWanted();
};

}  // namespace vemra::desk
