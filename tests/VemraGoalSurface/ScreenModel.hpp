#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// A second implementation of the screen's rules, independent of its code: the new state of each
/// control after each event, and the content of the whole screen.
///
/// It works on small numbers: references and notes are indexes into tables of the test.
namespace vemra::screentest::model {

/// The names of each outcome value in code and on the screen.
struct ValueName {
  const char* code;
  const char* label;
};
inline constexpr ValueName valueNames[] = {
    {"reachedOut", "Reached out"},        {"invited", "Invited"},
    {"introduced", "Introduced"},         {"helped", "Helped"},
    {"wasUseful", "Was useful"},          {"notAFit", "Not a fit"},
    {"noActionTaken", "No action taken"}, {"somethingElse", "Something else"},
};
inline constexpr int wasUseful = 4;
inline constexpr int somethingElse = 7;

/// A reference: its bytes, and a number that is equal for canonically equal references.
struct Reference {
  std::string bytes;
  int text;
};

/// A note as typed, and as sent (nil: nothing but blanks).
struct Note {
  std::string typed;
  std::optional<std::string> sent;
};

struct Person {
  int reference;
  std::optional<std::string> name;
  std::optional<std::string> evidenceID;
};

struct Record {
  std::string id;
  bool isPath;
  std::optional<int> reference;
  int value;
  std::optional<std::string> note;
  std::optional<std::string> correctsID;
};

/// The engine's data.
struct World {
  std::vector<Person> people;
  std::vector<std::optional<int>> paths;  ///< each by its last reference
  std::vector<Record> records;
};

/// The state of a control.
struct Form {
  bool isEditing = false;
  int value = wasUseful;
  std::string note;
};

/// One control on the screen: its subject, and the key of its form.
struct Subject {
  bool isPath = false;
  std::optional<int> reference;
  std::pair<int, int> row{};  ///< of a person: the reference's text, and which one of equal ones
  std::string prefix;
};

class Screen {
 public:
  Screen(std::vector<Reference> references, std::vector<Note> notes)
      : references_(std::move(references)), notes_(std::move(notes)) {}

  /// Shows a new snapshot: discards the forms of removed rows, and of a list that was empty.
  void show(World world) {
    world_ = std::move(world);
    std::map<std::pair<int, int>, Form> kept;
    for (const Subject& subject : people()) {
      if (auto form = rowForms_.find(subject.row); form != rowForms_.end()) kept.insert(*form);
    }
    rowForms_ = std::move(kept);
    if (world_.paths.empty()) pathForm_ = Form{};
  }

  std::vector<Subject> subjects() const {
    std::vector<Subject> all = people();
    if (!world_.paths.empty()) all.push_back({true, world_.paths[0], {}, "vemra.goal.path"});
    return all;
  }

  const Form& form(const Subject& subject) { return formOf(subject); }

  const Record* inForce(const Subject& subject) const {
    const Record* last = nullptr;
    for (const Record& record : world_.records) {
      if (record.isPath == subject.isPath &&
          textOf(record.reference) == textOf(subject.reference)) {
        last = &record;
      }
    }
    return last;
  }

  bool maySave(const Subject& subject) {
    const Form& form = formOf(subject);
    return form.value != somethingElse || sent(form.note).has_value();
  }

  void recordOutcome(const Subject& subject) { formOf(subject) = {true, wasUseful, ""}; }
  void correct(const Subject& subject) {
    const Record& record = *inForce(subject);
    formOf(subject) = {true, record.value, record.note.value_or("")};
  }
  void choose(const Subject& subject, int value) { formOf(subject).value = value; }
  void write(const Subject& subject, const std::string& note) { formOf(subject).note = note; }
  void cancel(const Subject& subject) { formOf(subject).isEditing = false; }

  /// The recordings that the host gets, in the form of the test's log.
  std::string save(const Subject& subject) {
    Form& form = formOf(subject);
    form.isEditing = false;
    const Record* record = inForce(subject);
    return std::string(subject.isPath ? "path " : "person ") +
           (subject.reference ? '"' + references_[*subject.reference].bytes + '"' : "nil") + ' ' +
           valueNames[form.value].code +
           " note=" + (sent(form.note) ? '"' + *sent(form.note) + '"' : "nil") +
           " corrects=" + (record ? '"' + record->id + '"' : "nil");
  }

  /// The note that is sent for a typed note.
  std::optional<std::string> sent(const std::string& typed) const {
    for (const Note& note : notes_) {
      if (note.typed == typed) return note.sent;
    }
    return typed;  // a stored note: no blanks around it
  }

