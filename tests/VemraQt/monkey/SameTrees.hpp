#pragma once

#include "VemraPlatform/page/WindowedTree.hpp"
#include "tests/VemraQt/monkey/Twins.hpp"

#include <string>

namespace vemra::monkey {

[[noreturn]] void fail(const std::string& what);

/// The element on a line of its own, for a message.
std::string described(const ui::Element& element);

/// Compares the window's nodes, as far as it has any, with the whole tree.
void expectSame(Twins& twins, const ui::Node& mine, const Twins::Element& theirs);

/// Checks that the laid-out tree is the graph's tree.
void expectSame(const ui::Node& graph, const page::Node& page);

}  // namespace vemra::monkey
