#pragma once

#include <vector>

#include <QString>
#include <QWidget>

namespace vemra::desk {

/// Whether a path ends with the last person who is drawn.
enum class PathEnd { here, later };

/// A path as a small graph: a star for each person, in path order, joined by lines, with the name
/// beside it. The person whom the path leads to is the bright one. Of a name as long as a page there is
/// the beginning.
class PathGraph : public QWidget {
  Q_OBJECT

 public:
  explicit PathGraph(std::vector<QString> names, QWidget* parent = nullptr);
  /// A stretch of a path that leads to `target`.
  PathGraph(std::vector<QString> names, const QString& target, PathEnd end,
            QWidget* parent = nullptr);

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
  PathEnd end_;
};

}  // namespace vemra::desk
