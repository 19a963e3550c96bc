#include "settings/messages_data.h"

// The assembler takes the files in as they are; the build names their folder.
#define CUEWRIGHT_EMBED(symbol, file)                                                    \
  asm(".section .rodata\n" #symbol                                                       \
      "_begin:\n"                                                                        \
      ".incbin \"" CUEWRIGHT_MESSAGES_DIR "/" file "\"\n" #symbol "_end:\n.previous\n"); \
  extern "C" const char symbol##_begin[];                                                \
  extern "C" const char symbol##_end[]

CUEWRIGHT_EMBED(cuewright_english, "english.txt");
CUEWRIGHT_EMBED(cuewright_table, "table.txt");
CUEWRIGHT_EMBED(cuewright_translation_file, "translation_file.txt");

namespace cuewright {

std::string_view EnglishMessages() {
  return {cuewright_english_begin, static_cast<std::size_t>(cuewright_english_end - cuewright_english_begin)};
}

std::string_view LanguageTableRows() {
  return {cuewright_table_begin, static_cast<std::size_t>(cuewright_table_end - cuewright_table_begin)};
}

std::string_view TranslationFileRows() {
  return {cuewright_translation_file_begin,
          static_cast<std::size_t>(cuewright_translation_file_end - cuewright_translation_file_begin)};
}

}  // namespace cuewright
