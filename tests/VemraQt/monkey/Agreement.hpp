#pragma once

#include "tests/VemraQt/monkey/Twins.hpp"

namespace vemra::monkey {

/// Throws `Disagreement` unless both hosts were asked the same and everything that the window holds
/// just now (nodes, layout, widgets, focus) is as the screen without a window says. Looks at no
/// row that is not near the viewport.
void expectAgreement(Twins& twins);

/// The same of every row, and of what assistive technology sees of it; of very many rows, of some.
void expectAgreementEverywhere(Twins& twins);

}  // namespace vemra::monkey
