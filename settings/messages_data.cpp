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
namespace {

std::string_view Between(const char* begin, const char* end) { return std::string_view(begin, end - begin); }

}  // namespace

std::string_view EnglishMessages() { return Between(cuewright_english_begin, cuewright_english_end); }

std::string_view LanguageTableRows() { return Between(cuewright_table_begin, cuewright_table_end); }

std::string_view TranslationFileRows() {
  return Between(cuewright_translation_file_begin, cuewright_translation_file_end);
}

}  // namespace cuewright
