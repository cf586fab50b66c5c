# What a host application links: the libraries as Vemra::…, with their headers under include/.
include(GNUInstallDirs)
get_property(libraries GLOBAL PROPERTY VEMRA_LIBRARIES)
install(TARGETS ${libraries} EXPORT VemraTargets ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
foreach(folder VemraPlatform VemraGoalEngine VemraGoalSurface VemraTesting VemraQt)
  install(DIRECTORY "${CMAKE_SOURCE_DIR}/${folder}" DESTINATION include FILES_MATCHING PATTERN "*.hpp")
endforeach()
install(EXPORT VemraTargets NAMESPACE Vemra:: DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Vemra")
