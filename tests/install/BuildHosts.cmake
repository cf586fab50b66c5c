# cmake -D kind=static|shared -D build=… -D work=… -D compiler=… -D other_compiler=… -D generator=…
#       -D window=ON|OFF -P BuildHosts.cmake
#
# Installs the libraries of one kind and builds hosts against the installed files, with each
# compiler and with warnings as errors. The static libraries are those of the build; the shared ones
# are built here, without optimisation, since only their exports are tested, together with the programs,
# which may use nothing that the libraries do not export.
get_filename_component(repository "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)
set(prefix "${work}/prefix")
set(warnings "-Wall -Wextra -Wpedantic -Wconversion -Wmissing-field-initializers -Werror")
# Compilers are silent about system headers, and CMake makes those of imported targets system headers. Here only Qt's
# are: of a folder that is given in both ways, compilers take this one.
foreach(folder IN LISTS qt_headers)
  string(APPEND quiet_qt " -isystem ${folder}")
endforeach()

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGN}\nended with ${result}:\n${output}${errors}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

function(expect output)
  foreach(line IN LISTS ARGN)
    string(FIND "${output}" "${line}" place)
    if(place EQUAL -1)
      message(FATAL_ERROR "there is no ${line} in:\n${output}")
    endif()
  endforeach()
endfunction()

