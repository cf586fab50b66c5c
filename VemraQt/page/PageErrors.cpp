#include "VemraQt/page/PageErrors.hpp"

#include <QMetaObject>

namespace vemra::qt {

void PageErrors::keep(const std::exception_ptr& error) {
  if (ofHost_) {
    if (!*ofHost_) *ofHost_ = error;
    return;
  }
  if (waiting_) return;
  waiting_ = error;
  QMetaObject::invokeMethod(
      this, [this] { rethrowWaiting(); }, Qt::QueuedConnection);
}

}  // namespace vemra::qt
