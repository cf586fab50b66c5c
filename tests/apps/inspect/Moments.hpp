#pragma once

#include "VemraRecording/Call.hpp"
#include "apps/inspect/Case.hpp"
#include "apps/inspect/Inspection.hpp"
#include "tests/WholeOutline.hpp"

#include <cstddef>
#include <sstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace vemra::inspect {

inline constexpr std::string_view momentBegin = "after step ";

/// What a screen shows after so many steps, as a part of a text of moments.
inline std::string momentText(std::size_t steps, const std::string& outline) {
  return std::string(momentBegin) + std::to_string(steps) + '\n' + outline;
}

/// What a case showed and asked of its host.
struct ReplayedUse {
  std::string moments, calls;
};

/// Carries out all steps, and notes the screen at the same steps as a text of moments. Every step
/// must have been carried out.
inline ReplayedUse replay(const Case& read, const std::string& moments) {
  ReplayedUse replayed;
  Inspection inspection(read);
  std::size_t done = 0;
  const auto carryOutUpTo = [&](std::size_t count) {
    for (; done < count && done < read.steps.size(); ++done) {
      EXPECT_EQ(inspection.carryOut(read.steps[done]).value_or(""), "") << "step " << done + 1;
    }
  };
  std::istringstream lines(moments);
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with(momentBegin)) continue;
    const std::size_t steps = std::stoul(line.substr(momentBegin.size()));
    carryOutUpTo(steps);
    replayed.moments += momentText(steps, testing::outlineOf(inspection.screen().graph()));
  }
  carryOutUpTo(read.steps.size());
  EXPECT_EQ(inspection.finish().value_or(""), "");
  for (const recording::Call& call : inspection.calls()) {
    replayed.calls += recording::callText(call) + '\n';
  }
  return replayed;
}

}  // namespace vemra::inspect
