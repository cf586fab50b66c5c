#pragma once

#include "apps/documents/DocumentError.hpp"

#include <cstddef>
#include <string>
#include <string_view>

namespace vemra::documents {

/// The place that is being read in a document: the file's name and the path from its root.
///
/// Throws errors that name this place.
class JsonPlace {
 public:
  explicit JsonPlace(std::string file);
  JsonPlace(const JsonPlace&) = delete;
  JsonPlace& operator=(const JsonPlace&) = delete;

  /// A step into the value of a key, which must stay alive, or into an element; the destructor
  /// steps back. The last step is destroyed first.
  ///
  /// Steps are local variables of the reading functions, so a step costs next to nothing.
  class Step {
   public:
    Step(JsonPlace& place, std::string_view key) : place_(place), outer_(place.inner_), key_(key) {
      place.inner_ = this;
    }
    /// Into the first element.
    explicit Step(JsonPlace& place) : Step(place, std::string_view()) { isElement_ = true; }
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;
    ~Step() { place_.inner_ = outer_; }

    /// Moves to the next element.
    void next() { ++index_; }

   private:
    friend class JsonPlace;
    JsonPlace& place_;
    const Step* outer_;
    std::string_view key_;
    bool isElement_ = false;
    std::size_t index_ = 0;
  };

  /// The JSON pointer of the place (RFC 6901).
  std::string pointer() const;

  /// Throws "expected …; found …" at this place.
  [[noreturn]] void fail(std::string_view expected, std::string_view found) const;

  /// The same at a key of the object at this place.
  [[noreturn]] void failAt(std::string_view key, std::string_view expected,
                           std::string_view found) const;

  /// The same with line and column, both from 1, for text that is not JSON.
  [[noreturn]] void failSyntax(std::size_t line, std::size_t column, std::string_view expected,
                               std::string_view found) const;

 private:
  std::string file_;
  const Step* inner_ = nullptr;  // the last step; nil at the root
};

}  // namespace vemra::documents
