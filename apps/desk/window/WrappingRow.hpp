#pragma once

#include <memory>
#include <vector>

#include <QLayout>

class QBoxLayout;

namespace vemra::desk {

/// Widgets in a row from the leading edge, in further lines below where the row is too wide. No
/// widget is narrower than it wants to be, except one that is wider than the whole row; that one may
/// become higher. It is for buttons: in a narrow window with large text, Qt's own row cuts their titles. It has no margins.
class WrappingRow : public QLayout {
  Q_OBJECT

 public:
  explicit WrappingRow(QWidget* parent = nullptr);
  ~WrappingRow() override;

  void addItem(QLayoutItem* item) override;
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;

  Qt::Orientations expandingDirections() const override { return {}; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  /// The size of one line with all widgets.
  QSize sizeHint() const override;
  /// The widest and the highest minimum size of a widget.
  QSize minimumSize() const override;
  void setGeometry(const QRect& area) override;

 private:
  enum class Moves { yes, no };
  int gap() const;
  int arrange(const QRect& area, Moves moves) const;

  std::vector<std::unique_ptr<QLayoutItem>> items_;
};

/// Lets `row`, the last part of `content`, stand beside the other parts, or below them if fewer
/// than `least` pixels of `width` would be left for them.
void placeBesideOrBelow(QBoxLayout& content, WrappingRow& row, int width, int least);

}  // namespace vemra::desk
