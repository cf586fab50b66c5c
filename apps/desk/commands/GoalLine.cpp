#include "apps/desk/commands/GoalLine.hpp"

#include <string_view>

namespace vemra::desk {

namespace {

std::string escapedField(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  for (const char byte : text) {
    switch (byte) {
      case '\t':
        line += "\\t";
        break;
      case '\n':
        line += "\\n";
        break;
      case '\r':
        line += "\\r";
        break;
      case '\\':
        line += "\\\\";
        break;
      default:
        line += byte;
        break;
    }
  }
  return line;
}

}  // namespace

std::string goalLine(const GoalListing& goal) {
  return escapedField(goal.id) + '\t' + escapedField(goal.title) + '\n';
}

}  // namespace vemra::desk
