#pragma once

/// \file
/// The way from Qt's widgets to the page's own accessible objects.

namespace vemra::qt {

/// Makes Qt use the page's own objects: for the widget of a page, whose children they are, and in
/// the place of the widgets on it, whose events speak of the elements they show. More calls do
/// nothing. Main thread only, after QApplication is made.
void installAccessiblePages();

}  // namespace vemra::qt
