#pragma once

#include <vector>

#include <QStringList>

class QWidget;

namespace vemra::desk {

/// What a reader has done with the content of a pane, to be done again with new content: the pieces
/// that are open, the texts that are selected, and the focus.
///
/// Pieces are found again by their keys (`Pieces::path`), a label by its text: of equal ones, the one
/// with the same neighbours.
class PaneReading {
 public:
  explicit PaneReading(const QWidget& content);

  /// Opens and selects in new content, which is not on the screen yet.
  ///
  /// - Returns: the widget that is to have the focus; nullptr when it was not in the content, or what
  ///   had it is not there any more.
  QWidget* restore(QWidget& content);

 private:
  struct Opened {
    QStringList path;
    int shown = 0;
    bool hasFocus = false;
  };
  struct Marked {
    qsizetype label = 0;  ///< its place among all labels
    int start = -1;       ///< of the selection; -1 without one
    int length = 0;
    bool hasFocus = false;
  };

  QWidget* reopen(QWidget& content);

  std::vector<Opened> opened_;
  QStringList texts_;  ///< of all labels, in their order
  std::vector<Marked> marked_;
};

}  // namespace vemra::desk
