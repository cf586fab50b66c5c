#pragma once

#include "VemraPlatform/page/Node.hpp"
#include "VemraPlatform/ui/Event.hpp"
#include "VemraQt/Looks.hpp"
#include "VemraQt/widgets/TextShape.hpp"

#include <QStyleOption>
#include <QWidget>

namespace vemra::qt {

/// What takes the events of the widgets.
class EventSink {
 public:
  virtual void deliver(ui::NodeID node, ui::Event event) = 0;
  /// Scrolls an element into view, before a key acts on it.
  virtual void scrollIn(ui::NodeID node) = 0;

 protected:
  ~EventSink() = default;
};

/// What the widgets of one page have in common. Outlives them.
struct PageContext {
  Looks looks;
  EventSink* sink = nullptr;
};

/// A widget that shows one element for a while, and then perhaps another one.
class ElementWidget {
 public:
  explicit ElementWidget(const PageContext& page) : page_(page) {}
  virtual ~ElementWidget() = default;
  virtual QWidget& widget() = 0;

  /// The element it shows; none while it rests.
  ui::NodeID node() const { return node_; }
  /// It is changing what it shows: what Qt says of that is nothing a person did.
  bool isTaking() const { return taking_; }
  /// Shows a leaf of its own kind; `shape` is its text in the lines that were measured.
  void show(const page::Node& leaf, const TextShape& shape);
  /// Ends what a person was doing with it: it shows nothing for now, or another element next.
  void rest();

 protected:
  /// Takes up everything that can be seen of the element. Must not deliver an event.
  virtual void take(const page::Node& leaf, const TextShape& shape) = 0;
  virtual void letGo() {}

  const Looks& looks() const { return page_.looks; }
  void deliver(ui::Event event) const { page_.sink->deliver(node_, std::move(event)); }
  /// Scrolls the element into view: a key must never act where its reader does not see it.
  /// \return Whether it shows an element still. Rows that come in on the way may end the tree.
  bool scrollIn() const;

 private:
  const PageContext& page_;
  ui::NodeID node_;
  bool taking_ = false;
};

/// How far a widget's rectangle reaches past its element's frame: for high accents, which reach past
/// the line that they stand in, and for its focus ring.
QMargins overhang(const ui::Element& element, const TextShape& shape);

/// Makes the style frame the control in the page's own outline.
void frameIn(const Looks& looks, QStyleOption& option);

/// What a focus ring is drawn around: it is wider where it has to cover a frame.
enum class RingAround { text, frame };

/// Draws the focus ring just inside `place`.
void drawFocusRing(QPainter& painter, const QRect& place, const Looks& looks, RingAround what);

inline QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace vemra::qt
