#include "VemraQt/atspi/IdentifierSource.hpp"

namespace vemra::qt::atspi {

void addIdentifierSource(IdentifierSource& source) {
  identifierSources().push_back(&source);
}

void removeIdentifierSource(IdentifierSource& source) {
  std::erase(identifierSources(), &source);
}

std::vector<IdentifierSource*>& identifierSources() {
  static std::vector<IdentifierSource*> sources;
  return sources;
}

}  // namespace vemra::qt::atspi
