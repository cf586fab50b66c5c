#include "apps/desk/window/GoalList.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "apps/desk/window/AccessibleGoals.hpp"
#include "apps/desk/window/GoalRow.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <algorithm>
#include <string_view>

#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace vemra::desk {

GoalList::GoalList(QWidget* parent) : QAbstractScrollArea(parent) {
  setObjectName("desk.goals");
  setAccessibleName(localized("Goals"));
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  setViewport(new GoalColumn(*this));
  viewport()->setAutoFillBackground(false);
  measured_ = new GoalRow(viewport());
  measured_->hide();  // otherwise it would be shown with the viewport
  heading_ = makeLabel(localized("Goals"), TextRole::heading);
  heading_->setContentsMargins(10, 0, 10, 6);
  heading_->setParent(viewport());
  heading_->installEventFilter(this);
  heading_->show();
  measureAnew();
}

/// Assistive technology may use the viewport until that is destroyed, which happens after the list.
GoalList::~GoalList() {
  column().forgetList();
}

GoalColumn& GoalList::column() const {
  return *static_cast<GoalColumn*>(viewport());
}

void GoalList::setGoals(const std::vector<GoalListing>& goals, const std::string& openGoalID) {
  const std::string before = open_ ? goals_[*open_].id : std::string();
  const bool sameTitles =
      std::ranges::equal(goals, goals_, {}, &GoalListing::title, &GoalListing::title);
  goals_ = goals;
  const auto open = std::ranges::find_if(
      goals_, [&](const GoalListing& goal) { return text::equal(goal.id, openGoalID); });
  open_.reset();
  if (open != goals_.end()) open_ = static_cast<std::size_t>(open - goals_.begin());
  if (open_ && !text::equal(before, openGoalID)) wantsOpenSeen_ = true;
  while (!rows_.empty() && rows_.rbegin()->first >= goals_.size()) {
    recycle(std::prev(rows_.end()));
  }
  if (!sameTitles) forgetHeights();
  for (const auto& [index, row] : rows_) fillRow(*row, index);
  layOut();
  showOpen();
  column().announce();
}

GoalRow* GoalList::row(std::size_t index) const {
  const auto found = rows_.find(index);
  return found == rows_.end() ? nullptr : found->second;
}

std::optional<std::size_t> GoalList::indexOf(const GoalRow& row) const {
  const auto found = std::ranges::find_if(rows_, [&](const auto& e) { return e.second == &row; });
  return found == rows_.end() ? std::nullopt : std::optional(found->first);
}

void GoalList::choose(std::size_t index) {
  if (index >= goals_.size()) return;
  open_ = index;
  if (!row(index)) layOut();
  row(index)->click();
}

void GoalList::focusRow(std::size_t index) {
  if (index >= goals_.size()) return;
  scrollTo(index);
  if (GoalRow* shown = row(index)) shown->setFocus(Qt::OtherFocusReason);
}

bool GoalList::event(QEvent* event) {
  const bool handled = QAbstractScrollArea::event(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    measureAnew();
    layOut();
  }
  return handled;
}

/// The rows pass their keys and the focus to the list, which also knows the rows without a widget.
bool GoalList::eventFilter(QObject* object, QEvent* event) {
  if (object == heading_ && event->type() == QEvent::FontChange) {
    measureAnew();
    layOut();
  }
  auto* row = qobject_cast<GoalRow*>(object);
  const auto index = row ? indexOf(*row) : std::nullopt;
  if (index && event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const bool isText =
        !(key->modifiers() & commands) && !key->text().isEmpty() && key->text().front().isPrint();
    if (isText && handleText(*index, key->text())) return true;
    return handleKey(*index, key->key());
  }
  if (index && event->type() == QEvent::FocusIn) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) scrollTo(*index);
  }
  return QAbstractScrollArea::eventFilter(object, event);
}

/// Handles the list's own keys and returns false for other keys. Before a key that presses the row,
/// this scrolls the row into view.
bool GoalList::handleKey(std::size_t index, int key) {
  std::size_t next = index;
  switch (key) {
    case Qt::Key_Up:
      if (index == 0) return false;  // the key scrolls the list
      next = index - 1;
      break;
    case Qt::Key_Down:
      if (index + 1 == goals_.size()) return false;
      next = index + 1;
      break;
    case Qt::Key_Home:
      next = 0;
      break;
    case Qt::Key_End:
      next = goals_.size() - 1;
      break;
    case Qt::Key_Return:  // Qt presses a button with these two on some desktops only
    case Qt::Key_Enter:
      scrollTo(index);
      choose(index);
      return true;
    case Qt::Key_Space:
    case Qt::Key_Select:
      scrollTo(index);
      return false;
    default:
      return false;
  }
  goTo(next);
  return true;
}

void GoalList::goTo(std::size_t index) {
  const QScopedValueRollback<bool> moving(moving_, true);
  focusRow(index);
  if (index != open_) choose(index);
}

/// Goes to the next goal whose title begins with the letters typed in one go. One letter, typed
/// again, goes to the next such goal. Returns false for a blank, which presses the row, unless it
/// is inside the typed text.
bool GoalList::handleText(std::size_t index, const QString& text) {
  const bool goesOn =
      sinceTyped_.isValid() && sinceTyped_.elapsed() < QApplication::keyboardInputInterval();
  if (!goesOn) typed_.clear();
  if (typed_.isEmpty() && text.front().isSpace()) return false;
  sinceTyped_.start();
  typed_ += text;
  const bool isOneLetter = typed_.count(typed_.front()) == typed_.size();
  const QString sought =
      (isOneLetter ? typed_.left(1) : typed_).normalized(QString::NormalizationForm_C);
  const std::size_t first = isOneLetter ? index + 1 : index;
  constexpr std::size_t mostBytes = 1000;  // titles may be megabytes long
  for (std::size_t i = 0; i < goals_.size(); ++i) {
    const std::size_t candidate = (first + i) % goals_.size();
    const std::string_view start = std::string_view(goals_[candidate].title).substr(0, mostBytes);
    const QString shown =
        GoalRow::nameOf(fromUTF8(start)).simplified().normalized(QString::NormalizationForm_C);
    if (!shown.startsWith(sought, Qt::CaseInsensitive)) continue;
    goTo(candidate);
    break;
  }
  return true;
}

void GoalList::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  if (event->size().width() != event->oldSize().width()) measureAnew();
  layOut();
}

void GoalList::showEvent(QShowEvent* event) {
  QAbstractScrollArea::showEvent(event);
  layOut();
  showOpen();
}

void GoalList::scrollContentsBy(int, int) {
  layOut();
}

/// Scrolls to the newly opened goal, once the list has its size.
void GoalList::showOpen() {
  if (isVisible() && std::exchange(wantsOpenSeen_, false) && open_) scrollTo(*open_);
}

/// Scrolls only as far as needed to show a row.
void GoalList::scrollTo(std::size_t index) {
  QScrollBar& bar = *verticalScrollBar();
  for (int round = 0; round < 3; ++round) {  // the row's height is an estimate at first
    const QRect rect = rowRect(index);
    if (rect.top() < 0) {
      bar.setValue(index == 0 ? 0 : bar.value() + rect.top());
    } else if (rect.bottom() >= viewport()->height()) {
      bar.setValue(bar.value() + rect.bottom() + 1 - viewport()->height());
    }
  }
}

}  // namespace vemra::desk
