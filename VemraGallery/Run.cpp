#include "VemraGallery/Book.hpp"
#include "VemraGallery/Gallery.hpp"
#include "VemraGallery/GalleryWindow.hpp"

#include <array>
#include <iostream>

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>

namespace vemra::gallery {
namespace {

int exportBook(const Gallery& gallery, const QString& folder, Replace replace, char* program) {
  // Needs no display, and does not use an existing one.
  std::array<char, 10> option{"-platform"};
  std::array<char, 10> platform{"offscreen"};
  std::array<char*, 4> arguments{program, option.data(), platform.data(), nullptr};
  int count = 3;
  const QApplication application(count, arguments.data());
  try {
    writeBook(gallery, folder.toStdString(), replace);
  } catch (const BookError& error) {
    std::cerr << error.what() << '\n';
    return 2;
  }
  return 0;
}

}  // namespace

int Gallery::run(int argumentCount, char** arguments) const {
  QStringList words;
  for (int i = 0; i < argumentCount; ++i) words << QString::fromLocal8Bit(arguments[i]);
  QCommandLineParser parser;
  parser.setApplicationDescription("Shows " + QString::fromStdString(title_) + ".");
  const QCommandLineOption help({"h", "help"}, "Print this help and exit.");
  const QCommandLineOption folder(
      "export", "Write a book of web pages instead of showing a window.", "FOLDER");
  const QCommandLineOption overwrite("overwrite",
                                     "Replace the book in a folder that is not empty.");
  const QCommandLineOption version("version", "Print the version and exit.");
  parser.addOptions({help, folder, overwrite});
  if (!version_.empty()) parser.addOption(version);
  if (!parser.parse(words) || !parser.positionalArguments().isEmpty()) {
    const QString mistake = parser.positionalArguments().isEmpty()
                                ? parser.errorText()
                                : "Unexpected argument '" + parser.positionalArguments()[0] + "'.";
    std::cerr << qPrintable(mistake) << "\nRun with --help for more information.\n";
    return 2;
  }
  if (parser.isSet(help)) {
    // The parser asks the application for the program's name.
    const QCoreApplication application(argumentCount, arguments);
    std::cout << qPrintable(parser.helpText());
    return 0;
  }
  if (!version_.empty() && parser.isSet(version)) {
    std::cout << qPrintable(QFileInfo(words.value(0)).fileName()) << ' ' << version_ << '\n';
    return 0;
  }
  if (parser.isSet(folder)) {
    return exportBook(*this, parser.value(folder),
                      parser.isSet(overwrite) ? Replace::yes : Replace::no, arguments[0]);
  }
  QApplication application(argumentCount, arguments);
  GalleryWindow window(*this);
  window.show();
  return QApplication::exec();
}

}  // namespace vemra::gallery
