#pragma once

#include "VemraQt/Theme.hpp"
#include "benchmarks/screen/PageModel.hpp"

#include <QFontMetrics>
#include <QStyledItemDelegate>

namespace vemra::bench {

/// Paints the rows of a `PageModel`, and computes their heights without laying out any text.
class RowDelegate final : public QStyledItemDelegate {
 public:
  RowDelegate(const PageModel& model, QObject* parent);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;

 private:
  struct Line {
    QFont font;
    QFontMetrics metrics;
  };
  static Line line(ui::Font font);

  void paintPerson(QPainter& painter, const QStyleOptionViewItem& option, std::size_t person) const;
  void paintButton(QPainter& painter, const QStyleOptionViewItem& option, QPoint corner,
                   const QString& title) const;
  void paintText(QPainter& painter, QRect area, const Line& line, const QColor& color,
                 const QString& text) const;
  int heightAboveControl(std::size_t person) const;
  int controlHeight(std::size_t person) const;

  const PageModel& model_;
  Line title_, headline_, name_, why_, caption_;
};

}  // namespace vemra::bench
