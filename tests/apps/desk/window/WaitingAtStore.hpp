#pragma once

#include "apps/desk/store/FileIdentity.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/window/WaitingOutcomes.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/FileCalls.hpp"
#include "tests/apps/desk/window/Becomes.hpp"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::desk {

/// A store, its journal, and the waiting outcomes of a program.
class WaitingAtStore : public ::testing::Test {
 protected:
  WaitingAtStore() { GoalStore::open(file).import({goal("g1", "One"), goal("g2", "Two")}); }
  ~WaitingAtStore() override { stop(); }

  void start(Patience patience = std::chrono::milliseconds(50)) {
    engine = std::make_shared<StoreEngine>(file, patience);
    waiting = std::make_unique<WaitingOutcomes>(engine, journal);
    QObject::connect(waiting.get(), &WaitingOutcomes::journalFailed,
                     [this](const QString& reason) { failure = reason.toStdString(); });
    waiting->start();
  }
  /// The program is killed; only the files on the disk remain.
  void stop() {
    waiting.reset();
    if (engine) engine->finish();
    engine.reset();
  }

  WaitingOutcome entry(const std::string& id, const std::string& goalID = "g1") const {
    return {id,
            fileMarkAt(file),
            "2025-01-05T10:00:00Z",
            goalID,
            "Title of " + goalID,
            "Ada",
            GoalOutcomeRecordingInput{GoalOutcomeSubjectKind::person, "p1",
                                      GoalOutcomeValue::helped, "note of " + id, std::nullopt}};
  }
  void add(const std::string& id, const std::string& goalID = "g1") const {
    waiting->add(entry(id, goalID), engine->storeNumber());
  }
  std::vector<std::string> recorded(const std::string& goalID = "g1") const {
    std::vector<std::string> ids;
    for (const auto& each : GoalStore::open(file).outcomes(goalID)) ids.push_back(each.id);
    return ids;
  }
  void replaceStore(const std::string& goalID) const {
    const std::string other = folder.file("other.sqlite");
    GoalStore::open(other).import({goal(goalID, "Of another store")});
    std::filesystem::rename(other, file);
  }
  void damageJournal() const {
    folder.write("goals.sqlite-waiting", "not ours\n");
    std::filesystem::permissions(
        journal.file(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  }
  bool waitsWith(const std::string& reason) const {
    return becomes([&] {
      const auto notes = waiting->notes();
      return !notes.empty() && notes[0].reason.toStdString().find(reason) != std::string::npos;
    });
  }
  /// Discards the outcome "a", which could be stored nowhere, and expects no trace of it.
  void expectDiscardLeavesTheJournal() {
    ASSERT_TRUE(waitsWith("has no goal"));
    EXPECT_NE(waiting->notes()[0].unkept, "");
    FileCalls::succeed();
    waiting->discard({"a"});
    EXPECT_TRUE(waiting->isEmpty());
    EXPECT_TRUE(journal.read().empty());
  }
  /// Each outcome is in its first try.
  bool hasNotFailed() const {
    const auto notes = waiting->notes();
    return std::ranges::all_of(notes, [](const auto& note) { return note.reason.isEmpty(); });
  }
  bool isDone() const {
    return becomes([&] { return waiting->isEmpty(); });
  }

  TemporaryFolder folder;
  std::string file = folder.file("goals.sqlite");
  OutcomeJournal journal{file, std::chrono::milliseconds(200)};
  std::shared_ptr<StoreEngine> engine;
  std::unique_ptr<WaitingOutcomes> waiting;
  std::string failure;
};

}  // namespace vemra::desk
