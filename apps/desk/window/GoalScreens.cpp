#include "apps/desk/window/GoalScreens.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/OpenEditors.hpp"
#include "apps/desk/window/Pages.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/SubjectName.hpp"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace vemra::desk {

GoalScreens::GoalScreens(Pages& pages, std::size_t most) : pages_(pages), most_(most) {
  clear();
}

void GoalScreens::show(const LoadedGoal& goal, const MakeView& makeView) {
  auto screen = std::find_if(screens_.begin(), screens_.end(), [&](const Screen& each) {
    return !each.goal || text::equal(each.goal->id, goal.id);
  });
  if (screen == screens_.end()) {
    screen = screens_.insert(screens_.begin(), {new GoalPage, std::nullopt});
  } else {
    std::rotate(screens_.begin(), screen, std::next(screen));
  }
  screens_.front().goal = goal;
  current().setRoot(makeView(current().graph()));
  showAgain();
  removeSome();
}

void GoalScreens::showAgain() {
  pages_.showPage(current());
}

const LoadedGoal* GoalScreens::showAgain(const std::string& goalID) {
  const auto screen = std::find_if(screens_.begin(), screens_.end(), [&](const Screen& each) {
    return each.goal && text::equal(each.goal->id, goalID);
  });
  if (screen == screens_.end()) return nullptr;
  std::rotate(screens_.begin(), screen, std::next(screen));
  showAgain();
  return &*screens_.front().goal;
}

GoalPage& GoalScreens::current() const {
  return *screens_.front().widget;
}

const LoadedGoal* GoalScreens::currentGoal() const {
  const std::optional<LoadedGoal>& goal = screens_.front().goal;
  return goal ? &*goal : nullptr;
}

void GoalScreens::removeSome() {
  for (std::size_t i = screens_.size(); screens_.size() > most_ && i-- > 1;) {
    if (!openEditors(screens_[i].widget->graph()).empty()) continue;
    pages_.removeWidget(screens_[i].widget);
    screens_[i].widget->deleteLater();  // an action of it may be running
    screens_.erase(screens_.begin() + static_cast<std::ptrdiff_t>(i));
  }
}

QStringList GoalScreens::drafts() const {
  QStringList lines;
  for (const Screen& screen : screens_) {
    if (!screen.goal) continue;
    const GoalResultSnapshotV1& snapshot = screen.goal->snapshot;
    for (const OpenEditor& editor : openEditors(screen.widget->graph())) {
      lines.append(localized("%1 (%2)").arg(
          nameInMessage(subjectName(snapshot, editor.subjectKind, editor.subjectRef)),
          nameInMessage(fromUTF8(snapshot.goal().title))));
    }
  }
  return lines;
}

std::optional<GoalScreens::Draft> GoalScreens::draftToFinish() const {
  std::optional<Draft> first;
  const QWidget* focus = current().window()->focusWidget();
  const std::string focused =
      focus && current().isAncestorOf(focus) ? focus->objectName().toStdString() : "";
  for (const Screen& screen : screens_) {
    if (!screen.goal) continue;
    for (const OpenEditor& editor : openEditors(screen.widget->graph())) {
      // The identifiers of one editor's controls differ in their last word only.
      const std::string& note = editor.noteIdentifier;
      const std::string_view ofEditor(note.data(), note.rfind('.') + 1);
      if (screen.widget == &current() && !note.empty() && focused.starts_with(ofEditor)) {
        return Draft{screen.goal->id, screen.widget, focused};
      }
      if (!first) first = Draft{screen.goal->id, screen.widget, note};
    }
  }
  return first;
}

void GoalScreens::clear() {
  std::vector<Screen> before = std::exchange(screens_, {});
  screens_.push_back({new GoalPage, std::nullopt});
  showAgain();
  for (const Screen& screen : before) {
    pages_.removeWidget(screen.widget);
    screen.widget->deleteLater();
  }
}

}  // namespace vemra::desk
