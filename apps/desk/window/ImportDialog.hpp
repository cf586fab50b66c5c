#pragma once

#include "apps/desk/window/ImportJob.hpp"

#include <QProgressDialog>

namespace vemra::desk {

/// Imports documents and shows its progress when that takes more than a moment; the user may
/// cancel, and then nothing is imported. Deletes itself at the end.
class ImportDialog : public QProgressDialog {
  Q_OBJECT

 public:
  /// Starts the import.
  ImportDialog(std::shared_ptr<StoreEngine> engine, const QStringList& files, QWidget* parent);

 Q_SIGNALS:
  /// The end: the imported documents, or the reason why nothing was imported. Not emitted when the
  /// user has cancelled.
  void ended(const QString& message);

 private:
  void end(const QString& message);

  ImportJob job_;
};

}  // namespace vemra::desk
