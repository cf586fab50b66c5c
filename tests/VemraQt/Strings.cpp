#include "tests/VemraQt/Strings.hpp"

#include <map>

namespace vemra::qttest {

std::optional<std::string> PseudoStrings::lookup(std::string_view key) const {
  asked_.emplace(key);
  static const std::map<char, std::string> accents{
      {'a', "å"}, {'c', "ç"}, {'e', "é"}, {'i', "ï"}, {'n', "ñ"}, {'o', "ø"}, {'u', "ü"},
      {'C', "Ç"}, {'N', "Ñ"}, {'O', "Ø"}, {'P', "Þ"}, {'R', "Ŕ"}, {'S', "Ş"},
  };
  std::string text = "[";
  for (const char c : key) {
    auto accented = accents.find(c);
    text += accented == accents.end() ? std::string(1, c) : accented->second;
  }
  for (std::size_t i = 0; i * 10 < key.size() * 4; ++i) text += i % 4 == 0 ? ' ' : 'x';
  return text + "]";
}

std::optional<std::string> HebrewStrings::lookup(std::string_view key) const {
  static const std::map<std::string, std::string, std::less<>> words{
      {"People worth considering", "אנשים שכדאי לשקול"},
      {"Show source", "הצגת המקור"},
      {"Supported path", "מסלול מבוסס"},
      {"See in Starfold", "הצגה ב-Starfold"},
      {"No source evidence yet.", "אין עדיין ראיות."},
      {"Record outcome", "רישום תוצאה"},
      {"\u00b7 corrected", "\u00b7 תוקן"},
      {"Correct", "תיקון"},
      {"Outcome", "תוצאה"},
      {"Note (optional)", "הערה (רשות)"},
      {"Save", "שמירה"},
      {"Cancel", "ביטול"},
  };
  auto found = words.find(key);
  return found == words.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace vemra::qttest
