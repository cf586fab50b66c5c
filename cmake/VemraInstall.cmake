# What a host application links after `cmake --install`:
#
#   find_package(Vemra REQUIRED)                 Vemra::GoalSurface and what it stands on
#   find_package(Vemra REQUIRED COMPONENTS Qt)   the same, and Vemra::Qt
#
# The window is an export set of its own, so that a host without Qt need not have it.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/Vemra")

get_property(libraries GLOBAL PROPERTY VEMRA_LIBRARIES)
foreach(library IN LISTS libraries)
  set(export_set VemraTargets)
  if(library STREQUAL "VemraQt")
    set(export_set VemraQtTargets)
  endif()
  install(TARGETS ${library} EXPORT ${export_set}
          ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
          FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
endforeach()

install(EXPORT VemraTargets NAMESPACE Vemra:: DESTINATION "${package_folder}")
if(TARGET VemraQt)
  install(EXPORT VemraQtTargets NAMESPACE Vemra:: DESTINATION "${package_folder}")
endif()
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/VemraConfig.cmake.in"
                              "${CMAKE_BINARY_DIR}/VemraConfig.cmake"
                              INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file("${CMAKE_BINARY_DIR}/VemraConfigVersion.cmake"
                                 COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_BINARY_DIR}/VemraConfig.cmake" "${CMAKE_BINARY_DIR}/VemraConfigVersion.cmake"
        DESTINATION "${package_folder}")

foreach(program vemra_inspect vemra_desk)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
  endif()
endforeach()
