# The installed files besides the libraries, and the Debian packages that scripts/package makes: the
# shared libraries, the files for compiling a host, and the programs.
set(VEMRA_RELEASE_DATE "2026-11-22")  # of the version in VERSION
set(packaging "${CMAKE_CURRENT_SOURCE_DIR}/packaging")
find_program(VEMRA_GZIP gzip)

# vemra_compress(<file> <variable>): sets the variable to the file's compressed copy; to the file where
# there is no gzip.
function(vemra_compress file variable)
  if(VEMRA_GZIP)
    execute_process(COMMAND "${VEMRA_GZIP}" -9nkf "${file}" COMMAND_ERROR_IS_FATAL ANY)
    string(APPEND file ".gz")
  endif()
  set(${variable} "${file}" PARENT_SCOPE)
endfunction()

if(VEMRA_BUILD_PROGRAMS)
  set(programs_with_pages vemra-inspect vemra-desk)
  if(VEMRA_WITH_QT)
    list(APPEND programs_with_pages vemra-gallery)
  endif()
  foreach(program IN LISTS programs_with_pages)
    set(page "${CMAKE_BINARY_DIR}/packaging/${program}.1")
    configure_file("${packaging}/man/${program}.1.in" "${page}" @ONLY)
    vemra_compress("${page}" page)
    install(FILES "${page}" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT programs)
  endforeach()
  install(FILES "${packaging}/completions/vemra-desk" "${packaging}/completions/vemra-inspect"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT programs)
  if(VEMRA_WITH_QT)
    set(metadata "${CMAKE_BINARY_DIR}/packaging/org.vemra.Desk.metainfo.xml")
    configure_file("${packaging}/org.vemra.Desk.metainfo.xml.in" "${metadata}" @ONLY)
    install(FILES "${metadata}" DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo" COMPONENT programs)
    install(FILES "${packaging}/org.vemra.Desk.desktop"
            DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT programs)
    install(FILES "${packaging}/org.vemra.Desk.svg"
            DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps" COMPONENT programs)
    foreach(size 48 256)
      install(FILES "${packaging}/icons/org.vemra.Desk-${size}.png" RENAME org.vemra.Desk.png
              DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps" COMPONENT programs)
    endforeach()
  endif()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vemra)
set(CPACK_PACKAGE_VENDOR "The Vemra developers")
set(CPACK_PACKAGE_CONTACT "The Vemra developers <developers@vemra.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
foreach(library IN LISTS libraries)
  get_target_property(folder ${library} BINARY_DIR)
  list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${folder}")
endforeach()
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)
set(CPACK_COMPONENTS_ALL runtime development programs)

set(library_package "libvemra${VEMRA_SOVERSION}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${packaging}/triggers")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "screen of a goal and the people who can help to reach it
Libraries that show the result of a goal engine: the people worth considering
for a goal, the reason for each, and the path to the person to be reached.
They bring a declarative view layer, a window for Qt 6 with a complete
accessibility tree, and a harness for tests without a window.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvemra-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${library_package} (= ${PROJECT_VERSION}-1), qt6-base-dev (>= 6.4)")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "headers to embed the screen of a goal
What a host application needs to compile against libvemra: the headers, CMake
packages and pkg-config modules.")

set(CPACK_DEBIAN_PROGRAMS_PACKAGE_NAME vemra)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION utils)
# SQLite has STRICT tables since 3.37. The window needs a plugin of Qt that no library links.
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_DEPENDS
    "${library_package} (= ${PROJECT_VERSION}-1), libsqlite3-0 (>= 3.37), qt6-qpa-plugins")
set(CPACK_COMPONENT_PROGRAMS_DESCRIPTION "reach a goal through the people you know
vemra-desk shows the goals of a store in a window and records what came of
each suggestion. vemra-inspect renders and drives the same screen from a
script.")

# Each package says under which terms it may be used, and what has changed.
set(changes "${CMAKE_BINARY_DIR}/packaging/changelog.Debian")
file(WRITE "${changes}" "vemra (${PROJECT_VERSION}-1) unstable; urgency=medium

  * Snapshot of the version under development; CHANGELOG.md has the details.

 -- ${CPACK_PACKAGE_CONTACT}  Sun, 22 Nov 2026 12:00:00 +0000
")
vemra_compress("${changes}" changes)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER "${component}" name)
  install(FILES "${packaging}/copyright" "${changes}" COMPONENT ${component} EXCLUDE_FROM_ALL
          DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${name}_PACKAGE_NAME}")
endforeach()
include(CPack)
