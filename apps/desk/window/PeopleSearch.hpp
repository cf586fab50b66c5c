#pragma once

#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "VemraPlatform/text/TextSearch.hpp"

#include <cstddef>
#include <optional>
#include <vector>

#include <QObject>
#include <QString>
#include <QTimer>

namespace vemra::desk {

/// Finds the people of a goal in whose name, reason or note a text occurs, as the screen shows
/// them.
///
/// `text::TextSearch` compares, so neither case nor accents count. The search works in slices of a
/// few milliseconds between the events of the main thread, so that a window answers a typed letter
/// within its frame, however many people there are.
///
/// Main thread only.
class PeopleSearch : public QObject {
  Q_OBJECT

 public:
  explicit PeopleSearch(QObject* parent = nullptr);

  /// Starts a new search, with the person at `from`; it continues behind the last person with the
  /// first. The first slice is done before this returns. Nothing contains a text without a letter
  /// that counts.
  void start(const GoalResultSnapshotV1& goal, const QString& text, std::size_t from);
  /// Ends the search and forgets its hits.
  void stop();

  /// The indexes of the people found so far, in the order of the search.
  const std::vector<std::size_t>& hits() const { return hits_; }
  bool isDone() const { return searched_ == count_; }
  /// The place of a hit among all in the order of the people, from 1; only when the search is done.
  std::size_t position(std::size_t hit) const;

 Q_SIGNALS:
  /// There are further hits, or the search is done.
  void changed();

 private:
  void doSlice();
  bool matches(std::size_t index) const;

  std::optional<GoalResultSnapshotV1> goal_;
  std::optional<text::TextSearch> sought_;
  std::size_t from_ = 0;
  std::size_t count_ = 0;     ///< the people to search
  std::size_t searched_ = 0;  ///< of them
  std::vector<std::size_t> hits_;
  QTimer next_;  ///< the next slice
};

}  // namespace vemra::desk
