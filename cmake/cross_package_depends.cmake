# Read by cpack (CPACK_PROJECT_CONFIG_FILE) in a cross build, once the module
# is built: the plug-in package depends on the C and C++ runtimes from the
# symbol versions the module imports, as scripts/runtime-depends.sh works
# them out.
if(CPACK_GENERATOR STREQUAL "DEB")
  execute_process(COMMAND bash "${CPACK_KTL_RUNTIME_DEPENDS_SCRIPT}" "${CPACK_KTL_LOGGER_MODULE}"
                  OUTPUT_VARIABLE KTL_RUNTIME_DEPENDS OUTPUT_STRIP_TRAILING_WHITESPACE
                  COMMAND_ERROR_IS_FATAL ANY)
  set(CPACK_DEBIAN_LOGGER_PACKAGE_DEPENDS "${KTL_RUNTIME_DEPENDS}")
endif()
