#include "apps/desk/commands/GoalLine.hpp"

namespace vemra::desk {

std::string onOneLine(std::string_view text) {
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

std::string goalLine(const GoalListing& goal) {
  return onOneLine(goal.id) + '\t' + onOneLine(goal.title) + '\n';
}

}  // namespace vemra::desk
