#pragma once

#include "VemraQt/ViewWidget.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/WholeOutline.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

namespace vemra::desk {

using testing::outlineOf;

/// A store with the sample goals, and a window on it that records.
class RecordedDesk : public OpenDesk {
 protected:
  RecordedDesk() { GoalStore::open(file).import(sampleGoals()); }

  void openAndRecord(bool isMasked = false, int height = 1500) {
    engine = std::make_shared<StoreEngine>(file, patience);
    window = std::make_unique<DeskWindow>(StoreOpening{engine->file(), engine, {}, false},
                                          std::nullopt, RecordingWish{recording, isMasked});
    window->resize(1200, height);
    window->show();
  }

  ui::ViewGraph& graph() const { return window->screen().graph(); }

  void importAsAnotherProgram(const GetGoalSnapshotResponse& result) const {
    const Ending ending = run({{"import", "--store", file,
                                folder.write("changed.json", documents::writeResult(result))}});
    ASSERT_EQ(ending.exitCode, 0) << ending.diagnostics;
  }

  const std::string recording = folder.file("case.json");
  const std::string mai = "vemra.goal.person.nguyen-thi-mai";
  const std::string tomas = "vemra.goal.person.tomas-lindqvist";
};

}  // namespace vemra::desk
