#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace vemra {

/// The languages of the files PREFIX_LANGUAGE.ts in a folder of the repository, such as "de".
inline std::vector<std::string> translatedLanguages(const std::string& folder,
                                                    const std::string& prefix) {
  std::vector<std::string> languages;
  for (const auto& entry : std::filesystem::directory_iterator(VEMRA_REPOSITORY "/" + folder)) {
    const std::string name = entry.path().stem().string();
    if (name.starts_with(prefix + "_")) languages.push_back(name.substr(prefix.size() + 1));
  }
  std::ranges::sort(languages);
  return languages;
}

}  // namespace vemra
