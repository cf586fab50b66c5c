// vemra-torture-client talk      answers the lines on standard input (Conversation.hpp)
// vemra-torture-client COMMAND…  as vemra-desk; there is no window
#include "apps/desk/commands/Commands.hpp"
#include "tests/torture/client/Conversation.hpp"

#include <iostream>
#include <string_view>
#include <unistd.h>
#include <variant>

namespace {

int talk() {
  vemra::desk::Conversation conversation;
  for (std::string line; std::getline(std::cin, line);) {
    const std::string answer = conversation.answer(line) + "\n";
    // One call, so that an answer is written as a whole or not at all when the process is killed.
    if (::write(STDOUT_FILENO, answer.data(), answer.size()) !=
        static_cast<ssize_t>(answer.size())) {
      return 1;
    }
  }
  return 0;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount == 2 && std::string_view(arguments[1]) == "talk") return talk();
  const auto asked = vemra::desk::readRequest(argumentCount, arguments);
  if (const auto* earlyExit = std::get_if<vemra::commandline::EarlyExit>(&asked)) {
    return vemra::commandline::print(*earlyExit, std::cout, std::cerr);
  }
  return vemra::desk::runCommand(std::get<vemra::desk::Request>(asked), std::cout, std::cerr);
}
