#pragma once

#include "tests/VemraQt/WindowHost.hpp"

#include <cstddef>
#include <vector>

#include <QScrollBar>

/// \file
/// A list that is much longer than its window, and checks of its visible part.

namespace vemra::qttest {

/// People named by number, so that a gap in view is a gap in the numbers.
Result numbered(std::size_t count);

/// The same, but every third person's name has several lines, so that the estimated height of
/// unmeasured rows is wrong.
Result numberedUnevenly(std::size_t count);

/// The people whose names are in view, from top to bottom.
std::vector<int> peopleInView(const WindowHost& host);

/// Fails when two widgets of the page, two rows, or a widget and another row overlap, and when a
/// widget is not at its element's frame.
void expectNothingOverlaps(const WindowHost& host);

QScrollBar& bar(const WindowHost& host);

}  // namespace vemra::qttest
