#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Page.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"
#include "VemraTesting/ElementError.hpp"
#include "VemraTesting/Query.hpp"

#include <exception>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace vemra::testing {

/// A view on a terminal: what a person sees of it, as text, and what a keyboard and a wheel do to it.
///
///     Viewport screen(GoalResultView{snapshot, …}, {80, 24});
///     screen.end();                                   // the last page
///     screen.tab();                                   // the next control, wherever its row is
///     screen.press();                                 // the Space key
///     screen.type("met at the fair");
///     EXPECT_EQ(screen.text(), "…");
///
/// Rows come as they are scrolled to, by the same page (`page::Page`) that a window shows. Spacing and
/// padding are whole cells, one for 8 points across and one for 20 down.
///
///     [Save]  <Ada>                a button, with a frame and plain
///     [Helped.  v]                 a picker, as wide as its widest choice
///     [Note: met at the f_]        a text field with its title
///     >Save<                       the same with the focus, whatever it is
///     (Save)                       the same when it is disabled
///
/// A character takes the columns that a terminal gives it (`text::Glyph`). In a right-to-left
/// environment the page is mirrored; characters stay in the order of the text, because a terminal turns
/// them. What a terminal would obey is escaped.
///
/// What a description or an action throws comes out of the call that led to it. Main thread only.
class VEMRA_EXPORT Viewport final : private page::PageHost {
 public:
  /// Mounts `root`.
  ///
  /// - Parameter size: columns and lines; at least one cell is shown.
  Viewport(ui::View root, page::Size size, ui::Environment environment = {});
  /// Shows what a graph that lives elsewhere, and outlives the viewport, shows now.
  Viewport(ui::ViewGraph& graph, page::Size size);
  Viewport(const Viewport&) = delete;
  Viewport& operator=(const Viewport&) = delete;
  ~Viewport();

  /// Shows another root, as a host does with a fresh snapshot.
  void show(ui::View root);
  void setEnvironment(ui::Environment environment);
  void resize(page::Size size);

  /// The lines that are seen, each with a line break, without blanks at their ends.
  std::string text() const;

  /// \name Scrolling @{
  /// Turns the wheel by so many lines, upwards when negative.
  void wheel(int lines);
  void pageDown() { wheel(size_.height - 1); }
  void pageUp() { wheel(1 - size_.height); }
  void home() { scrollToLine(0); }
  void end() { scrollToLine(maximum_); }
  /// The line of the page at the top.
  int position() const { return position_; }
  /// How many lines the page has: as far as rows were measured, the rest estimated.
  int length() const { return page_.contentHeight(); }
  /// @}

  /// \name The keyboard @{
  /// Moves the focus to the next control in tree order, or to the first one; false at the end.
  bool tab() { return moveFocus(page::Page::Direction::forward); }
  /// The same backwards, from the last one.
  bool backTab() { return moveFocus(page::Page::Direction::backward); }
  /// The element with the focus; nullptr without one.
  const ui::Element* focusedElement() const;
  /// Presses the button with the focus. The verbs below throw `ElementError` when the focus is not on
  /// an element of that kind, and scroll it in first.
  void press();
  /// Chooses in the picker with the focus what is shown as `label`.
  void choose(std::string_view label);
  /// Types behind the text of the field with the focus.
  void type(std::string_view text);
  /// Deletes all text of the field with the focus.
  void clear();
  /// @}

  /// Presses a button that is seen, and gives it the focus, as a mouse does. Throws `ElementError` when
  /// there is none, or it is out of view or disabled.
  void click(const Query& query);
  void click(std::string_view identifier) { click(byIdentifier(std::string(identifier))); }

  /// The living tree: what is shown of it, and how much work that took.
  const ui::ViewGraph& graph() const { return graph_; }

 private:
  page::Size measure(const page::Node& leaf, int width) override;
  page::Grid grid() const override { return {8, 20}; }
  page::Size viewportSize() const override { return size_; }
  void showScrollRange(int maximum, int position) override;
  void scrollTo(int position) override;
  void place(const page::Placements& placements) override;
  void removing(page::Node& node) override;
  ui::NodeID focused() const override { return focus_; }
  void giveFocus(const page::Node& control, page::FocusReason reason) override;
  void loseFocus() override { focus_ = {}; }
  void failed(std::exception_ptr error) override;

  bool moveFocus(page::Page::Direction direction);
  void scrollToLine(int line);
  void deliver(ui::NodeID node, ui::Event event);
  const page::Node& focusedControl(ui::ElementKind kind, std::string_view name);
  template <class Work>
  void call(const Work& work);
  void rethrow();

  page::Size size_;
  int maximum_ = 0, position_ = 0;
  std::map<ui::NodeID, page::Rect> drawn_;  // on the whole page
  ui::NodeID focus_;
  std::exception_ptr error_;
  std::unique_ptr<ui::ViewGraph> ownGraph_;
  ui::ViewGraph& graph_;
  page::Page page_;  // last, because it asks its host while it lives
};

}  // namespace vemra::testing
