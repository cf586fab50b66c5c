#include "apps/desk/window/WaitingNews.hpp"

#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PlainText.hpp"

namespace vemra::desk {

QString lineOf(const WaitingNote& note) {
  return localized("“%1” for %2 (%3)")
      .arg(isolated(note.outcome), nameInMessage(note.subject), nameInMessage(note.goalTitle));
}

QString WaitingNews::of(const std::vector<WaitingNote>& waiting) {
  QStringList outcomes, reasons;
  for (const WaitingNote& note : waiting) {
    const auto [announced, isNew] = announced_.try_emplace(note.id, lineOf(note));
    if (isNew) outcomes.append(announced->second);
    for (const QString& reason : {note.reason, note.unkept}) {
      if (reason.isEmpty() || reasons_.contains(reason)) continue;
      reasons_.insert(reason);
      reasons.append(reason);
    }
  }
  if (waiting.empty()) reasons_.clear();
  if (!outcomes.isEmpty()) outcomes.prepend(localized("Not stored yet:"));
  return (outcomes + reasons).join('\n');
}

void WaitingNews::forget() {
  announced_.clear();
  reasons_.clear();
}

QString WaitingNews::ofStored(const std::string& id) {
  const auto announced = announced_.find(id);
  if (announced == announced_.end()) return {};
  const QString line = announced->second;
  announced_.erase(announced);
  return localized("Stored: %1").arg(line);
}

}  // namespace vemra::desk
