#pragma once

#include <QStackedWidget>

namespace vemra::desk {

/// The margin at either side of the texts in a page of that width.
int marginBesidePage(int width);

/// Pages in one place, of which one is visible.
///
/// Assistive technology sees only that page too. Qt would list every page: then a client that looks
/// for an element could find that of a goal which is not open, under the same identifier.
class Pages : public QStackedWidget {
  Q_OBJECT

 public:
  explicit Pages(QWidget* parent = nullptr);

  /// Adds a page that gets a scroll bar where it is higher than its place.
  void addScrolledPage(QWidget& page);
  /// Shows a page, which it adds if it is new, and announces the change of its only child.
  void showPage(QWidget& page);
  /// The visible page, also where it scrolls; null before the first.
  QWidget* currentPage() const;

  /// The least size of the visible page. Qt would take the largest of all pages, and a message
  /// below them would be cut in a low window.
  QSize minimumSizeHint() const override;
};

}  // namespace vemra::desk
