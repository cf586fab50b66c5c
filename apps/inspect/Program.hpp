#pragma once

#include "apps/inspect/Picture.hpp"

#include <iosfwd>

namespace vemra::inspect {

/// The program `vemra-inspect`, but for its process.
///
/// Reads the arguments and the case document, carries out its steps, and writes what came of it to
/// `output`, in one piece and only when everything has gone well so far; diagnostics go to
/// `diagnostics`. `drawPicture` is empty in a build that cannot draw.
/// - Returns: 0: done; 1: ran, but a step could not be carried out (or a picture not be drawn);
///   2: unusable arguments or input, nothing on `output`.
int run(int argumentCount, const char* const* arguments, std::ostream& output,
        std::ostream& diagnostics, const DrawPicture& drawPicture = {});

}  // namespace vemra::inspect
