# Compares the numbers of blocks in C++ on the pages with those that are compiled.
#
#   cmake -D repository=... -D "compiled=<page>=<number>;..." -P CountBlocks.cmake
file(GLOB_RECURSE pages "${repository}/*.md")
list(FILTER pages INCLUDE REGEX "^${repository}/([^/]+|docs/.+)$")
set(found "")
foreach(page IN LISTS pages)
  file(STRINGS "${page}" blocks REGEX "^ *```cpp")
  list(LENGTH blocks count)
  if(count GREATER 0)
    get_filename_component(name "${page}" NAME_WE)
    list(APPEND found "${name}=${count}")
  endif()
endforeach()
list(SORT found)
list(SORT compiled)
if(NOT found STREQUAL compiled)
  message(FATAL_ERROR "blocks in C++ on the pages: ${found}\ncompiled by tests: ${compiled}\n"
                      "Compile every block: see tests/pages/CMakeLists.txt.")
endif()
