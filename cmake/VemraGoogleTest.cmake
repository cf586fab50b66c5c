# GTest::gtest, GTest::gtest_main and GTest::gmock, from Debian.
#
# Debian compiles its GoogleTest libraries against libstdc++. A build with libc++ cannot link those,
# so it compiles GoogleTest itself, from the sources that the package googletest installs.
include(CheckCXXSymbolExists)
check_cxx_symbol_exists(_LIBCPP_VERSION version VEMRA_STANDARD_LIBRARY_IS_LIBCXX)
if(VEMRA_STANDARD_LIBRARY_IS_LIBCXX)
  find_path(VEMRA_GOOGLETEST_SOURCES NAMES googlemock/CMakeLists.txt PATHS /usr/src/googletest REQUIRED
            NO_DEFAULT_PATH)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  add_subdirectory("${VEMRA_GOOGLETEST_SOURCES}" googletest EXCLUDE_FROM_ALL SYSTEM)
else()
  find_package(GTest REQUIRED)
endif()
include(GoogleTest)
