#include "apps/commandline/Words.hpp"

#include <algorithm>
#include <utility>

#include <CLI/CLI.hpp>

namespace vemra::commandline {

std::vector<std::string> wordsOf(int argumentCount, const char* const* arguments) {
  return {arguments + std::min(argumentCount, 1), arguments + argumentCount};
}

std::vector<std::string> withEmptyValues(const std::vector<std::string>& words,
                                         std::initializer_list<std::string_view> options) {
  std::vector<std::string> mended;
  bool optionsEnded = false;
  for (const std::string& word : words) {
    optionsEnded |= word == "--";
    const std::string_view name = std::string_view(word).substr(0, word.find('='));
    const bool hasEmptyValue = name.size() + 1 == word.size();
    if (!optionsEnded && hasEmptyValue && std::ranges::find(options, name) != options.end()) {
      mended.emplace_back(name);
      mended.emplace_back();
    } else {
      mended.push_back(word);
    }
  }
  return mended;
}

void parse(CLI::App& app, std::vector<std::string> words) {
  std::ranges::reverse(words);  // it takes them from the back
  app.parse(std::move(words));
}

}  // namespace vemra::commandline
