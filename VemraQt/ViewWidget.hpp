#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"

#include <functional>
#include <memory>

#include <QAbstractScrollArea>

namespace vemra::qt {

class AccessibleTree;
class Page;

/// A view in a window: real widgets for what is near the viewport, one scroll area around it all.
///
///     vemra::qt::ViewWidget widget;
///     widget.setRoot(GoalResultView(snapshot, …));
///     widget.show();
///
/// Shows any view. The whole tree scrolls as one page; a `ScrollView` inside says only whether the
/// scroll bar is seen. A widget's `objectName` is its element's accessibility identifier.
///
/// What a description of the tree throws stops nothing. A call of the host throws it when all else
/// is done; what an event brings up is thrown from the event loop, never into Qt (`PageErrors`).
///
/// Must not be destroyed by an action of the tree, nor by what hears its accessibility events; that
/// stops the process. `deleteLater` and closing its window are allowed there.
///
/// Until `setEnvironment` is called the widget follows the system: its palette, its direction and
/// the user's locale and time zone. Main thread only.
class VEMRA_EXPORT ViewWidget : public QAbstractScrollArea {
  Q_OBJECT

 public:
  /// Owns its view graph.
  explicit ViewWidget(QWidget* parent = nullptr);
  /// Shows a view graph that lives elsewhere and outlives the widget. Roots may be handed to the
  /// graph; an environment must be handed to the widget.
  explicit ViewWidget(ui::ViewGraph& graph, QWidget* parent = nullptr);
  ~ViewWidget() override;

  /// Shows `root` in place of what is shown. May be called from inside an action of the tree.
  void setRoot(ui::View root);
  void setEnvironment(ui::Environment environment);
  const ui::Environment& environment() const;
  ui::ViewGraph& graph() const;

  /// The length of the page, in pixels: as far as rows were measured, the rest estimated.
  int contentHeight() const;
  /// How many widgets there are for the elements of the page, resting ones included.
  std::size_t widgetCount() const;

 protected:
  /// Runs `work`, and throws at its end what a description threw meanwhile, as any call of the host
  /// does.
  void runAsHostCall(const std::function<void()>& work);

  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  friend class PageBehind;  // of the tests

  void prepare();
  void followSystem();
  void applyLooks();

  std::unique_ptr<ui::ViewGraph> ownGraph_;
  ui::ViewGraph& graph_;
  std::unique_ptr<Page> page_;
  std::unique_ptr<AccessibleTree> accessible_;
  bool followsSystem_ = true;
  bool applyingLooks_ = false;
  bool leaving_ = false;
  bool inEvent_ = false, resized_ = false;
};

}  // namespace vemra::qt
