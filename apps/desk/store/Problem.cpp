#include "apps/desk/store/Problem.hpp"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <string_view>
#include <utility>

#include <sqlite3.h>

namespace vemra::desk {
namespace {

constexpr int primary(int code) {
  return code & 0xFF;
}

/// A failed system call of SQLite: the result code that SQLite returned for it, and its errno.
struct FailedCall {
  int code = SQLITE_OK;
  int error = 0;
};
thread_local FailedCall lastFailedCall;

/// Notes the failed system calls that SQLite reports to its log.
///
/// When an SQLite call returns, errno may come from the clean-up after the failure: it could be "No
/// such file" instead of "Too many open files". A line of the log contains the errno of the failed
/// call itself, in parentheses: `os_unix.c:44133: (24) open(/a/b) - Too many open files`.
void noteFailedCall(void*, int code, const char* message) noexcept {
  const std::string_view line = message;
  constexpr std::string_view start = ": (";
  const std::size_t at = line.find(start);
  if (!line.starts_with("os_unix.c:") || at == std::string_view::npos) return;
  const std::string_view rest = line.substr(at + start.size());
  int error = 0;
  std::from_chars(rest.data(), rest.data() + rest.size(), error);
  lastFailedCall = {primary(code), error};
}

// SQLite accepts this setting only before its first use.
[[maybe_unused]] const int notesAreTaken =
    sqlite3_config(SQLITE_CONFIG_LOG, &noteFailedCall, nullptr);

/// The errno of the last failed read or write of the store or of its log.
int fileError(sqlite3* connection) {
  int error = 0;
  sqlite3_file* log = nullptr;
  sqlite3_file_control(connection, "main", SQLITE_FCNTL_JOURNAL_POINTER, &log);
  if (log != nullptr && log->pMethods != nullptr) {
    log->pMethods->xFileControl(log, SQLITE_FCNTL_LAST_ERRNO, &error);
  }
  if (error == 0) sqlite3_file_control(connection, "main", SQLITE_FCNTL_LAST_ERRNO, &error);
  return error;
}

int systemError(int code, sqlite3* connection) {
  const FailedCall call = std::exchange(lastFailedCall, {});
  if (call.code == primary(code) && call.error != 0) return call.error;
  if (connection == nullptr) return 0;
  if (const int error = fileError(connection); error != 0) return error;
  return sqlite3_system_errno(connection);
}

/// SQLite reports a disk that cannot be read as a damaged database.
bool isUnreadable(int code, int error) {
  return primary(code) == SQLITE_CORRUPT && (error == EIO || error == ENXIO);
}

std::string withCause(const char* problem, int error) {
  if (error == ENOSPC) return "cannot be changed: the disk is full";
  if (error == 0) return problem;
  return std::string(problem) + ": " + std::strerror(error);
}

/// Names the input or output operation that failed.
const char* failedTransfer(int code) {
  switch (code) {
    case SQLITE_IOERR_READ:
    case SQLITE_IOERR_CORRUPTFS:
    case SQLITE_IOERR_FSTAT:
    case SQLITE_IOERR_ACCESS:
    case SQLITE_IOERR_SHMMAP:
    case SQLITE_IOERR_MMAP:
      return "cannot be read";
    case SQLITE_IOERR_LOCK:
    case SQLITE_IOERR_RDLOCK:
    case SQLITE_IOERR_UNLOCK:
    case SQLITE_IOERR_SHMLOCK:
    case SQLITE_IOERR_CHECKRESERVEDLOCK:
      return "cannot be locked";
    default:
      return "cannot be written";
  }
}

std::string describe(int code, int error, sqlite3* connection) {
  switch (primary(code)) {
    case SQLITE_NOTADB:
      return "is not an SQLite database";
    case SQLITE_CANTOPEN:
      if (error == 0) return "cannot be opened: its folder may be read-only";
      // The store exists, but SQLite could not create its log, which it needs before it can read.
      if (error == ENOENT) return "cannot be opened: its log cannot be made";
      return withCause("cannot be opened", error);
    case SQLITE_PERM:
      return withCause("cannot be locked", EPERM);
    case SQLITE_READONLY:
      return code == SQLITE_READONLY_DIRECTORY ? "cannot be changed: its folder is read-only"
                                               : "is read-only";
    case SQLITE_CORRUPT:
      return isUnreadable(code, error) ? withCause("cannot be read", error) : "is damaged";
    case SQLITE_IOERR:
      if (code == SQLITE_IOERR_NOMEM) return "needs more memory than there is";
      if (code == SQLITE_IOERR_SHORT_READ) return "is damaged: it ends too early";
      return withCause(failedTransfer(code), error);
    case SQLITE_FULL:
      return "cannot be changed: the disk is full";
    case SQLITE_NOMEM:
      return "needs more memory than there is";
    case SQLITE_TOOBIG:
      return "cannot hold a text as long as that";
    default:
      return std::string("failed: ") +
             (connection != nullptr ? sqlite3_errmsg(connection) : sqlite3_errstr(code));
  }
}

bool isOfContent(int code, int error) {
  switch (primary(code)) {
    case SQLITE_CONSTRAINT:
    case SQLITE_TOOBIG:
    case SQLITE_NOTADB:
      return true;
    case SQLITE_CORRUPT:
      return !isUnreadable(code, error);
    default:
      return false;
  }
}

}  // namespace

Problem problemOf(int code, sqlite3* connection) {
  const int error = systemError(code, connection);
  return {describe(code, error, connection), isOfContent(code, error)};
}

}  // namespace vemra::desk
