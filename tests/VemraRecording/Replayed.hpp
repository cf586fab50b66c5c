#pragma once

#include "VemraRecording/Call.hpp"
#include "apps/documents/SourceFile.hpp"
#include "apps/inspect/Case.hpp"
#include "apps/inspect/Inspection.hpp"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::recording {

/// A case as it is after its last step; every step must have been carried out.
class Replayed {
 public:
  explicit Replayed(const std::string& file)
      : read(inspect::readCaseFile(file, {})), inspection(read) {
    for (const inspect::Step& step : read.steps) {
      EXPECT_EQ(inspection.carryOut(step).value_or("done"), "done")
          << "in step " << ++stepsDone_ << " of\n"
          << documents::SourceFile(file).text();
    }
    EXPECT_EQ(inspection.finish().value_or(""), "");
  }

  std::string outline() const { return inspection.screen().outline(); }
  std::vector<std::string> calls() const {
    std::vector<std::string> texts;
    for (const Call& call : inspection.calls()) texts.push_back(callText(call));
    return texts;
  }

  const inspect::Case read;
  inspect::Inspection inspection;

 private:
  int stepsDone_ = 0;
};

}  // namespace vemra::recording
