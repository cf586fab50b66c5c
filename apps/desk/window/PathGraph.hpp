#pragma once

#include <vector>

#include <QString>
#include <QWidget>

class QLabel;

namespace vemra::desk {

/// Whether a path ends with the last drawn person.
enum class PathEnd { here, later };

/// A path as a small graph: a star for each person, in path order, joined by lines, with the
/// person's name beside it, which can be selected and copied. The star of the path's target is
/// bright. A very long name is shortened.
class PathGraph : public QWidget {
  Q_OBJECT

 public:
  explicit PathGraph(std::vector<QString> names, QWidget* parent = nullptr);
  /// A part of a path that leads to `target`.
  PathGraph(std::vector<QString> names, const QString& target, PathEnd end,
            QWidget* parent = nullptr);

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override { return {220, heightForWidth(220)}; }
  QSize minimumSizeHint() const override { return {120, heightForWidth(220)}; }

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Star {
    QPointF centre;
    QRect name;
  };
  /// Computes all positions for that width, and then the height.
  std::vector<Star> layout(int width, double& height) const;
  void placeNames();

  std::vector<QLabel*> names_;
  PathEnd end_;
};

}  // namespace vemra::desk
