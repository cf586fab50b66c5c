# cmake -D kind=static|shared -D build=… -D work=… -D compiler=… -D other_compiler=… -D generator=…
#       -D window=ON|OFF -P BuildHosts.cmake
#
# Installs the libraries of one kind and builds hosts against the installed files, with each
# compiler and with warnings as errors. The static libraries are those of the build; the shared ones
# are built here, without optimisation, since only their exports are tested. The headers are the
# same for both kinds: the other compiler builds every host for the static libraries, and one of
# them for the shared ones.
get_filename_component(repository "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)
set(prefix "${work}/prefix")
set(warnings "-Wall -Wextra -Wpedantic -Wconversion -Wmissing-field-initializers -Werror")

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

# Builds the host in the folder of that name, here or in the work folder.
function(build_host name host_compiler)
  get_filename_component(compiler_name "${host_compiler}" NAME)
  set(folder "${work}/${name}-${compiler_name}")
  set(sources "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/${name}")
  if(NOT EXISTS "${sources}")
    set(sources "${work}/${name}")
  endif()
  run("${CMAKE_COMMAND}" -S "${sources}" -B "${folder}" -G "${generator}"
      "-DCMAKE_CXX_COMPILER=${host_compiler}" "-DCMAKE_PREFIX_PATH=${prefix}"
      "-DCMAKE_CXX_FLAGS=${warnings}" ${ARGN})
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
      -DCMAKE_UNITY_BUILD_BATCH_SIZE=100 -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON
      -DVEMRA_BUILD_PROGRAMS=OFF -DVEMRA_BUILD_TESTS=OFF "-DVEMRA_WITH_QT=${window}")
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
  # Declarations without the mark are not exported.
  file(GLOB library "${prefix}/lib/libVemraPlatformUI.so" "${prefix}/lib/*/libVemraPlatformUI.so")
  run(nm --dynamic --defined-only --demangle "${library}")
  expect("${output}" "vemra::ui::ViewGraph::setRoot")
  if(output MATCHES "vemra::ui::Reconciler")
    message(FATAL_ERROR "libVemraPlatformUI.so exports its reconciler, which has no public header")
  endif()
else()
  expect("${surface}" "libVemraGoalSurface.a")
endif()

# The headers are the same for both kinds, so the hosts of one kind read all of them.
if(kind STREQUAL "static")
  set(qt "#include <QtWidgets/QtWidgets>")
  file(GLOB_RECURSE headers RELATIVE "${prefix}/include" "${prefix}/include/*.hpp")
else()
  set(qt "#include <QtWidgets/QAbstractButton>\n#include <QtWidgets/QApplication>")
  set(headers VemraGoalSurface/GoalResultView.hpp VemraQt/QtStringsTable.hpp VemraQt/ViewWidget.hpp)
endif()
list(TRANSFORM headers REPLACE "(.+)" "#include \"\\1\"")
list(JOIN headers "\n" headers)
file(WRITE "${work}/every_header.hpp"
     "#include <iostream>\n${qt}\n${headers}\n")

set(expected_lines "Recorded for p1: Was useful\n" "\"Find a design lead\"" "\"Ada\"")
foreach(host_compiler IN ITEMS "${compiler}" "${other_compiler}")
  if(NOT host_compiler)
    message(STATUS "no second compiler: its hosts are left out")
    continue()
  endif()
  build_host(host "${host_compiler}")
  run("${folder}/host")
  expect("${output}" ${expected_lines})
  if(kind STREQUAL "shared" AND host_compiler STREQUAL other_compiler)
    continue()
  endif()

  build_host(plugin "${host_compiler}")
  run("${folder}/loader")
  expect("${output}" "\"Shown by a plugin\"" "/dev/null: the recording has ended: a file of this name is")

  # A host with a window may use Qt's keywords, and include every header that is installed after them.
  if(window)
    build_host(window "${host_compiler}" "-DVEMRA_EVERY_HEADER=${work}/every_header.hpp")
    run("${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen "${folder}/window")
    expect("${output}" "Opened: p1\n" "Dark: 0, then 1\n" "Record: Ergebnis festhalten\n")
  endif()
endforeach()

# The project on the page for new hosts, with the outputs that the page promises.
if(window AND kind STREQUAL "static")
  include("${repository}/tests/pages/CodeBlock.cmake")
  file(READ "${repository}/docs/embedding.md" page)
  set(embedding "${work}/embedding")
  code_block("${page}" cmake 1 block)
  file(WRITE "${embedding}/CMakeLists.txt" "${block}")
  set(number 0)
  foreach(file Notebook.hpp GoalWindow.hpp main.cpp screen_test.cpp window_test.cpp)
    math(EXPR number "${number} + 1")
    code_block("${page}" cpp ${number} block)
    file(WRITE "${embedding}/${file}" "${block}")
  endforeach()
  code_block("${page}" python 1 block)
  file(WRITE "${embedding}/drive.py" "${block}")
  build_host(embedding "${compiler}")
  run("${CMAKE_COMMAND}" --install "${folder}" --prefix "${embedding}/installed")

  set(number 0)
  function(expect_promise what)
    math(EXPR number "${number} + 1")
    code_block("${page}" text ${number} block)
    if(NOT output STREQUAL block)
      message(FATAL_ERROR "docs/embedding.md promises\n${block}\nand ${what} prints\n${output}")
    endif()
    set(number ${number} PARENT_SCOPE)
  endfunction()
  run("${folder}/compass-screen-test")
  expect_promise("the test without a window")
  run("${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen "${folder}/compass-window-test")
  expect_promise("the test of the window")
  set(start "vemra.goal.person.p1.outcome")
  run("${repository}/tests/VemraQt/bus/run" "${CMAKE_CURRENT_LIST_DIR}/drive" "${embedding}/installed/bin/compass"
      "${embedding}/drive.py" "${start}.start" "${start}.save" "${start}.correct")
  expect_promise("the script on the accessibility bus")
endif()

# The same without CMake.
find_program(pkg_config NAMES pkg-config pkgconf REQUIRED)
file(GLOB modules "${prefix}/lib/pkgconfig" "${prefix}/lib/*/pkgconfig")
get_filename_component(libraries "${modules}" DIRECTORY)
run("${CMAKE_COMMAND}" -E env "PKG_CONFIG_PATH=${modules}"
    "${pkg_config}" --cflags --libs vemra-testing vemra-goal-surface)
separate_arguments(flags UNIX_COMMAND "${output}")
run("${compiler}" "${CMAKE_CURRENT_LIST_DIR}/host/main.cpp" -o "${work}/by-pkg-config" ${flags}
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
