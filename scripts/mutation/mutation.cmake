# Read right after project() in the build that scripts/mutate makes (CMAKE_PROJECT_…_INCLUDE): links
# the switch of the mutants into everything, and the listener into every test program. What holds
# mutants is compiled without warnings, and where there is no precompiled header with the library's
# own assertions; the rest is compiled as ever, so that ccache knows it. mutated.cmake is written by
# tree.py: VEMRA_MUTATED has the sources with mutants, or is "everything" where headers have them.
include("${CMAKE_SOURCE_DIR}/mutated.cmake")
add_library(vemra_mutants STATIC "${CMAKE_CURRENT_LIST_DIR}/Switch.cpp")
target_include_directories(vemra_mutants PRIVATE "${CMAKE_SOURCE_DIR}")
target_compile_features(vemra_mutants PRIVATE cxx_std_20)
set_target_properties(vemra_mutants PROPERTIES POSITION_INDEPENDENT_CODE ON)
add_library(vemra_mutants_listener OBJECT "${CMAKE_CURRENT_LIST_DIR}/Listener.cpp")
target_include_directories(vemra_mutants_listener PRIVATE "${CMAKE_SOURCE_DIR}")
target_compile_features(vemra_mutants_listener PRIVATE cxx_std_20)
set_target_properties(vemra_mutants_listener PROPERTIES POSITION_INDEPENDENT_CODE ON)
link_libraries("$<BUILD_INTERFACE:vemra_mutants>")

set(vemra_mutated_options -w -Wno-error -Wno-narrowing -fmax-errors=0)
if(NOT VEMRA_WITH_QT)
  list(APPEND vemra_mutated_options -O1 -D_GLIBCXX_ASSERTIONS)
endif()

function(vemra_listen_in folder)
  foreach(source IN LISTS VEMRA_MUTATED)
    string(FIND "${CMAKE_SOURCE_DIR}/${source}" "${folder}/" place)
    if(place EQUAL 0)
      set_source_files_properties("${CMAKE_SOURCE_DIR}/${source}" DIRECTORY "${folder}"
                                  PROPERTIES COMPILE_OPTIONS "${vemra_mutated_options}")
    endif()
  endforeach()
  get_property(targets DIRECTORY "${folder}" PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    if(VEMRA_MUTATED STREQUAL "everything" AND type MATCHES "(STATIC_LIBRARY|^EXECUTABLE)$"
       AND NOT target MATCHES "^vemra_(test|mutants|counted)" AND NOT folder MATCHES "/tests(/|$)")
      target_compile_options(${target} PRIVATE ${vemra_mutated_options})
    endif()
    get_target_property(libraries ${target} LINK_LIBRARIES)
    if(type STREQUAL "EXECUTABLE" AND "GTest::gtest" IN_LIST libraries)
      target_sources(${target} PRIVATE $<TARGET_OBJECTS:vemra_mutants_listener>)
    endif()
  endforeach()
  get_property(folders DIRECTORY "${folder}" PROPERTY SUBDIRECTORIES)
  foreach(below IN LISTS folders)
    vemra_listen_in("${below}")
  endforeach()
endfunction()
cmake_language(DEFER CALL vemra_listen_in "${CMAKE_SOURCE_DIR}")
