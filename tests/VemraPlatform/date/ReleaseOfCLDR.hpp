#pragma once

#include <unicode/ulocdata.h>

namespace vemra::testing {

/// The major release of CLDR whose data this machine's ICU has: 42 with ICU 72, 46 with ICU 76, 48
/// with ICU 78.
inline int releaseOfCLDR() {
  UVersionInfo version = {};
  UErrorCode status = U_ZERO_ERROR;
  ulocdata_getCLDRVersion(version, &status);
  return U_SUCCESS(status) ? version[0] : 0;
}

}  // namespace vemra::testing
