// The notifications of a page to any observer.

#include "VemraPlatform/ui/View.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/ShownPage.hpp"

#include <deque>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <QScrollBar>
#include <gmock/gmock.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class PageObserverTest : public ShownWidget, private qt::PageObserver {
 protected:
  PageObserverTest() { pageOf(widget).setObserver(this); }
  ~PageObserverTest() override {
    pageOf(widget).setObserver(&accessiblePageOf(widget).announcements());
  }

  /// The graph compares with the rows shown before, so they stay.
  void show(std::vector<std::string> ids) {
    heard.clear();
    const auto& rows = shown_.emplace_back(std::move(ids));
    widget.setRoot(ui::ForEach(std::span<const std::string>(rows), std::identity(),
                               [](const std::string& id) { return ui::Text(ui::verbatim(id)); }));
  }

  std::vector<std::string> heard;

 private:
  std::deque<std::vector<std::string>> shown_;

  void patched(const ui::Changes& changes) override {
    heard.emplace_back(changes.lists.empty() ? "patched" : "patched, with rows");
  }
  void removing(const page::Node& node) override {
    const bool isInPlace = pageOf(widget).tree().find(node.id) == &node && node.parent;
    heard.push_back("removing row " + std::to_string(node.rowIndex) +
                    (isInPlace ? "" : ", out of its place"));
  }
  void settled() override { heard.emplace_back("settled"); }
};

}  // namespace

TEST_F(PageObserverTest, GetsThePatchesAndThenTheEndOfThePass) {
  widget.setRoot(ui::Text("one"));
  ASSERT_FALSE(heard.empty());
  heard.clear();
  widget.setRoot(ui::Text("another"));
  EXPECT_THAT(heard, ElementsAre("patched", "settled"));
}

TEST_F(PageObserverTest, GetsARemovalWhileTheNodeIsInPlace) {
  show({"a", "b"});
  show({"a"});
  EXPECT_THAT(heard, ElementsAre("removing row 1", "patched, with rows", "settled"));
}

TEST_F(PageObserverTest, GetsNewRowsThatNoPatchReports) {
  show({"a", "b"});
  show({"a", "b"});
  EXPECT_THAT(heard, Contains("patched, with rows"));
}

TEST_F(PageObserverTest, GetsNothingAfterAnotherObserverReplacedIt) {
  pageOf(widget).setObserver(nullptr);
  show({"a", "b"});
  show({"b"});
  widget.resize(200, 300);
  EXPECT_THAT(heard, IsEmpty());
}

TEST_F(PageObserverTest, GetsTheEndOfThePassAfterScrolling) {
  std::vector<std::string> ids(200);
  for (std::size_t i = 0; i < ids.size(); ++i) ids[i] = std::to_string(i);
  show(ids);
  heard.clear();
  widget.verticalScrollBar()->setValue(300);
  EXPECT_EQ(heard.back(), "settled");
}
