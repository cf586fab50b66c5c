#pragma once

#include "VemraGallery/Gallery.hpp"

namespace vemra::gallery {

/// Adds every variant of the goal result screen to a gallery: reasons, gaps, the path, the footer,
/// the control that records outcomes, long texts, texts in other scripts, and ten thousand people.
void addGoalFaces(Gallery& gallery);

}  // namespace vemra::gallery
