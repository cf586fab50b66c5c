#pragma once

#include "VemraQt/widgets/ElementWidget.hpp"

#include <memory>
#include <vector>

namespace vemra::qt {

/// The widgets of a page: as many as its viewport needs, reused while it scrolls.
///
/// Widgets are kept by key (kind, font, colour, style), because setting a widget's font costs
/// more than any other change. A widget that is returned stays in place and visible until
/// `hideUnused`, so that a widget which is acquired again at once only moves.
class WidgetPool {
 public:
  WidgetPool(QWidget* parent, const PageContext& page) : parent_(parent), page_(page) {}

  /// Returns an unused widget of the element's key, or a new one.
  ElementWidget& acquire(const ui::Element& element);
  /// Moves a widget in use to the shelf of its element's new key. It stays the same widget, with
  /// its focus, its cursor and its other state.
  void changeKey(ElementWidget& widget, const ui::Element& element);
  void recycle(ElementWidget& widget);
  /// Hides the returned widgets, and deletes those that exceed a page's likely need.
  void hideUnused();
  /// Call it when fonts or colours have changed.
  void restyle();

  /// The number of widgets, unused ones included.
  std::size_t size() const;

 private:
  struct Key {
    ui::ElementKind kind;
    ui::Font font;
    ui::ForegroundStyle foreground;
    ui::ButtonStyle buttonStyle;
    friend bool operator==(const Key&, const Key&) = default;
  };
  struct Shelf {
    Key key;
    std::vector<std::unique_ptr<ElementWidget>> all;
    std::vector<ElementWidget*> unused;  // the last entry is taken first
  };
  static Key keyOf(const ui::Element& element);
  Shelf& shelfFor(const Key& key);
  /// The shelf that holds a widget of this pool.
  Shelf& shelfOf(const ElementWidget& widget);
  std::unique_ptr<ElementWidget> make(const Key& key) const;

  QWidget* parent_;
  const PageContext& page_;
  std::vector<Shelf> shelves_;
};

}  // namespace vemra::qt
