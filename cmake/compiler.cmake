# Warnings, sanitizers, the compiler cache and the linker, the same for every target.
add_library(cuewright_compiler INTERFACE)
target_compile_options(cuewright_compiler INTERFACE
  -Wall -Wextra -Wpedantic $<$<BOOL:${CUEWRIGHT_WERROR}>:-Werror>
  -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wundef
  -Wimplicit-fallthrough -Wextra-semi
  -fno-plt -fstack-protector-strong)
target_compile_definitions(cuewright_compiler INTERFACE
  $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Reported inside the standard library for ordinary string code in this version.
  target_compile_options(cuewright_compiler INTERFACE -Wno-restrict -Wno-stringop-overflow -Wno-maybe-uninitialized)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # Of signs GCC's -Wconversion says nothing in C++.
  target_compile_options(cuewright_compiler INTERFACE -Wno-sign-conversion)
endif()

if(CUEWRIGHT_SANITIZE)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  if(CUEWRIGHT_FUZZ)
    list(APPEND sanitizers -fsanitize=fuzzer-no-link)
  endif()
  target_compile_options(cuewright_compiler INTERFACE ${sanitizers})
  target_link_options(cuewright_compiler INTERFACE ${sanitizers})
endif()

find_program(CUEWRIGHT_CCACHE ccache)
if(CUEWRIGHT_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      ${CUEWRIGHT_CCACHE})
  add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CUEWRIGHT_CCACHE})
    set_property(DIRECTORY PROPERTY COMPILE_OPTIONS "")
  endif()
endif()

find_program(CUEWRIGHT_MOLD mold)
if(CUEWRIGHT_MOLD AND NOT CUEWRIGHT_FUZZ)
  add_link_options(-fuse-ld=mold)
endif()
