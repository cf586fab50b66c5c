#pragma once

#include "tests/VemraQt/monkey/Twins.hpp"

#include <vector>

class QAccessibleInterface;

namespace vemra::monkey {

/// The page as assistive technology gets it: the elements outside the list of people in order, and
/// that list, or nullptr when there is none.
struct HeardPage {
  std::vector<QAccessibleInterface*> elements;
  QAccessibleInterface* list = nullptr;
};
HeardPage heardPage(QAccessibleInterface& page);

/// Throws `Disagreement` unless both hosts got the same calls and the window's present content
/// (nodes, layout, widgets, focus) agrees with the screen without a window. Reads only rows near
/// the viewport.
void expectAgreement(Twins& twins);

/// The same for every row, and for its accessible objects; for a very long list, only for some
/// rows.
void expectAgreementEverywhere(Twins& twins);

}  // namespace vemra::monkey
