#include "VemraGallery/Gallery.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace vemra::gallery {

Gallery::Gallery(std::string title) : Gallery(std::move(title), "") {}

Gallery::Gallery(std::string title, std::string version)
    : title_(std::move(title)), version_(std::move(version)), languages_{{.name = "English"}} {}

Gallery& Gallery::add(Specimen specimen) {
  const auto isOfSection = [&](const Specimen& other) { return other.section == specimen.section; };
  for (const Specimen& other : specimens_) {
    if (isOfSection(other) && other.name == specimen.name) {
      throw std::invalid_argument("the section \"" + specimen.section +
                                  "\" already has a specimen \"" + specimen.name + '"');
    }
  }
  const auto last = std::find_if(specimens_.rbegin(), specimens_.rend(), isOfSection);
  specimens_.insert(last == specimens_.rend() ? specimens_.end() : last.base(),
                    std::move(specimen));
  return *this;
}

Gallery& Gallery::addLanguage(Language language) {
  languages_.push_back(std::move(language));
  return *this;
}

ui::Environment environmentFor(const Language& language) {
  ui::Environment environment;
  environment.locale = language.locale;
  environment.strings = language.strings;
  environment.layoutDirection = language.direction;
  return environment;
}

std::unique_ptr<testing::Screen> mount(const Specimen& specimen, ui::Environment environment) {
  auto screen = std::make_unique<testing::Screen>(specimen.view, std::move(environment));
  if (specimen.prepare) specimen.prepare(*screen);
  return screen;
}

}  // namespace vemra::gallery
