#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/EnvironmentOverrides.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"

#include <functional>
#include <memory>

#include <QAbstractScrollArea>

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
/// Neither an action of the tree nor a handler of its accessibility events may destroy the widget:
/// that stops the process. Both may call `deleteLater` or close the widget's window.
///
/// A widget that owns its graph uses the system's environment (`systemEnvironment`: palette,
/// direction, language, locale and time zone) and follows its changes, but for the values that the
/// host sets with `setOverrides`, until the host calls `setEnvironment`. Main thread only.
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
  /// Shows the tree in the system's environment with these values in place of its own, instead of
  /// the previous overrides or environment; state is kept. The widget follows the changes of all
  /// other values, also where it shows a graph of the caller.
  void setOverrides(ui::EnvironmentOverrides overrides);
  /// Shows the tree in this environment; state is kept. The widget no longer follows the system's.
  void setEnvironment(ui::Environment environment);
  /// The environment of the shown tree: the system's with the overrides, or that of
  /// `setEnvironment`.
  const ui::Environment& environment() const;
  /// The graph that the widget shows.
  ui::ViewGraph& graph() const;

  /// The length of the page in pixels: measured rows count with their height, other rows with an
  /// estimate.
  int contentHeight() const;
  /// The number of widgets for the page's elements, including unused ones kept for reuse.
  std::size_t widgetCount() const;

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
  void prepare();
  void followSystem();
  void changeEnvironment(ui::Environment environment);

  std::unique_ptr<ui::ViewGraph> ownGraph_;
  ui::ViewGraph& graph_;
  std::unique_ptr<Page> page_;
  std::unique_ptr<AccessiblePage> accessible_;
  ui::EnvironmentOverrides overrides_;
  bool followsSystem_ = true;
  bool leaving_ = false;
  bool inEvent_ = false, resized_ = false;
};

}  // namespace vemra::qt
