#pragma once

#include "VemraQt/widgets/ElementWidget.hpp"

#include <memory>
#include <vector>

namespace vemra::qt {

/// The widgets of a page: as many as fit on it, used again and again.
///
/// Widgets are kept by shape (kind, font, colour, style), because changing a widget's font costs
/// more than anything else about it. A widget that is given back stays where it is and visible
/// until `hideResting`, so that one that is needed elsewhere at once only moves.
class WidgetPool {
 public:
  WidgetPool(QWidget* parent, const PageContext& page) : parent_(parent), page_(page) {}

  /// A resting widget of the element's shape, or a new one.
  ElementWidget& take(const ui::Element& element);
  /// Gives a lent widget the shape that its element has now. It stays the same widget, with its
  /// focus, its cursor and what else a person has done with it.
  void reshape(ElementWidget& widget, const ui::Element& element);
  void giveBack(ElementWidget& widget);
  /// Hides what was given back, and deletes what is more than a page is likely to need.
  void hideResting();
  /// Fonts or colours have changed.
  void restyle();

  /// How many widgets there are, resting ones included.
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
    std::vector<ElementWidget*> resting;  // the last ones given back come first
  };
  static Shape shapeOf(const ui::Element& element);
  Shelf& shelfFor(const Shape& shape);
  /// The shelf of a widget of this pool.
  Shelf& shelfOf(const ElementWidget& widget);
  std::unique_ptr<ElementWidget> make(const Shape& shape) const;

  QWidget* parent_;
  const PageContext& page_;
  std::vector<Shelf> shelves_;
};

}  // namespace vemra::qt
