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

/// One state of a view in the gallery.
struct Specimen {
  std::string section;        ///< the heading above it; the gallery groups specimens by section
  std::string name;           ///< unique in its section
  ui::View view;              ///< what the specimen shows
  std::string description{};  ///< a sentence about the state, or ""
  /// Acts like a person to reach the state, for example opens an editor. Empty: no action.
  std::function<void(testing::Screen&)> prepare{};
  /// The height of the specimen in pixels; 0: the height of the view.
  int height = 0;
};

/// A language in which the gallery shows its specimens.
struct Language {
  std::string name;                                   ///< in the language itself: "Deutsch"
  std::string locale = "en_US";                       ///< an ICU locale identifier
  std::shared_ptr<const ui::StringsTable> strings{};  ///< none: every key is shown unchanged
  /// Of the whole specimen; the strings alone do not decide it.
  ui::LayoutDirection direction = ui::LayoutDirection::leftToRight;
};

/// Views in all their states, in a window or as web pages.
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
  /// The same, with the version for `--version`, such as "1.2.3".
  Gallery(std::string title, std::string version);

  /// Adds a specimen at the end of its section. Throws `std::invalid_argument` when the section
  /// already has one of that name.
  Gallery& add(Specimen specimen);
  /// Adds a language to the choices. The first choice is always English.
  Gallery& addLanguage(Language language);

  /// The title of the window and of the web pages.
  const std::string& title() const { return title_; }
  /// The version, or "".
  const std::string& version() const { return version_; }
  /// All specimens, grouped by section; the sections are in the order of their first specimens.
  const std::vector<Specimen>& specimens() const { return specimens_; }
  /// The languages to choose from, in the order in which they were added; English is the first.
  const std::vector<Language>& languages() const { return languages_; }

  /// Runs the program of a gallery: shows the window, or with `--export FOLDER` writes the web
  /// pages (`writeBook`) without a display. Makes its own `QApplication`. Writes errors to standard
  /// error.
  /// - Returns: the exit code: 0; 2 for an unusable command line, or a folder that cannot be
  ///   written.
  int run(int argumentCount, char** arguments) const;

 private:
  std::string title_, version_;
  std::vector<Specimen> specimens_;
  std::vector<Language> languages_;
};

/// An environment with the locale, the strings table and the direction of a language.
VEMRA_EXPORT ui::Environment environmentFor(const Language& language);

/// Shows a specimen without a window, after its `prepare`.
VEMRA_EXPORT std::unique_ptr<testing::Screen> mount(const Specimen& specimen,
                                                    ui::Environment environment);

}  // namespace vemra::gallery
