#include "apps/desk/window/CloseQuestion.hpp"

#include "apps/desk/window/LeadingEdge.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/WaitingBar.hpp"
#include "apps/desk/window/WholeTitles.hpp"

#include <algorithm>

#include <QLabel>
#include <QPushButton>

namespace vemra::desk {
namespace {

/// The first lines of many.
QString some(const QStringList& lines) {
  constexpr int mostNamed = 5;
  return firstAndMore(lines, mostNamed).join('\n');
}

QStringList linesOf(const std::vector<WaitingNote>& waiting) {
  QStringList lines;
  for (const WaitingNote& note : waiting) lines.append(lineOf(note));
  return lines;
}

void prepare(QMessageBox& box, const QString& text, const QString& more) {
  box.setIcon(QMessageBox::Warning);
  box.setWindowTitle(box.parentWidget()->windowTitle());
  box.setTextFormat(Qt::PlainText);
  box.setText(text);
  box.setInformativeText(more);
  box.setAttribute(Qt::WA_DeleteOnClose);
  for (const char* name : {"qt_msgbox_label", "qt_msgbox_informativelabel"}) {
    if (auto* label = box.findChild<QLabel*>(QLatin1String(name))) alignAtLeadingEdge(*label);
  }
}

/// Qt's own button with a word of this program; Qt's translations have other words for it.
QPushButton* addDiscard(QMessageBox& box, const QString& title) {
  QPushButton* button = box.addButton(QMessageBox::Discard);
  button->setText(title);
  return button;
}

/// What becomes of outcomes that are not stored when the user leaves the store.
QString fateOf(const std::vector<WaitingNote>& waiting) {
  const auto isLost = [](const WaitingNote& note) { return !note.unkept.isEmpty(); };
  if (std::ranges::any_of(waiting, isLost)) {
    return localized("What is not stored yet would be lost.");
  }
  const auto deciding = std::ranges::count_if(waiting, &WaitingNote::needsDecision);
  if (deciding == 0) {
    return localized(
        "What is not stored yet is kept beside the store, and stored when the store is opened "
        "again.");
  }
  if (deciding == static_cast<std::ptrdiff_t>(waiting.size())) {
    return localized(
        "What is not stored yet is kept beside the store, until you try again or discard it.");
  }
  return localized(
      "What is not stored yet is kept beside the store. Some of it is stored when the store is "
      "opened again; the rest waits until you try again or discard it.");
}

QString questionOf(Leaving leaving, bool hasDrafts) {
  if (leaving == Leaving::closeWindow) {
    return hasDrafts ? localized("Outcomes are still being written. Close without them?")
                     : localized("Outcomes are not stored yet. Close now?");
  }
  return hasDrafts
             ? localized("Outcomes are still being written. Open the other store without them?")
             : localized("Outcomes are not stored yet. Open the other store now?");
}

QString nowTitle(Leaving leaving) {
  return leaving == Leaving::closeWindow ? localized("Close now") : localized("Open now");
}

/// Names what the button discards where the question lists more than that.
QString discardTitle(Leaving leaving, bool hasWaiting) {
  if (!hasWaiting) return localized("Discard");
  return leaving == Leaving::closeWindow ? localized("Discard drafts and close now")
                                         : localized("Discard drafts and open now");
}

QString endOfWait(Leaving leaving, WaitFor what) {
  const bool forAll = what == WaitFor::everything;
  if (leaving == Leaving::closeWindow) {
    return forAll ? localized("The window closes as soon as everything is stored.")
                  : localized(
                        "The window closes as soon as everything is stored that does not "
                        "need your decision.");
  }
  return forAll ? localized("The other store is opened as soon as everything is stored.")
                : localized(
                      "The other store is opened as soon as everything is stored that does "
                      "not need your decision.");
}

}  // namespace

CloseQuestion::CloseQuestion(Leaving leaving, const Unfinished& unfinished, QWidget* parent)
    : QMessageBox(parent) {
  const auto& [drafts, waiting] = unfinished;
  setObjectName("desk.question");
  QStringList paragraphs;
  if (!drafts.isEmpty()) paragraphs.append(some(drafts));
  if (!waiting.empty()) {
    if (!drafts.isEmpty()) paragraphs.append(localized("Not stored yet:"));
    paragraphs.append(some(linesOf(waiting)));
    paragraphs.append(fateOf(waiting));
  }
  prepare(*this, questionOf(leaving, !drafts.isEmpty()), paragraphs.join("\n\n"));
  QPushButton* wait = nullptr;
  if (!std::ranges::all_of(waiting, &WaitingNote::needsDecision)) {
    wait = addButton(drafts.isEmpty() ? localized("Wait until stored")
                                      : localized("Discard drafts and wait until stored"),
                     QMessageBox::AcceptRole);
    wait->setObjectName("desk.question.wait");
  }
  QPushButton* leave = drafts.isEmpty()
                           ? addButton(nowTitle(leaving), QMessageBox::DestructiveRole)
                           : addDiscard(*this, discardTitle(leaving, !waiting.empty()));
  leave->setObjectName("desk.question.close");
  QPushButton* cancel = addButton(QMessageBox::Cancel);
  setDefaultButton(wait != nullptr && drafts.isEmpty() ? wait : cancel);
  setEscapeButton(cancel);
  connect(leave, &QPushButton::clicked, this, &CloseQuestion::leaveWanted);
  if (wait != nullptr) connect(wait, &QPushButton::clicked, this, &CloseQuestion::waitWanted);
  // A question that is closed without a button has no clicked button yet.
  connect(this, &QDialog::finished, this, [this, leave, wait] {
    const QAbstractButton* clicked = clickedButton();
    if (clicked == nullptr || (clicked != leave && clicked != wait)) Q_EMIT cancelled();
  });
  keepTitlesWhole(*this);
}

CloseWait::CloseWait(Leaving leaving, WaitFor what, QWidget* parent) : QMessageBox(parent) {
  setObjectName("desk.wait");
  prepare(*this, endOfWait(leaving, what), {});
  setIcon(QMessageBox::Information);
  QPushButton* leave = addButton(nowTitle(leaving), QMessageBox::DestructiveRole);
  leave->setObjectName("desk.wait.close");
  setEscapeButton(addButton(QMessageBox::Cancel));
  connect(leave, &QPushButton::clicked, this, &CloseWait::leaveWanted);
  connect(this, &QDialog::rejected, this, &CloseWait::cancelled);
  keepTitlesWhole(*this);
}

DiscardQuestion::DiscardQuestion(const std::vector<WaitingNote>& waiting, QWidget* parent)
    : QMessageBox(parent) {
  setObjectName("desk.discard");
  prepare(*this, localized("Discard what is not stored yet?"), some(linesOf(waiting)));
  QPushButton* discard = addDiscard(*this, localized("Discard"));
  setDefaultButton(addButton(QMessageBox::Cancel));
  connect(discard, &QPushButton::clicked, this, &DiscardQuestion::discardWanted);
  keepTitlesWhole(*this);
}

}  // namespace vemra::desk
