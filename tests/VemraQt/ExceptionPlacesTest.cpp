// Every place of a description that a host writes may throw: the page works after each of them.

#include "VemraQt/widgets/ChoiceBox.hpp"
#include "VemraQt/widgets/LineField.hpp"
#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/PageException.hpp"

#include <QTest>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// A choice whose name cannot be read when it is that of `broken`.
struct FragileChoice {
  int value = 0;
  inline static int broken = -1;
  friend std::string caseName(const FragileChoice& choice) {
    if (choice.value == broken) throw Fault("name of " + std::to_string(choice.value));
    return std::to_string(choice.value);
  }
};

class ExceptionPlaces : public PageException {
 protected:
  ~ExceptionPlaces() override { FragileChoice::broken = -1; }

  ui::View picker() {
    return ui::sample::Body{[this] {
      return ui::Picker(
                 "Choice",
                 ui::Binding<FragileChoice>([this] { return FragileChoice{chosen}; },
                                            [this](const FragileChoice& choice) {
                                              if (setBreaks)
                                                throw Fault("set " + std::to_string(choice.value));
                                              chosen = choice.value;
                                            }),
                 {ui::Text("Zero").tag(FragileChoice{0}), ui::Text("One").tag(FragileChoice{1})})
          .accessibilityIdentifier("picker");
    }};
  }
  ui::View field() {
    return ui::TextField("Note", ui::Binding<std::string>(
                                     [this] {
                                       if (getBreaks) throw Fault("get");
                                       return note;
                                     },
                                     [this](const std::string& text) {
                                       if (setBreaks) throw Fault("set " + text);
                                       note = text;
                                     }))
        .accessibilityIdentifier("field");
  }
  template <class Widget>
  Widget& shown() const {
    return *widget.viewport()->findChild<Widget*>();
  }
  QAccessibleInterface& element(const char* identifier) const {
    return *QAccessible::accessibleInterface(identifiersOf(widget).find(identifier).front());
  }

  int chosen = 0;
  std::string note = "a";
  bool getBreaks = false, setBreaks = false;
};

}  // namespace

TEST_F(ExceptionPlaces, ANumberOfRowsThatCannotBeReadLeavesAnEmptyPage) {
  showWindow();
  EXPECT_THAT(faultsOf([&] { widget.setRoot(rows("a", {.count = [] { return true; }})); }),
              ElementsAre("count"));
  EXPECT_THAT(texts(), IsEmpty());
  expectThePageGoesOn();
}

TEST_F(ExceptionPlaces, ANumberOfRowsThatCannotBeReadAgainKeepsThePreviousNumber) {
  QAccessibleInterface& page = *QAccessible::queryAccessibleInterface(&widget);
  bool breaks = false;
  int reads = 0;
  const auto after = [&] { return reads-- <= 0; };
  showWindow();
  for (int from = 0; from < 12; ++from) {
    breaks = false;
    widget.setRoot(rows("a", {.count = [&] { return breaks; }}));
    bar().setValue(2000);
    EXPECT_EQ(listIn(page)->childCount(), 300);
    EXPECT_TRUE(listIn(page)->child(7));
    breaks = true;  // the replaced list cannot be counted, and neither can the new one later
    reads = from;
    faultsOf([&] { widget.setRoot(rows("a", {.count = after})); });
    faultsOf([&] {
      if (QAccessibleInterface* list = listIn(page)) list->childCount();
      identifiersOf(widget).find("a1");
    });
    reads = 1000;
    expectThePageGoesOn();
  }
}

TEST_F(ExceptionPlaces, RowIdsThatThrowDuringScrollingLeaveAWorkingPage) {
  widget.setRoot(rows("a", {.key = is("a200")}));
  showWindow();
  const auto faults = faultsOf([&] {
    for (int at = 0; at < bar().maximum(); at += 300) bar().setValue(at);
  });
  EXPECT_THAT(faults, Contains("key a200, later"));
  expectThePageGoesOn();
}

TEST_F(ExceptionPlaces, AStringsTableThatThrowsLeavesAWorkingPage) {
  struct Broken final : ui::StringsTable {
    std::optional<std::string> lookup(std::string_view) const override { throw Fault("lookup"); }
  };
  widget.setRoot(ui::Text("text"));
  showWindow();
  ui::Environment environment;
  environment.strings = std::make_shared<Broken>();
  EXPECT_THAT(faultsOf([&] { widget.setEnvironment(environment); }), ElementsAre("lookup"));
  EXPECT_THAT(texts(), IsEmpty());
  EXPECT_THAT(faultsOf([&] { widget.setRoot(ui::Text("text")); }), ElementsAre("lookup"));
  widget.setEnvironment({});
  expectThePageGoesOn();
}

TEST_F(ExceptionPlaces, AFieldWhoseTextCannotBeReadLeavesAWorkingPage) {
  widget.setRoot(ui::Group({field(), rows("a")}));
  showWindow();
  shown<qt::LineField>().setFocus();
  getBreaks = true;
  EXPECT_THAT(faultsOf([&] {
                widget.setRoot(ui::Group({field(), rows("a")}));
              }),
              ElementsAre("get"));
  EXPECT_THAT(texts(), IsEmpty());
  EXPECT_FALSE(pageOf(widget).focusedNode());
  expectThePageGoesOn();
}

