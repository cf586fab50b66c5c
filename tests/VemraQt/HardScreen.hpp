#pragma once

#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/WindowHost.hpp"

#include <memory>
#include <vector>

#include <QPalette>
#include <QScrollBar>

/// \file
/// The screen with everything on it that is hard to show, in every look that it has to bear.

namespace vemra::qttest {

/// Every face of the screen in one: open editors with and without a note, outcomes, corrections
/// with notes, names that are long, endless or empty.
void makeItHard(WindowHost& host);

/// What a page may be shown in.
struct Look {
  std::string name;
  int width;
  double scale = 1;
  ui::LayoutDirection direction = ui::LayoutDirection::leftToRight;
  std::shared_ptr<const ui::StringsTable> strings = nullptr;
};

/// Text from 100 to 300 %, wide and at 320 pixels, from the left in English and with longer words,
/// from the right in Hebrew and with longer words.
std::vector<Look> looks();
void dress(WindowHost& host, const Look& look);

/// The colours that a page may be shown in.
struct Colours {
  const char* name;
  ui::ColorScheme scheme;
  QPalette system;
};

/// Light and dark as the page makes them, dark and high contrast as the system may have them.
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

/// How a message calls an element: its identifier, or what it shows.
std::string called(const page::Node& leaf);

}  // namespace vemra::qttest
