#include "VemraQt/QtStringsTable.hpp"

#include <utility>

#include <QDir>
#include <QTranslator>

// The resources of a static library are linked only when the program uses Q_INIT_RESOURCE, which
// must be called outside any namespace.
static void bringInTranslations() {
  Q_INIT_RESOURCE(vemra_translations);
}

namespace vemra::qt {

QtStringsTable::QtStringsTable(std::unique_ptr<QTranslator> translator, std::string context)
    : translator_(std::move(translator)), context_(std::move(context)) {}

QtStringsTable::~QtStringsTable() = default;

std::shared_ptr<const QtStringsTable> QtStringsTable::load(const QString& file,
                                                           std::string context) {
  auto translator = std::make_unique<QTranslator>();
  if (!translator->load(file)) return nullptr;
  return std::shared_ptr<const QtStringsTable>(
      new QtStringsTable(std::move(translator), std::move(context)));
}

std::shared_ptr<const QtStringsTable> QtStringsTable::builtIn(const QStringList& languages) {
  bringInTranslations();
  for (const QString& language : languages) {
    const QString plain = QString(language).replace(u'_', u'-').section(u'-', 0, 0).toLower();
    if (plain == QLatin1String("en") || plain == QLatin1String("c")) return nullptr;
    const QString file = QStringLiteral(":/vemra/vemra_%1.qm").arg(plain);
    if (QFile::exists(file)) return load(file);
  }
  return nullptr;
}

std::optional<std::string> QtStringsTable::lookup(std::string_view key) const {
  const std::string terminated(key);
  const QString found = translator_->translate(context_.c_str(), terminated.c_str());
  if (found.isNull()) return std::nullopt;
  return found.toStdString();
}

}  // namespace vemra::qt
