# Headers of the library that nearly every source needs, read once for all targets that are compiled in the same way.
set(cuewright_common_headers
  <algorithm> <array> <charconv> <cmath> <functional> <map> <memory> <optional> <string> <string_view> <utility> <vector>)

# A target of no use of its own: others take the headers that it has read.
function(cuewright_read_headers target)
  cmake_parse_arguments(arg "" "" "HEADERS;DEPENDS" ${ARGN})
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/${target}.cpp CONTENT "")
  add_library(${target} STATIC ${CMAKE_BINARY_DIR}/${target}.cpp)
  target_link_libraries(${target} PRIVATE ${arg_DEPENDS} cuewright_compiler)
  target_precompile_headers(${target} PRIVATE ${arg_HEADERS})
endfunction()
cuewright_read_headers(cuewright_headers HEADERS ${cuewright_common_headers})

# One target a folder. A target links, and so sees, only what its floor allows.
function(cuewright_module folder)
  cmake_parse_arguments(arg "" "" "DEPENDS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(sources)
    add_library(cuewright_${folder} STATIC ${sources})
    target_include_directories(cuewright_${folder} PUBLIC ${CMAKE_SOURCE_DIR})
    target_link_libraries(cuewright_${folder} PUBLIC ${arg_DEPENDS} PRIVATE cuewright_compiler)
    target_precompile_headers(cuewright_${folder} REUSE_FROM cuewright_headers)
    if(CUEWRIGHT_SANITIZE)
      target_link_libraries(cuewright_${folder} PUBLIC cuewright_compiler)
    endif()
  else()
    add_library(cuewright_${folder} INTERFACE)
    target_include_directories(cuewright_${folder} INTERFACE ${CMAKE_SOURCE_DIR})
    target_link_libraries(cuewright_${folder} INTERFACE ${arg_DEPENDS})
  endif()
endfunction()

set(cuewright_test_headers <gtest/gtest.h> <gmock/gmock.h> ${cuewright_common_headers})

# One test program a folder: every *_test.cpp of the folder, named test_FOLDER.
function(cuewright_tests folder)
  cmake_parse_arguments(arg "" "TIMEOUT" "DEPENDS;HEADERS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(test_${folder} ${sources})
  # Lines for a backtrace; more makes the tests' compilation a sixth longer.
  target_compile_options(test_${folder} PRIVATE $<$<CONFIG:Debug>:-g1>)
  target_link_libraries(test_${folder} PRIVATE ${arg_DEPENDS} cuewright_test_support
                        GTest::gmock GTest::gtest_main cuewright_compiler)
  if(arg_HEADERS)
    target_precompile_headers(test_${folder} PRIVATE ${cuewright_test_headers} ${arg_HEADERS})
  else()
    target_precompile_headers(test_${folder} REUSE_FROM cuewright_headers_of_tests)
  endif()
  add_test(NAME ${folder} COMMAND test_${folder} --gtest_brief=1)
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 600)
  endif()
  set_tests_properties(${folder} PROPERTIES TIMEOUT ${arg_TIMEOUT})
endfunction()
