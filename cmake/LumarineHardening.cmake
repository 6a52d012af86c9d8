# What keeps a fault in an optimised program from becoming somebody's way in, as far as the compiler offers it; for
# everything that is linked into one, the libraries of others that are built here included. tests/package/hardening_test.sh
# looks for all of it in the programs.

if(NOT CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$" OR LUMARINE_SANITIZE OR LUMARINE_COVERAGE)
  return()
endif()

if(MSVC)
  # The stack is guarded by itself (/GS), the program laid out anew at each start.
  add_compile_options($<$<COMPILE_LANGUAGE:C,CXX>:/guard:cf>)
  add_link_options(/guard:cf /DYNAMICBASE /HIGHENTROPYVA /NXCOMPAT)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(AMD64|x86_64)$")
    add_link_options(/CETCOMPAT)
  endif()
  return()
endif()

# The resource compiler understands none of these. A distribution's own level of fortification gives way.
set(hardening -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
if(WIN32)
  # Large frames are probed page by page there whatever one asks for. GCC has no control flow guard, and binutils cannot
  # say that a program bears the processor's shadow stack (/guard:cf and /CETCOMPAT of Visual Studio).
  # The protector's own functions are in a library here, and so are those of fortification.
  add_link_options(-fstack-protector-strong -Wl,--dynamicbase,--high-entropy-va,--nxcompat)
else()
  # A program's own functions cannot be replaced from outside: -fPIE is faster than -fPIC, which Qt's users get behind it.
  list(APPEND hardening -fPIE -fstack-clash-protection)
  add_link_options(-pie -Wl,-z,relro,-z,now,-z,noexecstack)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i.86)$")
    list(APPEND hardening -fcf-protection=full)
  elseif(CMAKE_SYSTEM_PROCESSOR STREQUAL aarch64)
    list(APPEND hardening -mbranch-protection=standard)
  endif()
endif()
add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:${hardening}>")
