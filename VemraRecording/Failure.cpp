#include "VemraRecording/Failure.hpp"

namespace vemra::recording {

std::string Failure::text() const {
  std::string line = file + ": the recording has ended: ";
  switch (reason) {
    case Reason::fileExists:
      line += "a file of this name is there already";
      break;
    case Reason::notWritten:
      line += detail;
      break;
    case Reason::environmentChanged:
      line += "the locale or the time zone has changed, which a case cannot hold";
      break;
  }
  return line;
}

}  // namespace vemra::recording
