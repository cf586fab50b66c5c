#pragma once

#include "apps/desk/window/WaitingOutcomes.hpp"

#include <vector>

#include <QMessageBox>
#include <QStringList>

namespace vemra::desk {

/// The content of a window that closing it could lose.
struct Unfinished {
  QStringList drafts;                ///< a line for each open editor
  std::vector<WaitingNote> waiting;  ///< the outcomes that are not stored yet
  bool isEmpty() const { return drafts.isEmpty() && waiting.empty(); }
};

/// The user's request that ends the work with the open store.
enum class Leaving { closeWindow, openAnotherStore };

/// Asks whether to leave a store with something unfinished, and names it. Deletes itself after the
/// answer. Show it with `open`.
class CloseQuestion : public QMessageBox {
  Q_OBJECT

 public:
  CloseQuestion(Leaving leaving, const Unfinished& unfinished, QWidget* parent);

 Q_SIGNALS:
  void leaveWanted();
  /// Leave as soon as every outcome is stored that needs no decision of the user; open editors are
  /// discarded. Only offered when there is such an outcome.
  void waitWanted();
  /// The user stays: with the button, with Escape, or by closing the question.
  void cancelled();
};

/// The outcomes that a window waits for before it leaves a store.
enum class WaitFor { everything, outcomesWithoutDecision };

/// Shown while a window waits until outcomes are stored. Deletes itself after the answer.
class CloseWait : public QMessageBox {
  Q_OBJECT

 public:
  CloseWait(Leaving leaving, WaitFor what, QWidget* parent);

 Q_SIGNALS:
  void leaveWanted();
  void cancelled();
};

/// Asks whether to forget outcomes that are not stored; like the above.
class DiscardQuestion : public QMessageBox {
  Q_OBJECT

 public:
  DiscardQuestion(const std::vector<WaitingNote>& waiting, QWidget* parent);

 Q_SIGNALS:
  void discardWanted();
};

}  // namespace vemra::desk
