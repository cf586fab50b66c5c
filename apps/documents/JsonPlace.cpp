#include "apps/documents/JsonPlace.hpp"

#include <utility>
#include <vector>

namespace vemra::documents {
namespace {

std::string difference(std::string_view expected, std::string_view found) {
  return std::string("expected ").append(expected).append("; found ").append(found);
}

}  // namespace

JsonPlace::JsonPlace(std::string file) : file_(std::move(file)) {}

std::string JsonPlace::pointer() const {
  std::vector<const Step*> steps;
  for (const Step* step = inner_; step != nullptr; step = step->outer_) steps.push_back(step);
  std::string out;
  for (auto i = steps.rbegin(); i != steps.rend(); ++i) {
    out += '/';
    out += (*i)->isElement_ ? std::to_string((*i)->index_) : pointerToken((*i)->key_);
  }
  return out;
}

void JsonPlace::fail(std::string_view expected, std::string_view found) const {
  throw DocumentError(file_, pointer(), difference(expected, found));
}

void JsonPlace::failAt(std::string_view key, std::string_view expected,
                       std::string_view found) const {
  throw DocumentError(file_, pointer() + '/' + pointerToken(key), difference(expected, found));
}

void JsonPlace::failSyntax(std::size_t line, std::size_t column, std::string_view expected,
                           std::string_view found) const {
  throw DocumentError(file_, pointer(),
                      "line " + std::to_string(line) + ", column " + std::to_string(column) + ": " +
                          difference(expected, found));
}

}  // namespace vemra::documents
