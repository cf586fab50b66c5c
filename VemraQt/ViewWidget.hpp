#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/EnvironmentOverrides.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <QAbstractScrollArea>
#include <QPointer>

namespace vemra::qt {

class AccessiblePage;
class Page;

/// Shows a view in a window: one scroll area, with real widgets for the elements near the viewport.
///
///     vemra::qt::ViewWidget widget;
///     widget.setRoot(GoalResultView(snapshot, …));
///     widget.show();
///
/// It shows any view. The whole tree scrolls as one page; a `ScrollView` inside it only decides
/// whether the scroll bar is visible. A widget's `objectName` is its element's accessibility
/// identifier.
///
/// An exception from a description does not stop the widget. During a call of the host, the widget
/// rethrows the exception at the end of that call; during an event, it rethrows it from the event
/// loop, never into Qt (`PageErrors`).
///
/// Neither an action of the tree, nor a slot of its signals, nor a handler of its accessibility
/// events may destroy the widget: that stops the process. They may call `deleteLater` or close the
/// widget's window.
///
/// `setAccessibleName` names the page for assistive technology, such as "What came of it".
///
/// A widget that owns its graph uses the environment around it (`environmentAround`: the palette
/// and the direction of its parent widget, the system's language, locale and time zone) and follows
/// its changes, but for the values that the host sets with `setOverrides`, until the host calls
/// `setEnvironment`. The page decides its own palette and direction: set them on its parent or in
/// the overrides, not on this widget. Main thread only.
class VEMRA_EXPORT ViewWidget : public QAbstractScrollArea {
  Q_OBJECT

 public:
  /// Owns its view graph.
  explicit ViewWidget(QWidget* parent = nullptr);
  /// Shows a view graph that the caller owns and that outlives the widget, in the graph's
  /// environment. The caller may set roots and environments on the graph. An exception of a
  /// description does not leave the constructor; the event loop rethrows it.
  explicit ViewWidget(ui::ViewGraph& graph, QWidget* parent = nullptr);
  ~ViewWidget() override;

  /// Replaces the shown tree by `root`. An action of the tree may call this.
  void setRoot(ui::View root);
  /// Shows the tree in the environment around the widget with these values in place of its own,
  /// instead of the previous overrides or environment; state is kept. The widget follows the
  /// changes of all other values, also where it shows a graph of the caller.
  void setOverrides(ui::EnvironmentOverrides overrides);
  /// Shows the tree in this environment; state is kept. The widget no longer follows the system's.
  void setEnvironment(ui::Environment environment);
  /// The environment of the shown tree: the one around the widget with the overrides, or that of
  /// `setEnvironment`.
  const ui::Environment& environment() const;
  /// The graph that the widget shows.
  ui::ViewGraph& graph() const;

  /// \name Elements by their accessibility identifiers, byte for byte
  ///
  ///     widget.focus("vemra.goal.person.p90.outcome.start");
  ///     connect(&widget, &vemra::qt::ViewWidget::pressed, this,
  ///             [](const std::string& identifier) { qInfo() << identifier.c_str(); });
  ///
  /// They find a text or a control wherever the page is scrolled, also in a row without widgets,
  /// and no stack or group, which assistive technology does not find either. Identifiers should be
  /// unique: of several elements with the identifier, one outside lists, or in a row whose id the
  /// identifier contains, comes before those in other rows. A widget that is hidden scrolls and
  /// focuses when it is shown, for the last of these calls. While an event is being handled (inside
  /// an action of the tree or a slot of `pressed`), elements of rows without widgets are not found:
  /// connect the slot with `Qt::QueuedConnection` to reach them. Like every call of the host, they
  /// rethrow what a description throws.
  /// @{

  /// Scrolls an element into view, only as far as needed; the focus stays. Returns whether there is
  /// such an element.
  bool reveal(std::string_view identifier);
  /// Gives a control the keyboard focus and scrolls it into view. Returns whether the control took
  /// the focus, or will take it when the widget is shown; an element that cannot have it, such as a
  /// text or a disabled button, is scrolled into view.
  bool focus(std::string_view identifier);
  /// @}

  /// The length of the page in pixels: measured rows count with their height, other rows with an
  /// estimate.
  int contentHeight() const;
  /// The number of widgets for the page's elements, including unused ones kept for reuse.
  std::size_t widgetCount() const;

 Q_SIGNALS:
  /// A button is pressed, by a person, by assistive technology or by a call of
  /// `ViewGraph::deliver`. Comes right before the button's action. A button without an identifier
  /// has "". A slot must not throw.
  void pressed(const std::string& identifier);
  /// An element is about to handle this event: a press, a choice, a changed text, the Return key.
  /// Comes after `pressed`, and follows the same rules.
  void acted(const std::string& identifier, const vemra::ui::Event& event);

 protected:
  /// Runs `work` as a call of the host: at its end rethrows the first exception that a description
  /// has thrown, during `work` or earlier, and that the event loop has not rethrown yet.
  void runAsHostCall(const std::function<void()>& work);

  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  enum class Visit { reveal, focus };
  /// A visit that waits until the widget is shown.
  struct Waiting {
    Visit visit;
    std::string identifier;
  };

  void prepare();
  bool visit(Visit visit, std::string identifier);
  void followSystem();
  void watchParent();
  void changeEnvironment(ui::Environment environment);

  std::unique_ptr<ui::ViewGraph> ownGraph_;
  ui::ViewGraph& graph_;
  std::unique_ptr<Page> page_;
  std::unique_ptr<AccessiblePage> accessible_;
  ui::EnvironmentOverrides overrides_;
  bool followsSystem_ = true;
  std::optional<Waiting> waiting_;
  QPointer<QWidget> parent_;  ///< watched for its palette and direction
  ui::EventObservation hearing_;
  bool leaving_ = false;
  bool inEvent_ = false, resized_ = false;
};

}  // namespace vemra::qt
