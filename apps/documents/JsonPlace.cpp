#include "apps/documents/JsonPlace.hpp"

#include <utility>

namespace vemra::documents {
namespace {

std::string difference(std::string_view expected, std::string_view found) {
  return std::string("expected ").append(expected).append("; found ").append(found);
}

}  // namespace

JsonPlace::JsonPlace(std::string file) : file_(std::move(file)) {}

void JsonPlace::enterKey(std::string_view key) {
  steps_.push_back({key});
}

void JsonPlace::enterElement(std::size_t index) {
  steps_.push_back({{}, index});
}

void JsonPlace::leave() {
  steps_.pop_back();
}

std::string JsonPlace::pointer() const {
  std::string out;
  for (const Step& step : steps_) {
    out += '/';
    out += step.key.data() == nullptr ? std::to_string(step.index) : pointerToken(step.key);
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
