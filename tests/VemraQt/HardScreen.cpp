#include "tests/VemraQt/HardScreen.hpp"

#include "VemraQt/HighContrast.hpp"
#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/Strings.hpp"

#include <QApplication>

namespace vemra::qttest {

void makeItHard(WindowHost& host) {
  host.change([](Result& result) {
    std::vector<GoalPersonCandidateDTO> people(result.people.begin(), result.people.end());
    people[1].displayName = "Maximiliane-Friederike Rosenbaum-Oberhuber von und zu Tannenwald";
    people[2].displayName = std::string(150, 'W');
    people[3].why = GoalWhyDTO::evidence("Email", "Weitergeleitet <b>& besprochen</b>", "x");
    people[3].displayName = "";
    people[7].displayName = "\u1ea4n \u1ed2g";
    result.goal.title = "\u1ea4n \u1ed2g";
    result.people = people;
    GoalOutcomeDTO first, second, third;
    first.id = "a";
    first.subjectRef = "p4";
    first.value = GoalOutcomeValue::noActionTaken;
    first.note =
        "A note that is long enough to go on in another line, even on a wide page, which "
        "it has to do without being cut.\nAnd a second paragraph.";
    second = first;
    second.id = "b";
    second.subjectRef = "p5";
    second.correctsOutcomeID = "a";
    third = second;
    second.note = "Met at the fair";
    third.id = "c";
    third.subjectRef = "p6";
    result.outcomes = {first, second, third};
  });
  for (const char* ref : {"person.p0", "person.p5", "path"}) {
    const std::string prefix = std::string("vemra.goal.") + ref + ".outcome.";
    QAccessibleInterface* button = accessible(host, prefix + "start");
    if (!button) button = accessible(host, prefix + "correct");
    press(*button);
  }
  QApplication::processEvents();
}

std::vector<Look> looks() {
  const auto left = ui::LayoutDirection::leftToRight;
  const auto right = ui::LayoutDirection::rightToLeft;
  const auto pseudo = std::make_shared<PseudoStrings>();
  const auto hebrew = std::make_shared<HebrewStrings>();
  struct Words {
    const char* name;
    ui::LayoutDirection direction;
    std::shared_ptr<const ui::StringsTable> strings;
  };
  const std::vector<Words> words{
      {"English", left, nullptr},
      {"longer words", left, pseudo},
      {"Hebrew", right, hebrew},
      {"longer words from the right", right, pseudo},
  };
  // Text of three times its size takes most of the time under the sanitizer, and runs no other
  // code.
#ifdef VEMRA_ADDRESS_SANITIZER
  const std::vector<double> scales{1.0, 1.5};
#else
  const std::vector<double> scales{1.0, 1.5, 2.0, 3.0};
#endif
  std::vector<Look> looks;
  for (const Words& each : words) {
    for (const double scale : scales) {
      for (const int width : {320, 800}) {
        const std::string name = std::string(each.name) + " at " +
                                 std::to_string(static_cast<int>(scale * 100)) + " %, " +
                                 std::to_string(width) + " px wide";
        looks.push_back({name, width, scale, each.direction, each.strings});
      }
    }
  }
  return looks;
}

void dress(WindowHost& host, const Look& look) {
  ui::Environment environment;
  environment.textScale = look.scale;
  environment.layoutDirection = look.direction;
  environment.strings = look.strings;
  host.widget.setEnvironment(environment);
  host.widget.resize(look.width, 700);
}

std::vector<Colours> colours() {
  const QPalette system = QApplication::palette();
  return {
      {"light", ui::ColorScheme::light, system},
      {"dark", ui::ColorScheme::dark, system},
      {"light, on a system of high contrast", ui::ColorScheme::light, qt::highContrastPalette()},
      {"a dark system", ui::ColorScheme::dark,
       QPalette(QColor(0xef, 0xf0, 0xf1), QColor(0x31, 0x36, 0x3b), QColor(0x40, 0x46, 0x4c),
                QColor(0x18, 0x1b, 0x1d), QColor(0x25, 0x29, 0x2c), QColor(0xef, 0xf0, 0xf1),
                Qt::white, QColor(0x23, 0x26, 0x29), QColor(0x31, 0x36, 0x3b))},
      {"high contrast", ui::ColorScheme::dark, qt::highContrastPalette()},
  };
}

void dress(WindowHost& host, const Colours& colours) {
  QApplication::setPalette(colours.system);
  ui::Environment environment;
  environment.colorScheme = colours.scheme;
  host.widget.setEnvironment(environment);
}

std::string called(const page::Node& leaf) {
  const std::string identifier(leaf.element.accessibilityIdentifier());
  return identifier.empty() ? std::string(leaf.element.shownLabel()) : identifier;
}

}  // namespace vemra::qttest
