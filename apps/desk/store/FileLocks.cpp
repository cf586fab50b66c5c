#include "apps/desk/store/FileLocks.hpp"

#include <cstdio>
#include <fstream>
#include <string>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace vemra::desk {
namespace {

/// The file as `/proc/locks` writes it.
std::string placeOf(const FileIdentity& file) {
  char place[64];
  std::snprintf(place, sizeof place, "%02x:%02x:%llu", major(file.device), minor(file.device),
                static_cast<unsigned long long>(file.inode));
  return place;
}

}  // namespace

std::optional<std::set<pid_t>> lockHolders(const FileIdentity& file, const FileIdentity& ours) {
  const std::string place = placeOf(file);
  const std::string ourPlace = placeOf(ours);
  bool hasOurs = false;
  std::set<pid_t> holders;
  std::ifstream list("/proc/locks");
  // 3: POSIX  ADVISORY  READ 4711 08:02:133713 128 128, or with -> after the number for a waiting
  // lock
  for (std::string line; std::getline(list, line);) {
    long holder = 0;
    char inode[64];
    if (std::sscanf(line.c_str(), "%*s POSIX %*s %*s %ld %63s", &holder, inode) != 2) continue;
    if (inode == place) holders.insert(static_cast<pid_t>(holder));
    hasOurs = hasOurs || (inode == ourPlace && holder == ::getpid());
  }
  if (!hasOurs) return std::nullopt;
  return holders;
}

}  // namespace vemra::desk
