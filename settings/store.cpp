#include "settings/store.h"

#include <algorithm>

#include "core/paths.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

constexpr TextView kRoot = u"Brakemoor Works";
constexpr std::uint64_t kSizeLimit = 16u << 20;

Text Escape(TextView text, bool key) {
  Text result;
  for (const char16_t c : text) {
    if (c == u'\\') {
      result += u"\\\\";
    } else if (c == u'\n') {
      result += u"\\n";
    } else if (c == u'\r') {
      result += u"\\r";
    } else if (key && c == u'=') {
      result += u"\\e";
    } else {
      result += c;
    }
  }
  return result;
}

Text Unescape(TextView text) {
  Text result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'\\' || i + 1 == text.size()) {
      result += text[i];
      continue;
    }
    const char16_t next = text[++i];
    result += next == u'n' ? u'\n' : next == u'r' ? u'\r' : next == u'e' ? u'=' : next;
  }
  return result;
}

}  // namespace

SettingsStore::SettingsStore(Files& files, Text path) : files_(files), path_(std::move(path)) {
  if (auto lines = ReadFile()) lines_ = std::move(*lines);
}

std::optional<std::vector<SettingsStore::Line>> SettingsStore::ReadFile() {
  std::vector<Line> lines;
  if (path_.empty() || !files_.Exists(path_)) return lines;
  CarryOn read;
  Text content;
  if (!read([&] { content = FromUtf8(files_.Read(path_, kSizeLimit)); })) {
    lastFailure_ = read.Last()->description;
    return {};
  }
  if (content.empty()) return lines;
  if (content.ends_with(u'\n')) content.pop_back();
  const Text prefix = Text(kRoot) + u"\\";
  Text section;
  for (const Text& raw : Split(content, u"\n")) {
    Line line;
    const std::size_t equals = raw.find(u'=');
    if (raw.starts_with(u'[') && raw.ends_with(u']')) {
      section = raw.substr(1, raw.size() - 2);
      section = section.starts_with(prefix) ? section.substr(prefix.size()) : u"\n" + section;
      line.heading = true;
      line.value = raw;
    } else if (equals != Text::npos && equals != 0 && !section.empty()) {
      line.key = Unescape(TextView(raw).substr(0, equals));
      line.value = Unescape(TextView(raw).substr(equals + 1));
    } else {
      line.value = raw;
    }
    line.section = section;
    lines.push_back(std::move(line));
  }
  return lines;
}

Text SettingsStore::GetSetting(TextView section, TextView key, TextView fallback) const {
  const auto at = std::find_if(lines_.begin(), lines_.end(), [&](const Line& line) {
    return !line.key.empty() && EqualLoose(line.key, key) && EqualLoose(line.section, section);
  });
  return at == lines_.end() ? Text(fallback) : at->value;
}

void SettingsStore::Put(std::vector<Line>& lines, TextView section, TextView key, TextView value) {
  std::size_t behind = lines.size();
  bool known = false;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!EqualLoose(lines[i].section, section)) continue;
    known = true;
    behind = i + 1;
    if (!lines[i].key.empty() && EqualLoose(lines[i].key, key)) {
      lines[i].value = value;
      return;
    }
  }
  std::vector<Line> added;
  if (!known) added.push_back({Text(section), {}, u"[" + Text(kRoot) + u"\\" + Text(section) + u"]", true});
  added.push_back({Text(section), Text(key), Text(value), false});
  lines.insert(lines.begin() + behind, added.begin(), added.end());
}

void SettingsStore::SaveSetting(TextView section, TextView key, TextView value) {
  SaveSettings(section, {{Text(key), Text(value)}});
}

void SettingsStore::SaveSettings(TextView section, const std::vector<KeyValue>& values) {
  for (const auto& [key, value] : values) {
    Put(lines_, section, key, value);
    unwritten_.push_back({{Text(section), key}, value});
  }
  if (batches_ == 0) WriteChanges();
}

void SettingsStore::WriteChanges() {
  if (path_.empty()) return;
  // What stands in the file now, with this run's own changes on top.
  std::optional<std::vector<Line>> current = ReadFile();
  if (!current) return;
  for (const auto& [place, value] : unwritten_) Put(*current, place.first, place.second, value);
  Write(*current);
}

void SettingsStore::Write(const std::vector<Line>& lines) {
  std::string bytes;
  for (const Line& line : lines) {
    bytes += ToUtf8(line.key.empty() ? line.value : Escape(line.key, true) + u"=" + Escape(line.value, false)) + "\n";
  }
  CarryOn write;
  if (write([&] {
        Text folder = FolderOfPath(path_);
        if (folder.size() > 1) folder.pop_back();
        files_.MakePrivateFolder(folder);
        files_.Replace(path_, [&](ByteSink& sink) { sink.Write(bytes); });
      })) {
    unwritten_.clear();
    lastFailure_.clear();
  } else {
    lastFailure_ = write.Last()->description;
  }
}

}  // namespace cuewright
