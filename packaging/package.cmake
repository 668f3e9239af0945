# SPDX-License-Identifier: MIT
# The packages: cpack makes a Debian one, on Windows an installer and an archive, on macOS a disk
# image.
set(CPACK_PACKAGE_NAME tolvex)
set(CPACK_PACKAGE_VENDOR "The Tolvex developers")
set(CPACK_PACKAGE_CONTACT "The Tolvex developers <developers@tolvex.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "programs AT90S chips through a serial writer board")
set(CPACK_PACKAGE_DESCRIPTION
"Tolvex erases, programs, verifies and reads the chips of Atmel's AT90S family
and their lock and fuse bits, through a small writer board at a serial port. It
opens and saves Intel HEX files, shows them as listings and changes single
cells. Its window is in Japanese or English.
.
tolvex-cli does the same on the terminal and in scripts. tolvex-writer is a
simulated board, for trying everything without hardware.")
set(CPACK_RESOURCE_FILE_LICENSE ${CMAKE_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)

if(WIN32)
  set(CPACK_GENERATOR NSIS ZIP)
  set(CPACK_PACKAGE_FILE_NAME tolvex-${PROJECT_VERSION}-windows)
  # The installer's script is win32/NSIS.template.in; CPack's own asks for administrator's rights.
  list(APPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_SOURCE_DIR}/win32)
  set(CPACK_NSIS_MUI_ICON ${CMAKE_CURRENT_SOURCE_DIR}/win32/tolvex.ico)
elseif(APPLE)
  set(CPACK_GENERATOR DragNDrop)
else()
  set(CPACK_GENERATOR DEB)
endif()

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# No symbol refers to these: the plug-in that draws the icons (a package of its own since Debian 13), a
# Japanese font, and Qt's own texts in Japanese.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-svg-plugins | libqt6svg6 (<< 6.7.2-5~), \
fonts-ipafont-gothic | fonts-japanese-gothic, qt6-translations-l10n")
set(CPACK_TOLVEX_DAY ${release_day})
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/debian/stage.cmake)

include(CPack)
