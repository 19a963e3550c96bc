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

bool ProfileLines::Next(ProfileLine& line) {
  while (!rest_.empty()) {
    const std::size_t end = rest_.find_first_of(kLineEnd);
    const TextView text = TrimWhite(rest_.substr(0, end));
    const bool both = end != TextView::npos && rest_.substr(end).starts_with(kLineEnd);
    rest_.remove_prefix(end == TextView::npos ? rest_.size() : end + (both ? 2 : 1));
    ++number_;
    if (text.empty() || text.front() == u';') continue;
    line = {ProfileLine::Kind::Other, number_, {}, text};
    const std::size_t equals = text.find(u'=');
    if (text.front() == u'[') {
      line.kind = ProfileLine::Kind::Section;
      line.name = TrimWhite(text.substr(1, text.find(u']') - 1));
    } else if (equals != TextView::npos) {
      line.kind = ProfileLine::Kind::Value;
      line.name = TrimWhite(text.substr(0, equals));
      line.value = CutQuotes(TrimWhite(text.substr(equals + 1)));
    }
    return true;
  }
  return false;
}

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
  ProfileLines lines(text);
  for (ProfileLine line; lines.Next(line);) {
    if (line.kind == ProfileLine::Kind::Section) {
      section = line.name;
      counts = sections.insert(ToUpper(section)).second;
    } else if (counts && line.kind == ProfileLine::Kind::Value) {
      values_.try_emplace(Name(section, line.name), line.value.substr(0, longest));
    }
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
