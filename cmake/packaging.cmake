# Debian packages, built with "cpack -G DEB" from a build directory:
#   ktl-cli-logger  the plug-in, where the appliance's CLI loads plug-ins,
#                   and an example limits file kept as a conffile
#   ktl-cli-host    the development host: ktl-cli, its shell module,
#                   templates, message catalogue and default configuration
# Only these install rules exist, so nothing of the tests is packaged. A
# cross build packages the plug-in alone: that is what the appliance
# installs, and only the plug-in's dependencies can be stated without the
# target's dpkg (scripts/runtime-depends.sh).
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
install(DIRECTORY "${PROJECT_SOURCE_DIR}/devhost/templates" "${PROJECT_SOURCE_DIR}/devhost/catalogue"
                  "${PROJECT_SOURCE_DIR}/devhost/default"
        DESTINATION "${KTL_INSTALL_DATA_DIR}" COMPONENT host)
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

# The packages' maintainer, for their control files and their changelog.
set(KTL_PACKAGE_MAINTAINER "ktl-cli maintainers <ktl-cli@velmora.example>")
# The Debian revision of the packaging of one version of CHANGELOG.md.
set(KTL_DEBIAN_REVISION 1)

# ---- What Debian expects of every package: copyright, changelog, overrides ----
# The changelog and the manual pages are compressed at configure time, which
# CHANGELOG.md and the pages (through configure_file) trigger again.
set(KTL_PACKAGING_BUILD_DIR "${PROJECT_BINARY_DIR}/packaging")
ktl_write_debian_changelog("${KTL_PACKAGING_BUILD_DIR}/changelog.Debian" ktl-cli "${KTL_DEBIAN_REVISION}"
                           "${KTL_PACKAGE_MAINTAINER}")
ktl_gzip_for_debian("${KTL_PACKAGING_BUILD_DIR}/changelog.Debian")
foreach(KTL_COMPONENT_PACKAGE logger:ktl-cli-logger host:ktl-cli-host)
  string(REPLACE ":" ";" KTL_COMPONENT_PACKAGE "${KTL_COMPONENT_PACKAGE}")
  list(GET KTL_COMPONENT_PACKAGE 0 KTL_COMPONENT)
  list(GET KTL_COMPONENT_PACKAGE 1 KTL_PACKAGE)
  install(FILES "${PROJECT_SOURCE_DIR}/packaging/copyright" "${KTL_PACKAGING_BUILD_DIR}/changelog.Debian.gz"
          DESTINATION "share/doc/${KTL_PACKAGE}" COMPONENT ${KTL_COMPONENT})
  install(FILES "${PROJECT_SOURCE_DIR}/packaging/lintian/${KTL_PACKAGE}"
          DESTINATION share/lintian/overrides COMPONENT ${KTL_COMPONENT})
endforeach()

set(CPACK_PACKAGE_NAME "ktl-cli")
set(CPACK_PACKAGE_VENDOR "Velmora")
set(CPACK_PACKAGE_CONTACT "${KTL_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_DEBIAN_PACKAGE_RELEASE "${KTL_DEBIAN_REVISION}")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
if(CMAKE_CROSSCOMPILING)
  set(CPACK_COMPONENTS_ALL logger)
else()
  set(CPACK_COMPONENTS_ALL logger host)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION "admin")
# Debian ships binaries without symbol tables; a cross build's strip is the
# target's, found by CMake beside the cross compiler.
set(CPACK_STRIP_FILES ON)
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
  # architecture. The dependencies are worked out when cpack runs, from the
  # symbol versions the built module imports.
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS OFF)
  set(CPACK_KTL_LOGGER_MODULE "${PROJECT_BINARY_DIR}/plugins/libktl_cli-logger.so")
  set(CPACK_KTL_RUNTIME_DEPENDS_SCRIPT "${PROJECT_SOURCE_DIR}/scripts/runtime-depends.sh")
  set(CPACK_PROJECT_CONFIG_FILE "${PROJECT_SOURCE_DIR}/cmake/cross_package_depends.cmake")
else()
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
endif()
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

set(CPACK_DEBIAN_LOGGER_PACKAGE_NAME "ktl-cli-logger")
# One string each: a list of strings would be joined with ";".
set(CPACK_COMPONENT_LOGGER_DESCRIPTION "logger command plug-in of the management CLI
The logger command of the appliance's management CLI views and edits the
configuration of the resource-usage logging tool: syslog output and alert
levels, the cpu, memory and disk usage monitors and the thresholds of
mounted file systems.")
set(CPACK_DEBIAN_LOGGER_PACKAGE_CONTROL_EXTRA "${KTL_LOGGER_CONFFILES}")

set(CPACK_DEBIAN_HOST_PACKAGE_NAME "ktl-cli-host")
set(CPACK_COMPONENT_HOST_DESCRIPTION "development host of the management CLI
ktl-cli loads command plug-ins and runs them the way the appliance's CLI
does, on configuration files in a private state directory, so that a
plug-in can be built, tried and tested without the appliance.")
set(CPACK_COMPONENT_HOST_DEPENDS logger)

include(CPack)

# ---- ktl-cli-host: help, shell, manual pages and completion ----
# The shell module lives in /usr/lib/ktl-cli, where ktl-cli loads it from;
# command descriptions lie beside the plug-ins they describe; the bash
# completion goes where Debian's bash-completion loads it on demand.
if(TARGET ktl_shell)
  install(TARGETS ktl_shell LIBRARY DESTINATION "${KTL_HOST_LIB_DIR}" COMPONENT host)
endif()
install(FILES "${PROJECT_SOURCE_DIR}/devhost/descriptions/logger.command.ini"
              "${PROJECT_SOURCE_DIR}/devhost/descriptions/logger.reasons.ini"
        DESTINATION "${KTL_INSTALL_PLUGIN_DIR}" COMPONENT host)
foreach(KTL_MAN_PAGE ktl-cli.1 ktl-cli-logger.1)
  configure_file("${PROJECT_SOURCE_DIR}/devhost/man/${KTL_MAN_PAGE}" "${KTL_PACKAGING_BUILD_DIR}/man/${KTL_MAN_PAGE}"
                 COPYONLY)
  ktl_gzip_for_debian("${KTL_PACKAGING_BUILD_DIR}/man/${KTL_MAN_PAGE}")
  install(FILES "${KTL_PACKAGING_BUILD_DIR}/man/${KTL_MAN_PAGE}.gz" DESTINATION share/man/man1 COMPONENT host)
endforeach()
install(FILES "${PROJECT_SOURCE_DIR}/devhost/completion/ktl-cli"
        DESTINATION share/bash-completion/completions COMPONENT host)
# ---- end of help, shell, manual pages and completion ----
