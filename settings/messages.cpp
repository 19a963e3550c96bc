#include "settings/messages.h"

#include <charconv>

#include "settings/messages_data.h"
#include "text/units.h"

namespace cuewright {
namespace {

Text Unescape(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 1 < text.size() && (text[i + 1] == 'n' || text[i + 1] == '\\')) {
      plain += text[++i] == 'n' ? '\n' : '\\';
    } else {
      plain += text[i];
    }
  }
  return FromUtf8(plain);
}

/// Calls `take(number, text)` for each row of data.
template <class Take>
void ForEachRow(std::string_view data, Take&& take) {
  while (!data.empty()) {
    const std::size_t end = data.find('\n');
    std::string_view line = data.substr(0, end);
    data = end == std::string_view::npos ? std::string_view() : data.substr(end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    const std::size_t tab = line.find('\t');
    const std::string_view digits = line.substr(0, tab);
    int id = 0;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), id);
    if (error != std::errc() || stop != digits.data() + digits.size() || id < 0) continue;
    take(id, tab == std::string_view::npos ? Text() : Unescape(line.substr(tab + 1)));
  }
}

/// False for a text with control characters other than the line break, or with bytes that were no UTF-8.
bool IsReadable(TextView text) {
  char16_t before = 0;
  for (const char16_t unit : text) {
    if ((unit < 0x20 && unit != u'\n') || IsTrail(unit) != IsLead(before)) return false;
    before = unit;
  }
  return true;
}

}  // namespace

MessageCatalogue::MessageCatalogue() {
  ForEachRow(EnglishMessages(), [&](int id, Text text) { rows_[CatalogueNumber(0, id)] = std::move(text); });
  Add(LanguageTableRows(), 0);
  Add(TranslationFileRows(), 0);
}

void MessageCatalogue::Add(std::string_view data, int base) {
  ForEachRow(data, [&](int id, Text text) { rows_[base + id] = std::move(text); });
}

void MessageCatalogue::AddBlock(std::string_view data, int language) {
  ForEachRow(data, [&](int id, Text text) {
    if (!IsTextNumber(id) || !IsReadable(text)) return;
    const Text* english = Find(CatalogueNumber(0, id));
    if (text.empty() && english != nullptr && !english->empty()) return;
    rows_[CatalogueNumber(language, id)] = std::move(text);
  });
}

const Text* MessageCatalogue::Find(int id) const {
  const auto at = rows_.find(id);
  return at == rows_.end() ? nullptr : &at->second;
}

void LoadEnglish(const MessageCatalogue& catalogue, LangStrings& strings) {
  constexpr int kEnd = kEndOfTexts;
  for (int id = 0; id < kEnd; ++id) {
    if (!IsTextNumber(id)) continue;
    const Text* row = catalogue.Find(CatalogueNumber(0, id));
    strings.Set(NumberedMessage(id), row == nullptr ? Text() : *row);
  }
}

}  // namespace cuewright