# Builds the host in the folder of that name, in the work folder or here.
function(build_host name host_compiler)
  get_filename_component(compiler_name "${host_compiler}" NAME)
  set(folder "${work}/${name}-${compiler_name}")
  set(sources "${work}/${name}")
  if(NOT EXISTS "${sources}")
    set(sources "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/${name}")
  endif()
  run("${CMAKE_COMMAND}" -S "${sources}" -B "${folder}" -G "${generator}"
      "-DCMAKE_CXX_COMPILER=${host_compiler}" "-DCMAKE_PREFIX_PATH=${prefix}"
      -DCMAKE_BUILD_TYPE=Checked "-DCMAKE_CXX_FLAGS_CHECKED=${warnings}${quiet_qt}"
      -DCMAKE_NO_SYSTEM_FROM_IMPORTED=ON ${ARGN})
  run("${CMAKE_COMMAND}" --build "${folder}")
  # Headers come from the installed copy only.
  file(GLOB dependencies "${folder}/*.ninja" "${folder}/CMakeCache.txt")
  foreach(file IN LISTS dependencies)
    file(STRINGS "${file}" lines REGEX "-I${repository}( |$)")
    if(lines)
      message(FATAL_ERROR "${name} looks for headers in the repository: ${lines}")
    endif()
  endforeach()
  set(folder "${folder}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE "${work}")
if(kind STREQUAL "shared")
  set(build "${work}/libraries")
  run("${CMAKE_COMMAND}" -S "${repository}" -B "${build}" -G "${generator}" -DBUILD_SHARED_LIBS=ON
      "-DCMAKE_CXX_COMPILER=${compiler}" -DCMAKE_CXX_FLAGS=-O0 -DCMAKE_UNITY_BUILD=ON
      -DCMAKE_UNITY_BUILD_BATCH_SIZE=16 -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON -DVEMRA_BUILD_TESTS=OFF "-DVEMRA_WITH_QT=${window}")
  run("${CMAKE_COMMAND}" --build "${build}")
endif()
run("${CMAKE_COMMAND}" --install "${build}" --prefix "${prefix}")

# Private headers of a library must not be installed; public ones must.
foreach(header VemraGoalSurface/GoalOutcomeRecordingControl.hpp VemraPlatform/text/KeyedHash.hpp
        VemraPlatform/ui/Rows.hpp)
  if(EXISTS "${prefix}/include/${header}")
    message(FATAL_ERROR "${header} is installed, and only its library uses it")
  endif()
endforeach()
foreach(header VemraGoalSurface/GoalResultView.hpp VemraPlatform/Export.hpp)
  if(NOT EXISTS "${prefix}/include/${header}")
    message(FATAL_ERROR "${header} is not installed")
  endif()
endforeach()

# A program finds a shared library by a name that has its version.
file(STRINGS "${repository}/VERSION" version LIMIT_COUNT 1)
file(GLOB surface RELATIVE "${prefix}" "${prefix}/lib*/libVemraGoalSurface*"
     "${prefix}/lib*/*/libVemraGoalSurface*")
if(kind STREQUAL "shared")
  expect("${surface}" "libVemraGoalSurface.so.${version}")
  string(REGEX REPLACE "^(0\\.[0-9]+|[0-9]+)\\..*" "\\1" compatible_version "${version}")
  set(public_headers "")
  file(GLOB_RECURSE headers "${prefix}/include/*.hpp")
  foreach(header IN LISTS headers)
    file(READ "${header}" text)
    string(APPEND public_headers "${text}")
  endforeach()
  file(GLOB libraries "${prefix}/lib/libVemra*.so" "${prefix}/lib/*/libVemra*.so")
  list(LENGTH libraries count)
  if(count LESS 8)
    message(FATAL_ERROR "there are ${count} shared libraries only: ${libraries}")
  endif()
  foreach(library IN LISTS libraries)
    get_filename_component(name "${library}" NAME)
    run(readelf --dynamic --wide "${library}")
    expect("${output}" "Library soname: [${name}.${compatible_version}]")
    # Members and virtual tables of classes that no installed header defines are not exported.
    run(nm --dynamic --defined-only --demangle "${library}")
    string(REGEX MATCHALL " [TVBDRW] ((vtable|typeinfo|typeinfo name) for )?vemra::([a-z]+::)*[A-Z][A-Za-z0-9]*(::|\n)" scopes "${output}")
    list(TRANSFORM scopes REPLACE "^.*::([A-Za-z0-9]+)(::|\n)$" "\\1")
    list(REMOVE_DUPLICATES scopes)
    foreach(scope IN LISTS scopes)
      if(NOT public_headers MATCHES "((class|struct) (VEMRA_EXPORT )?|namespace (vemra::)?)${scope}( final)? [:{]")
        message(FATAL_ERROR "${name} exports ${scope}, which no installed header defines")
      endif()
    endforeach()
    set(exported "${exported};${scopes}")
  endforeach()
  expect("${exported};" ";ViewGraph;" ";GoalResultView;")
else()
  expect("${surface}" "libVemraGoalSurface.a")
endif()

include("${repository}/tests/pages/CodeBlock.cmake")
file(READ "${repository}/docs/embedding.md" page)
file(READ "${repository}/docs/window.md" window_page)

# Writes a block of docs/embedding.md or docs/window.md into the work folder.
function(write_block text language number file)
  code_block("${text}" ${language} ${number} block)
  file(WRITE "${work}/${file}" "${block}")
endfunction()

# Fails unless the output is the block of text with that number on docs/embedding.md.
function(expect_promise number what)
  code_block("${page}" text ${number} block)
  if(NOT output STREQUAL block)
    message(FATAL_ERROR "docs/embedding.md promises\n${block}\nand ${what} prints\n${output}")
  endif()
endfunction()

# The projects on docs/embedding.md: with a window, without Qt, and a plugin. Each block of C++ begins with the
# name of its file.
write_blocks("${page}" cpp "${work}/blocks" files)
write_blocks("${page}" python "${work}/blocks" files)
write_block("${page}" cmake 1 compass/CMakeLists.txt)
foreach(file Notebook.hpp GoalWindow.hpp main.cpp screen_test.cpp window_test.cpp)
  file(COPY "${work}/blocks/${file}" DESTINATION "${work}/compass")
endforeach()
write_block("${page}" cmake 2 report/CMakeLists.txt)
file(COPY "${work}/blocks/report.cpp" DESTINATION "${work}/report")
file(COPY "${CMAKE_CURRENT_LIST_DIR}/plugin" DESTINATION "${work}")
write_block("${page}" cmake 3 plugin/page/CMakeLists.txt)
file(COPY "${work}/blocks/plugin.cpp" DESTINATION "${work}/plugin/page")

# A host without Qt for each compiler: the page's, and the README's.
set(expected_lines "Recorded for p1: Was useful\n" "\"Find a design lead\"" "\"Ada\"")
build_host(report "${compiler}")
run("${folder}/compass-report")
expect_promise(4 "the host without Qt")
if(other_compiler)
  build_host(host "${other_compiler}")
  run("${folder}/host")
  expect("${output}" ${expected_lines})
else()
  message(STATUS "no second compiler: its hosts are left out")
endif()

# The headers are the same for both kinds, so the other compiler builds these hosts for one kind only.
set(host_compilers "${compiler}")
if(kind STREQUAL "static" AND other_compiler)
  list(APPEND host_compilers "${other_compiler}")
endif()
foreach(host_compiler IN LISTS host_compilers)
  build_host(plugin "${host_compiler}")
  run("${folder}/loader")
  expect("${output}" "\"Shown by a plugin\"" "/dev/null: the recording has ended: a file of this name is")

  # A host may use Qt's keywords, and include every header that is installed after them.
  if(window AND kind STREQUAL "static")
    file(GLOB_RECURSE headers RELATIVE "${prefix}/include" "${prefix}/include/*.hpp")
    list(TRANSFORM headers REPLACE "(.+)" "#include \"\\1\"")
    list(JOIN headers "\n" headers)
    file(WRITE "${work}/every_header.hpp" "#include <iostream>\n#include <QtWidgets/QtWidgets>\n${headers}\n")
    build_host(headers "${host_compiler}" "-DVEMRA_EVERY_HEADER=${work}/every_header.hpp")
    run("${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen "${folder}/headers")
    expect("${output}" "Opened: p1\n")
  endif()
endforeach()

# The commands on the page ask for English, also where the user's language is another one.
set(ENV{LANGUAGE} de)
set(in_english "LC_ALL=C.UTF-8" "LANGUAGE=")

# A window in its own colours and languages. Its French translation begins as a copy of the installed file.
if(window AND kind STREQUAL "shared")
  file(COPY "${CMAKE_CURRENT_LIST_DIR}/window" DESTINATION "${work}")
  write_block("${page}" cpp 3 window/docs/Languages.inc)
  write_block("${window_page}" cmake 1 window/translations.cmake)
  write_block("${window_page}" cpp 1 window/docs/French.inc)
  write_block("${window_page}" cpp 3 window/docs/Contacts.inc)
  file(READ "${prefix}/share/vemra/translations/vemra_de.ts" messages)
  string(REPLACE "de_DE" "fr_FR" messages "${messages}")
  string(REPLACE "Ergebnis festhalten" "Noter le résultat" messages "${messages}")
  file(WRITE "${work}/window/screen_fr.ts" "${messages}")
  build_host(window "${compiler}")
  run("${CMAKE_COMMAND}" -E env ${in_english} QT_QPA_PLATFORM=offscreen "${folder}/compass")
  expect("${output}" "German: Ergebnis festhalten\n" "Hebrew: רישום תוצאה\n" "French: Noter le résultat\n"
         "Contacts: Noch keine Freunde\n" "Dark: 0, then 1\n")
endif()

# The window on the page.
if(window AND kind STREQUAL "static")
  build_host(compass "${compiler}")
  run("${CMAKE_COMMAND}" --install "${folder}" --prefix "${work}/compass-installed")
  run("${folder}/compass-screen-test")
  expect_promise(1 "the test without a window")
  run("${CMAKE_COMMAND}" -E env ${in_english} QT_QPA_PLATFORM=offscreen "${folder}/compass-window-test")
  expect_promise(2 "the test of the window")
  set(start "vemra.goal.person.p1.outcome")
  run("${CMAKE_COMMAND}" -E env ${in_english} "${repository}/tests/VemraQt/bus/run"
      "${CMAKE_CURRENT_LIST_DIR}/drive" "${work}/compass-installed/bin/compass"
      "${work}/blocks/drive.py" "${start}.start" "${start}.save" "${start}.correct")
  expect_promise(3 "the script on the accessibility bus")
endif()

# The same without CMake.
find_program(pkg_config NAMES pkg-config pkgconf REQUIRED)
file(GLOB modules "${prefix}/lib/pkgconfig" "${prefix}/lib/*/pkgconfig")
get_filename_component(libraries "${modules}" DIRECTORY)
run("${CMAKE_COMMAND}" -E env "PKG_CONFIG_PATH=${modules}"
    "${pkg_config}" --cflags --libs vemra-testing vemra-goal-surface)
separate_arguments(flags UNIX_COMMAND "${output}")
separate_arguments(warning_flags UNIX_COMMAND "${warnings}")
run("${compiler}" ${warning_flags} "${CMAKE_CURRENT_LIST_DIR}/host/main.cpp" -o "${work}/by-pkg-config" ${flags}
    "-Wl,-rpath,${libraries}")
run("${work}/by-pkg-config")
expect("${output}" ${expected_lines})
if(window)
  run("${CMAKE_COMMAND}" -E env "PKG_CONFIG_PATH=${modules}" "${pkg_config}" --libs vemra-qt)
  expect("${output}" "-lVemraQt" "-lQt6Widgets")
endif()

# The host in the folder `missing`, which asks for the components: CMake refuses it with this message.
function(expect_missing components)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "MESSAGE;OPTIONS")
  execute_process(COMMAND "${CMAKE_COMMAND}" -S "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/missing" -B "${work}/missing"
                          -G "${generator}" "-DCMAKE_CXX_COMPILER=${compiler}"
                          "-DCMAKE_PREFIX_PATH=${prefix}" "-DCOMPONENTS=${components}" ${arg_OPTIONS}
                  RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE errors)
  if(result EQUAL 0)
    message(FATAL_ERROR "a host of ${components} was configured, and something that it needs is missing")
  endif()
  string(REGEX REPLACE "[ \n]+" " " errors "${errors}")
  expect("${errors}" ${arg_MESSAGE})
endfunction()

# A component that does not exist is named, and so are those that do.
expect_missing("GoalSurface;Windows" MESSAGE "Vemra has no component Windows." "GoalEngine" "Testing")
# A package that a component needs is named, with the way to get it.
if(window)
  expect_missing(Qt OPTIONS -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON
                 MESSAGE "The window of Vemra needs Qt6 6.4 COMPONENTS Widgets DBus" "apt install qt6-base-dev")
endif()
if(kind STREQUAL "static")
  expect_missing(Testing OPTIONS -DCMAKE_DISABLE_FIND_PACKAGE_ICU=ON
                 MESSAGE "Vemra needs ICU 70 COMPONENTS uc i18n" "apt install libicu-dev")
endif()
