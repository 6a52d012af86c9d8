# lumarine_windows_identity(PROGRAM SCRIPT DESCRIPTION text [CONTROLS] [TAKES_IN file...])
#
# Compiles a resource script into a program for Windows. The script finds these two, made for the program:
#   program.manifest  what the program asks of Windows; with CONTROLS, the common controls of today, too
#   version.rc        what Explorer shows of the program's file
# TAKES_IN names the files that the script includes besides: the resource
# compiler does not tell of them. Their folders are searched.
function(lumarine_windows_identity program script)
  cmake_parse_arguments(IDENTITY "CONTROLS" "DESCRIPTION" "TAKES_IN" ${ARGN})
  set(resources ${CMAKE_SOURCE_DIR}/resources)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/${program}-identity)
  set(PROGRAM_NAME ${program})
  set(PROGRAM_DESCRIPTION ${IDENTITY_DESCRIPTION})
  set(FILE_VERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}.0.${PROJECT_VERSION_PATCH})
  string(REPLACE "." ", " FILE_VERSION_NUMBERS ${FILE_VERSION})
  # "Copyright (c) YEAR PUBLISHER"
  file(STRINGS ${CMAKE_SOURCE_DIR}/LICENSE COPYRIGHT REGEX "^Copyright \\(c\\)")
  string(REGEX REPLACE ".* [0-9]+ " "" PUBLISHER "${COPYRIGHT}")
  set(CONTROLS "")
  if(IDENTITY_CONTROLS)
    file(READ ${resources}/controls.manifest CONTROLS)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${resources}/controls.manifest)
  endif()
  configure_file(${resources}/program.manifest.in ${folder}/program.manifest @ONLY)
  configure_file(${resources}/version.rc.in ${folder}/version.rc @ONLY)

  set(folders ${folder})
  foreach(file IN LISTS IDENTITY_TAKES_IN)
    cmake_path(GET file PARENT_PATH parent)
    list(APPEND folders ${parent})
  endforeach()
  list(REMOVE_DUPLICATES folders)
  target_sources(${program} PRIVATE ${script})
  set_source_files_properties(${script} PROPERTIES
    INCLUDE_DIRECTORIES "${folders}"
    OBJECT_DEPENDS "${folder}/program.manifest;${folder}/version.rc;${IDENTITY_TAKES_IN}")
endfunction()
