# CHANGELOG.md is where the version is written, once: the project's version
# is its first "## [VERSION] - DATE" heading, and the packages' Debian
# changelog is made from it. CMake reconfigures when the file changes.

set(KTL_CHANGELOG "${CMAKE_CURRENT_LIST_DIR}/../CHANGELOG.md")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${KTL_CHANGELOG}")

set(KTL_CHANGELOG_HEADING_REGEX "^## \\[([0-9]+\\.[0-9]+\\.[0-9]+)\\] - ([0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9])$")

# Sets OUT_VAR to the version of the newest entry; stops configuring with
# what was expected when there is none.
function(ktl_changelog_version out_var)
  file(STRINGS "${KTL_CHANGELOG}" headings REGEX "^## ")
  list(GET headings 0 newest)
  if(NOT newest MATCHES "${KTL_CHANGELOG_HEADING_REGEX}")
    message(FATAL_ERROR "CHANGELOG.md: the first \"## \" heading is \"${newest}\"; "
                        "expected \"## [MAJOR.MINOR.PATCH] - YYYY-MM-DD\"")
  endif()
  set(${out_var} "${CMAKE_MATCH_1}" PARENT_SCOPE)
endfunction()

# Writes the Debian changelog of SOURCE_PACKAGE to OUT, one entry per
# version of CHANGELOG.md: "### Section" becomes "[ Section ]", "- item"
# becomes "* item" with its continuation lines; the prose under a version
# heading is left out. Entries are signed by MAINTAINER at midnight UTC of
# the entry's date; DEBIAN_REVISION is appended to each version.
function(ktl_write_debian_changelog out source_package debian_revision maintainer)
  file(STRINGS "${KTL_CHANGELOG}" lines)
  set(text "")
  set(signature "")
  set(in_entry FALSE)
  set(in_section FALSE)
  foreach(line IN LISTS lines)
    if(line MATCHES "${KTL_CHANGELOG_HEADING_REGEX}")
      set(version "${CMAKE_MATCH_1}")
      execute_process(COMMAND date -u -R -d "${CMAKE_MATCH_2}" OUTPUT_VARIABLE date
                      OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
      if(NOT signature STREQUAL "")
        string(APPEND text "\n${signature}\n")
      endif()
      string(APPEND text "${source_package} (${version}-${debian_revision}) unstable; urgency=medium\n")
      set(signature " -- ${maintainer}  ${date}\n")
      set(in_entry TRUE)
      set(in_section FALSE)
    elseif(line MATCHES "^## ")
      message(FATAL_ERROR "CHANGELOG.md: \"${line}\" is not \"## [MAJOR.MINOR.PATCH] - YYYY-MM-DD\"")
    elseif(in_entry AND line MATCHES "^### (.+)$")
      string(APPEND text "\n  [ ${CMAKE_MATCH_1} ]\n")
      set(in_section TRUE)
    elseif(in_section AND line MATCHES "^- (.+)$")
      string(APPEND text "  * ${CMAKE_MATCH_1}\n")
    elseif(in_section AND line MATCHES "^  +(.+)$")
      string(APPEND text "    ${CMAKE_MATCH_1}\n")
    endif()
  endforeach()
  if(signature STREQUAL "")
    message(FATAL_ERROR "CHANGELOG.md has no \"## [MAJOR.MINOR.PATCH] - YYYY-MM-DD\" entry")
  endif()
  file(WRITE "${out}" "${text}\n${signature}")
endfunction()

# Compresses FILE to FILE.gz as Debian wants it: the best compression, and
# neither name nor time stored, so that two builds of one tree agree.
function(ktl_gzip_for_debian file)
  execute_process(COMMAND gzip -9 -n -f "${file}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()
