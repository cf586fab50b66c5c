#pragma once

#include "tests/VemraQt/WindowHost.hpp"

#include <cstddef>
#include <string>
#include <vector>

#include <QScrollBar>

/// \file
/// A list that is much longer than its window, and what is seen of it.

namespace vemra::qttest {

/// Every person, named by number, so that a gap in view is a gap in the numbers.
Result numbered(std::size_t count);

/// The same, but every third person's name goes on over several lines: no estimate of the height of
/// rows that nobody has measured can be right for long.
Result numberedUnevenly(std::size_t count);

/// The people whose names stand in view, from top to bottom.
std::vector<int> peopleInView(const WindowHost& host);

/// Fails where two of the widgets on the page, two rows, or a widget and a row that it does not
/// belong to have a pixel in common; and where a widget stands elsewhere than its element.
void expectNothingOverlaps(const WindowHost& host);

QScrollBar& bar(const WindowHost& host);

}  // namespace vemra::qttest
