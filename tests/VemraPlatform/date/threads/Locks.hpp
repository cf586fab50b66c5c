#pragma once

namespace vemra::testing {

/// How many mutexes the calling thread has locked so far, our own and those of libraries. Always 0
/// where `VEMRA_LOCKS_ARE_NOT_COUNTED` is defined.
long locksTaken() noexcept;

}  // namespace vemra::testing
