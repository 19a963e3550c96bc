#pragma once

#include <string_view>

namespace cuewright {

/// The bytes of resources/messages/english.txt and table.txt, carried in the program.
std::string_view EnglishMessages();
std::string_view LanguageTableRows();

}  // namespace cuewright
