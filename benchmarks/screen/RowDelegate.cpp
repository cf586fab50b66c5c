#include "benchmarks/screen/RowDelegate.hpp"

#include "benchmarks/data/SampleResult.hpp"
#include "benchmarks/screen/PeerParts.hpp"

#include <QApplication>
#include <QPainter>
#include <QStyleOptionButton>

namespace vemra::bench {

namespace {

constexpr int margin = 24;
constexpr int target = 24;  // the height of buttons

}  // namespace

RowDelegate::Line RowDelegate::line(ui::Font font) {
  const QFont made = theme().font(font);
  return {made, QFontMetrics(made)};
}

RowDelegate::RowDelegate(const PageModel& model, QObject* parent)
    : QStyledItemDelegate(parent),
      model_(model),
      title_(line(ui::Font::title2.weight(ui::FontWeight::semibold))),
      headline_(line(ui::Font::headline)),
      name_(line(ui::Font::body.weight(ui::FontWeight::medium))),
      why_(line(ui::Font::subheadline)),
      caption_(line(ui::Font::caption)) {}

int RowDelegate::heightAboveControl(std::size_t person) const {
  return 4 + target + 4 + why_.metrics.height() + 4 +
         (model_.peer().hasSource(person) ? target + 4 : 0);
}

int RowDelegate::controlHeight(std::size_t person) const {
  if (model_.editing() == person) return 84;
  const GoalOutcomeDTO* outcome = model_.peer().outcome(person);
  const bool hasNote = outcome && outcome->note && !outcome->note->empty();
  return target + (hasNote ? caption_.metrics.height() + 2 : 0);
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const {
  switch (model_.kind(index.row())) {
    case PageModel::RowKind::title:
      return {0, margin + title_.metrics.height() + 20};
    case PageModel::RowKind::headline:
      return {0, headline_.metrics.height()};
    case PageModel::RowKind::person: {
      const std::size_t person = model_.personAt(index.row());
      return {0, 10 + heightAboveControl(person) + controlHeight(person) + 4};
    }
    case PageModel::RowKind::pathHeadline:
      return {0, 24 + headline_.metrics.height()};
    case PageModel::RowKind::path:
      return {0, 10 + why_.metrics.height() + 2 * (4 + target)};
    case PageModel::RowKind::footer:
      return {0, 20 + caption_.metrics.height() + margin};
  }
  return {};
}

void RowDelegate::paintText(QPainter& painter, QRect area, const Line& line, const QColor& color,
                            const QString& text) const {
  painter.setFont(line.font);
  painter.setPen(color);
  painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

void RowDelegate::paintButton(QPainter& painter, const QStyleOptionViewItem& option, QPoint corner,
                              const QString& title) const {
  QStyleOptionButton button;
  button.palette = theme().paletteForFrames();
  button.direction = option.direction;
  button.state = QStyle::State_Enabled | QStyle::State_Raised;
  button.fontMetrics = caption_.metrics;
  const int width = caption_.metrics.horizontalAdvance(title) + caption_.metrics.height() + 8;
  button.rect = QRect(corner, QSize(width, target));
  button.text = title;
  painter.setFont(caption_.font);
  option.widget->style()->drawControl(QStyle::CE_PushButton, &button, &painter, option.widget);
}

void RowDelegate::paintPerson(QPainter& painter, const QStyleOptionViewItem& option,
                              std::size_t person) const {
  const PeerData& peer = model_.peer();
  QRect row = option.rect.adjusted(margin, 14, -margin, 0);
  row.setHeight(target);
  paintText(painter, row, name_, theme().link(), peer.name(person));
  row.translate(0, target + 4);
  row.setHeight(why_.metrics.height());
  const QColor quiet = theme().text(ui::ForegroundStyle::secondary);
  paintText(painter, row, why_, quiet, peer.why(person));
  row.translate(0, row.height() + 4);
  row.setHeight(target);
  if (peer.hasSource(person)) {
    paintButton(painter, option, row.topLeft(), QStringLiteral("Show source"));
    row.translate(0, target + 4);
  }
  if (model_.editing() == person) return;  // the editor's widgets are there
  const GoalOutcomeDTO* outcome = peer.outcome(person);
  if (!outcome) {
    paintButton(painter, option, row.topLeft(), QStringLiteral("Record outcome"));
    return;
  }
  const QString label = labelOf(outcome->value);
  paintText(painter, row, caption_, quiet, label);
  row.setLeft(row.left() + caption_.metrics.horizontalAdvance(label) + 8);
  if (outcome->correctsOutcomeID) {
    const QString corrected = QStringLiteral("\u00B7 corrected");
    paintText(painter, row, caption_, theme().text(ui::ForegroundStyle::tertiary), corrected);
    row.setLeft(row.left() + caption_.metrics.horizontalAdvance(corrected) + 8);
  }
  paintButton(painter, option, row.topLeft(), QStringLiteral("Correct"));
  if (outcome->note && !outcome->note->empty()) {
    row.setLeft(option.rect.left() + margin);
    row.translate(0, target + 2);
    row.setHeight(caption_.metrics.height());
    paintText(painter, row, caption_, quiet, toQString(*outcome->note));
  }
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  const QColor ink = theme().text(ui::ForegroundStyle::primary);
  const QColor quiet = theme().text(ui::ForegroundStyle::secondary);
  QRect area = option.rect.adjusted(margin, 0, -margin, 0);
  switch (model_.kind(index.row())) {
    case PageModel::RowKind::title:
      area.adjust(0, margin, 0, -20);
      paintText(*painter, area, title_, ink, model_.text(index.row()));
      break;
    case PageModel::RowKind::headline:
      paintText(*painter, area, headline_, ink, model_.text(index.row()));
      break;
    case PageModel::RowKind::person:
      paintPerson(*painter, option, model_.personAt(index.row()));
      break;
    case PageModel::RowKind::pathHeadline:
      area.setTop(area.top() + 24);
      paintText(*painter, area, headline_, ink, model_.text(index.row()));
      break;
    case PageModel::RowKind::path:
      area.setTop(area.top() + 10);
      area.setHeight(why_.metrics.height());
      paintText(*painter, area, why_, ink, model_.text(index.row()));
      paintButton(*painter, option, area.bottomLeft() + QPoint(0, 5),
                  QStringLiteral("See in Starfold"));
      paintButton(*painter, option, area.bottomLeft() + QPoint(0, 9 + target),
                  QStringLiteral("Record outcome"));
      break;
    case PageModel::RowKind::footer:
      area.adjust(0, 20, 0, -margin);
      paintText(*painter, area, caption_, quiet, model_.text(index.row()));
      break;
  }
}

QWidget* RowDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                   const QModelIndex& index) const {
  const std::string prefix = identifierPrefixOf(model_.personAt(index.row()));
  return new OutcomeEditor(toQString(prefix), parent);
}

void RowDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                       const QModelIndex& index) const {
  const int above = 10 + heightAboveControl(model_.personAt(index.row()));
  editor->setGeometry(option.rect.adjusted(margin, above, -margin, -4));
}

}  // namespace vemra::bench
