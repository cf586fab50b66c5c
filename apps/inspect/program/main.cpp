#include "apps/inspect/Program.hpp"

#include <iostream>

int main(int argumentCount, char** arguments) {
  return vemra::inspect::run(argumentCount, arguments, std::cout, std::cerr);
}
