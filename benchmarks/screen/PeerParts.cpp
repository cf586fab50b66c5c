#include "benchmarks/screen/PeerParts.hpp"

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "benchmarks/screen/PeerData.hpp"

#include <QApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

namespace vemra::bench {

namespace {

QPalette paletteOf(ui::ForegroundStyle style) {
  QPalette palette;
  palette.setColor(QPalette::Text, theme().text(style));  // on the page's own background
  palette.setColor(QPalette::WindowText, theme().text(style));
  return palette;
}

}  // namespace

const qt::Theme& theme() {
  static const qt::Theme looks(QApplication::font(), QApplication::palette(), ui::Environment());
  return looks;
}

SmallButton::SmallButton(const QString& title, const QString& identifier, QWidget* parent)
    : QPushButton(title, parent) {
  setObjectName(identifier);
  setFont(theme().font(ui::Font::caption));
  setAutoDefault(false);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize SmallButton::sizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  return {metrics.horizontalAdvance(text()) + metrics.height() + 8, 24};
}

NameButton::NameButton(const QString& name, QWidget* parent) : QPushButton(name, parent) {
  setFont(theme().font(ui::Font::body.weight(ui::FontWeight::medium)));
  setFlat(true);
  setAutoDefault(false);
  setCursor(Qt::PointingHandCursor);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize NameButton::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text()) + 2, 24};
}

void NameButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(theme().link());
  painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, text());
}

QLabel* makeText(const QString& text, ui::Font font, ui::ForegroundStyle style, QWidget* parent) {
  static const QPalette quiet = paletteOf(ui::ForegroundStyle::secondary);
  static const QPalette quieter = paletteOf(ui::ForegroundStyle::tertiary);
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setFont(theme().font(font));
  if (style == ui::ForegroundStyle::secondary) label->setPalette(quiet);
  if (style == ui::ForegroundStyle::tertiary) label->setPalette(quieter);
  label->setText(text);
  return label;
}

OutcomeSummary::OutcomeSummary(const GoalOutcomeDTO& outcome, const QString& identifierPrefix,
                               QWidget* parent)
    : QWidget(parent),
      correct_(new SmallButton(QStringLiteral("Correct"),
                               identifierPrefix + QLatin1String(".outcome.correct"), this)) {
  const auto quiet = ui::ForegroundStyle::secondary;
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  line->addWidget(makeText(labelOf(outcome.value), ui::Font::caption, quiet, this));
  if (outcome.correctsOutcomeID) {
    line->addWidget(makeText(QStringLiteral("\u00B7 corrected"), ui::Font::caption2,
                             ui::ForegroundStyle::tertiary, this));
  }
  line->addWidget(correct_);
  line->addStretch();
  column->addLayout(line);
  if (outcome.note && !outcome.note->empty()) {
    column->addWidget(makeText(toQString(*outcome.note), ui::Font::caption, quiet, this));
  }
}

OutcomeEditor::OutcomeEditor(const QString& identifierPrefix, QWidget* parent)
    : QWidget(parent),
      picker_(new QComboBox(this)),
      note_(new QLineEdit(this)),
      save_(new SmallButton(QStringLiteral("Save"),
                            identifierPrefix + QLatin1String(".outcome.save"), this)),
      cancel_(new SmallButton(QStringLiteral("Cancel"),
                              identifierPrefix + QLatin1String(".outcome.cancel"), this)) {
  setPalette(theme().paletteForFrames());
  picker_->setObjectName(identifierPrefix + QLatin1String(".outcome.picker"));
  picker_->setAccessibleName(QStringLiteral("Outcome"));
  for (const GoalOutcomeValue value : allGoalOutcomeValues) picker_->addItem(labelOf(value));
  picker_->setCurrentIndex(static_cast<int>(GoalOutcomeValue::wasUseful));
  note_->setObjectName(identifierPrefix + QLatin1String(".outcome.note"));
  note_->setAccessibleName(QStringLiteral("Note (optional)"));
  note_->setPlaceholderText(QStringLiteral("Note (optional)"));
  note_->setFixedWidth(fontMetrics().horizontalAdvance(u'm') * 34);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(6);
  column->addWidget(picker_, 0, Qt::AlignLeft);
  column->addWidget(note_, 0, Qt::AlignLeft);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(12);
  buttons->addWidget(save_);
  buttons->addWidget(cancel_);
  buttons->addStretch();
  column->addLayout(buttons);
  connect(note_, &QLineEdit::textEdited, this, [this] { check(); });
  connect(picker_, &QComboBox::activated, this, [this] { check(); });
  setFocusProxy(picker_);
}

void OutcomeEditor::check() {
  const auto value = static_cast<GoalOutcomeValue>(picker_->currentIndex());
  save_->setEnabled(GoalOutcomeRecordingFormLogic::canSave(value, note_->text().toStdString()));
}

}  // namespace vemra::bench
