# SPDX-License-Identifier: MIT
# Run by cpack on the installed tree before it is packed: what Debian wants besides.
cmake_minimum_required(VERSION 3.25)
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()
foreach(tool IN ITEMS dpkg-shlibdeps file gzip)
  string(MAKE_C_IDENTIFIER ${tool} found)
  find_program(${found} ${tool})
  if(NOT ${found})
    message(FATAL_ERROR "${tool} is missing: without it the package would lack its dependencies or "
      "stay uncompressed. It is in the package dpkg-dev, file or gzip.")
  endif()
endforeach()

set(mode FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
set(tree ${CPACK_TEMPORARY_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX})
set(doc ${tree}/share/doc/tolvex)
file(COPY ${CMAKE_CURRENT_LIST_DIR}/copyright ${CMAKE_CURRENT_LIST_DIR}/../../CHANGELOG.md
  DESTINATION ${doc} ${mode})
execute_process(COMMAND env LC_ALL=C date -u -R -d ${CPACK_TOLVEX_DAY} OUTPUT_VARIABLE day
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog.in ${doc}/changelog @ONLY)
file(CHMOD ${doc}/changelog ${mode})
file(COPY ${CMAKE_CURRENT_LIST_DIR}/lintian-overrides DESTINATION ${tree}/share/lintian/overrides
  ${mode})
file(RENAME ${tree}/share/lintian/overrides/lintian-overrides ${tree}/share/lintian/overrides/tolvex)
file(GLOB pages ${tree}/share/man/man1/*.1 ${tree}/share/man/*/man1/*.1)
if(NOT pages)
  message(FATAL_ERROR "There are no manual pages: scdoc was missing when the build was configured.")
endif()
execute_process(COMMAND ${gzip} -9 -n ${doc}/changelog ${pages} COMMAND_ERROR_IS_FATAL ANY)
# Whatever the umask of whoever builds.
execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -type d -exec chmod 755 {} +
  COMMAND_ERROR_IS_FATAL ANY)
