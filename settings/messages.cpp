#include "settings/messages.h"

#include <cstdlib>

#include "settings/messages_data.h"

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

}  // namespace

MessageCatalogue::MessageCatalogue() {
  Add(EnglishMessages(), 0);
  Add(LanguageTableRows(), 0);
}

void MessageCatalogue::Add(std::string_view data, int base) {
  while (!data.empty()) {
    const std::size_t end = data.find('\n');
    std::string_view line = data.substr(0, end);
    data = end == std::string_view::npos ? std::string_view() : data.substr(end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.empty() || line[0] < '0' || line[0] > '9') continue;
    const std::size_t tab = line.find('\t');
    const int id = std::atoi(std::string(line.substr(0, tab)).c_str());
    rows_[base + id] = tab == std::string_view::npos ? Text() : Unescape(line.substr(tab + 1));
  }
}

const Text* MessageCatalogue::Find(int id) const {
  const auto at = rows_.find(id);
  return at == rows_.end() ? nullptr : &at->second;
}

void LoadEnglish(const MessageCatalogue& catalogue, LangStrings& strings) {
  for (std::size_t id = 0; id < kMessageCount; ++id) {
    const Text* row = catalogue.Find(static_cast<int>(id));
    strings.Set(id, row == nullptr ? Text() : *row);
  }
}

}  // namespace cuewright
