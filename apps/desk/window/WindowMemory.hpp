#pragma once

#include "apps/desk/window/Panes.hpp"

#include <optional>
#include <string>

#include <QWidget>

/// Stores and restores the size and place of the window, the widths of its panes and the open goal of
/// each store, in the user's settings. `ColourChoice` and `TextSize` do so for colours and text.
///
/// Settings that cannot be read, or that another program has damaged, count as absent. Main thread
/// only.
namespace vemra::desk::memory {

/// Gives the window the size and the place that it had, within the screen on which it opens; without
/// a memory, a comfortable size that fits the screen.
void restoreWindow(QWidget& window);
/// Gives the panes beside the page the widths that they had, and brings the goals to the front if
/// they were there in a window that has no room for all panes.
void restorePanes(Panes& panes);
/// Stores the size and place of the window and the widths of its panes.
void remember(const QWidget& window, const Panes& panes);

/// The goal that was open last in that store; none for a store of which nothing is remembered.
std::optional<std::string> goalOf(const std::string& storeFile);
/// Remembers the open goal of a store. The stores that were used last are remembered, at most twenty.
void rememberGoal(const std::string& storeFile, const std::string& goalID);

}  // namespace vemra::desk::memory
