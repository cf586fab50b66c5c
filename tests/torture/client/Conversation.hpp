#pragma once

#include "apps/desk/store/StoreEngine.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vemra::desk {

/// A client of a store that carries out commands, one a line, so that a test can act on a store as
/// a window does: with one engine that stays open, and an answer only when the engine has answered.
///
/// A line is words between tabs:
///
///     open FILE [MILLISECONDS]    forget the engine and take a new one; how long it waits for others
///     record GOAL NOTE [ID]       the answer is the outcome's id; with an id it can be tried again
///     import DOC…
///     goals
///     export GOAL                 the result document, on one line
///     content FILE                all goals as documents, read as `vemra-desk export` reads them
///
/// A line gets one line of answer: `ok`, a tab and the answer, or `error`, a tab and the message.
class Conversation {
 public:
  std::string answer(const std::string& line);

 private:
  std::string obey(const std::vector<std::string>& words);
  StoreEngine& engine();

  std::optional<StoreEngine> engine_;
};

}  // namespace vemra::desk
