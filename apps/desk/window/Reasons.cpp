#include "apps/desk/window/Reasons.hpp"

#include "apps/desk/window/PlainText.hpp"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include <QCoreApplication>
#include <QRegularExpression>

namespace vemra::desk {
namespace {

constexpr std::array patterns{
    "is in use by another program that does not let go of it",
    "has no goal with the id %1",
    "is damaged",
    "is damaged: the %1 is not part of a store",
    "is damaged: the %1 is not as a store has it",
    "is damaged: the %1 is missing",
    "is damaged: it has no version",
    "is damaged: it has no tables",
    "is damaged: it ends too early",
    "is damaged: a goal is gone",
    "is damaged: coverage has no row of the goal %1",
    "is damaged: SQLite found %1",
    "is damaged: %1: expected %2; found %3",
    "table %1",
    "index %1",
    "trigger %1",
    "view %1",
    "is an SQLite database, but not a store of goals",
    "is not an SQLite database",
    "was written by a newer vemra-desk: its version is %1, this one knows %2",
    "has no place: there is no home folder",
    "is not the name of a file",
    "is a symbolic link to %1, where there is no file",
    "is read-only",
    "is open for reading only",
    "is not there, or is empty",
    "is empty, and was a store before",
    "has changes in a log beside it, which only its owner can take up",
    "has changes in a log beside it, which cannot be read in a folder that is read-only",
    "was changed by another program while it was read",
    "was moved or removed while it was open",
    "was replaced by another file while it was open",
    "was open while the file %1 beside it was moved, removed or replaced",
    "is not the store that the outcome was saved in",
    "has another outcome of the id %1, which stays",
    "takes in texts in UTF-8 only; found %1",
    "does not take in the result of the goal %1: %2: expected %3; found %4",
    "holds a result that cannot be shown, of the goal %1: %2: expected %3; found %4",
    "cannot be made: %1",
    "cannot be opened: %1",
    "cannot be opened",
    "cannot be opened for writing: %1",
    "not a file",
    "its folder may be read-only",
    "its log cannot be made",
    "cannot be changed: its folder is read-only",
    "cannot be changed: the disk is full",
    "cannot be read",
    "cannot be read: %1",
    "cannot be locked",
    "cannot be locked: %1",
    "cannot be written",
    "cannot be written: %1",
    "cannot be written, and may end in half a line: %1",
    "cannot be rewritten: %1",
    "cannot be removed: %1",
    "cannot be examined: %1",
    "needs more memory than there is",
    "cannot hold a text as long as that",
    "failed: %1",
    "is not a file",
    "is longer than 64 MiB",
    "has no room for more",
    "belongs to another user",
    "may be written by other users",
    "belongs to another user (user id %1)",
    "belongs to another user (user id %1), and everybody may write it or its folder, so its "
    "content may be anybody's; use a copy in a folder of your own",
    "belongs to another user (user id %1), and a whole group may write it; it can be read, and for "
    "recording use a store of your own",
    "cannot be used with the file %1 beside it, which %2; find out who put it there, and remove it",
    "is a symbolic link",
    "is not a regular file",
    "the outcome %1 is recorded with another content, which stays",
    "expected %1; found %2",
    "line %1",
    "line %1, column %2",
    "a file of at most 1 GiB",
    "a longer one",
    "a file that can be read",
    "an error: %1",
    "UTF-8 without a byte-order mark",
    "a control character to be written as an escape",
    "the end of the string",
    "both halves of a surrogate pair",
    "one of the escapes %1",
    "four hexadecimal digits after \\u",
    "a digit",
    "a number without leading zeros",
    "the end of the document",
    "the end of the file",
    "the byte %1",
    "a value",
    "an array",
    "an object",
    "a key",
    "a string",
    "a string or null",
    "an integer",
    "an integer from %1 to %2, without fraction or exponent",
    "an integer from %1, which a screen can show",
    "at most %1 texts in the lists of a result",
    "%1 up to here",
    "each key once",
    "%1 again",
    "one of the keys %1",
    "one of waiting, settled",
    "one of %1",
    "the key %1",
    "none",
    "no such key with the kind %1, which has %2",
    "no such key with the kind %1",
    "another version",
    "another entry",
    "a text",
    "a text in UTF-8",
    "a text or NULL",
    "0 or more",
    "a blob",
    "something that the goal has",
    "a number that leaves one for another outcome",
    "a number that leaves one for another goal",
    "No such file or directory",
    "it is read-only",
    "Permission denied",
    "Operation not permitted",
    "No space left on device",
    "Disk quota exceeded",
    "Read-only file system",
    "Input/output error",
    "Is a directory",
    "Not a directory",
    "File exists",
    "File name too long",
    "Too many open files",
    "Too many levels of symbolic links",
    "std::bad_alloc",
};

struct Rule {
  const char* pattern;
  QRegularExpression whole;   ///< the pattern and nothing else
  QRegularExpression ending;  ///< the pattern behind a place, which is its first capture
};

Rule ruleOf(const char* pattern) {
  static const QRegularExpression gap(R"(\\%[1-9])");
  const QString expression =
      QRegularExpression::escape(QString::fromUtf8(pattern)).replace(gap, "(.*?)");
  const auto option = QRegularExpression::DotMatchesEverythingOption;
  // A pattern that begins with a gap would match behind any place, and a line is part of a place.
  const bool isEnding = *pattern != '%' && !std::string_view(pattern).starts_with("line ");
  return {pattern, QRegularExpression("^" + expression + "$", option),
          QRegularExpression(isEnding ? "^(.*?): " + expression + "$" : "^(?!)", option)};
}

const std::vector<Rule>& rules() {
  static const auto made = [] {
    std::vector<Rule> rules;
    rules.reserve(patterns.size());
    for (const char* pattern : patterns) rules.push_back(ruleOf(pattern));
    // Of two patterns that match, the longer one says more.
    std::ranges::stable_sort(rules, [](const Rule& a, const Rule& b) {
      return qstrlen(a.pattern) > qstrlen(b.pattern);
    });
    return rules;
  }();
  return made;
}

QString part(const QString& english);

/// The translation of a pattern with the parts that the expression has captured behind `first`.
QString filled(const Rule& rule, const QRegularExpressionMatch& match, int first) {
  const QString translated = QCoreApplication::translate("VemraDesk", rule.pattern);
  QString text;
  for (qsizetype i = 0; i < translated.size(); ++i) {
    const bool isGap = translated[i] == u'%' && i + 1 < translated.size();
    text += isGap ? part(match.captured(first + translated[++i].digitValue())) : translated[i];
  }
  return text;
}

/// A part of a message, which may be a text from a file.
QString part(const QString& english) {
  for (const Rule& rule : rules()) {
    if (const auto match = rule.whole.match(english); match.hasMatch()) {
      return filled(rule, match, 0);
    }
  }
  return isolated(english);
}

/// A file and the place in it, such as `b.json: line 2, column 7`.
QString place(const QString& english) {
  QStringList steps = english.split(": ");
  for (QString& step : steps) {
    step = step.startsWith("line ") ? part(step) : isolated(step);
  }
  return steps.join(": ");
}

}  // namespace

std::span<const char* const> reasonPatterns() {
  return patterns;
}

QString localizedReason(const QString& english) {
  const Rule* nearest = nullptr;
  QRegularExpressionMatch found;
  for (const Rule& rule : rules()) {
    const auto match = rule.ending.match(english);
    if (!match.hasMatch()) continue;
    if (nearest && match.capturedLength(1) >= found.capturedLength(1)) continue;
    nearest = &rule;
    found = match;
  }
  return nearest ? place(found.captured(1)) + ": " + filled(*nearest, found, 1) : part(english);
}

QString reasonOf(const std::exception& error) {
  return localizedReason(fromUTF8(error.what()));
}

}  // namespace vemra::desk
