# lumarine_library(NAME SOURCES a.cpp ... HEADERS a.h ... [PUBLIC lib ...] [PRIVATE lib ...])
#
# One static library per source folder. PUBLIC names the libraries whose headers this one's headers include.
function(lumarine_library name)
  cmake_parse_arguments(LIB "" "" "SOURCES;HEADERS;PUBLIC;PRIVATE" ${ARGN})
  add_library(${name} STATIC)
  target_sources(${name}
    PRIVATE ${LIB_SOURCES}
    PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_SOURCE_DIR} FILES ${LIB_HEADERS})
  target_link_libraries(${name} PUBLIC lumarine_options ${LIB_PUBLIC} PRIVATE ${LIB_PRIVATE})
endfunction()

# lumarine_port(NAME SOURCES a.cpp ... [LINK lib ...])
#
# One filling of link-time functions. An object library, since the callers stand above it in the link order:
# its objects are linked whole, wherever they are named.
function(lumarine_port name)
  cmake_parse_arguments(PORT "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} OBJECT ${PORT_SOURCES})
  target_link_libraries(${name} PUBLIC lumarine_options ${PORT_LINK})
endfunction()
