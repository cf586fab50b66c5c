#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Environment.hpp"

#include <memory>

#include <QString>
#include <QStringList>

class QTranslator;

namespace vemra::qt {

/// A strings table in a Qt Linguist translation file (`.qm`).
///
/// The context of its messages is `VemraScreen` and the source texts are the screen's keys, byte
/// for byte; disambiguations are not used. A message that is marked unfinished or left empty in
/// the `.ts` file counts as not translated.
class VEMRA_EXPORT QtStringsTable final : public ui::StringsTable {
 public:
  /// Loads the table in a file or resource; nullptr when it cannot be read.
  static std::shared_ptr<const QtStringsTable> load(const QString& file);
  /// Loads the table of this library for the first of `languages` ("de-AT", "en") that the library
  /// supports. Returns nullptr when that language is English, whose keys are shown unchanged, or
  /// when the library supports none of them.
  static std::shared_ptr<const QtStringsTable> builtIn(const QStringList& languages);
  ~QtStringsTable() override;

  std::optional<std::string> lookup(std::string_view key) const override;

 private:
  explicit QtStringsTable(std::unique_ptr<QTranslator> translator);
  std::unique_ptr<QTranslator> translator_;
};

}  // namespace vemra::qt
