#pragma once

#include <vector>

#include <gtest/gtest.h>

namespace vemra::testing {

/// One change that makes a record unequal.
template <class Record>
struct Change {
  const char* field;
  void (*apply)(Record&);
};

/// Checks that a record equals an independent copy of itself, and that each change alone, seen from
/// either side, makes it unequal.
template <class Record>
void expectEachChangeToMatter(Record (*make)(), const std::vector<Change<Record>>& changes) {
  EXPECT_TRUE(make() == make()) << "two records of the same values differ";
  for (const Change<Record>& change : changes) {
    const Record original = make();
    Record changed = make();
    change.apply(changed);
    EXPECT_FALSE(original == changed) << "the equality ignores " << change.field;
    EXPECT_FALSE(changed == original) << "the equality ignores " << change.field;
    EXPECT_TRUE(changed == Record(changed)) << "unequal to its copy after " << change.field;
  }
}

}  // namespace vemra::testing
