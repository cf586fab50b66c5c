#pragma once

#include <vector>

#include <QStringList>

class QWidget;

namespace vemra::desk {

/// The reader's changes to the content of a pane, to be applied to new content: the opened pieces,
/// the selected texts, and the focus.
///
/// Pieces are identified by their keys (`Pieces::path`), labels by their text; of equal labels, the
/// one with the same neighbours.
class PaneReading {
 public:
  explicit PaneReading(const QWidget& content);

  /// Opens pieces and selects texts in new content, which is not on the screen yet.
  ///
  /// - Returns: the widget that should get the focus; nullptr when the focus was not in the
  ///   content, or when the focused widget has no counterpart.
  QWidget* restore(QWidget& content);

 private:
  struct Opened {
    QStringList path;
    int shown = 0;
    bool hasFocus = false;
  };
  struct Marked {
    qsizetype label = 0;  ///< its index among all labels
    int start = -1;       ///< of the selection; -1 without one
    int length = 0;
    bool hasFocus = false;
  };

  QWidget* reopen(QWidget& content);

  std::vector<Opened> opened_;
  QStringList texts_;  ///< the texts of all labels, in order
  std::vector<Marked> marked_;
};

}  // namespace vemra::desk
