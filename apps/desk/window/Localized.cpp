#include "apps/desk/window/Localized.hpp"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

// The resources of a static library are linked only when the program uses Q_INIT_RESOURCE, which
// must be called outside any namespace.
static void bringInDeskTranslations() {
  Q_INIT_RESOURCE(vemra_desk_translations);
}

namespace vemra::desk {

QString localized(const char* english) {
  return QCoreApplication::translate("VemraDesk", english);
}

QString localizedNumber(std::size_t number) {
  return QLocale().toString(static_cast<qulonglong>(number));
}

QString andMore(std::size_t others) {
  return localized("and %1 more").arg(localizedNumber(others));
}

QStringList firstAndMore(const QStringList& texts, qsizetype most) {
  QStringList first = texts.mid(0, most);
  if (texts.size() > most) first.append(andMore(static_cast<std::size_t>(texts.size() - most)));
  return first;
}

void installTranslations(const QStringList& languages) {
  bringInDeskTranslations();
  QCoreApplication* const application = QCoreApplication::instance();
  QGuiApplication::setLayoutDirection(Qt::LeftToRight);  // that of English
  for (const QString& language : languages) {
    const QString plain = QString(language).replace(u'_', u'-').section(u'-', 0, 0).toLower();
    if (plain == QLatin1String("en") || plain == QLatin1String("c")) return;
    auto* ours = new QTranslator(application);
    if (!ours->load(QStringLiteral(":/vemra-desk/vemra_desk_%1.qm").arg(plain))) {
      delete ours;
      continue;
    }
    QCoreApplication::installTranslator(ours);
    QGuiApplication::setLayoutDirection(QLocale(plain).textDirection());
    auto* toolkits = new QTranslator(application);
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (toolkits->load("qtbase_" + plain, folder)) QCoreApplication::installTranslator(toolkits);
    return;
  }
}

}  // namespace vemra::desk
