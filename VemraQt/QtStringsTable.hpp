#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Environment.hpp"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <QString>
#include <QStringList>

class QTranslator;

namespace vemra::qt {

/// A strings table in a Qt Linguist translation file (`.qm`).
///
/// The source texts of its messages are the keys of views, byte for byte; disambiguations are not
/// used. A message that is marked unfinished or left empty in the `.ts` file counts as not
/// translated. docs/window.md says how `lupdate` collects the texts of a host's views.
class VEMRA_EXPORT QtStringsTable final : public ui::StringsTable {
 public:
  /// Loads the table in a file or resource; nullptr when it cannot be read.
  /// \param context The context of the messages: that of `ui::translatable`; by default that of the
  /// screen. Messages of other contexts in the file are left out.
  static std::shared_ptr<const QtStringsTable> load(const QString& file,
                                                    std::string context = "VemraScreen");
  /// Loads the table of this library for the first of `languages` ("de-AT", "en") that the library
  /// supports. Returns nullptr when that language is English, whose keys are shown unchanged, or
  /// when the library supports none of them.
  static std::shared_ptr<const QtStringsTable> builtIn(const QStringList& languages);
  ~QtStringsTable() override;

  /// The translation of `key`, in UTF-8; nil when the table has none. Any thread.
  std::optional<std::string> lookup(std::string_view key) const override;

 private:
  QtStringsTable(std::unique_ptr<QTranslator> translator, std::string context);
  std::unique_ptr<QTranslator> translator_;
  std::string context_;
};

}  // namespace vemra::qt
