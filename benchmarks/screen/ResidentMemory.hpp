#pragma once

namespace vemra::bench {

/// What a process has in memory, in MiB.
struct Memory {
  double resident = 0;   ///< everything, the libraries' code and the fonts included
  double anonymous = 0;  ///< what it has allocated itself, and shares with nobody
};

/// The memory of this process now, after giving back what it does not use.
Memory memoryNow();

}  // namespace vemra::bench
