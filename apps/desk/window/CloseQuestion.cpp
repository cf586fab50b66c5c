#include "apps/desk/window/CloseQuestion.hpp"

#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/WaitingBar.hpp"

#include <algorithm>

#include <QPushButton>

namespace vemra::desk {
namespace {

/// The first lines of many.
QString some(const QStringList& lines) {
  constexpr int mostNamed = 5;
  QStringList named = lines.mid(0, mostNamed);
  if (lines.size() > mostNamed) {
    named.append(localized("and %1 more").arg(lines.size() - mostNamed));
  }
  return named.join('\n');
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
}

}  // namespace

CloseQuestion::CloseQuestion(const Unfinished& unfinished, QWidget* parent) : QMessageBox(parent) {
  const auto& [drafts, waiting] = unfinished;
  setObjectName("desk.question");
  QStringList paragraphs;
  if (!drafts.isEmpty()) paragraphs.append(some(drafts));
  if (!waiting.empty()) {
    if (!drafts.isEmpty()) paragraphs.append(localized("Not stored yet:"));
    paragraphs.append(some(linesOf(waiting)));
    const bool allKept = std::all_of(waiting.begin(), waiting.end(),
                                     [](const WaitingNote& note) { return note.unkept.isEmpty(); });
    paragraphs.append(allKept ? localized("What is not stored yet is kept beside the store, and "
                                          "stored when the store is opened again.")
                              : localized("What is not stored yet would be lost."));
  }
  prepare(*this,
          drafts.isEmpty() ? localized("Outcomes are not stored yet. Close now?")
                           : localized("Outcomes are still being written. Close without them?"),
          paragraphs.join("\n\n"));
  QPushButton* wait = nullptr;
  if (drafts.isEmpty()) {
    wait = addButton(localized("Wait until stored"), QMessageBox::AcceptRole);
    wait->setObjectName("desk.question.wait");
  }
  QPushButton* close = drafts.isEmpty()
                           ? addButton(localized("Close now"), QMessageBox::DestructiveRole)
                           : addButton(QMessageBox::Discard);
  close->setObjectName("desk.question.close");
  QPushButton* cancel = addButton(QMessageBox::Cancel);
  setDefaultButton(wait != nullptr ? wait : cancel);
  setEscapeButton(cancel);
  connect(close, &QPushButton::clicked, this, &CloseQuestion::closeWanted);
  if (wait != nullptr) connect(wait, &QPushButton::clicked, this, &CloseQuestion::waitWanted);
}

CloseWait::CloseWait(QWidget* parent) : QMessageBox(parent) {
  setObjectName("desk.wait");
  prepare(*this, localized("The window closes as soon as everything is stored."), {});
  setIcon(QMessageBox::Information);
  QPushButton* close = addButton(localized("Close now"), QMessageBox::DestructiveRole);
  close->setObjectName("desk.wait.close");
  setEscapeButton(addButton(QMessageBox::Cancel));
  connect(close, &QPushButton::clicked, this, &CloseWait::closeWanted);
  connect(this, &QDialog::rejected, this, &CloseWait::cancelled);
}

DiscardQuestion::DiscardQuestion(const std::vector<WaitingNote>& waiting, QWidget* parent)
    : QMessageBox(parent) {
  setObjectName("desk.discard");
  prepare(*this, localized("Discard what is not stored yet?"), some(linesOf(waiting)));
  QPushButton* discard = addButton(QMessageBox::Discard);
  setDefaultButton(addButton(QMessageBox::Cancel));
  connect(discard, &QPushButton::clicked, this, &DiscardQuestion::discardWanted);
}

}  // namespace vemra::desk
