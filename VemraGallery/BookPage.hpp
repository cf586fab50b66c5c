#pragma once

#include "VemraGallery/Colours.hpp"
#include "VemraGallery/Gallery.hpp"

#include <array>
#include <string>
#include <vector>

/// \file
/// The web page of a book. Internal to the gallery.

namespace vemra::gallery {

/// The widths of the windows in which a book shows its specimens, in pixels, the smallest last. Two
/// of the widest fit beside each other into a window of 1,400 pixels.
inline constexpr std::array<int, 2> bookWidths{600, 320};

/// The settings of a picture.
struct Variant {
  std::size_t language = 0;  ///< its place among the gallery's languages
  Colours colours = Colours::light;
  int width = bookWidths[0];  ///< of the window, in pixels
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
