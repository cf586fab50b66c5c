#pragma once

#include "VemraGallery/Gallery.hpp"

#include <string>
#include <vector>

/// \file
/// The web page of a book. Internal to the gallery.

namespace vemra::gallery {

/// The settings of a picture.
struct Variant {
  std::size_t language = 0;  ///< its place among the gallery's languages
  ui::ColorScheme scheme = ui::ColorScheme::light;
  int width = 720;  ///< of the window, in pixels
};

/// A picture of a specimen, as a file of the book.
struct BookPicture {
  Variant variant;
  std::string file;  ///< relative to the page
  int width = 0;
  int height = 0;
};

/// The content of a book for one specimen.
struct BookEntry {
  const Specimen* specimen = nullptr;
  std::vector<BookPicture> pictures;
  std::vector<std::string> identifiers;  ///< each once
  std::vector<std::string> outline;      ///< lines
  std::vector<std::string> heard;        ///< lines
};

/// The page of a book: HTML that contains its style and its script. With scripts disabled it shows
/// all entries in the first variant.
std::string bookPage(const Gallery& gallery, const std::vector<BookEntry>& entries);

/// The name of a variant's picture: "12-de-dark-320".
std::string pictureName(std::size_t entry, const Gallery& gallery, const Variant& variant);

}  // namespace vemra::gallery
