#pragma once

#include "VemraQt/widgets/ElementWidget.hpp"

#include <memory>
#include <vector>

namespace vemra::qt {

/// The widgets of a page: as many as its viewport needs, reused while it scrolls.
///
/// Widgets are kept by shape (kind, font, colour, style), because setting a widget's font costs
/// more than any other change. A widget that is returned stays in place and visible until
/// `hideResting`, so that a widget which is taken again at once only moves.
class WidgetPool {
 public:
  WidgetPool(QWidget* parent, const PageContext& page) : parent_(parent), page_(page) {}

  /// Returns an unused widget of the element's shape, or a new one.
  ElementWidget& take(const ui::Element& element);
  /// Moves a widget in use to the shelf of its element's new shape. It stays the same widget, with
  /// its focus, its cursor and its other state.
  void reshape(ElementWidget& widget, const ui::Element& element);
  void giveBack(ElementWidget& widget);
  /// Hides the returned widgets, and deletes those that exceed a page's likely need.
  void hideResting();
  /// Call it when fonts or colours have changed.
  void restyle();

  /// The number of widgets, unused ones included.
  std::size_t size() const;

 private:
  struct Shape {
    ui::ElementKind kind;
    ui::Font font;
    ui::ForegroundStyle foreground;
    ui::ButtonStyle buttonStyle;
    friend bool operator==(const Shape&, const Shape&) = default;
  };
  struct Shelf {
    Shape shape;
    std::vector<std::unique_ptr<ElementWidget>> all;
    std::vector<ElementWidget*> resting;  // the last entry is taken first
  };
  static Shape shapeOf(const ui::Element& element);
  Shelf& shelfFor(const Shape& shape);
  /// The shelf that holds a widget of this pool.
  Shelf& shelfOf(const ElementWidget& widget);
  std::unique_ptr<ElementWidget> make(const Shape& shape) const;

  QWidget* parent_;
  const PageContext& page_;
  std::vector<Shelf> shelves_;
};

}  // namespace vemra::qt
