#pragma once

#include <string_view>

namespace cuewright {

/// The bytes of resources/messages/english.txt, table.txt and translation_file.txt, carried in the program.
std::string_view EnglishMessages();
std::string_view LanguageTableRows();
std::string_view TranslationFileRows();

}  // namespace cuewright
