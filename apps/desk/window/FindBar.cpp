#include "apps/desk/window/FindBar.hpp"

#include "apps/desk/window/AlertFrame.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/WrappingRow.hpp"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

namespace vemra::desk {

namespace {

/// Longer than a person takes from one letter to the next.
constexpr int millisecondsUntilSettled = 600;

}  // namespace

FindBar::FindBar(QWidget* parent)
    : QFrame(parent),
      field_(new QLineEdit),
      result_(new QLabel),
      announcement_(new Announcement(this)),
      content_(new QHBoxLayout(this)),
      search_(new QHBoxLayout),
      buttons_(new WrappingRow) {
  setObjectName("desk.find");
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::AlternateBase);
  content_->setContentsMargins(16, 8, 12, 8);
  field_->setObjectName("desk.find.text");
  field_->setPlaceholderText(localized("Names, reasons and notes"));
  field_->setAccessibleName(localized("Find people"));
  field_->setClearButtonEnabled(true);
  field_->installEventFilter(this);
  result_->setObjectName("desk.find.result");
  result_->setTextFormat(Qt::PlainText);
  search_->addWidget(field_, 1);
  search_->addWidget(result_);
  content_->addLayout(search_, 1);
  content_->addLayout(buttons_);
  const auto add = [&](const QString& title, const char* name, void (FindBar::*wanted)()) {
    auto* button = new QPushButton(title);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(true);  // otherwise Return presses it on some desktops only
    connect(button, &QPushButton::clicked, this, wanted);
    buttons_->addWidget(button);
    return button;
  };
  ofHit_.push_back(add(localized("Previous"), "desk.find.previous", &FindBar::previousWanted));
  ofHit_.push_back(add(localized("Next"), "desk.find.next", &FindBar::nextWanted));
  ofHit_.push_back(add(localized("Go there"), "desk.find.go", &FindBar::hitWanted));
  add(localized("Close"), "desk.find.close", &FindBar::closeWanted);
  setHasHit(false);
  connect(field_, &QLineEdit::textChanged, this, [this](const QString& text) {
    expectNews();
    Q_EMIT textChanged(text);
  });
  settled_.setSingleShot(true);
  settled_.setInterval(millisecondsUntilSettled);
  connect(&settled_, &QTimer::timeout, this, [this] {
    if (!isVisible()) return;
    announced_ = news_;
    announcement_->announce(news_);
  });
  hide();
}

QString FindBar::text() const {
  return field_->text();
}

void FindBar::open() {
  show();
  field_->setFocus(Qt::ShortcutFocusReason);
  field_->selectAll();
}

void FindBar::setResult(const QString& result, const QString& news) {
  result_->setText(result);
  field_->setAccessibleDescription(result);
  news_ = news;
  news.isEmpty() || news == announced_ ? settled_.stop() : settled_.start();
}

void FindBar::setHasHit(bool hasHit) {
  for (QPushButton* button : ofHit_) {
    // Also in an inactive window, in which no widget has the focus.
    if (!hasHit && window()->focusWidget() == button) field_->setFocus();
    button->setEnabled(hasHit);
  }
}

void FindBar::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) placeButtons();
}

void FindBar::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  placeButtons();
}

/// The result counts with the width of a long one, so that nothing moves when it appears or
/// changes.
void FindBar::placeButtons() {
  constexpr int charactersOfResult = 16;
  constexpr int charactersOfText = 24;
  constexpr int fewestCharactersOfText = 12;
  constexpr int aroundText = 40;  // the frame of the field, its button that clears it, and gaps
  const QMargins margins = content_->contentsMargins();
  const int character = fontMetrics().averageCharWidth();
  const int around = margins.left() + margins.right() + aroundText;
  const int room = width() - around;
  const bool isTight = room < (charactersOfResult + fewestCharactersOfText) * character;
  search_->setDirection(isTight ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
  placeBesideOrBelow(*content_, *buttons_, width(),
                     around + (charactersOfResult + charactersOfText) * character);
}

bool FindBar::eventFilter(QObject* object, QEvent* event) {
  if (object != field_ || event->type() != QEvent::KeyPress) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) return false;
  key->modifiers().testFlag(Qt::ShiftModifier) ? Q_EMIT previousWanted() : Q_EMIT nextWanted();
  return true;
}

}  // namespace vemra::desk
