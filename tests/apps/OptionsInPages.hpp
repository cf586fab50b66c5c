#pragma once

#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

namespace vemra::commandline::sample {

/// The long options that a text names: "--png", "--help".
inline std::set<std::string> optionsIn(std::string text) {
  // In a manual page a dash has a backslash before it.
  text = std::regex_replace(text, std::regex(R"(\\-)"), "-");
  const std::regex option("--[a-z]+");
  std::set<std::string> options;
  for (auto place = std::sregex_iterator(text.begin(), text.end(), option);
       place != std::sregex_iterator(); ++place) {
    options.insert(place->str());
  }
  return options;
}

/// A file of the repository.
inline std::string fileText(const std::string& path) {
  std::ifstream file(std::string(VEMRA_REPOSITORY "/") + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace vemra::commandline::sample
