# Writes core/message.h into the build folder: a name for each text of resources/messages/english.txt, from
# resources/messages/identifiers.txt. A test holds that the two files have the same numbers.
set(identifiers ${CMAKE_CURRENT_SOURCE_DIR}/resources/messages/identifiers.txt)
set(CUEWRIGHT_GENERATED_DIR ${CMAKE_BINARY_DIR}/generated)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${identifiers})

file(STRINGS ${identifiers} rows)
set(names)
foreach(row IN LISTS rows)
  if(NOT row MATCHES "^([0-9]+)\t([A-Z][A-Za-z0-9]*)$")
    message(FATAL_ERROR "${identifiers}: not a number, a tab and an identifier: ${row}")
  endif()
  string(APPEND names "  ${CMAKE_MATCH_2} = ${CMAKE_MATCH_1},\n")
endforeach()
file(CONFIGURE OUTPUT ${CUEWRIGHT_GENERATED_DIR}/core/message.h @ONLY CONTENT [[
// Made from resources/messages/identifiers.txt by cmake/messages.cmake.
#pragma once

#include <cstdint>

namespace cuewright {

/// The texts that are translated. The value is the number of the row in resources/messages/english.txt.
enum class Message : std::uint16_t {
@names@};

}  // namespace cuewright
]])
