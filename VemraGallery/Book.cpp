#include "VemraGallery/Book.hpp"

#include "VemraGallery/BookPage.hpp"
#include "VemraGallery/Heard.hpp"
#include "VemraQt/Picture.hpp"
#include "VemraTesting/Outline.hpp"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <system_error>

namespace vemra::gallery {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t linesOfATree = 300;

std::vector<std::string> firstLines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  std::size_t left = 0;
  for (std::string line; std::getline(stream, line);) {
    if (lines.size() < linesOfATree) {
      lines.push_back(line);
    } else {
      ++left;
    }
  }
  if (left > 0) lines.push_back("… and " + std::to_string(left) + " lines more");
  return lines;
}

std::vector<std::string> eachOnce(std::vector<std::string> texts) {
  std::vector<std::string> once;
  for (std::string& text : texts) {
    if (once.size() == linesOfATree) break;
    if (std::ranges::find(once, text) == once.end()) once.push_back(std::move(text));
  }
  return once;
}

[[noreturn]] void cannotWrite(const fs::path& path) {
  throw BookError(path.string() + ": cannot be written");
}

void takePictures(const Gallery& gallery, std::size_t number, testing::Screen& screen,
                  std::size_t language, const fs::path& folder, BookEntry& entry) {
  PaletteSwitch palette;
  for (const Colours colours : allColours) {
    palette.set(colours);
    ui::Environment environment = environmentFor(gallery.languages()[language]);
    environment.colorScheme = schemeOf(colours);
    screen.setEnvironment(environment);
    for (const int width : bookWidths) {
      const Variant variant{language, colours, width};
      const QImage image = qt::picture(screen.graph(), QSize(width, entry.specimen->height));
      const std::string file = "pictures/" + pictureName(number, gallery, variant) + ".png";
      if (!image.save(QString::fromStdString((folder / file).string()), "PNG")) {
        cannotWrite(folder / file);
      }
      entry.pictures.push_back({variant, file, image.width(), image.height()});
    }
  }
}

BookEntry entryOf(const Gallery& gallery, std::size_t number, const fs::path& folder) {
  const Specimen& specimen = gallery.specimens()[number];
  BookEntry entry{
      .specimen = &specimen, .pictures = {}, .identifiers = {}, .outline = {}, .heard = {}};
  for (std::size_t language = 0; language < gallery.languages().size(); ++language) {
    const auto screen = mount(specimen, environmentFor(gallery.languages()[language]));
    if (language == 0) {
      entry.outline = firstLines(screen->outline());
      entry.identifiers = eachOnce(screen->identifiers());
      entry.heard = heard(screen->graph(), linesOfATree);
    }
    takePictures(gallery, number, *screen, language, folder, entry);
  }
  return entry;
}

/// A new folder beside `folder`, removed again at the end with what is left in it.
class Draft {
 public:
  explicit Draft(const fs::path& folder) {
    std::string name = folder.string() + ".XXXXXX";
    if (mkdtemp(name.data()) == nullptr) cannotWrite(folder);
    path_ = name;
    fs::permissions(path_,
                    fs::perms::group_read | fs::perms::group_exec | fs::perms::others_read |
                        fs::perms::others_exec,
                    fs::perm_options::add);
    fs::create_directory(path_ / "pictures");
  }
  ~Draft() {
    std::error_code error;
    fs::remove_all(path_, error);
  }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;

  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

void writeFile(const fs::path& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) cannotWrite(path);
}

void moveInto(const fs::path& draft, const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  for (const char* const part : {"pictures", "index.html"}) {
    fs::remove_all(folder / part, error);
    fs::rename(draft / part, folder / part, error);
    if (error) throw BookError((folder / part).string() + ": " + error.message());
  }
}

}  // namespace

void writeBook(const Gallery& gallery, const fs::path& folder, Replace replace) {
  std::error_code error;
  const bool isThere = fs::exists(folder, error);
  if (isThere && !fs::is_directory(folder, error)) {
    throw BookError(folder.string() + ": is not a folder");
  }
  if (isThere && replace == Replace::no && !fs::is_empty(folder, error)) {
    throw BookError(folder.string() +
                    ": is not empty; ask for --overwrite to replace the book in it");
  }
  if (error) throw BookError(folder.string() + ": " + error.message());
  // Beside the folder, so that it is on the same file system and can be moved there in one step.
  fs::path name = folder.lexically_normal();
  if (!name.has_filename()) name = name.parent_path();
  fs::create_directories(name.parent_path().empty() ? "." : name.parent_path(), error);
  const Draft draft(name);
  std::vector<BookEntry> entries;
  for (std::size_t number = 0; number < gallery.specimens().size(); ++number) {
    entries.push_back(entryOf(gallery, number, draft.path()));
  }
  writeFile(draft.path() / "index.html", bookPage(gallery, entries));
  moveInto(draft.path(), folder);
}

}  // namespace vemra::gallery