TEST_F(ExceptionPlaces, ATextThatCannotBeWrittenLeavesAWorkingField) {
  widget.setRoot(field());
  showWindow();
  auto& line = shown<qt::LineField>();
  line.setFocus();
  setBreaks = true;
  EXPECT_THAT(faultsOf([&] { QTest::keyClick(&line, Qt::Key_B); }), ElementsAre("set ab, later"));
  EXPECT_THAT(faultsOf([&] { element("field").setText(QAccessible::Value, "c"); }),
              ElementsAre("set c, later"));
  setBreaks = false;
  line.setText("");
  EXPECT_THAT(faultsOf([&] { QTest::keyClick(&line, Qt::Key_D); }), IsEmpty());
  EXPECT_EQ(note, "d");
  expectThePageGoesOn();
}

TEST_F(ExceptionPlaces, AChoiceThatCannotBeWrittenLeavesAWorkingPicker) {
  widget.setRoot(picker());
  showWindow();
  auto& box = shown<qt::ChoiceBox>();
  setBreaks = true;
  EXPECT_THAT(faultsOf([&] { QTest::keyClick(&box, Qt::Key_End); }), ElementsAre("set 1, later"));
  EXPECT_THAT(faultsOf([&] { press(*element("picker").child(1)); }), ElementsAre("set 1, later"));
  setBreaks = false;
  EXPECT_THAT(faultsOf([&] { press(*element("picker").child(1)); }), IsEmpty());
  EXPECT_EQ(chosen, 1);
  expectThePageGoesOn();
}

TEST_F(ExceptionPlaces, AChoiceWithoutANameLeavesThePickerUnchanged) {
  widget.setRoot(picker());
  showWindow();
  FragileChoice::broken = 1;
  EXPECT_THAT(faultsOf([&] { widget.setRoot(picker()); }), ElementsAre("name of 1"));
  EXPECT_EQ(shown<qt::ChoiceBox>().count(), 2);
  expectThePageGoesOn();
}

TEST_F(ExceptionPlaces, ASelectionWithoutANameLeavesAWorkingPage) {
  widget.setRoot(picker());
  showWindow();
  shown<qt::ChoiceBox>().showPopup();
  chosen = FragileChoice::broken = 2;
  EXPECT_THAT(faultsOf([&] { widget.setRoot(picker()); }), ElementsAre("name of 2"));
  EXPECT_FALSE(QApplication::activePopupWidget()) << "its picker has gone";
  expectThePageGoesOn();
}

TEST_F(ExceptionPlaces, AnEventRecorderThatThrowsStopsNoEvent) {
  int presses = 0;
  widget.setRoot(ui::Button("press", [&] { ++presses; }));
  showWindow();
  pageOf(widget).onDeliver = [](ui::NodeID, const ui::Event&) { throw Fault("record"); };
  EXPECT_THAT(faultsOf([&] { button("press")->click(); }), ElementsAre("record, later"));
  EXPECT_EQ(presses, 1);
  pageOf(widget).onDeliver = nullptr;
  expectThePageGoesOn();
}

TEST_F(ExceptionPlaces, AnActionThatThrowsDuringACallOfAClientHasEnded) {
  widget.setRoot(ui::Button("press", [] { throw Fault("action"); }).accessibilityIdentifier("b"));
  showWindow();
  EXPECT_THAT(faultsOf([&] { press(element("b")); }), ElementsAre("action, later"));
  expectThePageGoesOn();
}

TEST_F(ExceptionPlaces, AKeyActsAlsoWhenScrollingInBringsRowsThatThrow) {
  int presses = 0;
  auto source = std::make_shared<FragileRows>();
  for (int i = 0; i < 300; ++i) source->ids.push_back("a" + std::to_string(i));
  bool breaks = false;
  source->breaks.row = [&](const std::string& id) { return breaks && id == "a3"; };
  widget.setRoot(ui::Group({ui::Button("press", [&] { ++presses; }),
                            ui::ForEach(std::shared_ptr<const ui::RowSource>(source))}));
  showWindow();
  QAbstractButton* const first = button("press");
  first->setFocus();
  bar().setValue(bar().maximum());
  breaks = true;
  EXPECT_THAT(faultsOf([&] { QTest::keyClick(first, Qt::Key_Return); }),
              ElementsAre("row a3, later"));
  EXPECT_EQ(presses, 1);
  breaks = false;
  expectThePageGoesOn();
}

TEST_F(ExceptionPlaces, AKeyDoesNothingWhenScrollingInRemovesTheTree) {
  int presses = 0;
  bool breaks = false;
  auto source = std::make_shared<FragileRows>();
  for (int i = 0; i < 300; ++i) source->ids.push_back("a" + std::to_string(i));
  source->breaks.tree = [&](const std::string& id) { return breaks && id == "a3"; };
  widget.setRoot(ui::Group({ui::Button("press", [&] { ++presses; }),
                            ui::ForEach(std::shared_ptr<const ui::RowSource>(source))}));
  showWindow();
  for (const auto key : {Qt::Key_Return, Qt::Key_Space}) {
    breaks = false;
    widget.setRoot(ui::View());
    widget.setRoot(ui::Group({ui::Button("press", [&] { ++presses; }),
                              ui::ForEach(std::shared_ptr<const ui::RowSource>(source))}));
    QAbstractButton* const first = button("press");
    first->setFocus();
    bar().setValue(bar().maximum());
    breaks = true;
    EXPECT_THAT(faultsOf([&] { QTest::keyClick(first, key); }), ElementsAre("get, later"));
    EXPECT_EQ(presses, 0);
    breaks = false;
    expectThePageGoesOn();
  }
}