  /// The whole screen, one line for each element.
  std::vector<std::string> lines() {
    std::vector<std::string> out;
    const auto line = [&](int depth, const std::string& text) {
      out.push_back(std::string(2 * static_cast<std::size_t>(depth), ' ') + text);
    };
    line(0, "GoalResultView");
    line(1, "ScrollView");
    line(2, "VStack leading 20 .padding(24)");
    line(3, "Text \"Goal\" .font(title2) .fontWeight(semibold)");
    line(3, "VStack leading 10");
    line(4, "Text key \"People worth considering\" .font(headline)");
    if (world_.people.empty()) {
      line(4, "Text \"No relevant people found yet.\" .foregroundStyle(secondary)");
    } else {
      line(4, "ForEach");
    }
    const std::vector<Subject> subjectsOfPeople = people();
    for (std::size_t i = 0; i < world_.people.size(); ++i) {
      const Person& person = world_.people[i];
      line(5, "VStack leading 4 .padding(vertical 4)");
      line(6, "Button \"" + person.name.value_or("Unnamed person") +
                  "\" .buttonStyle(plain) .font(body medium)");
      line(6, "Text \"Candidate person\" .font(subheadline) .foregroundStyle(secondary)");
      if (person.evidenceID) {
        line(6, "Button key \"Show source\" .font(caption) " +
                    identified(subjectsOfPeople[i].prefix + ".show-source"));
      }
      control(6, subjectsOfPeople[i], line);
    }
    line(3, "VStack leading 10");
    line(4, "Text key \"Supported path\" .font(headline)");
    if (world_.paths.empty()) {
      line(4,
           "Text \"This goal doesn't name someone to find a path to.\" "
           ".foregroundStyle(secondary)");
    } else {
      line(4, "VStack leading 4");
      line(5, "Text \"Candidate person\" .font(subheadline)");
      line(5, "Button key \"See in Starfold\" .font(caption) " +
                  identified("vemra.goal.path.see-in-starfold"));
      control(5, subjects().back(), line);
    }
    line(3, "Group .font(caption) .foregroundStyle(secondary)");
    line(4, "Text key \"No source evidence yet.\"");
    return out;
  }

  const World& world() const { return world_; }

 private:
  std::optional<int> textOf(std::optional<int> reference) const {
    if (!reference) return std::nullopt;
    return references_[static_cast<std::size_t>(*reference)].text;
  }

  std::vector<Subject> people() const {
    std::vector<Subject> rows;
    std::map<int, int> seen;
    for (const Person& person : world_.people) {
      const Reference& reference = references_[static_cast<std::size_t>(person.reference)];
      rows.push_back({false,
                      person.reference,
                      {reference.text, seen[reference.text]++},
                      "vemra.goal.person." + reference.bytes});
    }
    return rows;
  }

  Form& formOf(const Subject& subject) {
    return subject.isPath ? pathForm_ : rowForms_[subject.row];
  }

  static std::string identified(const std::string& identifier) {
    return ".accessibilityIdentifier(\"" + identifier + "\")";
  }

  template <class Line>
  void control(int depth, const Subject& subject, Line line) {
    const auto identifier = [&](const char* suffix) {
      return identified(subject.prefix + ".outcome." + suffix);
    };
    const Form& form = formOf(subject);
    const Record* record = inForce(subject);
    line(depth, "GoalOutcomeRecordingControl");
    if (form.isEditing) {
      line(depth + 1, "VStack leading 6");
      line(depth + 2, std::string("Picker key \"Outcome\" selection=") +
                          valueNames[form.value].code + " .labelsHidden() .pickerStyle(menu) " +
                          identifier("picker"));
      line(depth + 3, "ForEach");
      for (const ValueName& value : valueNames) {
        line(depth + 4, std::string("Text \"") + value.label + "\" .tag(" + value.code + ')');
      }
      line(depth + 2, "TextField key \"Note (optional)\" text=\"" + form.note +
                          "\" .textFieldStyle(roundedBorder) " + identifier("note"));
      line(depth + 2, "HStack center 12 .font(caption)");
      line(depth + 3, std::string("Button key \"Save\" .disabled(") +
                          (maySave(subject) ? "false" : "true") + ") " + identifier("save"));
      line(depth + 3, "Button key \"Cancel\" " + identifier("cancel"));
    } else if (record) {
      line(depth + 1, "VStack leading 2");
      line(depth + 2, "HStack center 8");
      line(depth + 3, std::string("Text \"") + valueNames[record->value].label +
                          "\" .font(caption) .foregroundStyle(secondary)");
      if (record->correctsID) {
        line(depth + 3,
             "Text key \"\xC2\xB7 corrected\" .font(caption2) .foregroundStyle(tertiary) " +
                 identifier("corrected-marker"));
      }
      line(depth + 3, "Button key \"Correct\" .font(caption) " + identifier("correct"));
      if (record->note && !record->note->empty()) {
        line(depth + 2,
             "Text \"" + *record->note + "\" .font(caption) .foregroundStyle(secondary)");
      }
    } else {
      line(depth + 1, "Button key \"Record outcome\" .font(caption) " + identifier("start"));
    }
  }

  std::vector<Reference> references_;
  std::vector<Note> notes_;
  World world_;
  std::map<std::pair<int, int>, Form> rowForms_;
  Form pathForm_;
};

}  // namespace vemra::screentest::model
