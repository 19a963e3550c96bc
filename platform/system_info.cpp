#include "platform/system_info.h"

#include <charconv>
#include <concepts>
#include <fstream>
#include <string_view>

#include "core/counting.h"

namespace cuewright {
namespace {

constexpr std::uint64_t kKilobyte = 1024;
/// A limit well above the number of lines of any of these files, whose content is not under our control.
constexpr int kMostLines = 1000;

/// A value as the shell would read it: without its quotes, and without the backslashes in front of characters.
std::string Unquoted(std::string_view value) {
  if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front()) {
    value = value.substr(1, value.size() - 2);
  }
  std::string plain;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] == '\\' && i + 1 < value.size()) ++i;
    plain += value[i];
  }
  return plain;
}

/// The rest of the first line that begins with `key`; empty when no line does.
std::string ValueIn(const std::string& file, std::string_view key) {
  std::ifstream lines(file);
  std::string line;
  for (int i = 0; i < kMostLines && std::getline(lines, line); ++i) {
    if (line.starts_with(key)) return line.substr(key.size());
  }
  return {};
}

/// The whole number that a text begins with, behind blanks; `text` is moved behind it.
template <std::integral Number>
Number TakeNumber(std::string_view& text) {
  while (text.starts_with(' ') || text.starts_with('\t')) text.remove_prefix(1);
  Number number = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), number).ptr;
  text.remove_prefix(SizeOf(end - text.data()));
  return number;
}

}  // namespace

std::optional<SystemInfo::Name> LinuxSystemInfo::SystemName() const {
  std::string pretty;
  for (const char* file : {"/etc/os-release", "/usr/lib/os-release"}) {
    pretty = Unquoted(ValueIn(root_ + file, "PRETTY_NAME="));
    if (!pretty.empty()) break;
  }
  const std::string kernel = ValueIn(root_ + "/proc/sys/kernel/osrelease", "");
  if (kernel.empty()) return std::nullopt;
  Name name;
  name.name = pretty.empty() ? Text(u"Linux") : FromUtf8(pretty);
  std::string_view rest = kernel;
  name.major = TakeNumber<int>(rest);
  if (rest.starts_with('.')) rest.remove_prefix(1);
  name.minor = TakeNumber<int>(rest);
  return name;
}

std::uint64_t LinuxSystemInfo::AvailableMemory() const {
  const std::string value = ValueIn(root_ + "/proc/meminfo", "MemAvailable:");
  std::string_view rest = value;
  return TakeNumber<std::uint64_t>(rest) * kKilobyte;
}

}  // namespace cuewright
