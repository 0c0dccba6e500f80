# Debian packages, built with "cpack -G DEB" from a build directory:
#   ktl-cli-logger  the plug-in, where the appliance's CLI loads plug-ins,
#                   and an example limits file kept as a conffile
#   ktl-cli-host    the development host: ktl-cli, its private libktl_host.so,
#                   templates, message catalogue and default configuration
# Only these install rules exist, so nothing of the tests is packaged.
#
# A packaging build must point the host at the installed paths:
#   -DCMAKE_INSTALL_PREFIX=/usr
#   -DKTL_HOST_PLUGIN_DIR=/opt/velmora/ktl/cli/plugins
#   -DKTL_HOST_DATA_DIR=/usr/share/ktl-cli
# (scripts/check-packages.sh does so).

set(KTL_APPLIANCE_CLI_DIR "/opt/velmora/ktl/cli")
set(KTL_INSTALL_PLUGIN_DIR "${KTL_APPLIANCE_CLI_DIR}/plugins")
set(KTL_INSTALL_DATA_DIR "share/ktl-cli")

# ---- ktl-cli-logger ----
install(TARGETS ktl_cli-logger LIBRARY DESTINATION "${KTL_INSTALL_PLUGIN_DIR}" COMPONENT logger)
install(FILES "${PROJECT_SOURCE_DIR}/packaging/LoggerParams.ini"
        DESTINATION "${KTL_APPLIANCE_CLI_DIR}" COMPONENT logger)

# ---- ktl-cli-host ----
install(TARGETS ktl-cli RUNTIME DESTINATION bin COMPONENT host)
install(TARGETS ktl_host LIBRARY DESTINATION "${KTL_HOST_LIB_DIR}" COMPONENT host)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/devhost/templates" "${PROJECT_SOURCE_DIR}/devhost/catalogue"
                  "${PROJECT_SOURCE_DIR}/devhost/default"
        DESTINATION "${KTL_INSTALL_DATA_DIR}" COMPONENT host)
# libktl_host.so is private to ktl-cli, found through its RPATH
# (devhost/CMakeLists.txt), the same in the build tree and when installed.

# An installed ktl-cli built without the installed paths would look for its
# data in this checkout; say so at configure time rather than at run time.
if(NOT KTL_HOST_PLUGIN_DIR STREQUAL KTL_INSTALL_PLUGIN_DIR OR
   NOT KTL_HOST_DATA_DIR STREQUAL "${CMAKE_INSTALL_PREFIX}/${KTL_INSTALL_DATA_DIR}")
  message(STATUS "Packages: ktl-cli is built for this checkout; for installable packages set "
                 "CMAKE_INSTALL_PREFIX=/usr, KTL_HOST_PLUGIN_DIR=${KTL_INSTALL_PLUGIN_DIR} and "
                 "KTL_HOST_DATA_DIR=/usr/${KTL_INSTALL_DATA_DIR}")
endif()

# dpkg keeps an administrator's edits of a conffile across upgrades.
set(KTL_LOGGER_CONFFILES "${PROJECT_BINARY_DIR}/packaging/logger/conffiles")
file(WRITE "${KTL_LOGGER_CONFFILES}" "${KTL_APPLIANCE_CLI_DIR}/LoggerParams.ini\n")

set(CPACK_PACKAGE_NAME "ktl-cli")
set(CPACK_PACKAGE_VENDOR "Velmora")
set(CPACK_PACKAGE_CONTACT "ktl-cli developers <ktl-cli@localhost>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_COMPONENTS_ALL logger host)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION "admin")
if(CMAKE_CROSSCOMPILING)
  # The packages are for the target's architecture: Debian's name for it,
  # from the toolchain file or from the processor CMake was given.
  if(NOT KTL_DEBIAN_ARCHITECTURE)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(aarch64|arm64)$")
      set(KTL_DEBIAN_ARCHITECTURE arm64)
    elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^arm")
      set(KTL_DEBIAN_ARCHITECTURE armhf)
    elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|amd64)$")
      set(KTL_DEBIAN_ARCHITECTURE amd64)
    else()
      message(FATAL_ERROR "Packages: no Debian architecture for ${CMAKE_SYSTEM_PROCESSOR}; "
                          "set KTL_DEBIAN_ARCHITECTURE")
    endif()
  endif()
  set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE "${KTL_DEBIAN_ARCHITECTURE}")
  # dpkg-shlibdeps looks the target's libraries up in the dpkg database of
  # this machine, where the cross runtimes are not packages of that
  # architecture. The dependencies are stated instead: the C and C++ runtimes
  # of Debian 12, which the module is linked against (check-plugin.sh shows
  # the symbol versions it really needs).
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS OFF)
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6 (>= 2.36), libgcc-s1 (>= 3.0), libstdc++6 (>= 12)")
else()
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  # libktl_host.so comes with ktl-cli, not from another package.
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/devhost")
endif()
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

set(CPACK_DEBIAN_LOGGER_PACKAGE_NAME "ktl-cli-logger")
set(CPACK_COMPONENT_LOGGER_DESCRIPTION
    "logger command plug-in of the management CLI\n"
    "Views and edits the configuration of the resource-usage logging tool.")
set(CPACK_DEBIAN_LOGGER_PACKAGE_CONTROL_EXTRA "${KTL_LOGGER_CONFFILES}")

set(CPACK_DEBIAN_HOST_PACKAGE_NAME "ktl-cli-host")
set(CPACK_COMPONENT_HOST_DESCRIPTION
    "development host of the management CLI\n"
    "ktl-cli loads command plug-ins and runs them the way the appliance's CLI does.")
set(CPACK_COMPONENT_HOST_DEPENDS logger)

include(CPack)

# ---- ktl-cli-host: help, shell, manual pages and completion ----
# The shell module lives beside libktl_host.so, where ktl-cli loads it from;
# command descriptions lie beside the plug-ins they describe; the bash
# completion goes where Debian's bash-completion loads it on demand.
if(TARGET ktl_shell)
  install(TARGETS ktl_shell LIBRARY DESTINATION "${KTL_HOST_LIB_DIR}" COMPONENT host)
endif()
install(FILES "${PROJECT_SOURCE_DIR}/devhost/descriptions/logger.command.ini"
              "${PROJECT_SOURCE_DIR}/devhost/descriptions/logger.reasons.ini"
        DESTINATION "${KTL_INSTALL_PLUGIN_DIR}" COMPONENT host)
install(FILES "${PROJECT_SOURCE_DIR}/devhost/man/ktl-cli.1" "${PROJECT_SOURCE_DIR}/devhost/man/ktl-cli-logger.1"
        DESTINATION share/man/man1 COMPONENT host)
install(FILES "${PROJECT_SOURCE_DIR}/devhost/completion/ktl-cli"
        DESTINATION share/bash-completion/completions COMPONENT host)
# ---- end of help, shell, manual pages and completion ----
