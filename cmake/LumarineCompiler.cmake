# What every target of the project is compiled with.

add_library(lumarine_options INTERFACE)
if(MSVC)
  # Warnings are no errors there: nobody has seen yet which there are (docs/building-on-windows.md).
  target_compile_options(lumarine_options INTERFACE /W4 /permissive- /utf-8 /EHsc /bigobj
    /Zc:__cplusplus /Zc:preprocessor
    # As below. It holds from Visual Studio 2022 on; an older one fuses all the same.
    /fp:precise)
else()
  target_compile_options(lumarine_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
    # Curves are exact to the bit on every platform: no fused multiply-add behind our back.
    -ffp-contract=off)
endif()
target_include_directories(lumarine_options INTERFACE ${CMAKE_SOURCE_DIR})

if(WIN32)
  target_compile_definitions(lumarine_options INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00 WINVER=0x0A00)
endif()
if(MSVC)
  # A single file, as below; vcpkg's libraries are of the same kind. Our manifest is in the resources.
  set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
  add_link_options(/Brepro /MANIFEST:NO)
elseif(WIN32)
  target_link_options(lumarine_options INTERFACE -static)
  # A program is the same whenever it is built, and wherever: no source asks for the name of its file.
  add_link_options(-Wl,--no-insert-timestamp)
endif()

if(LUMARINE_SANITIZE)
  add_compile_options(-fsanitize=${LUMARINE_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${LUMARINE_SANITIZE})
endif()

if(LUMARINE_COVERAGE)
  # Clang's, which knows the source: lines and branches as they are written, whatever the optimiser makes of them.
  add_compile_options($<$<COMPILE_LANGUAGE:C,CXX>:-fprofile-instr-generate>
    $<$<COMPILE_LANGUAGE:C,CXX>:-fcoverage-mapping>)
  add_link_options(-fprofile-instr-generate)
endif()

find_program(CCACHE ccache)
if(CCACHE)
  # The second so that it keeps what was compiled with precompiled headers, too.
  set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE})
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
  add_compile_options("$<$<COMPILE_LANG_AND_ID:CXX,Clang>:SHELL:-Xclang -fno-pch-timestamp>"
    $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-fpch-preprocess>)
endif()

# Every public header must compile on its own: the target all_verify_interface_header_sets does it.
set(CMAKE_VERIFY_INTERFACE_HEADER_SETS ON)
