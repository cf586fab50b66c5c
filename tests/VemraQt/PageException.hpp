#pragma once

#include "VemraQt/ViewWidget.hpp"
#include "VemraQt/page/Page.hpp"
#include "tests/VemraPlatform/ui/Fault.hpp"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QScrollBar>
#include <gmock/gmock.h>

/// \file
/// A page whose description throws.

namespace vemra::qttest {

using ui::sample::Counter;
using ui::sample::Fault;

using Faults = std::vector<std::string>;

using IsID = std::function<bool(const std::string&)>;

/// The places that throw, and the ids of the rows.
struct Breaks {
  IsID row = {};                     ///< the row's closure
  IsID body = {};                    ///< the body of the row's view
  IsID tree = {};                    ///< the row's view, so that the graph removes the whole tree
  IsID key = {};                     ///< the row's id itself
  std::function<bool()> count = {};  ///< the number of rows, while this is true
};

/// Rows of counters.
struct FragileRows final : ui::RowSource {
  std::vector<std::string> ids;
  Breaks breaks;

  std::size_t count() const override {
    if (breaks.count && breaks.count()) throw Fault("count");
    return ids.size();
  }
  std::string_view key(std::size_t index) const override {
    if (breaks.key && breaks.key(ids[index])) throw Fault("key " + ids[index]);
    return ids[index];
  }
  ui::View row(std::size_t index) const override {
    const std::string& id = ids[index];
    if (breaks.row && breaks.row(id)) throw Fault("row " + id);
    if (breaks.tree && breaks.tree(id)) return ui::sample::broken();
    if (breaks.body && breaks.body(id)) {
      return ui::sample::Body{[id]() -> ui::View { throw Fault("body " + id); }};
    }
    return Counter{id};
  }
};

inline IsID is(const std::string& id) {
  return [id](const std::string& other) { return other == id; };
}

class PageException : public ::testing::Test {
 protected:
  PageException() { widget.resize(300, 400); }

  /// The window has the keyboard focus from the event loop's next turn on.
  void showWindow() {
    widget.show();
    widget.activateWindow();
  }

  /// Rows "a0", "a1", … and the places that throw.
  static ui::View rows(const std::string& name, const Breaks& breaks = {}, int count = 300) {
    auto source = std::make_shared<FragileRows>();
    source->breaks = breaks;
    for (int i = 0; i < count; ++i) source->ids.push_back(name + std::to_string(i));
    return ui::ForEach(std::shared_ptr<const ui::RowSource>(std::move(source)));
  }

  /// The exceptions that `work`, and later the event loop, throw, in order.
  static Faults faultsOf(const std::function<void()>& work) {
    Faults faults;
    const auto throws = [&](const std::function<void()>& part, const std::string& when) {
      try {
        part();
      } catch (const Fault& fault) {
        faults.push_back(fault.what() + when);
        return true;
      }
      return false;
    };
    throws(work, "");
    for (int turn = 0; turn < 20; ++turn) {
      throws([] { QApplication::processEvents(); }, ", later");
    }
    return faults;
  }

  std::vector<std::string> texts() const {
    std::vector<std::string> texts;
    for (const auto* label : widget.viewport()->findChildren<QLabel*>()) {
      if (!label->visibleRegion().isEmpty()) texts.push_back(label->text().toStdString());
    }
    return texts;
  }

  /// The first button with that title on the page.
  QAbstractButton* button(const QString& title) const {
    QAbstractButton* first = nullptr;
    for (auto* found : widget.viewport()->findChildren<QAbstractButton*>()) {
      if (!found->isVisible() || found->text() != title) continue;
      if (!first || found->y() < first->y()) first = found;
    }
    return first;
  }

  QScrollBar& bar() const { return *widget.verticalScrollBar(); }

  /// Checks that the page shows a new root, that a press acts once, and that the page scrolls
  /// everywhere.
  void expectThePageGoesOn() {
    EXPECT_THAT(faultsOf([&] { widget.setRoot(rows("new")); }), ::testing::IsEmpty());
    EXPECT_THAT(texts(), ::testing::Contains(::testing::StartsWith("new")));
    EXPECT_THAT(faultsOf([&] {
                  bar().setValue(0);
                  ASSERT_TRUE(button("+"));
                  button("+")->click();
                  bar().setValue(bar().maximum());
                }),
                ::testing::IsEmpty());
    EXPECT_THAT(texts(), ::testing::Contains("new299=0"));
    bar().setValue(0);
    EXPECT_THAT(texts(), ::testing::Contains("new0=1"));
    EXPECT_THAT(texts(), ::testing::Contains("new1=0"));
  }

  qt::ViewWidget widget;
};

}  // namespace vemra::qttest
