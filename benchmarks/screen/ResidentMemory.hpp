#pragma once

namespace vemra::bench {

/// The resident memory of a process, in MiB.
struct Memory {
  double resident = 0;   ///< everything, the libraries' code and the fonts included
  double anonymous = 0;  ///< private memory that it has allocated itself
};

/// The present memory of this process, after releasing unused memory.
Memory memoryNow();

}  // namespace vemra::bench
