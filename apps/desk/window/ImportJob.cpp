#include "apps/desk/window/ImportJob.hpp"

#include "VemraQt/StartOnMainThread.hpp"
#include "apps/desk/commands/Documents.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/Reasons.hpp"

#include <exception>
#include <utility>

#include <QFile>

namespace vemra::desk {

ImportJob::ImportJob(std::shared_ptr<StoreEngine> engine, const QStringList& files, QObject* parent)
    : QObject(parent), engine_(std::move(engine)) {
  for (const QString& file : files) files_.push_back(QFile::encodeName(file).toStdString());
  reading_ = std::thread([this] { readAll(); });
}

ImportJob::~ImportJob() {
  isCancelled_ = true;
  reading_.join();
}

void ImportJob::cancel() {
  isCancelled_ = true;
}

// Runs on the thread. Calls that it queues for this object are dropped when the object is
// destroyed.
void ImportJob::readAll() {
  auto results = std::make_shared<Results>();
  QString failure;
  try {
    for (const std::string& file : files_) {
      if (isCancelled_) break;
      results->push_back(readDocument(file));
      const int count = static_cast<int>(results->size());
      QMetaObject::invokeMethod(
          this, [this, count] { Q_EMIT progressed(count); }, Qt::QueuedConnection);
    }
  } catch (const std::exception& error) {
    failure = fromUTF8(error.what());
  }
  QMetaObject::invokeMethod(
      this,
      [this, results, failure] {
        if (isCancelled_) {
          Q_EMIT cancelled();
        } else if (!failure.isEmpty()) {
          Q_EMIT failed(localizedReason(failure));
        } else {
          store(std::move(*results));
        }
      },
      Qt::QueuedConnection);
}

void ImportJob::store(Results results) {
  Q_EMIT storing();
  const auto kept = std::make_shared<const Results>(std::move(results));
  qt::startOnMainThread(*this, engine_->import(*kept), [this, kept](auto result) {
    if (!result.hasValue()) {
      try {
        std::rethrow_exception(result.exception());
      } catch (const std::exception& error) {
        Q_EMIT failed(reasonOf(error));
      }
      return;
    }
    QStringList remarks;
    for (const LeftOutOutcome& leftOut : std::move(result).take()) {
      const std::size_t i = leftOut.document;
      remarks.append(localizedReason(fromUTF8(lineOf(leftOut, files_[i], (*kept)[i]))));
    }
    Q_EMIT imported(remarks);
  });
}

}  // namespace vemra::desk
