// Compiles and runs the example in ViewValue.hpp.

#include "tests/VemraPlatform/ui/Sample.hpp"

#include <fstream>
#include <string>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using namespace sample;

struct NoteEditor {
  struct State {
    std::string note;
    friend bool operator==(const State&, const State&) = default;
  };
  std::string name;
  View body(const LocalState<State>& state) const {
    return TextField("Note", state.binding(&State::note));
  }
};

View sourceButton() {
  return Button("Show source", nullptr);
}

View row(const std::string& name, bool hasSource, const Action& open = {}) {
  return VStack(HorizontalAlignment::leading, 4,
                {
                    Button(verbatim(name), open),                   // slot 0
                    If(hasSource, [&] { return sourceButton(); }),  // slot 1, also while absent
                    NoteEditor{name},                               // slot 2: keeps its state
                });
}

/// The words of a file, with one blank between them and without the marks of its comments.
std::string words(const std::string& path) {
  std::ifstream file(std::string(VEMRA_REPOSITORY) + '/' + path);
  EXPECT_TRUE(file) << path;
  std::string all;
  for (std::string word; file >> word;) {
    if (word != "///") all += word + ' ';
  }
  return all;
}

}  // namespace

TEST(ViewTest, TheExamplesEditorKeepsItsTextWhenTheButtonAboveItAppearsAndDisappears) {
  ViewGraph graph;
  graph.setRoot(row("Ada", false));
  const NodeID field = firstOf(graph.root(), ElementKind::textField)->id;
  graph.deliver(field, EditText{"met at the fair"});
  for (const bool hasSource : {true, false}) {
    graph.setRoot(row("Ada", hasSource));
    EXPECT_EQ(buttonTitled(graph.root(), "Show source") != nullptr, hasSource);
    const Node* same = graph.find(field);
    ASSERT_TRUE(same);
    EXPECT_EQ(same->element.text(), "met at the fair");
  }
}

TEST(ViewTest, TheExampleInTheCommentCompiles) {
  const std::string header = words("VemraPlatform/ui/ViewValue.hpp");
  const std::size_t begin = header.find("return VStack(");
  const std::size_t end = header.find("}); The editor stays", begin);
  ASSERT_NE(begin, std::string::npos);
  ASSERT_NE(end, std::string::npos) << "the example is followed by what it shows";
  const std::string example = header.substr(begin, end - begin);
  EXPECT_NE(words("tests/VemraPlatform/ui/ViewTest.cpp").find(example), std::string::npos)
      << example;
}

}  // namespace vemra::ui
