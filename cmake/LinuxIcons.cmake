# lumarine_install_icons(PROGRAM)
#
# Draws the program's icon in the sizes of the desktops' themes when it is built, and installs these and the drawing
# itself. Without rsvg-convert the drawing alone is installed, and desktops bring it to size.

find_program(RSVG_CONVERT rsvg-convert)

function(lumarine_install_icons program)
  set(theme ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  set(resources ${CMAKE_SOURCE_DIR}/resources)
  install(FILES ${resources}/icon.svg DESTINATION ${theme}/scalable/apps RENAME lumarine.svg)
  if(NOT RSVG_CONVERT)
    return()
  endif()
  set(drawn)
  foreach(size 16 22 24 32 48 64 128 256 512)
    # The first is drawn for so few pixels.
    if(size LESS 32)
      set(source ${resources}/icon-small.svg)
    else()
      set(source ${resources}/icon.svg)
    endif()
    set(output ${CMAKE_CURRENT_BINARY_DIR}/lumarine-${size}.png)
    add_custom_command(OUTPUT ${output}
      COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${output} ${source}
      DEPENDS ${source} VERBATIM)
    list(APPEND drawn ${output})
    install(FILES ${output} DESTINATION ${theme}/${size}x${size}/apps RENAME lumarine.png)
  endforeach()
  add_custom_target(icons DEPENDS ${drawn})
  add_dependencies(${program} icons)
endfunction()
