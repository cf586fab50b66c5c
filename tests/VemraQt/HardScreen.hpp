#pragma once

#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/WindowHost.hpp"

#include <memory>
#include <vector>

#include <QPalette>
#include <QScrollBar>

/// \file
/// A screen with every element that is hard to show, in every look that it must support.

namespace vemra::qttest {

/// Every variant of the screen in one: open editors with and without a note, outcomes, corrections
/// with notes, long, endless and empty names.
void makeItHard(WindowHost& host);

/// The settings of a look.
struct Look {
  std::string name;
  int width;
  double scale = 1;
  ui::LayoutDirection direction = ui::LayoutDirection::leftToRight;
  std::shared_ptr<const ui::StringsTable> strings = nullptr;
};

/// Text from 100 to 300 %, wide and 320 pixels wide, left to right in English and with longer
/// words, right to left in Hebrew and with longer words.
std::vector<Look> looks();
void dress(WindowHost& host, const Look& look);

/// The palettes of a page.
struct Colours {
  const char* name;
  ui::ColorScheme scheme;
  QPalette system;
};

/// Light and dark as the page makes them, dark and high contrast as a system may set them.
std::vector<Colours> colours();
/// Also sets the application's palette: keep an `AsBefore`.
void dress(WindowHost& host, const Colours& colours);

/// Calls `visit` for every element that has a widget, while the page is scrolled from end to end.
template <class Visit>
void forEachPlaced(const WindowHost& host, Visit visit) {
  qt::Page& page = pageOf(host.widget);
  QScrollBar& bar = *host.widget.verticalScrollBar();
  for (int position = 0;; position += 500) {
    bar.setValue(position);
    page::forEachLeaf(*page.tree().root(), [&](const page::Node& leaf) {
      if (page.shown(leaf).widget) visit(leaf);
    });
    if (position >= bar.maximum()) break;
  }
}

/// The name of an element in messages: its identifier, or its shown text.
std::string called(const page::Node& leaf);

}  // namespace vemra::qttest
