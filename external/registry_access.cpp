#include "external/registry_access.h"

#include <algorithm>

#include "core/counting.h"
#include "core/runtime_error.h"
#include "external/registry_roots.h"
#include "text/text_search.h"
#include "text/units.h"

namespace cuewright {
namespace {

/// Characters that the buffers of names and data take.
constexpr std::size_t kBuffer = 255;

int HexDigit(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  return c >= u'a' && c <= u'f' ? c - u'a' + 10 : -1;
}

Text Cut(TextView text) { return Text(text.substr(0, kBuffer)); }

}  // namespace

/// A key that is open as long as this lives.
class clsRegistryAccess::OpenKey {
 public:
  OpenKey(clsRegistryAccess& access, TextView KeyName, std::uint32_t rights) : calls_(access.calls_) {
    access.Parse(KeyName);
    open_ = calls_.RegOpenKeyExA(access.root_, access.subPath_, rights, key) == kRegistryOk;
  }
  /// With the rights that the key gives.
  OpenKey(clsRegistryAccess& access, TextView KeyName) : calls_(access.calls_) {
    access.Parse(KeyName);
    open_ = calls_.RegOpenKeyA(access.root_, access.subPath_, key) == kRegistryOk;
  }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;
  ~OpenKey() {
    if (open_) calls_.RegCloseKey(key);
  }
  bool IsOpen() const { return open_; }
  explicit operator bool() const { return open_; }

  std::uint32_t key = 0;

 private:
  RegistryCalls& calls_;
  bool open_ = false;
};

Text StrToBin(TextView binaryText) {
  const Text digits = ReplaceAll(binaryText, u" ", u"");
  Text bytes;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    bytes += LowUnit(HexNumber(TextView(digits).substr(i, 2)));
  }
  return bytes;
}

Text BinToStr(TextView bytes) {
  Text text;
  for (const char16_t c : bytes) {
    text += u' ';
    const int digits = c > 0xFFF ? 4 : c > 0xFF ? 3 : 2;
    for (int i = digits - 1; i >= 0; --i) text += u"0123456789ABCDEF"[(c >> (4 * i)) & 0xF];
  }
  return text;
}

bool isBinValid(TextView text) {
  const Text digits = ReplaceAll(text, u" ", u"");
  return !digits.empty() && std::ranges::all_of(digits, [](char16_t c) { return HexDigit(c) >= 0; });
}

std::int32_t HexNumber(TextView text) {
  std::uint32_t number = 0;
  for (const char16_t c : text) {
    if (c == u' ') continue;
    const int digit = HexDigit(c);
    if (digit < 0) break;
    if (number >> 28 != 0) ThrowOverflow();
    number = number << 4 | digit;
  }
  return number;
}

void clsRegistryAccess::Parse(TextView KeyName) {
  Text path(KeyName);
  for (const RegistryRoot& root : kRegistryRootNames) path = ReplaceLoose(path, root.longForm, root.shortForm);
  const std::size_t backslash = path.find(u'\\');
  const bool whole = backslash == Text::npos;
  root_ = RootHandle(ToUpper(whole ? path : path.substr(0, 4)));
  subPath_ = whole ? Text() : path.substr(backslash + 1);
}

std::int32_t clsRegistryAccess::CreateKey(TextView KeyName) {
  Parse(KeyName);
  std::uint32_t key = 0;
  if (calls_.RegCreateKeyA(root_, subPath_, key) != kRegistryOk) return 0;
  calls_.RegCloseKey(key);
  return key;
}

std::int32_t clsRegistryAccess::KillKey(TextView KeyName) {
  const OpenKey open(*this, KeyName, kRegistryAllAccess);
  if (!open) return 0;
  calls_.RegDeleteKeyA(open.key, {});
  return open.key;
}

bool clsRegistryAccess::KeyExists(TextView KeyName) {
  const OpenKey open(*this, KeyName, kRegistryAllAccess);
  return open.IsOpen();
}

int clsRegistryAccess::EnumKeys(TextView KeyName, std::vector<Text>& names) {
  names.clear();
  const OpenKey open(*this, KeyName);
  if (!open) return -1;
  Text name;
  for (std::uint32_t i = 0; calls_.RegEnumKeyExA(open.key, i, name) == kRegistryOk; ++i) names.push_back(name);
  return CountOf(names);
}

