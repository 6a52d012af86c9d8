# lumarine_embed_resource(PROGRAM ID TYPE FILE)
#
# Builds a file into an executable, where platform::FindResourceBytes(ID, "TYPE") finds it. On Windows it is a
# resource of the executable; elsewhere the assembler takes the bytes in, with a record of them in a section of
# its own that the linker joins to a table (platform/posix/system.cpp reads it). For executables only: nothing
# would pull the object out of a static library.
function(lumarine_embed_resource program id type file)
  cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
  set(name ${program}_resource_${type}_${id})
  if(WIN32)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc)
    set(content "${id} ${type} \"${file}\"\n")
  else()
    # A C++ source with nothing but assembly, so that no further language has to be set up.
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    set(content
"asm(R\"(
.pushsection .rodata
.balign 16
${name}_begin: .incbin \"${file}\"
${name}_end: .byte 0
${name}_type: .asciz \"${type}\"
.popsection
.pushsection lumarine_resources,\"aw\"
.balign 8
.8byte ${id}, ${name}_type, ${name}_begin, ${name}_end
.popsection
)\");
")
  endif()
  file(CONFIGURE OUTPUT ${source} CONTENT "${content}" @ONLY)
  # Not with the project's options: they are for a C++ compiler, and a resource compiler chokes on them.
  add_library(${name} OBJECT ${source})
  set_source_files_properties(${source} PROPERTIES OBJECT_DEPENDS ${file})
  target_sources(${program} PRIVATE $<TARGET_OBJECTS:${name}>)
endfunction()
