# One folder, one target. Every target is made by one of the functions below, so that the include
# root (the repository), the warnings and the sanitizers are the same everywhere.

set(VEMRA_SOURCE_ROOT "${CMAKE_CURRENT_SOURCE_DIR}")
set(VEMRA_GENERATED_ROOT "${CMAKE_BINARY_DIR}/generated")

# While the major version is 0, a new minor version may change the binary interface.
set(VEMRA_SOVERSION ${PROJECT_VERSION_MAJOR})
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(VEMRA_SOVERSION 0.${PROJECT_VERSION_MINOR})
endif()

add_library(vemra_flags INTERFACE)
target_compile_options(vemra_flags INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor)
if(NOT CMAKE_UNITY_BUILD)
  target_compile_options(vemra_flags INTERFACE -Wshadow)
elseif(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Where files are compiled as one, a name in a function may hide a name of another file, but no other name
  # of its function. g++ treats an included file as a header, in which it warns of a local base class.
  target_compile_options(vemra_flags INTERFACE -Wshadow=local -Wno-subobject-linkage)
endif()
# Those of the supported releases of Debian; other compilers have other warnings.
set(known_compiler OFF)
if((CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION MATCHES "^(12|14|16)\\.")
   OR (CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION MATCHES "^(16|19|21)\\."))
  set(known_compiler ON)
endif()
if(VEMRA_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # The sanitizers' instrumentation makes it give false warnings.
  set(known_compiler OFF)
endif()
if(VEMRA_WERROR AND known_compiler)
  target_compile_options(vemra_flags INTERFACE -Werror)
endif()
if(VEMRA_SANITIZE)
  target_compile_options(vemra_flags INTERFACE -fsanitize=${VEMRA_SANITIZE} -fno-omit-frame-pointer
                                               -fno-sanitize-recover=all)
  target_link_options(vemra_flags INTERFACE -fsanitize=${VEMRA_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(vemra_flags INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()

# Tests are compiled more often than they run, so they are not optimised; the tested libraries are.
add_library(vemra_test_flags INTERFACE)
target_compile_options(vemra_test_flags INTERFACE -O0)
if(VEMRA_SANITIZE MATCHES "address")
  # Its name differs between compilers.
  target_compile_definitions(vemra_test_flags INTERFACE VEMRA_ADDRESS_SANITIZER)
endif()
if(VEMRA_SANITIZE STREQUAL "address,undefined")
  # UndefinedBehaviorSanitizer takes a third of a test's compilation. It stays on in the libraries; the
  # preset aligned has it everywhere.
  target_compile_options(vemra_test_flags INTERFACE -fno-sanitize=undefined)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 warns of concatenated strings that are in bounds once it inlines only part of them.
  target_compile_options(vemra_test_flags INTERFACE -Wno-array-bounds -Wno-restrict
                                                    -Wno-stringop-overflow)
endif()

# Libraries and programs whose speed no test depends on: not optimised where VEMRA_OPTIMIZE_COLD is off.
add_library(vemra_cold_flags INTERFACE)
if(NOT VEMRA_OPTIMIZE_COLD)
  target_compile_options(vemra_cold_flags INTERFACE -O0)
endif()

# vemra_library(<target> ALIAS <Vemra::Name> [COLD] [PUBLIC <targets>] [PRIVATE <targets>]
#               [FOLDERS <folders>] [PUBLIC_HEADERS <files> | PRIVATE_HEADERS <files>])
# Builds the .cpp files of the current folder, and of the FOLDERS below it, into a library: static, or
# shared with BUILD_SHARED_LIBS. A host may be a plugin, so the static ones are position independent too.
# Its PUBLIC_HEADERS are installed; without that list, all its headers but the PRIVATE_HEADERS.
# Every installed header compiles on its own (preset check). The libraries in apps/ are static and not installed.
# COLD marks a library whose speed no test depends on. A library with a window must be COLD, because of its
# precompiled header.
function(vemra_library target)
  cmake_parse_arguments(arg "COLD" "ALIAS" "PUBLIC;PRIVATE;FOLDERS;PUBLIC_HEADERS;PRIVATE_HEADERS" ${ARGN})
  set(flags "$<BUILD_INTERFACE:vemra_flags>")
  if(arg_COLD)
    list(APPEND flags "$<BUILD_INTERFACE:vemra_cold_flags>")
  endif()
  set(sources "")
  set(headers "")
  foreach(folder IN ITEMS "" LISTS arg_FOLDERS)
    file(GLOB found CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp")
    list(APPEND sources ${found})
    file(GLOB found CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.hpp")
    list(APPEND headers ${found})
  endforeach()
  foreach(header IN LISTS arg_PRIVATE_HEADERS)
    set(kept ${headers})
    list(FILTER kept EXCLUDE REGEX "/${header}$")
    if(kept STREQUAL headers)
      message(FATAL_ERROR "${target} has no header ${header} to keep to itself")
    endif()
    set(headers ${kept})
  endforeach()
  if(arg_PUBLIC_HEADERS)
    list(TRANSFORM arg_PUBLIC_HEADERS PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/" OUTPUT_VARIABLE headers)
  endif()
  set(kind "")
  set(is_installed TRUE)
  if(CMAKE_CURRENT_SOURCE_DIR MATCHES "^${VEMRA_SOURCE_ROOT}/apps/")
    set(kind STATIC)
    set(is_installed FALSE)
  endif()
  set(header_scope PUBLIC)
  if(NOT is_installed)
    set(header_scope PRIVATE)
  endif()
  add_library(${target} ${kind} ${sources})
  target_sources(${target} ${header_scope} FILE_SET HEADERS BASE_DIRS "${VEMRA_SOURCE_ROOT}" FILES ${headers})
  set_target_properties(${target} PROPERTIES
    LINKER_LANGUAGE CXX POSITION_INDEPENDENT_CODE ON
    VERSION ${PROJECT_VERSION} SOVERSION ${VEMRA_SOVERSION}
    INSTALL_RPATH "$ORIGIN")
  add_library(${arg_ALIAS} ALIAS ${target})
  string(REPLACE "Vemra::" "" export_name "${arg_ALIAS}")
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${export_name})
  target_include_directories(${target} PUBLIC "$<BUILD_INTERFACE:${VEMRA_SOURCE_ROOT}>"
                                              "$<INSTALL_INTERFACE:include>")
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_libraries(${target} PUBLIC Vemra::PlatformExport ${arg_PUBLIC}
                                  PRIVATE ${arg_PRIVATE} ${flags})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND NOT CMAKE_AUTOMOC)  # Qt's generated files have such names
    target_compile_options(${target} PRIVATE -Wreserved-identifier)
  endif()
  if("Qt6::Widgets" IN_LIST arg_PUBLIC OR "Vemra::Qt" IN_LIST arg_PUBLIC)
    vemra_precompiled_header(${target} vemra_qt_precompiled
                             LINK vemra_flags vemra_cold_flags Qt6::Widgets Qt6::DBus
                             HEADERS <QtWidgets/QtWidgets>)
  endif()
  if(is_installed)
    set_property(GLOBAL APPEND PROPERTY VEMRA_LIBRARIES ${target})
  else()
    set_target_properties(${target} PROPERTIES VERIFY_INTERFACE_HEADER_SETS OFF)
  endif()
endfunction()

# vemra_translations(<target> <name>)
# Compiles every translation in the current folder, translations/<name>_<language>.ts, into the target as the
# resource :/<prefix>/<name>_<language>.qm, so that no file is needed at run time. The prefix is the name with
# hyphens. A new language is a new file.
function(vemra_translations target name)
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/translations/${name}_*.ts")
  qt_add_translation(compiled ${sources} OPTIONS -silent)
  set(files "")
  foreach(file IN LISTS compiled)
    get_filename_component(file "${file}" NAME)
    string(APPEND files "<file>${file}</file>")
  endforeach()
  string(REPLACE "_" "-" prefix "${name}")
  set(list "${CMAKE_CURRENT_BINARY_DIR}/${name}_translations.qrc")
  file(CONFIGURE OUTPUT "${list}" CONTENT "<RCC><qresource prefix=\"/${prefix}\">${files}</qresource></RCC>\n")
  qt_add_resources(code "${list}")
  target_sources(${target} PRIVATE ${code})
endfunction()

# vemra_program(<target> NAME <file name> LINK <targets>): the current folder's .cpp files as a program.
function(vemra_program target)
  cmake_parse_arguments(arg "" "NAME" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  add_executable(${target} ${sources})
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${arg_NAME}
                        INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
  target_link_libraries(${target} PRIVATE ${arg_LINK} vemra_flags vemra_cold_flags)
endfunction()

# vemra_test(<target> LINK <targets> [WITHOUT <files>] [LABELS <labels>] [MAIN_OWN]
#            [ENVIRONMENT <pairs>]): the .cpp files of the current folder, WITHOUT those that a linked
# target compiles, as one GoogleTest program.
function(vemra_test target)
  cmake_parse_arguments(arg "MAIN_OWN" "TIMEOUT" "LINK;WITHOUT;LABELS;ENVIRONMENT" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  list(TRANSFORM arg_WITHOUT PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
  list(REMOVE_ITEM sources ${arg_WITHOUT})
  if(NOT sources)
    return()
  endif()
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 600)
  endif()
  add_executable(${target} ${sources})
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
  target_compile_definitions(${target} PRIVATE VEMRA_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}"
                                               VEMRA_REPOSITORY="${VEMRA_SOURCE_ROOT}"
                                               VEMRA_BINARY_DIR="${CMAKE_BINARY_DIR}")
  target_link_libraries(${target} PRIVATE ${arg_LINK} vemra_flags vemra_test_flags GTest::gtest
                                          GTest::gmock)
  if(NOT arg_MAIN_OWN)
    target_link_libraries(${target} PRIVATE GTest::gtest_main)
  endif()
  if("Vemra::Qt" IN_LIST arg_LINK)
    vemra_qt_test_precompiled_header(${target})
  else()
    vemra_test_precompiled_header(${target})
  endif()
  string(REPLACE ";" "\\;" labels "${arg_LABELS}")
  string(REPLACE ";" "\\;" environment "${arg_ENVIRONMENT}")
  set(prefix "")  # CMake 3.31 warns of an empty one
  if(VEMRA_TEST_PREFIX)
    set(prefix TEST_PREFIX "${VEMRA_TEST_PREFIX}")
  endif()
  gtest_discover_tests(${target} ${prefix} DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS "${labels}" TIMEOUT ${arg_TIMEOUT} ENVIRONMENT "${environment}")
endfunction()

# vemra_precompiled_header(<target> <name> LINK <targets> HEADERS <headers>): one precompiled header
# of that name for all targets that request it. The LINK targets bring the compiler options, which
# must be those of the target.
function(vemra_precompiled_header target name)
  cmake_parse_arguments(arg "" "" "LINK;HEADERS" ${ARGN})
  if(NOT TARGET ${name})
    file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/${name}.cpp" CONTENT "")
    add_library(${name} OBJECT "${CMAKE_BINARY_DIR}/${name}.cpp")
    target_link_libraries(${name} PRIVATE ${arg_LINK})
    target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
    get_target_property(is_position_independent ${target} POSITION_INDEPENDENT_CODE)
    set_target_properties(${name} PROPERTIES AUTOMOC OFF)
    if(is_position_independent)
      set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    endif()
  endif()
  target_precompile_headers(${target} REUSE_FROM ${name})
endfunction()

# The precompiled header of all test programs without Qt.
function(vemra_test_precompiled_header target)
  vemra_precompiled_header(${target} vemra_test_precompiled
                           LINK vemra_flags vemra_test_flags GTest::gmock Threads::Threads
                           HEADERS <gmock/gmock.h> <gtest/gtest.h> <algorithm> <filesystem> <fstream>
                                   <functional> <map> <memory> <optional> <random> <set> <string>
                                   <string_view> <thread> <variant> <vector>)
endfunction()

# The precompiled header of all test programs with Qt.
function(vemra_qt_test_precompiled_header target)
  vemra_precompiled_header(${target} vemra_qt_test_precompiled
                           LINK vemra_flags vemra_test_flags Qt6::Widgets Qt6::DBus GTest::gmock
                           HEADERS <gmock/gmock.h> <gtest/gtest.h> <QtWidgets/QtWidgets>)
endfunction()
