#pragma once

#include <vector>

#include <QString>
#include <QWidget>

namespace vemra::desk {

/// A path as a small graph: a star for each person, in path order, joined by lines, with the name
/// beside it. The person whom the path leads to is the bright one.
class PathGraph : public QWidget {
  Q_OBJECT

 public:
  explicit PathGraph(std::vector<QString> names, QWidget* parent = nullptr);

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override { return {220, heightForWidth(220)}; }
  QSize minimumSizeHint() const override { return {120, heightForWidth(220)}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Star {
    QPointF centre;
    QRectF name;
  };
  /// Where everything stands in that width; the height comes last.
  std::vector<Star> layout(int width, double& height) const;

  std::vector<QString> names_;
};

}  // namespace vemra::desk
