#include "VemraPlatform/date/Locale.hpp"
#include "VemraPlatform/date/SystemTimeZone.hpp"
#include "tests/VemraPlatform/ui/Sample.hpp"

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

using namespace sample;

using Texts = std::vector<std::string>;

/// A table that counts its look-ups.
class Table final : public StringsTable {
 public:
  explicit Table(std::map<std::string, std::string, std::less<>> entries)
      : entries_(std::move(entries)) {}
  std::optional<std::string> lookup(std::string_view key) const override {
    asked.emplace_back(key);
    const auto found = entries_.find(key);
    if (found == entries_.end()) return std::nullopt;
    return found->second;
  }
  mutable Texts asked;

 private:
  std::map<std::string, std::string, std::less<>> entries_;
};

Environment with(std::shared_ptr<const StringsTable> table) {
  Environment environment;
  environment.strings = std::move(table);
  return environment;
}

Environment german() {
  return with(std::make_shared<Table>(std::map<std::string, std::string, std::less<>>{
      {"Ada", "ADA"}, {"Show", "Zeigen"}, {"Hidden", ""}}));
}

struct Dated {
  View body(const Environment& environment) const {
    return Text(verbatim(environment.locale + " " + environment.timeZone));
  }
};

}  // namespace

TEST(LabelTest, AKeyIsLookedUpAndVerbatimTextNever) {
  const auto table = std::make_shared<Table>(
      std::map<std::string, std::string, std::less<>>{{"Ada", "ADA"}, {"Show", "Zeigen"}});
  ViewGraph graph(with(table));
  graph.setRoot(Group({Text(verbatim("Ada")), Text("Show"), Button(verbatim("Ada"), nullptr),
                       Button("Show", nullptr), Text("Other")}));
  Texts shown;
  for (const Node* child : graph.root()->children) shown.emplace_back(child->element.shownLabel());
  EXPECT_EQ(shown, (Texts{"Ada", "Zeigen", "Ada", "Zeigen", "Other"}));
  EXPECT_EQ(table->asked, (Texts{"Show", "Show", "Other"}));
}

TEST(LabelTest, AnEmptyTranslationIsShownAsNothing) {
  ViewGraph graph(german());
  graph.setRoot(Text("Hidden"));
  EXPECT_EQ(graph.root()->element.shownLabel(), "");
  EXPECT_EQ(graph.root()->element.label()->source(), "Hidden");
}

TEST(LabelTest, VerbatimTextIsByteForByte) {
  const std::string odd = std::string("a\0b", 3) + "\xC3<b>&\n\u202E" + "e\u0301";
  EXPECT_EQ(Label(verbatim(odd)).source(), odd);
  EXPECT_EQ(Label(verbatim(std::string_view(odd))).source(), odd);
  EXPECT_EQ(Label(verbatim("x")).kind(), Label::Kind::verbatim);
  EXPECT_EQ(Label(LocalizedKey("x")).kind(), Label::Kind::localizedKey);
  EXPECT_FALSE(Label(LocalizedKey("x")) == Label(verbatim("x")));
  EXPECT_FALSE(Label(verbatim("\u00E9")) == Label(verbatim("e\u0301")))
      << "they look alike but have different bytes, so a renderer must get a patch";
}

TEST(EnvironmentTest, AChangeDescribesEverythingAnewAndKeepsNodesAndState) {
  ViewGraph graph;
  testing::RenderedTree tree;
  graph.attach(tree);
  graph.setRoot(Group({Text("Show"), Dated{}, Counter{}}));
  press(graph, "+");
  const NodeID text = graph.root()->children[0]->id;
  Environment environment = german();
  environment.locale = "de_DE";
  environment.timeZone = "Europe/Berlin";
  graph.setEnvironment(environment);
  EXPECT_EQ(texts(graph.root()), (Texts{"Zeigen", "de_DE Europe/Berlin", "counter=1"}));
  EXPECT_EQ(graph.root()->children[0]->id, text);
  EXPECT_EQ(graph.environment(), environment);
  EXPECT_EQ(difference(graph, tree), "");
  graph.setEnvironment({});
  EXPECT_EQ(texts(graph.root()), (Texts{"Show", "en_US UTC", "counter=1"}));
  EXPECT_EQ(difference(graph, tree), "");
}

TEST(EnvironmentTest, AChangeReachesPeekedRows) {
  ViewGraph graph;
  Window window;
  graph.attach(window);
  graph.setRoot(list(numbered(3), [](const Line&) -> View { return Text("Show"); }));
  const NodeID forEach = graph.root()->id;
  EXPECT_EQ(texts(graph.find(graph.peekRow(forEach, 1))), Texts{"Show"});
  graph.setEnvironment(german());
  EXPECT_EQ(texts(graph.find(graph.peekRow(forEach, 1))), Texts{"Zeigen"});
}

TEST(EnvironmentTest, SetDuringAnEventItTakesEffectTogetherWithTheRoot) {
  ViewGraph graph;
  graph.setRoot(Button("go", [&] {
    graph.setRoot(Text("Show"));
    graph.setEnvironment(german());
  }));
  press(graph, "go");
  EXPECT_EQ(texts(graph.root()), Texts{"Zeigen"});
}

TEST(EnvironmentTest, TheSystemsEnvironmentIsReadFromTheSystem) {
  const Environment system = Environment::system();
  EXPECT_EQ(system.locale, date::systemLocale());
  EXPECT_EQ(system.timeZone, date::systemTimeZone());
  EXPECT_EQ(system.strings, nullptr);
}

}  // namespace vemra::ui
