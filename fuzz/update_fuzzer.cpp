// Any bytes as the reply of the update site: made readable, and all of it read.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/runtime_error.h"
#include "external/update_list.h"
#include "fuzz/engine.h"

namespace {

using namespace cuewright;
using namespace cuewright::fuzz;

constexpr const char16_t* kFile = u"/run/qxmupd.tmp";

void CheckDay(const Text& list) {
  CarryOn step;
  step([&] {
    const auto day = DayOf(GetUpdateValue(list, u"year"), GetUpdateValue(list, u"month"), GetUpdateValue(list, u"day"));
    if (!day) return;
    Demand(day->year >= 1 && day->year <= 9999, "a year of the calendar");
    Demand(day->month >= 1 && day->month <= 12, "a month of the calendar");
    Demand(day->day >= 1 && day->day <= 31, "a day of the calendar");
    Demand(DayOf(Decimal(day->year < 100 ? 2000 : day->year), Decimal(day->month), Decimal(day->day)).has_value(),
           "a day is a day");
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  MemoryFiles files;
  files.contents[kFile] = std::string(bytes);
  NormalizeUpdateFile(files, kFile);
  const std::string& lines = files.contents[kFile];
  Demand(lines.ends_with("\r\n"), "a line end comes behind it all");
  for (std::size_t i = 0; i < lines.size(); ++i) Demand(lines[i] != '\n' || lines[i - 1] == '\r', "no LF stands alone");
  const Encodings encodings;
  const Text list = UpdateListText(lines, encodings);
  const Text version = GetUpdateValue(list, u"version");
  Demand(version.size() <= 255, "a value has an end");
  const Text number = RemoteVersionNumber(version);
  Demand(number == u"0" || number.starts_with(u"0.") || !number.starts_with(u'0'), "a number as a number is written");
  CheckDay(list);
  if (const auto changes = ChangesOf(list)) {
    for (const Text& line : *changes) {
      Demand(line.find(u'\r') == Text::npos, "a line is one line");
      Demand(line != u"</log>", "the log ends at its end");
    }
  }
  return 0;
}
