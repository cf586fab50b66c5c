#include "apps/desk/window/ImportDialog.hpp"

#include "apps/desk/window/Localized.hpp"

#include <utility>

namespace vemra::desk {

ImportDialog::ImportDialog(std::shared_ptr<StoreEngine> engine, const QStringList& files,
                           QWidget* parent)
    : QProgressDialog(localized("Reading documents…"), localized("Cancel"), 0,
                      static_cast<int>(files.size()), parent),
      job_(std::move(engine), files) {
  setObjectName("desk.importing");
  setWindowTitle(localized("Import"));
  setWindowModality(Qt::WindowModal);
  setAutoClose(false);
  setAutoReset(false);
  setMinimumDuration(400);
  setValue(0);
  connect(this, &QProgressDialog::canceled, &job_, &ImportJob::cancel);
  connect(&job_, &ImportJob::progressed, this, [this](int count) {
    if (!wasCanceled()) setValue(count);
  });
  connect(&job_, &ImportJob::storing, this, [this] {
    setLabelText(localized("Storing…"));
    setCancelButton(nullptr);
  });
  connect(&job_, &ImportJob::cancelled, this, &QObject::deleteLater);
  connect(&job_, &ImportJob::failed, this, [this](const QString& reason) {
    end(localized("Nothing was imported.") + ' ' + reason);
  });
  connect(&job_, &ImportJob::imported, this,
          [this, count = static_cast<std::size_t>(files.size())](QStringList remarks) {
            remarks.prepend(localized("Documents imported: %1.").arg(localizedNumber(count)));
            end(remarks.join('\n'));
          });
}

void ImportDialog::end(const QString& message) {
  hide();
  deleteLater();
  Q_EMIT ended(message);
}

}  // namespace vemra::desk
