#pragma once

#include "apps/inspect/Picture.hpp"

#include <iosfwd>

namespace vemra::inspect {

/// Runs `vemra-inspect` with these arguments.
///
/// Reads the case document, carries out its steps, and writes the report to `output` in one piece,
/// and errors to `diagnostics`. `drawPicture` is empty in a build that cannot draw.
/// - Returns: the exit code. 0: done. 1: a step could not be carried out, a picture not drawn, or
///   the report not written. 2: the arguments or the input cannot be used; then nothing is on
///   `output`.
int run(int argumentCount, const char* const* arguments, std::ostream& output,
        std::ostream& diagnostics, const DrawPicture& drawPicture = {});

}  // namespace vemra::inspect
