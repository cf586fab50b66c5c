// Writing several fields of a state at once.

#include "tests/VemraPlatform/ui/OnGraph.hpp"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace vemra::ui {

namespace {

using namespace sample;

/// A form whose state the test writes from outside. Keeps what each of its bodies has read.
struct DraftForm {
  struct State {
    std::string name;
    bool isOpen = false;
    friend bool operator==(const State&, const State&) = default;
  };
  std::optional<LocalState<State>>& reached;
  std::vector<std::string>& described;

  View body(const LocalState<State>& state) const {
    reached = state;
    described.push_back(state->name + (state->isOpen ? " open" : " closed"));
    return Text("form");
  }
};

class StateUpdateTest : public OnGraph {
 protected:
  StateUpdateTest() {
    graph.setRoot(DraftForm{reached, described});
    described.clear();
  }

  std::optional<LocalState<DraftForm::State>> reached;
  std::vector<std::string> described;
};

using Described = std::vector<std::string>;

}  // namespace

TEST_F(StateUpdateTest, IsOneBodyOutsideAnyEventToo) {
  reached->update([](DraftForm::State& next) {
    next.name = "Ada";
    next.isOpen = true;
  });
  EXPECT_EQ(described, Described{"Ada open"});
  EXPECT_EQ((*reached)->name, "Ada") << "the next read gives the new value";
}

TEST_F(StateUpdateTest, IsReadBySetsAndUpdatesAfterIt) {
  for (int round = 0; round < 2; ++round) {
    reached->update([](DraftForm::State& next) { next.name += 'x'; });
  }
  reached->set(&DraftForm::State::isOpen, true);
  EXPECT_EQ(described, (Described{"x closed", "xx closed", "xx open"}));
}

TEST_F(StateUpdateTest, ToAnEqualStateIsNoChange) {
  reached->update([](DraftForm::State& next) {
    next.name = "Ada";
    next.name.clear();
  });
  EXPECT_EQ(described, Described{});
}

TEST_F(StateUpdateTest, ThatThrowsChangesNothing) {
  EXPECT_THROW(reached->update([](DraftForm::State& next) {
    next.name = "half";
    throw std::runtime_error("no");
  }),
               std::runtime_error);
  EXPECT_EQ((*reached)->name, "");
  EXPECT_EQ(described, Described{});
}

TEST_F(StateUpdateTest, ShowsNoHalfOfItToAReaderMeanwhile) {
  reached->update([&](DraftForm::State& next) {
    next.name = "Ada";
    EXPECT_EQ((*reached)->name, "");
    next.isOpen = true;
  });
  EXPECT_EQ(described, Described{"Ada open"});
}

TEST_F(StateUpdateTest, AfterTheNodeIsGoneIsIgnored) {
  const LocalState<DraftForm::State> late = *reached;
  graph.setRoot(View());
  bool ran = false;
  late.update([&](DraftForm::State& next) {
    next.name = "late";
    ran = true;
  });
  EXPECT_EQ(late->name, "");
  EXPECT_FALSE(ran);
}

}  // namespace vemra::ui
