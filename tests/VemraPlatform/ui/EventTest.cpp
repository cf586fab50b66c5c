#include "tests/VemraPlatform/ui/Lending.hpp"
#include "tests/VemraPlatform/ui/OnGraph.hpp"

#include <stdexcept>
#include <string>
#include <vector>

namespace vemra::ui {

namespace {

using namespace sample;

enum class Size { small, large };
std::string_view caseName(Size size) {
  return size == Size::small ? "small" : "large";
}
enum class Shape { small };
std::string_view caseName(Shape) {
  return "small";
}

struct Form {
  struct State {
    Size size = Size::small;
    std::string note;
    friend bool operator==(const State&, const State&) = default;
  };
  View body(const LocalState<State>& state) const {
    return Group({
        Picker("Size", state.binding(&State::size),
               {Text("S").tag(Size::small), Text("L").tag(Size::large)}),
        TextField("Note", state.binding(&State::note)),
        Text("plain"),
        Button("off", [] { FAIL() << "a disabled button acted"; }).disabled(true),
        Button("no action", nullptr),
    });
  }
};

NodeID idOf(const ViewGraph& graph, ElementKind kind) {
  return firstOf(graph.root(), kind)->id;
}

View buttons(std::vector<std::pair<const char*, Action>> actions) {
  Children children;
  for (auto& [title, action] : actions) children.push_back(Button(verbatim(title), action));
  return Group(std::move(children));
}

using EventTest = OnGraph;

}  // namespace

TEST_F(EventTest, EachControlHandlesItsOwnKindsOfEvents) {
  graph.setRoot(Form{});
  const NodeID picker = idOf(graph, ElementKind::picker);
  const NodeID field = idOf(graph, ElementKind::textField);
  const NodeID text = firstOf(graph.root()->children[0]->children[2], ElementKind::text)->id;
  const NodeID button = buttonTitled(graph.root(), "no action")->id;

  EXPECT_EQ(graph.deliver(picker, Select{Tag(Size::large)}), Delivery::acted);
  EXPECT_EQ(graph.find(picker)->element.selection()->name(), "large");
  EXPECT_EQ(graph.deliver(field, EditText{"a\nb"}), Delivery::acted);
  EXPECT_EQ(graph.find(field)->element.text(), "a\nb") << "line breaks are kept";
  EXPECT_EQ(graph.deliver(field, Submit{}), Delivery::acted);
  EXPECT_EQ(graph.find(field)->element.text(), "a\nb") << "without an action, Return does nothing";
  EXPECT_EQ(graph.deliver(button, Press{}), Delivery::acted) << "also without an action";

  for (const Event& event : {Event(Select{Tag(Size::small)}), Event(EditText{}), Event(Submit{})}) {
    EXPECT_EQ(graph.deliver(button, event), Delivery::refused);
  }
  for (const Event& event : {Event(Press{}), Event(EditText{}), Event(Submit{})}) {
    EXPECT_EQ(graph.deliver(picker, event), Delivery::refused);
  }
  for (const Event& event : {Event(Press{}), Event(Select{Tag(Size::small)})}) {
    EXPECT_EQ(graph.deliver(field, event), Delivery::refused);
  }
  EXPECT_EQ(graph.deliver(text, Press{}), Delivery::refused);
  EXPECT_EQ(graph.deliver(graph.root()->id, Press{}), Delivery::refused);
  EXPECT_EQ(graph.find(picker)->element.selection()->name(), "large");
}

TEST_F(EventTest, ReturnRunsTheSubmitActionOfItsFieldOnlyAndAfterTheTypedText) {
  std::string text;
  std::vector<std::string> submitted;
  const auto fieldWith = [&](Action submit) {
    return TextField("a", Binding<std::string>([&] { return text; },
                                               [&](std::string typed) { text = std::move(typed); }))
        .onSubmit(std::move(submit));
  };
  graph.setRoot(Group({
      fieldWith([&] { submitted.push_back("first " + text); }),
      fieldWith([&] { submitted.push_back("second " + text); }).disabled(true),
      fieldWith(nullptr),
  }));
  const auto& fields = graph.root()->children;
  graph.deliver(fields[0]->id, EditText{"typed"});
  EXPECT_EQ(graph.deliver(fields[0]->id, Submit{}), Delivery::acted);
  EXPECT_EQ(graph.deliver(fields[1]->id, Submit{}), Delivery::disabled);
  EXPECT_EQ(graph.deliver(fields[2]->id, Submit{}), Delivery::acted);
  EXPECT_EQ(submitted, std::vector<std::string>{"first typed"});

  const TextField shared = fieldWith([&] { submitted.push_back("shared"); });
  graph.setRoot(shared.onSubmit([&] { submitted.push_back("own"); }));
  graph.deliver(graph.root()->id, Submit{});
  graph.setRoot(shared);
  graph.deliver(graph.root()->id, Submit{});
  EXPECT_EQ(submitted, (std::vector<std::string>{"first typed", "own", "shared"}));
}

TEST_F(EventTest, ASubmitActionMayReplaceTheTree) {
  Binding<std::string> text([] { return std::string(); }, [](const std::string&) {});
  graph.setRoot(TextField("a", text).onSubmit([&, note = std::string(100, 'n')] {
    graph.setRoot(Text("done"));
    EXPECT_EQ(note, std::string(100, 'n')) << "the action lives until it has returned";
  }));
  const NodeID field = graph.root()->id;
  EXPECT_EQ(graph.deliver(field, Submit{}), Delivery::acted);
  EXPECT_EQ(graph.deliver(field, Submit{}), Delivery::gone);
}

TEST_F(EventTest, ADisabledOrRemovedNodeGetsNoEvents) {
  graph.setRoot(Form{});
  EXPECT_EQ(press(graph, "off"), Delivery::disabled);
  const NodeID field = idOf(graph, ElementKind::textField);
  graph.setRoot(View(Form{}).disabled(true));
  EXPECT_EQ(graph.deliver(field, EditText{"x"}), Delivery::disabled);
  EXPECT_EQ(graph.find(field)->element.text(), "");
  graph.setRoot(Text("another"));
  EXPECT_EQ(graph.deliver(field, EditText{"x"}), Delivery::gone);
  EXPECT_EQ(graph.deliver(NodeID{}, Press{}), Delivery::gone);
}

TEST_F(EventTest, ATagOfAnotherTypeChangesNothing) {
  graph.setRoot(Form{});
  const NodeID picker = idOf(graph, ElementKind::picker);
  graph.deliver(picker, Select{Tag(Size::large)});
  graph.deliver(picker, Select{Tag(Shape::small)});
  EXPECT_EQ(graph.find(picker)->element.selection()->name(), "large");
  EXPECT_FALSE(Tag(Size::small) == Tag(Shape::small));
  EXPECT_EQ(Tag(Size::small).as<Shape>(), nullptr);
}

TEST_F(EventTest, NewHandlersAloneSendNoPatchAndStillRun) {
  testing::RenderedTree tree;
  graph.attach(tree);
  std::string pressed;
  const auto screen = [&](const std::string& handler) {
    return buttons({{"go", [&pressed, handler] { pressed += handler; }}});
  };
  graph.setRoot(screen("old"));
  const std::size_t patches = tree.patchCount();
  graph.setRoot(screen("new"));
  EXPECT_EQ(tree.patchCount(), patches);
  press(graph, "go");
  EXPECT_EQ(pressed, "new");
}

TEST_F(EventTest, EventsFromInsideAnActionAreHandledAfterItOnceAndInOrder) {
  std::string log;
  int depth = 0;
  const auto logged = [&](char letter, std::string then) -> Action {
    return [this, &log, &depth, letter, then] {
      EXPECT_EQ(++depth, 1) << "an action runs inside another";
      log += letter;
      for (const char next : then) {
        EXPECT_EQ(press(graph, std::string_view(&next, 1)), Delivery::queued);
      }
      log += static_cast<char>(letter - 'a' + 'A');
      --depth;
    };
  };
  graph.setRoot(buttons({{"a", logged('a', "bc")},
                         {"b", logged('b', "d")},
                         {"c", logged('c', "")},
                         {"d", logged('d', "c")}}));
  EXPECT_EQ(press(graph, "a"), Delivery::acted);
  EXPECT_EQ(log, "aAbBcCdDcC");
}

TEST_F(EventTest, EventsFromInsideApplyAreQueuedToo) {
  Window window;
  std::string log;
  graph.setRoot(Group({Counter{}, Button("later", [&] { log += "later "; })}));
  graph.attach(window);
  int applied = 0;
  window.onApply = [&](const std::vector<Patch>&) {
    ++applied;
    log += "apply ";
    if (applied == 1) {
      EXPECT_EQ(press(graph, "later"), Delivery::queued);
    }
  };
  press(graph, "+");
  EXPECT_EQ(log, "apply later ");
}

TEST_F(EventTest, SavePressedTwiceInOneCallActsOnce) {
  struct Editor {
    using State = Counter::State;
    int* saved;
    View body(const LocalState<State>& state) const {
      return If(state->count == 0, [&] {
        return Button("Save", [saved = saved, state] {
          ++*saved;
          state.set(&State::count, 1);
        });
      });
    }
  };
  int saved = 0;
  NodeID save;
  graph.setRoot(Group({Editor{&saved}, Button("twice", [&] {
                         graph.deliver(save, Press{});
                         graph.deliver(save, Press{});
                       })}));
  save = buttonTitled(graph.root(), "Save")->id;
  press(graph, "twice");
  EXPECT_EQ(saved, 1) << "both presses were queued; the first one took the button away";
  EXPECT_EQ(graph.deliver(save, Press{}), Delivery::gone);
}

TEST_F(EventTest, AnExceptionOfAnActionIsRethrownAfterSettling) {
  testing::RenderedTree tree;
  graph.attach(tree);
  std::string log;
  graph.setRoot(
      Group({Counter{}, buttons({{"fail",
                                  [&] {
                                    press(graph, "+");
                                    press(graph, "fail too");
                                    press(graph, "+");
                                    throw std::runtime_error("first");
                                  }},
                                 {"fail too", [] { throw std::logic_error("second"); }}})}));
  try {
    press(graph, "fail");
    ADD_FAILURE() << "the exception was lost";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "first");
  }
  EXPECT_EQ(texts(graph.root()), std::vector<std::string>{"counter=2"})
      << "the other views were updated";
  EXPECT_EQ(difference(graph, tree), "");
  EXPECT_EQ(press(graph, "+"), Delivery::acted) << "no error remains";
}

