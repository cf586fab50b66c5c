# The targets for a host application after `cmake --install`:
#
#   find_package(Vemra REQUIRED COMPONENTS GoalSurface)      Vemra::GoalSurface and its dependencies
#   find_package(Vemra REQUIRED COMPONENTS GoalSurface Qt)   the same, and Vemra::Qt
#   pkg-config --cflags --libs vemra-goal-surface vemra-qt   the same without CMake
#
# The window is an export set of its own, so that a host without Qt need not have it. Each
# installed file has one of three components: runtime (shared libraries), development (headers and link
# files) and programs.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/Vemra")
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME development)

get_property(libraries GLOBAL PROPERTY VEMRA_LIBRARIES)
set(VEMRA_COMPONENTS "")
foreach(library IN LISTS libraries)
  get_target_property(component ${library} EXPORT_NAME)
  list(APPEND VEMRA_COMPONENTS ${component})
  set(export_set VemraTargets)
  if(library MATCHES "^Vemra(Qt|Gallery)$")
    set(export_set VemraQtTargets)
  endif()
  install(TARGETS ${library} EXPORT ${export_set}
          LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
          ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
          FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development)
endforeach()

# Recordings are written with it. It has no headers for hosts, and shared libraries contain what they use.
if(NOT BUILD_SHARED_LIBS)
  install(TARGETS VemraDocuments EXPORT VemraTargets
          ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)
endif()
install(EXPORT VemraTargets NAMESPACE Vemra:: DESTINATION "${package_folder}" COMPONENT development)
if(TARGET VemraQt)
  install(EXPORT VemraQtTargets NAMESPACE Vemra:: DESTINATION "${package_folder}" COMPONENT development)
  # For hosts that translate the screen into another language: docs/window.md.
  file(GLOB translations CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/VemraQt/translations/vemra_*.ts")
  install(FILES ${translations} DESTINATION "${CMAKE_INSTALL_DATADIR}/vemra/translations" COMPONENT development)
endif()
# Only static libraries leave ICU to the host's linker.
set(VEMRA_FIND_ICU "")
if(NOT BUILD_SHARED_LIBS)
  set(VEMRA_FIND_ICU "vemra_find_dependency(ICU libicu-dev Vemra 70 COMPONENTS uc i18n)")
endif()
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/VemraConfig.cmake.in"
                              "${CMAKE_BINARY_DIR}/VemraConfig.cmake"
                              INSTALL_DESTINATION "${package_folder}"
                              NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file("${CMAKE_BINARY_DIR}/VemraConfigVersion.cmake"
                                 COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_BINARY_DIR}/VemraConfig.cmake" "${CMAKE_BINARY_DIR}/VemraConfigVersion.cmake"
        DESTINATION "${package_folder}" COMPONENT development)

# vemra_pkg_config(<module> <description> LIBRARIES <libraries> [REQUIRES <modules>] [PRIVATE <modules>])
# Only static libraries leave the PRIVATE modules to the host's linker; shared ones have them already.
function(vemra_pkg_config name description)
  cmake_parse_arguments(arg "" "" "LIBRARIES;REQUIRES;PRIVATE" ${ARGN})
  if(NOT BUILD_SHARED_LIBS)
    list(APPEND arg_REQUIRES ${arg_PRIVATE})
  endif()
  set(folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
  # Relative to the file, so that `cmake --install --prefix` and a moved folder need no change.
  file(RELATIVE_PATH prefix "/${folder}" "/")
  string(REGEX REPLACE "/$" "" prefix "\${pcfiledir}/${prefix}")
  set(libdir "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
  set(includedir "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
  list(TRANSFORM arg_LIBRARIES PREPEND "-l" OUTPUT_VARIABLE libraries)
  list(JOIN libraries " " libraries)
  list(JOIN arg_REQUIRES ", " requires)
  configure_file("${CMAKE_CURRENT_FUNCTION_LIST_DIR}/vemra.pc.in" "${CMAKE_BINARY_DIR}/${name}.pc" @ONLY)
  install(FILES "${CMAKE_BINARY_DIR}/${name}.pc" DESTINATION "${folder}" COMPONENT development)
endfunction()

vemra_pkg_config(vemra-platform "Views as values, texts, dates and tasks"
  LIBRARIES VemraPlatformPage VemraPlatformUI VemraPlatformDate VemraPlatformText VemraPlatformTask
  PRIVATE icu-i18n icu-uc)
vemra_pkg_config(vemra-goal-surface "The screen of a goal and the people who can help to reach it"
  LIBRARIES VemraGoalSurface VemraGoalEngine REQUIRES vemra-platform)
vemra_pkg_config(vemra-testing "Views mounted without a window, for tests"
  LIBRARIES VemraTesting REQUIRES vemra-platform)
set(documents "")
if(NOT BUILD_SHARED_LIBS)
  set(documents VemraDocuments)
endif()
vemra_pkg_config(vemra-recording "What a person does with the screen of a goal, as a case to replay"
  LIBRARIES VemraRecording ${documents} REQUIRES vemra-goal-surface)
if(TARGET VemraQt)
  vemra_pkg_config(vemra-qt "Views in a Qt window"
    LIBRARIES VemraQt REQUIRES vemra-platform Qt6Widgets Qt6DBus)
  vemra_pkg_config(vemra-gallery "Views in all their states, in a window or a book of web pages"
    LIBRARIES VemraGallery REQUIRES vemra-qt vemra-testing)
endif()

foreach(program vemra_inspect vemra_desk vemra_gallery)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT programs)
  endif()
endforeach()
