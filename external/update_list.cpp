#include "external/update_list.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "core/numbers.h"
#include "text/profile.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr TextView kPage = u"/files/updates.php?idprod=qxm&version=";
constexpr TextView kSection = u"CUEWRITE";
constexpr TextView kLog = u"<log>";
constexpr TextView kLogEnd = u"</log>";
constexpr std::size_t kLongestValue = 255;
constexpr double kLastWhole = 1e15;  // from here on a number is written with a power of ten

/// A number as text, of at most 15 digits.
Text NumberText(double number) {
  if (std::abs(number) < kLastWhole && number == std::floor(number)) return Decimal(std::llround(number));
  std::array<char, 32> digits{};
  const int length = std::snprintf(digits.data(), digits.size(), "%.15G", number);
  return FromUtf8(std::string_view(digits.data(), length));
}

/// Takes the next line, which ends at CR or CR LF.
TextView TakeLine(TextView& text) {
  const std::size_t end = text.find(u'\r');
  const TextView line = text.substr(0, end);
  text.remove_prefix(end == TextView::npos ? text.size() : end + 1);
  if (text.starts_with(u'\n')) text.remove_prefix(1);
  return line;
}

std::int16_t Number16(TextView text) { return Checked16(RoundToInt32(LeadingNumber(text))).Value(); }

}  // namespace

Text UpdateListUrl(TextView site, const Version& version) {
  while (site.ends_with(u'/')) site.remove_suffix(1);
  return Text(site) + Text(kPage) + Decimal(version.major) + Decimal(version.minor) + Decimal(version.revision);
}

Text LocalVersionNumber(const Version& version) {
  const Checked16 major(version.major);
  const Checked16 minor(version.minor);
  return Decimal((major * Checked16(100) + minor * Checked16(10) + Checked16(version.revision)).Value());
}

Text RemoteVersionNumber(TextView versionText) { return NumberText(LeadingNumber(ReplaceAll(versionText, u".", {}))); }

std::optional<Day> DayOf(TextView year, TextView month, TextView day) {
  using std::chrono::days;
  using std::chrono::sys_days;
  int fullYear = Number16(year);
  const int wholeMonth = Number16(month);
  const int wholeDay = Number16(day);
  if (fullYear <= 0 || wholeMonth <= 0 || wholeDay <= 0) return std::nullopt;
  if (fullYear < 100) fullYear += fullYear < 30 ? 2000 : 1900;
  const auto first = std::chrono::year(fullYear) / std::chrono::January / 1 + std::chrono::months(wholeMonth - 1);
  const std::chrono::year_month_day date = sys_days(first) + days(wholeDay - 1);
  if (date.year() > std::chrono::year(9999)) ThrowInvalidCall();
  const int yearOfDate(date.year());
  const unsigned monthOfYear(date.month());
  const unsigned dayOfMonth(date.day());
  Day result;
  result.year = yearOfDate;
  result.month = monthOfYear;
  result.day = dayOfMonth;
  return result;
}

void NormalizeUpdateFile(Files& files, TextView path) {
  const std::string bytes = files.Read(path, kLongestUpdateList);
  std::string lines;
  lines.reserve(bytes.size() + bytes.size() / 16);
  for (const char byte : bytes) {
    if (byte == '\n') lines += '\r';
    lines += byte;
  }
  lines += "\r\n";
  files.WritePrivate(path, lines);
}

Text UpdateListText(std::string_view bytes, const Encodings& encodings) {
  const std::string_view mark = MarkOf(kCodePageUtf8);
  if (bytes.starts_with(mark)) bytes.remove_prefix(mark.size());
  return encodings.BytesToText(bytes, ExamineUtf8(bytes) == Utf8Kind::MultiByte ? kCodePageUtf8 : kSystemCodePage);
}

Text GetUpdateValue(TextView list, TextView key) {
  return Profile(list, kLongestValue).Read(kSection, key, kNoUpdateValue);
}

std::optional<std::vector<Text>> ChangesOf(TextView list) {
  std::optional<std::vector<Text>> changes;
  while (!list.empty()) {
    const TextView line = TakeLine(list);
    if (line == kLogEnd) break;
    if (changes) {
      changes->emplace_back(line);
    } else if (line == kLog) {
      changes.emplace();
    }
  }
  return changes;
}

}  // namespace cuewright
