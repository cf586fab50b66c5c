#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraPlatform/ui/Environment.hpp"
#include "apps/desk/store/Knowledge.hpp"
#include "apps/desk/window/AlertFrame.hpp"
#include "apps/desk/window/PaneReading.hpp"
#include "apps/desk/window/RoleLabel.hpp"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QScrollArea>

class QVBoxLayout;

namespace vemra::desk {

/// The pane beside the screen: the store's knowledge of a person or of a piece of evidence, or a
/// path as a graph. Hidden while it is empty. Long texts and long lists are shown piece by piece
/// (`Pieces`). The goals and the people in it are links. A screen reader hears once what the pane
/// shows, when it begins to show it.
///
/// When the pane shows the same person, source or path again with newer content, the pieces that
/// the reader has opened stay open, and the scroll position, the focus and the selected texts stay.
class SidePane : public QScrollArea {
  Q_OBJECT

 public:
  explicit SidePane(QWidget* parent = nullptr);

  /// The locale and the time zone for writing dates.
  void setEnvironment(ui::Environment environment) { environment_ = std::move(environment); }

  void showPerson(PersonKnowledge person);
  void showEvidence(EvidenceKnowledge evidence);
  void showPath(const GoalPathCandidateDTO& path,
                const std::vector<std::optional<std::string>>& names);

 Q_SIGNALS:
  /// Emitted when the user closes the pane.
  void closed();
  /// Emitted when the user presses a goal or a person.
  void goalWanted(const std::string& goalID);
  void personWanted(const std::string& personRef);

 private:
  /// The reader's changes to the shown content.
  struct Reading {
    PaneReading ofContent;
    int scroll = 0;
    bool hasFocus = false;
  };

  /// - Parameter subject: identifies the content among everything that the pane can show.
  QVBoxLayout* begin(const QString& kind, const QString& title, const QString& subject);
  void end(QVBoxLayout* page);
  Reading reading() const;
  /// Adds a heading and the entries 0 to `count` under it; nothing when there are none.
  template <class Add>
  void section(QVBoxLayout* page, const QString& heading, const QString& what, std::size_t count,
               Add add);
  void addGoal(QVBoxLayout& page, const GoalListing& goal, TextRole role);
  void addSuggestion(QVBoxLayout& page, const PersonKnowledge& person,
                     const PersonKnowledge::Suggestion& suggestion);
  void addOutcome(QVBoxLayout& page, const PersonKnowledge::Outcome& recorded);
  void addPerson(QVBoxLayout& page, const EvidenceKnowledge::Person& person);

  ui::Environment environment_;
  Announcement* announcement_;      // of the content, when it begins to be shown
  QString subject_;                 // of the shown content
  std::optional<Reading> reading_;  // while the same content is being shown again
};

}  // namespace vemra::desk
