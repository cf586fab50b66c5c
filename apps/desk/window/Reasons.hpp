#pragma once

#include <exception>
#include <span>

#include <QString>

namespace vemra::desk {

/// A failure's message in the user's language. The store and the documents write their messages in
/// English, as the commands print them: the file, the place in it, and what is wrong. This
/// translates by a list of patterns and keeps the file and the texts from files as they are.
///
/// - Returns: `english` itself when no pattern matches it.
QString localizedReason(const QString& english);

/// `what()` in the user's language.
QString reasonOf(const std::exception& error);

/// The patterns, with %1 to %4 for the parts that vary; each is a source text of the translations.
std::span<const char* const> reasonPatterns();

}  // namespace vemra::desk
