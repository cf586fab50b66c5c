# Finds SQLite. VEMRA_SQLITE is the target to link with: CMake 4.3 renamed it, and warns of the older name.
find_package(SQLite3 3.37 REQUIRED)  # STRICT tables
set(VEMRA_SQLITE SQLite::SQLite3)
if(TARGET SQLite3::SQLite3)
  set(VEMRA_SQLITE SQLite3::SQLite3)
endif()
