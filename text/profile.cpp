#include "text/profile.h"

#include <unordered_set>

namespace cuewright {
namespace {

TextView TrimWhite(TextView text) {
  const auto isWhite = [](char16_t c) { return c == u' ' || c == u'\t'; };
  while (!text.empty() && isWhite(text.front())) text.remove_prefix(1);
  while (!text.empty() && isWhite(text.back())) text.remove_suffix(1);
  return text;
}

TextView CutQuotes(TextView value) {
  const bool quoted =
      value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') && value.front() == value.back();
  return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

Text Profile::Name(TextView section, TextView key) {
  Text name = ToUpper(section);
  name += u'\n';
  name += ToUpper(key);
  return name;
}

Profile::Profile(TextView text, std::size_t longest) {
  std::unordered_set<Text> sections;
  Text section;
  bool counts = false;
  while (!text.empty()) {
    const std::size_t end = text.find_first_of(kLineEnd);
    const TextView line = TrimWhite(text.substr(0, end));
    text.remove_prefix(end == TextView::npos ? text.size() : end + 1);
    if (line.empty() || line.front() == u';') continue;
    if (line.front() == u'[') {
      section = TrimWhite(line.substr(1, line.find(u']') - 1));
      counts = sections.insert(ToUpper(section)).second;
      continue;
    }
    const std::size_t equals = line.find(u'=');
    if (!counts || equals == TextView::npos) continue;
    const TextView value = CutQuotes(TrimWhite(line.substr(equals + 1)));
    values_.try_emplace(Name(section, TrimWhite(line.substr(0, equals))), value.substr(0, longest));
  }
}

const Text* Profile::Find(TextView section, TextView key) const {
  const auto hit = values_.find(Name(section, key));
  return hit == values_.end() ? nullptr : &hit->second;
}

Text Profile::Read(TextView section, TextView key, TextView fallback) const {
  const Text* value = Find(section, key);
  return value != nullptr ? *value : Text(fallback);
}

}  // namespace cuewright
