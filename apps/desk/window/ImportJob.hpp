#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "apps/desk/store/StoreEngine.hpp"

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <QObject>
#include <QStringList>

namespace vemra::desk {

/// Imports documents into a store, all of them or none: reads them one after the other on a thread
/// of its own, then stores them in one transaction. Ends with exactly one of the last three
/// signals, unless it is destroyed before; then nothing is imported unless it was already being
/// stored.
///
/// Main thread only.
class ImportJob : public QObject {
  Q_OBJECT

 public:
  /// Starts to read.
  ImportJob(std::shared_ptr<StoreEngine> engine, const QStringList& files,
            QObject* parent = nullptr);
  ~ImportJob() override;

  /// Ends the reading, with nothing imported. Does nothing once the documents are being stored.
  void cancel();

 Q_SIGNALS:
  /// So many documents have been read.
  void progressed(int count);
  /// All have been read; cancelling is too late.
  void storing();

  void cancelled();
  /// Nothing was imported; `reason` is a line that names the file and the place.
  void failed(const QString& reason);
  /// All were imported. `remarks` are lines about outcomes that the store has with other content.
  void imported(const QStringList& remarks);

 private:
  using Results = std::vector<GetGoalSnapshotResponse>;

  void readAll();
  void store(Results results);

  std::shared_ptr<StoreEngine> engine_;
  std::vector<std::string> files_;
  std::atomic<bool> isCancelled_ = false;
  std::thread reading_;
};

}  // namespace vemra::desk
