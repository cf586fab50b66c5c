#pragma once

#include "VemraGallery/Gallery.hpp"
#include "VemraPlatform/Export.hpp"

#include <filesystem>
#include <stdexcept>

namespace vemra::gallery {

/// Says why a book was not written; names the folder or the file. Nothing has changed then.
struct BookError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Whether a book may replace what a folder holds.
enum class Replace { no, yes };

/// Writes a gallery as web pages that need no network: `index.html` and a picture of each specimen in
/// each language, light and dark, 320 and 720 pixels wide, with its outline, its identifiers and what
/// assistive technology reads of it.
///
/// The folder is made where it is not there. One that is not empty is refused, or with `Replace::yes` loses an
/// older book (`index.html` and `pictures`) and keeps what else it holds. Needs a `QApplication`; throws a
/// `BookError`.
VEMRA_EXPORT void writeBook(const Gallery& gallery, const std::filesystem::path& folder,
                            Replace replace = Replace::no);

}  // namespace vemra::gallery
