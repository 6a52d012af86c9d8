# lumarine_windows_pictures(FOLDER_VARIABLE)
#
# Draws the pictures of the Windows program from their SVG sources into a folder of the build:
#   lumarine.ico        all sizes that Windows asks for
#   lumarine-small.ico  those of title bars and lists
#   logo.png            twice the size that it is shown in, for screens of high resolution
# Whoever takes one in depends on the file by its name. Where there are no tools to draw with, LUMARINE_DRAWN_PICTURES names
# a folder that has all three, as another build has drawn them.

set(LUMARINE_DRAWN_PICTURES "" CACHE PATH "Pictures of the Windows program that need not be drawn")
if(NOT LUMARINE_DRAWN_PICTURES)
  find_program(RSVG_CONVERT rsvg-convert REQUIRED)
  find_program(ICOTOOL icotool REQUIRED)
endif()

function(lumarine_windows_pictures folder_variable)
  if(LUMARINE_DRAWN_PICTURES)
    set(${folder_variable} ${LUMARINE_DRAWN_PICTURES} PARENT_SCOPE)
    return()
  endif()
  set(resources ${CMAKE_SOURCE_DIR}/resources)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/pictures)
  file(MAKE_DIRECTORY ${folder})

  function(draw source output width height)
    add_custom_command(OUTPUT ${output}
      COMMAND ${RSVG_CONVERT} -w ${width} -h ${height} -o ${output} ${source}
      DEPENDS ${source} VERBATIM)
  endfunction()

  set(small)
  foreach(size 16 20 24)
    draw(${resources}/icon-small.svg ${folder}/icon-${size}.png ${size} ${size})
    list(APPEND small ${folder}/icon-${size}.png)
  endforeach()
  set(large)
  foreach(size 32 40 48 64 128)
    draw(${resources}/icon.svg ${folder}/icon-${size}.png ${size} ${size})
    list(APPEND large ${folder}/icon-${size}.png)
  endforeach()
  draw(${resources}/icon.svg ${folder}/icon-256.png 256 256)
  draw(${resources}/logo.svg ${folder}/logo.png 512 200)

  # The largest stays a PNG within the file, as Windows expects of it.
  add_custom_command(OUTPUT ${folder}/lumarine.ico
    COMMAND ${ICOTOOL} --create -o ${folder}/lumarine.ico ${small} ${large} --raw=${folder}/icon-256.png
    DEPENDS ${small} ${large} ${folder}/icon-256.png VERBATIM)
  add_custom_command(OUTPUT ${folder}/lumarine-small.ico
    COMMAND ${ICOTOOL} --create -o ${folder}/lumarine-small.ico ${small} ${folder}/icon-32.png
    DEPENDS ${small} ${folder}/icon-32.png VERBATIM)
  set(${folder_variable} ${folder} PARENT_SCOPE)
endfunction()
