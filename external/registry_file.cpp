#include "external/registry_file.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "text/units.h"

namespace cuewright {
namespace {

// The file is lines in UTF-8: the mark, then each key as "[HKCU\Name]", a line "!" when it is read-only, and its values
// as "name=type:data"; at the end "end" and a checksum of all before. Strings stand as text, other data as hexadecimal
// pairs; "%" and four digits stand for a character that would not survive.
constexpr std::string_view kMark = "cuewright registry 1\n";
constexpr std::string_view kEnd = "end ";
constexpr std::size_t kEndLength = 4 + 16 + 1;

std::string Hex(std::uint64_t number, int digits) {
  std::string text;
  for (int i = digits - 1; i >= 0; --i) text += "0123456789ABCDEF"[(number >> (4 * i)) & 0xF];
  return text;
}

int Digit(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  return c >= u'A' && c <= u'F' ? c - u'A' + 10 : -1;
}

/// The number of exactly `count` upper-case digits at `at`; -1 when they aren't there.
int HexAt(TextView text, std::size_t at, std::size_t count) {
  if (at + count > text.size()) return -1;
  int number = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const int digit = Digit(text[at + i]);
    if (digit < 0) return -1;
    number = number * 16 + digit;
  }
  return number;
}

/// FNV-1a: a single wrong byte always changes it.
std::uint64_t Checksum(std::string_view bytes) {
  std::uint64_t sum = 0xCBF29CE484222325U;
  for (const char byte : bytes) sum = (sum ^ ByteOf(byte)) * 0x100000001B3U;
  return sum;
}

std::string Escaped(TextView text) {
  Text safe;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    if (IsLead(c) && i + 1 < text.size() && IsTrail(text[i + 1])) {
      safe += c;
      safe += text[++i];
    } else if (c < u' ' || c == u'%' || c == u'=' || IsLead(c) || IsTrail(c)) {
      const std::string digits = Hex(c, 4);
      safe += u'%';
      safe.append(digits.begin(), digits.end());
    } else {
      safe += c;
    }
  }
  return ToUtf8(safe);
}

std::optional<Text> Unescaped(TextView text) {
  Text result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'%') {
      result += text[i];
      continue;
    }
    const int unit = HexAt(text, i + 1, 4);
    if (unit < 0) return std::nullopt;
    result += LowUnit(unit);
    i += 4;
  }
  return result;
}

std::string DataBytes(const RegistryValue& value) {
  if (value.type == kRegistryString) return Escaped(TextView(value.data).substr(0, value.data.size() - 1));
  std::string bytes;
  for (const char16_t c : value.data) bytes += Hex(c & 0xFFU, 2);
  return bytes;
}

std::optional<Text> ReadData(std::uint32_t type, TextView text) {
  if (type == kRegistryString) {
    std::optional<Text> data = Unescaped(text);
    if (data) data->push_back(u'\0');
    return data;
  }
  if (text.size() % 2 != 0) return std::nullopt;
  Text data;
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const int byte = HexAt(text, i, 2);
    if (byte < 0) return std::nullopt;
    data += LowUnit(byte);
  }
  return data;
}

bool ReadValue(TextView line, RegistryKey& key) {
  const std::size_t equals = line.find(u'=');
  if (equals == TextView::npos || equals + 10 > line.size() || line[equals + 9] != u':') return false;
  const int high = HexAt(line, equals + 1, 4);
  const int low = HexAt(line, equals + 5, 4);
  const std::optional<Text> name = Unescaped(line.substr(0, equals));
  if (high < 0 || low < 0 || !name) return false;
  const std::uint32_t type = std::uint32_t{0x10000} * high + low;
  const std::optional<Text> data = ReadData(type, line.substr(equals + 10));
  if (!data) return false;
  key.values.push_back({*name, type, *data});
  return true;
}

bool ReadLine(TextView line, RegistryTree& tree, RegistryKey*& key) {
  if (line.starts_with(u'[') && line.ends_with(u']')) {
    const std::optional<Text> path = Unescaped(line.substr(1, line.size() - 2));
    if (!path) return false;
    const Text place = RegistryPlace(*path);
    const std::size_t last = place.rfind(u'\0');
    if (!tree.contains(last == Text::npos ? place : place.substr(0, last))) return false;
    key = &tree[place];
    key->path = *path;
    return true;
  }
  if (key == nullptr) return false;
  if (line != u"!") return ReadValue(line, *key);
  key->readOnly = true;
  return true;
}

}  // namespace

Text RegistryPlace(TextView path) {
  Text place = ToUpper(path);
  std::replace(place.begin(), place.end(), u'\\', u'\0');
  return place;
}

const std::vector<Text>& RegistryRoots() {
  static const std::vector<Text> roots = {u"HKCR", u"HKCU", u"HKLM", u"HKUS", u"HKPD", u"HKCC", u"HKDD"};
  return roots;
}

RegistryTree EmptyRegistry() {
  RegistryTree tree;
  for (const Text& root : RegistryRoots()) tree[root].path = root;
  return tree;
}

std::string RegistryBytes(const RegistryTree& tree) {
  std::string bytes(kMark);
  for (const auto& [place, key] : tree) {
    bytes += "[" + Escaped(key.path) + "]\n";
    if (key.readOnly) bytes += "!\n";
    for (const RegistryValue& value : key.values) {
      // A name that begins with a bracket must not look like a key.
      std::string name = Escaped(value.name);
      if (name.starts_with('[')) name.replace(0, 1, "%005B");
      bytes += name + "=" + Hex(value.type, 8) + ":" + DataBytes(value) + "\n";
    }
  }
  const std::string sum = Hex(Checksum(bytes), 16);
  return bytes.append(kEnd).append(sum).append("\n");
}

std::optional<RegistryTree> ReadRegistry(std::string_view bytes, Text& why) {
  if (!bytes.starts_with(kMark)) {
    why = u"it does not begin as a registry file does";
    return std::nullopt;
  }
  const std::size_t body = bytes.size() < kMark.size() + kEndLength ? 0 : bytes.size() - kEndLength;
  if (body == 0 || bytes.substr(body, kEnd.size()) != kEnd || !bytes.ends_with('\n')) {
    why = u"its end is missing";
    return std::nullopt;
  }
  if (bytes.substr(body + kEnd.size(), 16) != Hex(Checksum(bytes.substr(0, body)), 16)) {
    why = u"its checksum is wrong";
    return std::nullopt;
  }
  RegistryTree tree = EmptyRegistry();
  RegistryKey* key = nullptr;
  const Text text = FromUtf8(bytes.substr(kMark.size(), body - kMark.size()));
  const std::vector<Text> lines = Split(text, u"\n");
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
    if (ReadLine(lines[i], tree, key)) continue;
    why = u"its line " + Decimal(i + 2) + u" can't be read";
    return std::nullopt;
  }
  return tree;
}

}  // namespace cuewright