TEST_F(EventTest, WritesOfAnActionBeforeItsExceptionStay) {
  struct Failing {
    using State = Counter::State;
    View body(const LocalState<State>& state) const {
      return Button(verbatim(std::to_string(state->count)), [state] {
        state.set(&State::count, 7);
        throw std::runtime_error("no");
      });
    }
  };
  graph.setRoot(Failing{});
  EXPECT_THROW(press(graph, "0"), std::runtime_error);
  EXPECT_TRUE(buttonTitled(graph.root(), "7"));
}

TEST_F(EventTest, ManyQueuedEventsAreNotMistakenForALoop) {
  graph.setRoot(Group({Counter{}, Button("many", [&] {
                         for (int i = 0; i < 25'000; ++i) press(graph, "+");
                       })}));
  press(graph, "many");
  EXPECT_EQ(texts(graph.root()), std::vector<std::string>{"counter=25000"});
}

using EventDeathTest = OnGraph;

TEST_F(EventDeathTest, ATreeThatNeverComesToRestStopsTheProcess) {
  std::function<View()> again;
  again = [&]() -> View {
    graph.setRoot(Body{again});
    return View();
  };
  EXPECT_DEATH(graph.setRoot(Body{again}), "vemra::ui: the tree never comes to rest in Body");
}

TEST_F(EventDeathTest, AViewWhoseStateIsWrittenWithoutEndIsNamed) {
  Window window;
  const auto lent = borrowed();
  graph.setRoot(Group({Text("x"), Lending{lent}}));
  window.onApply = [&](const std::vector<Patch>&) {
    (*lent)->set(&Counter::State::count, (**lent)->count + 1);
  };
  EXPECT_DEATH(graph.attach(window), "vemra::ui: the tree never comes to rest in Lending");
}

TEST_F(EventDeathTest, DestroyingTheGraphFromInsideStopsTheProcess) {
  auto ending = std::make_unique<ViewGraph>();
  ending->setRoot(Button("end", [&] { ending.reset(); }));
  EXPECT_DEATH(press(*ending, "end"), "a view graph was destroyed by what it called in Button");
}

}  // namespace vemra::ui
