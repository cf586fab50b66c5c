#pragma once

#include "VemraGallery/Gallery.hpp"
#include "VemraPlatform/Export.hpp"

#include <filesystem>
#include <stdexcept>

namespace vemra::gallery {

/// The reason why a book was not written; names the folder or the file. No file has changed then.
struct BookError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Whether a book may replace an older book in its folder.
enum class Replace { no, yes };

/// Writes a gallery as web pages that need no network: `index.html` and a picture of each specimen
/// in each language, light, dark and in high contrast, 320 and 600 pixels wide, with its outline,
/// its identifiers and the text that assistive technology gets.
///
/// Makes the folder if it does not exist. Refuses a folder that is not empty; with `Replace::yes`
/// replaces the older book in it (`index.html` and `pictures`) and keeps its other files. Needs a
/// `QApplication`. Throws `BookError`.
VEMRA_EXPORT void writeBook(const Gallery& gallery, const std::filesystem::path& folder,
                            Replace replace = Replace::no);

}  // namespace vemra::gallery
