#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraPlatform/ui/Environment.hpp"
#include "apps/desk/store/Knowledge.hpp"

#include <vector>

#include <QScrollArea>

class QVBoxLayout;

namespace vemra::desk {

/// What stands beside the screen: what the store knows of a person, of a piece of evidence, or a
/// path as a graph. Hidden while there is nothing to show.
class SidePane : public QScrollArea {
  Q_OBJECT

 public:
  explicit SidePane(QWidget* parent = nullptr);

  /// Locale and time zone in which days are written.
  void setEnvironment(ui::Environment environment) { environment_ = std::move(environment); }

  void showPerson(const PersonKnowledge& person);
  void showEvidence(const EvidenceKnowledge& evidence);
  void showPath(const GoalPathCandidateDTO& path,
                const std::vector<std::optional<std::string>>& names);

 Q_SIGNALS:
  /// The reader wants it gone.
  void closed();

 private:
  QVBoxLayout* begin(const QString& kind, const QString& title);
  void end();
  void section(QVBoxLayout* page, const QString& heading);

  ui::Environment environment_;
};

}  // namespace vemra::desk
