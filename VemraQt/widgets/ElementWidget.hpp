#pragma once

#include "VemraPlatform/page/Node.hpp"
#include "VemraPlatform/ui/Event.hpp"
#include "VemraQt/Theme.hpp"
#include "VemraQt/widgets/TextShape.hpp"

#include <QStyleOption>
#include <QWidget>

namespace vemra::qt {

/// Receives the events of the widgets.
class EventSink {
 public:
  virtual void deliver(ui::NodeID node, ui::Event event) = 0;
  /// Scrolls an element into view; a widget calls it before a key acts on the element.
  virtual void scrollIn(ui::NodeID node) = 0;

 protected:
  ~EventSink() = default;
};

/// The data that all widgets of one page share. Outlives the widgets.
struct PageContext {
  Theme theme;
  EventSink* sink = nullptr;
};

/// A widget that shows one element at a time and is reused for others.
class ElementWidget {
 public:
  explicit ElementWidget(const PageContext& page) : page_(page) {}
  virtual ~ElementWidget() = default;
  virtual QWidget& widget() = 0;

  /// The element that the widget shows; none while the widget is unused.
  ui::NodeID node() const { return node_; }
  /// Whether the widget is being updated: ignore Qt's signals meanwhile, because no person caused
  /// them.
  bool isUpdating() const { return updating_; }
  /// Whether the widget is handling that it gets or loses the focus, and may report its selection
  /// for that reason. A widget without a selection never is.
  virtual bool isChangingFocus() const { return false; }
  /// Shows a leaf of the widget's kind; `shape` is the leaf's text in its measured lines.
  void show(const page::Node& leaf, const TextShape& shape);
  /// Ends any interaction, because the widget stops showing its element.
  void reset();

 protected:
  /// Updates the widget to everything visible of the element. Must not deliver an event.
  virtual void updateTo(const page::Node& leaf, const TextShape& shape) = 0;
  virtual void endInteraction() {}

  const Theme& theme() const { return page_.theme; }
  void deliver(ui::Event event) const { page_.sink->deliver(node_, std::move(event)); }
  /// Scrolls the element into view: a key must never act on an element that its reader does not
  /// see.
  /// \return Whether the widget still shows an element. Scrolling may bring in rows, and these may
  /// remove the tree.
  bool scrollIn() const;

 private:
  const PageContext& page_;
  ui::NodeID node_;
  bool updating_ = false;
};

/// How far a widget's rectangle extends past its element's frame: for high accents, which reach
/// past their line, and for the focus ring.
QMargins overhang(const ui::Element& element, const TextShape& shape);

/// Makes the style draw the control's frame in the page's outline colour.
void frameIn(const Theme& theme, QStyleOption& option);

/// Draws a frame just inside `place` in the page's outline colour.
void drawOutline(QPainter& painter, const QWidget& control, const QRect& place, const Theme& theme);

/// Whether Qt's Fusion draws the widget, and no style sheet changes it.
bool isDrawnByFusion(const QWidget& widget);

/// Draws an outline over the frame of a button or picker that the style `drawing` has drawn, unless
/// `frameIn` was enough: other styles than Qt's Fusion have colours of their own for frames, which
/// may be too faint on the page. Leaves a control with a style sheet as its author wants it.
void strengthenFrame(QPainter& painter, const QWidget& control, const QStyle& drawing,
                     const Theme& theme);

/// The shape inside a focus ring; the ring is wider around a frame, because it has to cover the
/// frame.
enum class RingAround { text, frame };

/// Draws the focus ring just inside `place`.
void drawFocusRing(QPainter& painter, const QRect& place, const Theme& theme, RingAround what);

inline QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The label of a leaf whose lines are `shape`. It shares the characters of a long text.
QString labelOf(const page::Node& leaf, const TextShape& shape);

}  // namespace vemra::qt
