#pragma once

#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <QSize>

class QObject;
class QWindow;

namespace vemra::bench {

/// The window of every candidate.
inline constexpr QSize windowSize(720, 800);

/// One way to show the goal screen: the library's, or a peer's, as in a real program.
///
/// Candidates get the same snapshots, fonts, colours and window size. There is one in a process.
/// Objects that a program makes once for all of its windows, like an engine for QML, are made with
/// the first window and kept until the candidate is destroyed; the constructor makes none.
class Candidate {
 public:
  Candidate() = default;
  Candidate(const Candidate&) = delete;
  Candidate& operator=(const Candidate&) = delete;
  virtual ~Candidate() = default;

  /// An empty window of the same toolkit, to compare the memory of the screen with.
  virtual void showEmptyWindow() = 0;
  virtual void hideEmptyWindow() = 0;
  /// Builds the whole screen and shows it in a window of its own.
  virtual void show(const GoalResultSnapshotV1& snapshot) = 0;
  /// Destroys the window and everything that was made for it.
  virtual void close() = 0;
  /// The host hands in a newer snapshot.
  virtual void update(const GoalResultSnapshotV1& snapshot) = 0;

  /// A press on "Record outcome", and on "Cancel", of a person who is in view.
  virtual void openEditor(std::size_t person) = 0;
  virtual void closeEditor(std::size_t person) = 0;
  /// Puts the text cursor into the open editor's note.
  virtual void focusNote(std::size_t person) = 0;

  virtual void scrollToEnd() = 0;
  virtual void scrollToStart() = 0;
  /// Paints everything once more.
  virtual void repaint() = 0;

  /// Turns the mouse wheel by one notch, about 60 pixels further down.
  virtual void turnWheel() = 0;

  /// The receiver of the window's keys, and the window itself.
  virtual QObject* keyReceiver() = 0;
  virtual QWindow* window() = 0;
};

/// A notch of the wheel over a widget, which goes by the angle and takes three of its own steps.
void turnWheelOver(QObject& widget);

/// A way to make each candidate, by its name.
struct CandidateKind {
  std::string name;
  std::function<std::unique_ptr<Candidate>()> make;
};

/// Includes the library's own.
inline constexpr std::string_view libraryName = "vemra";

}  // namespace vemra::bench
