# SPDX-License-Identifier: MIT
# Windows: everything lies in one folder, which can stand anywhere.
set(win32 ${CMAKE_CURRENT_SOURCE_DIR}/win32)

# Opens a file that was double-clicked, for the installer's file association.
add_executable(tolvex-open WIN32 win32/tolvex_open.cpp)
target_link_libraries(tolvex-open PRIVATE tolvex_options)
if(MINGW)
  target_link_options(tolvex-open PRIVATE -municode)
endif()

# Icon, version and manifest of a program.
function(describe_program program description)
  configure_file(win32/program.rc.in ${program}.rc @ONLY)
  target_sources(${program} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${program}.rc)
endfunction()
describe_program(tolvex "Tolvex")
describe_program(tolvex-cli "Tolvex on the terminal")
describe_program(tolvex-open "Opens a file with Tolvex")

install(TARGETS tolvex tolvex-cli tolvex-open RUNTIME DESTINATION .)
install(FILES ${manual} DESTINATION . RENAME tolvex.hlp)
install(FILES ${english_manual} DESTINATION . RENAME tolvex_en.hlp)
install(FILES ${samples} DESTINATION samples)
install(FILES ${manual} ${english_manual} ${pages} DESTINATION docs)
install(FILES ${CMAKE_SOURCE_DIR}/LICENSE DESTINATION . RENAME LICENSE.txt)
if(TARGET firmware)
  install(FILES ${CMAKE_BINARY_DIR}/firmware/tolvex_writer.hex DESTINATION firmware)
endif()

# A static Qt is in the programs, and its licences lie where packaging/windows has put them. DLLs of a
# shared one are copied beside the programs.
get_target_property(qt_kind Qt6::Core TYPE)
if(qt_kind STREQUAL "STATIC_LIBRARY")
  install(DIRECTORY ${Qt6_DIR}/../../../licences DESTINATION .)
  configure_file(win32/relinking.txt relinking.txt @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/relinking.txt DESTINATION .)
else()
  install_shared_qt()
endif()
