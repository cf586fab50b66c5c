#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraPlatform/ui/Environment.hpp"
#include "apps/desk/store/Knowledge.hpp"
#include "apps/desk/window/PaneReading.hpp"

#include <memory>
#include <optional>
#include <vector>

#include <QScrollArea>

class QVBoxLayout;

namespace vemra::desk {

/// What stands beside the screen: what the store knows of a person, of a piece of evidence, or a
/// path as a graph. Hidden while there is nothing to show. Long texts and long lists are shown piece
/// by piece (`Pieces`).
///
/// When the same person, source or path is shown once more, with what the store knows by now, the
/// pieces that the reader has opened stay open, and the scroll position, the focus and the selected
/// texts stay.
class SidePane : public QScrollArea {
  Q_OBJECT

 public:
  explicit SidePane(QWidget* parent = nullptr);

  /// Locale and time zone in which days are written.
  void setEnvironment(ui::Environment environment) { environment_ = std::move(environment); }

  void showPerson(PersonKnowledge person);
  void showEvidence(EvidenceKnowledge evidence);
  void showPath(const GoalPathCandidateDTO& path,
                const std::vector<std::optional<std::string>>& names);

 Q_SIGNALS:
  /// The reader wants it gone.
  void closed();

 private:
  /// What the reader has done with what is shown.
  struct Reading {
    PaneReading ofContent;
    int scroll = 0;
    bool hasFocus = false;
  };

  /// - Parameter subject: what is shown, told from everything else that may be.
  QVBoxLayout* begin(const QString& kind, const QString& title, const QString& subject);
  void end(QVBoxLayout* page);
  Reading reading() const;
  /// A heading and the entries 0 to `count` under it; nothing when there are none.
  template <class Add>
  void section(QVBoxLayout* page, const QString& heading, const QString& what, std::size_t count,
               Add add);
  static void addSuggestion(QVBoxLayout& page, const std::shared_ptr<const PersonKnowledge>& person,
                            std::size_t index);
  void addOutcome(QVBoxLayout& page, const PersonKnowledge::Outcome& recorded) const;

  ui::Environment environment_;
  QString subject_;                 // of what is shown
  std::optional<Reading> reading_;  // while the same thing is being shown once more
};

}  // namespace vemra::desk
