#include "VemraPlatform/base/SharedArray.hpp"

void tryToReplaceAnElement(vemra::SharedArray<std::string>& refs) {
  static_cast<void>(refs[0]);
#ifdef MUST_NOT_COMPILE
  refs[0] = "other";
#endif
}
