#include "apps/desk/commands/Commands.hpp"
#include "apps/desk/window/ShowWindow.hpp"

#include <iostream>
#include <variant>

int main(int argumentCount, char** arguments) {
  const auto asked = vemra::desk::readRequest(argumentCount, arguments);
  if (const auto* earlyExit = std::get_if<vemra::commandline::EarlyExit>(&asked)) {
    return vemra::commandline::print(*earlyExit, std::cout, std::cerr);
  }
  const auto& request = std::get<vemra::desk::Request>(asked);
  // A command needs no display, so it does not start the toolkit, which requires one.
  if (request.command != vemra::desk::Request::Command::showWindow) {
    return vemra::desk::runCommand(request, std::cout, std::cerr);
  }
  return vemra::desk::showWindow(request, std::cerr);
}
