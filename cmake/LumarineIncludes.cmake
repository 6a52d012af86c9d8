# Which headers a source may include: those of what its library, program or port links.

# lumarine_includable(TARGET HEADER...)
#
# Who links the target may include these: paths from the project's root, or of a library that is not ours. One that
# ends with a slash stands for all below it.
function(lumarine_includable target)
  set_property(TARGET ${target} APPEND PROPERTY LUMARINE_INCLUDABLE ${ARGN})
endfunction()

# lumarine_judged(TARGET [LIBRARY...])
#
# The target's sources and headers keep to the rule. They may include the headers of the target itself, of what it
# links, as far as CMake passes it on, and of the LIBRARIES, which it does not link itself.
function(lumarine_judged target)
  set_property(GLOBAL APPEND PROPERTY LUMARINE_JUDGED ${target})
  set_property(TARGET ${target} PROPERTY LUMARINE_KNOWS ${ARGN})
endfunction()

# lumarine_write_include_rule(FILE)
#
# Writes the rule, for tests/frame: a line "FILE ... : HEADER ..." a target. To be called when every library is there.
function(lumarine_write_include_rule file)
  get_property(targets GLOBAL PROPERTY LUMARINE_JUDGED)
  set(lines)
  foreach(target IN LISTS targets)
    lumarine_files_of(${target} files)
    lumarine_includable_for(${target} headers)
    list(JOIN files " " files)
    list(JOIN headers " " headers)
    list(APPEND lines "${files} : ${headers}")
  endforeach()
  list(JOIN lines "\n" lines)
  file(CONFIGURE OUTPUT ${file} CONTENT "${lines}\n" @ONLY)
endfunction()

# The target's sources and headers, as paths from the project's root. Generated sources have absolute paths and are left
# out.
function(lumarine_files_of target files_variable)
  get_property(folder TARGET ${target} PROPERTY SOURCE_DIR)
  cmake_path(RELATIVE_PATH folder BASE_DIRECTORY ${CMAKE_SOURCE_DIR})
  get_property(sources TARGET ${target} PROPERTY SOURCES)
  list(FILTER sources INCLUDE REGEX "^[A-Za-z]")
  list(TRANSFORM sources PREPEND "${folder}/")
  get_property(headers TARGET ${target} PROPERTY LUMARINE_INCLUDABLE)
  set(${files_variable} ${sources} ${headers} PARENT_SCOPE)
endfunction()

# The headers that the target may include.
function(lumarine_includable_for target headers_variable)
  get_property(linked TARGET ${target} PROPERTY LINK_LIBRARIES)
  get_property(known TARGET ${target} PROPERTY LUMARINE_KNOWS)
  set(ahead ${target} ${linked} ${known})
  set(seen)
  set(headers)
  while(NOT ahead STREQUAL "")
    list(POP_FRONT ahead next)
    # What is not passed on is wrapped in an expression, and so no target.
    if(NOT TARGET "${next}" OR next IN_LIST seen)
      continue()
    endif()
    list(APPEND seen ${next})
    # A port gives its users objects, and no headers of what it links itself.
    get_property(type TARGET ${next} PROPERTY TYPE)
    if(type STREQUAL OBJECT_LIBRARY AND NOT next STREQUAL target)
      continue()
    endif()
    get_property(own TARGET ${next} PROPERTY LUMARINE_INCLUDABLE)
    list(APPEND headers ${own})
    get_property(passed_on TARGET ${next} PROPERTY INTERFACE_LINK_LIBRARIES)
    list(APPEND ahead ${passed_on})
  endwhile()
  set(${headers_variable} ${headers} PARENT_SCOPE)
endfunction()
