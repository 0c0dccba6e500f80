# GoogleTest and GoogleMock for the tests. Debian's prebuilt libraries are
# compiled for this machine with the C++11 std::string ABI, so a cross build
# or a build with the older ABI compiles them from the sources Debian ships,
# with this build's compiler and flags.
if(CMAKE_CROSSCOMPILING OR NOT KTL_CXX11_ABI)
  set(KTL_GOOGLETEST_SOURCE_DIR "/usr/src/googletest" CACHE PATH
      "GoogleTest's sources, for builds that cannot link Debian's prebuilt libraries")
  set(INSTALL_GTEST OFF CACHE BOOL "Install nothing of GoogleTest" FORCE)
  add_subdirectory("${KTL_GOOGLETEST_SOURCE_DIR}" "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL)
else()
  find_package(GTest REQUIRED)
endif()
include(GoogleTest)
