#include "apps/inspect/Picture.hpp"
#include "apps/inspect/Program.hpp"

#include <iostream>

int main(int argumentCount, char** arguments) {
  using namespace vemra::inspect;
  return run(argumentCount, arguments, std::cout, std::cerr, pictureDrawer());
}
