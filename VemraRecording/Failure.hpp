#pragma once

#include "VemraPlatform/Export.hpp"

#include <string>

namespace vemra::recording {

/// Why a recording has ended too early.
struct VEMRA_EXPORT Failure {
  /// Why a recording ended early.
  enum class Reason {
    fileExists,          ///< a file of this name is there already; it stays as it is
    notWritten,          ///< the system did not take what was to be written
    environmentChanged,  ///< a screen has got another locale or time zone; a case holds only one
  };

  Reason reason = Reason::notWritten;  ///< the kind of failure
  std::string file{};                  ///< of the recording
  std::string detail{};                ///< with `notWritten`: the reason in the words of the system

  /// The same as one line in English, which begins with the file. A host with other languages makes
  /// a text of its own from the fields.
  std::string text() const;
};

}  // namespace vemra::recording
