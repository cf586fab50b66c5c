#include "VemraQt/QtStringsTable.hpp"

#include <QTranslator>

namespace vemra::qt {

QtStringsTable::QtStringsTable(std::unique_ptr<QTranslator> translator)
    : translator_(std::move(translator)) {}

QtStringsTable::~QtStringsTable() = default;

std::shared_ptr<const QtStringsTable> QtStringsTable::load(const QString& file) {
  auto translator = std::make_unique<QTranslator>();
  if (!translator->load(file)) return nullptr;
  return std::shared_ptr<const QtStringsTable>(new QtStringsTable(std::move(translator)));
}

std::optional<std::string> QtStringsTable::lookup(std::string_view key) const {
  const std::string terminated(key);
  const QString found = translator_->translate("VemraScreen", terminated.c_str());
  if (found.isNull()) return std::nullopt;
  return found.toStdString();
}

}  // namespace vemra::qt
