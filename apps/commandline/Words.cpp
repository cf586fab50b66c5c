#include "apps/commandline/Words.hpp"

#include <algorithm>
#include <string_view>

namespace vemra::commandline {

std::vector<std::string> wordsOf(int argumentCount, const char* const* arguments) {
  return {arguments + std::min(argumentCount, 1), arguments + argumentCount};
}

std::vector<std::string> withEmptyValues(const std::vector<std::string>& words,
                                         const std::vector<std::string>& options) {
  std::vector<std::string> completed;
  bool optionsEnded = false;
  for (const std::string& word : words) {
    optionsEnded |= word == "--";
    const std::string_view name = std::string_view(word).substr(0, word.find('='));
    const bool hasEmptyValue = name.size() + 1 == word.size();
    if (!optionsEnded && hasEmptyValue && std::ranges::find(options, name) != options.end()) {
      completed.emplace_back(name);
      completed.emplace_back();
    } else {
      completed.push_back(word);
    }
  }
  return completed;
}

}  // namespace vemra::commandline
