#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Environment.hpp"
#include "VemraPlatform/ui/View.hpp"
#include "VemraTesting/Screen.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vemra::gallery {

/// One state of a view, which the gallery shows beside the others.
struct Specimen {
  std::string section;  ///< specimens of one section stand together
  std::string name;     ///< of which its section has no other
  ui::View view;
  std::string description{};  ///< a sentence on what is to be seen, or ""
  /// What a person does to reach the state, such as opening an editor. Empty: nothing.
  std::function<void(testing::Screen&)> prepare{};
  /// How high the window is that shows it, in pixels; 0 is as high as the view.
  int height = 0;
};

/// A language that the gallery can be read in.
struct Language {
  std::string name;                                   ///< in the language itself: "Deutsch"
  std::string locale = "en_US";                       ///< an ICU locale identifier
  std::shared_ptr<const ui::StringsTable> strings{};  ///< none: every key is shown unchanged
  ui::LayoutDirection direction = ui::LayoutDirection::leftToRight;
};

/// Views in all their states: a window of them, or a book of web pages.
///
///     int main(int count, char** arguments) {
///       vemra::gallery::Gallery gallery("Contacts");
///       gallery.add({"Card", "Ada", Card(ada)}).add({"Card", "A long name", Card(long)});
///       return gallery.run(count, arguments);
///     }
///
/// Main thread only.
class VEMRA_EXPORT Gallery {
 public:
  /// A gallery without specimens, in English (en_US).
  explicit Gallery(std::string title);
  /// The same with the version that `--version` writes, such as "1.2.3".
  Gallery(std::string title, std::string version);

  /// Adds a specimen, as the last one of its section. Throws a `std::invalid_argument` where the section
  /// has one of that name.
  Gallery& add(Specimen specimen);
  /// Adds a language that a reader can choose. The first one is English.
  Gallery& addLanguage(Language language);

  const std::string& title() const { return title_; }
  /// "" where none was given.
  const std::string& version() const { return version_; }
  /// By section, the sections in the order in which the first of each was added.
  const std::vector<Specimen>& specimens() const { return specimens_; }
  const std::vector<Language>& languages() const { return languages_; }

  /// The program of a gallery: shows the window, or with `--export FOLDER` writes the book (`writeBook`)
  /// without a display. Makes its own `QApplication`. Errors go to standard error.
  /// - Returns: the exit code: 0; 2 for an unusable command line, or a folder that cannot be written.
  int run(int argumentCount, char** arguments) const;

 private:
  std::string title_, version_;
  std::vector<Specimen> specimens_;
  std::vector<Language> languages_;
};

/// The environment that shows a language: its locale, its texts and its direction.
VEMRA_EXPORT ui::Environment environmentFor(const Language& language);

/// Shows a specimen without a window, in the state that it is about.
VEMRA_EXPORT std::unique_ptr<testing::Screen> mount(const Specimen& specimen,
                                                    ui::Environment environment);

}  // namespace vemra::gallery
