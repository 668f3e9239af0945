# SPDX-License-Identifier: MIT
# The usual folders: programs in lib/tolvex with links on the path, what every machine can share in
# share/tolvex, and beside the programs links to it.
set(home ${CMAKE_INSTALL_LIBDIR}/tolvex)
set(shared ${CMAKE_INSTALL_DATADIR}/tolvex)
set(doc ${CMAKE_INSTALL_DATAROOTDIR}/doc/tolvex)

# A link that stays true when the whole tree is moved.
function(install_link folder name target)
  file(RELATIVE_PATH relative /${folder} /${target})
  file(CREATE_LINK ${relative} ${CMAKE_CURRENT_BINARY_DIR}/links/${name} SYMBOLIC)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/links/${name} DESTINATION ${folder})
endfunction()
file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/links)

install(TARGETS tolvex tolvex-cli tolvex-writer RUNTIME DESTINATION ${home})
foreach(program IN ITEMS tolvex tolvex-cli tolvex-writer)
  install_link(${CMAKE_INSTALL_BINDIR} ${program} ${home}/${program})
endforeach()
install(FILES ${manual} DESTINATION ${shared} RENAME tolvex.hlp)
install(FILES ${english_manual} DESTINATION ${shared} RENAME tolvex_en.hlp)
install(FILES ${samples} DESTINATION ${shared}/samples)
foreach(companion IN ITEMS tolvex.hlp tolvex_en.hlp samples)
  install_link(${home} ${companion} ${shared}/${companion})
endforeach()

# The writer that anyone can build: its page with the pictures, and its firmware where that was built.
install(FILES ${pages} DESTINATION ${doc})
install(FILES ${CMAKE_SOURCE_DIR}/docs/pictures/record.svg DESTINATION ${doc}/pictures)
if(TARGET firmware)
  install(FILES ${CMAKE_BINARY_DIR}/firmware/tolvex_writer.hex DESTINATION ${shared})
  install_link(${home} tolvex_writer.hex ${shared}/tolvex_writer.hex)
else()
  message(STATUS "The package will lack tolvex_writer.hex, the firmware of the writer to build")
endif()

foreach(program IN ITEMS tolvex-cli tolvex-writer)
  install(FILES bash_completion DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME ${program})
endforeach()

install(FILES zsh_completion DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions
  RENAME _tolvex-cli)
install(FILES fish_completion DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
  RENAME tolvex-cli.fish)

install(FILES desktop/tolvex.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
configure_file(desktop/example.tolvex.Tolvex.metainfo.xml.in example.tolvex.Tolvex.metainfo.xml @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/example.tolvex.Tolvex.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES desktop/tolvex-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
  RENAME tolvex.xml)
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  # Not LIBDIR: udev reads lib/ alone, also where libraries have a folder of their own.
  install(FILES desktop/70-tolvex.rules DESTINATION lib/udev/rules.d)
endif()

# The icon as it is, and drawn in the sizes that menus ask for.
set(icon ${CMAKE_SOURCE_DIR}/app/icons/tolvex.svg)
set(hicolor ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${icon} DESTINATION ${hicolor}/scalable/apps)
set(icon_sizes 16 22 24 32 48 64 128 256)
foreach(size IN LISTS icon_sizes)
  set(drawn ${CMAKE_CURRENT_BINARY_DIR}/icons/${size}.png)
  install(FILES ${drawn} DESTINATION ${hicolor}/${size}x${size}/apps RENAME tolvex.png)
  list(APPEND drawn_icons ${drawn})
endforeach()
add_executable(tolvex-draw-icon ${CMAKE_SOURCE_DIR}/tools/draw_icon.cpp)
target_link_libraries(tolvex-draw-icon PRIVATE tolvex_platform Qt6::Svg)
set_target_properties(tolvex-draw-icon PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/icons)
add_custom_command(OUTPUT ${drawn_icons}
  COMMAND tolvex-draw-icon ${icon} ${CMAKE_CURRENT_BINARY_DIR}/icons ${icon_sizes}
  DEPENDS ${icon} VERBATIM)
add_custom_target(tolvex_icon_sizes ALL DEPENDS ${drawn_icons})