bool clsRegistryAccess::HaveSubkey(TextView KeyName) {
  const OpenKey open(*this, KeyName);
  Text name;
  return open && calls_.RegEnumKeyExA(open.key, 0, name) == kRegistryOk;
}

bool clsRegistryAccess::Write(TextView KeyName, TextView name, std::uint32_t type, TextView data) {
  if (!KeyExists(KeyName)) {
    if (!CreateKeyIfDoesntExists) return false;
    CreateKey(KeyName);
  }
  const OpenKey open(*this, KeyName, kRegistryWrite);
  return open && calls_.RegSetValueExA(open.key, name, type, data) == kRegistryOk;
}

bool clsRegistryAccess::Query(TextView KeyName, TextView name, Text& data) {
  const OpenKey open(*this, KeyName, kRegistryRead);
  std::uint32_t type = 0;
  return open && calls_.RegQueryValueExA(open.key, name, type, data) == kRegistryOk;
}

bool clsRegistryAccess::WriteString(TextView KeyName, TextView ValueName, TextView Value) {
  return Write(KeyName, ValueName == u"@" ? TextView() : ValueName, kRegistryString, Value);
}

Text clsRegistryAccess::ReadString(TextView KeyName, TextView ValueName, TextView Default) {
  Text data;
  // A buffer that is too small gets nothing, not a part of the data.
  if (!Query(KeyName, ValueName, data) || data.size() > kBuffer) return Text(Default);
  const TextView text = TrimBlanks(data);
  return Text(text.substr(0, text.empty() ? 0 : text.size() - 1));
}

bool clsRegistryAccess::WriteDWORD(TextView KeyName, TextView ValueName, std::int32_t Value) {
  Text bytes;
  const std::uint32_t bits = Value;
  for (unsigned shift = 0; shift < 32; shift += 8) bytes += bits >> shift & 0xFF;
  return Write(KeyName, ValueName, kRegistryDword, bytes);
}

std::int32_t clsRegistryAccess::ReadDWORD(TextView KeyName, TextView ValueName, std::int32_t Default) {
  Text data;
  if (!Query(KeyName, ValueName, data) || data.size() > 4) return Default;
  std::uint32_t bits = 0;
  for (std::size_t i = 0; i < data.size(); ++i) bits |= (data[i] & 0xFFU) << (8 * i);
  return bits;
}

bool clsRegistryAccess::WriteBinary(TextView KeyName, TextView ValueName, TextView Value) {
  return Write(KeyName, ValueName, kRegistryBinary, StrToBin(Value));
}

Text clsRegistryAccess::ReadBinary(TextView KeyName, TextView ValueName, TextView Default) {
  Text data;
  return Query(KeyName, ValueName, data) ? Text(TrimBlanks(BinToStr(data))) : Text(Default);
}

bool clsRegistryAccess::KillValue(TextView KeyName, TextView ValueName) {
  const OpenKey open(*this, KeyName, kRegistryWrite);
  return open && calls_.RegDeleteValueA(open.key, ValueName) == kRegistryOk;
}

bool clsRegistryAccess::ValueExists(TextView KeyName, TextView ValueName) {
  Text data;
  return Query(KeyName, ValueName, data);
}

int clsRegistryAccess::EnumValues(TextView KeyName, std::vector<Text>& names, std::vector<RegistryData>& values,
                                  int type) {
  names.clear();
  values.clear();
  const OpenKey open(*this, KeyName);
  if (!open) return -1;
  const std::uint32_t wanted = type;
  RegistryValue value;
  for (std::uint32_t i = 0; calls_.RegEnumValueA(open.key, i, value) == kRegistryOk; ++i) {
    if (type != -1 && value.type != wanted) continue;
    const Text name(TrimBlanks(Cut(value.name)));
    RegistryData data;
    if (value.type == kRegistryBinary) data = Text(TrimBlanks(BinToStr(Cut(value.data))));
    if (value.type == kRegistryDword) data = ReadDWORD(KeyName, name);
    if (value.type == kRegistryString) data = ReadString(KeyName, name);
    names.push_back(name);
    values.push_back(std::move(data));
  }
  return CountOf(names);
}

}  // namespace cuewright
