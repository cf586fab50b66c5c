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

/// Shows a view on character cells, as on a terminal: returns the visible part as text, and has
/// functions for the keys and the wheel.
///
///     Viewport screen(GoalResultView{snapshot, …}, {80, 24});
///     screen.end();                                   // the last page
///     screen.tab();                                   // the next control, wherever its row is
///     screen.press();                                 // the Space key
///     screen.type("met at the fair");
///     EXPECT_EQ(screen.text(), "…");
///
/// Rows are loaded during scrolling by the same page (`page::Page`) that a window uses. Spacing and
/// padding are whole cells, one for 8 points of width and one for 20 points of height.
///
///     [Save]  <Ada>                a button, with a frame and plain
///     [Helped.  v]                 a picker, as wide as its widest choice; its title is hidden
///     [Mood: Good     v]           a picker with its title
///     [Note: met at the f_]        a text field with its title
///     >Save<                       any control with the focus
///     (Save)                       any disabled control
///
/// A character takes as many columns as on a terminal (`text::Glyph`). In a right-to-left
/// environment the page is mirrored; characters stay in the order of the text, because a terminal
/// reorders them. Characters that a terminal would take for commands are escaped.
///
/// Exceptions of a description or an action are rethrown by the call that caused them. Main thread
/// only.
class VEMRA_EXPORT Viewport final : private page::PageHost {
 public:
  /// Shows `root`.
  ///
  /// - Parameter size: columns and lines; at least one cell is shown.
  Viewport(ui::View root, page::Size size, ui::Environment environment = {});
  /// Shows the tree of a graph that the caller owns; the graph must outlive the viewport.
  Viewport(ui::ViewGraph& graph, page::Size size);
  Viewport(const Viewport&) = delete;
  Viewport& operator=(const Viewport&) = delete;
  ~Viewport();

  /// Shows another root, like a host with a new snapshot.
  void show(ui::View root);
  /// Shows the same tree in another environment; state is kept.
  void setEnvironment(ui::Environment environment);
  /// Gives the viewport another size, in columns and lines.
  void resize(page::Size size);

  /// The visible lines, each with a line break and without blanks at its end.
  std::string text() const;

  /// \name Scrolling
  /// @{
  /// Turns the wheel by a number of lines; negative: upwards.
  void wheel(int lines);
  void pageDown() { wheel(size_.height - 1); }
  void pageUp() { wheel(1 - size_.height); }
  void home() { scrollToLine(0); }
  void end() { scrollToLine(maximum_); }
  /// The page's line at the top of the viewport.
  int position() const { return position_; }
  /// The number of lines of the page: measured rows count with their height, other rows with an
  /// estimate.
  int length() const { return page_.contentHeight(); }
  /// @}

  /// \name The keyboard
  /// @{
  /// Moves the focus to the next control in tree order; without a focus, to the first one. False at
  /// the end.
  bool tab() { return moveFocus(page::Page::Direction::forward); }
  /// Moves the focus to the previous control; without a focus, to the last one. False at the
  /// beginning.
  bool backTab() { return moveFocus(page::Page::Direction::backward); }
  /// The element with the focus; nullptr when no element has it.
  const ui::Element* focusedElement() const;
  /// Presses the focused button. This and the functions below throw `ElementError` when no element
  /// of the right kind has the focus, and first scroll the element into view.
  void press();
  /// Chooses in the focused picker the choice that is shown as `label`.
  void choose(std::string_view label);
  /// Types text at the end of the focused field.
  void type(std::string_view text);
  /// Deletes all text of the focused field.
  void clear();
  /// Presses Return in the focused field.
  void submit();
  /// @}

  /// Presses a visible button and gives it the focus, like a mouse. Throws `ElementError` when
  /// there is no such button, or when it is out of view or disabled.
  void click(const Query& query);
  void click(std::string_view identifier) { click(byIdentifier(std::string(identifier))); }

  /// The view graph, with its work counters.
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
  std::map<ui::NodeID, page::Rect> drawn_;  // frames on the whole page
  ui::NodeID focus_;
  std::exception_ptr error_;
  std::unique_ptr<ui::ViewGraph> ownGraph_;
  ui::ViewGraph& graph_;
  page::Page page_;  // last, because it uses its host until it is destroyed
};

}  // namespace vemra::testing
