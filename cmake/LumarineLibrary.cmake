include(LumarineIncludes)

# lumarine_library(NAME SOURCES a.cpp ... HEADERS a.h ... [PUBLIC lib ...] [PRIVATE lib ...])
#
# One static library per source folder. PUBLIC names the libraries whose headers this one's headers include.
# The build `native` compiles its sources as one. So a name in an unnamed namespace stands in one source of a library only,
# and whoever links the library links all of it, with what that needs.
function(lumarine_library name)
  cmake_parse_arguments(LIB "" "" "SOURCES;HEADERS;PUBLIC;PRIVATE" ${ARGN})
  add_library(${name} STATIC)
  target_sources(${name} PRIVATE ${LIB_SOURCES})
  target_link_libraries(${name} PUBLIC lumarine_options ${LIB_PUBLIC} PRIVATE ${LIB_PRIVATE})
  lumarine_public_headers(${name} PUBLIC ${LIB_HEADERS})
  lumarine_judged(${name})
endfunction()

# lumarine_headers(NAME HEADERS a.h ... [LINK lib ...])
#
# Some of a folder's headers, for those that must not have its whole library.
function(lumarine_headers name)
  cmake_parse_arguments(LIB "" "" "HEADERS;LINK" ${ARGN})
  add_library(${name} INTERFACE)
  target_link_libraries(${name} INTERFACE lumarine_options ${LIB_LINK})
  lumarine_public_headers(${name} INTERFACE ${LIB_HEADERS})
  lumarine_judged(${name})
endfunction()

function(lumarine_public_headers name scope)
  target_sources(${name} ${scope} FILE_SET HEADERS BASE_DIRS ${CMAKE_SOURCE_DIR} FILES ${ARGN})
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${CMAKE_SOURCE_DIR} OUTPUT_VARIABLE folder)
  list(TRANSFORM ARGN PREPEND "${folder}/")
  lumarine_includable(${name} ${ARGN})
endfunction()

# lumarine_port(NAME SOURCES a.cpp ... [FILLS lib ...] [LINK lib ...])
#
# One filling of link-time functions. An object library, since the callers stand above it in the link order:
# its objects are linked whole, wherever they are named. FILLS names the libraries whose headers declare the functions;
# the callers link them.
function(lumarine_port name)
  cmake_parse_arguments(PORT "" "" "SOURCES;FILLS;LINK" ${ARGN})
  add_library(${name} OBJECT ${PORT_SOURCES})
  target_link_libraries(${name} PUBLIC lumarine_options ${PORT_LINK})
  lumarine_judged(${name} ${PORT_FILLS})
endfunction()
