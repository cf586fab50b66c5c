#pragma once

#include "apps/desk/window/WaitingOutcomes.hpp"

#include <map>
#include <string>
#include <vector>

#include <QSet>
#include <QString>

namespace vemra::desk {

/// One line for an outcome that is not stored yet: the outcome, the person and the goal.
QString lineOf(const WaitingNote& note);

/// Decides which sentences about waiting outcomes are news: each outcome, each reason and each
/// storing is announced once.
class WaitingNews {
 public:
  /// The news of the outcomes that wait now; "" without any. They count as announced afterwards.
  QString of(const std::vector<WaitingNote>& waiting);
  /// The reasons are news again at the next failure, because the user has asked for another try.
  void expectReasons() { reasons_.clear(); }
  /// Everything is news again, because the window opens another store.
  void forget();
  /// The news that an outcome is stored; "" when it was not announced as waiting. It may be some
  /// time since it waited: another program may have stored it.
  QString ofStored(const std::string& id);

 private:
  std::map<std::string, QString> announced_;  ///< the lines of outcomes, by their ids
  QSet<QString> reasons_;
};

}  // namespace vemra::desk
