#include "formats/source/source_import.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/counting.h"
#include "formats/caption_collector.h"
#include "text/text_search.h"

namespace cuewright {
namespace {

/// Puts what is read into the map.
class MapSink final : public SourceSink {
 public:
  MapSink(SourceMap& map, const FormatTalk& talk, const bool& cancelled)
      : map_(map), talk_(talk), cancelled_(cancelled) {}

  bool Add(Ms start, Ms end, Text text, const SourceRecord& record) override {
    if (CountOf(rows) % kCaptionsBetweenPauses == 0 && StopsHere()) {
      stoppedAt = record.whole.at;
      return false;
    }
    if (gathered_ + text.size() > CaptionCollector::kMostText) {
      full = true;
      stoppedAt = record.whole.at;
      return false;
    }
    if (IsBlank(text)) return true;
    gathered_ += text.size();
    rows.push_back({start, end, std::move(text), 0});
    rows.back().origin = map_.Add(record, rows.back());
    return true;
  }

  void NotUnderstood(std::size_t place) override { map_.AddNotUnderstood(place); }

  std::vector<Caption> rows;
  std::optional<std::size_t> stoppedAt;
  bool tooMany = false;
  bool full = false;

 private:
  bool StopsHere() {
    talk_.Report(FileStage::Pauses);
    tooMany = CountOf(rows) > kMostCaptionsOfLoad;
    return cancelled_ || tooMany;
  }

  SourceMap& map_;
  const FormatTalk& talk_;
  const bool& cancelled_;
  std::size_t gathered_ = 0;
};

/// The bytes of a text without what old programs and broken disks leave behind its end; that stays in the file.
std::string_view WithoutEndMark(const SourceMap& map) {
  constexpr std::string_view kMarks("\x1A\0", 2);
  const std::string_view bytes = map.Bytes();
  if (map.Rules().BlockBytes() != 0) return bytes;
  return bytes.substr(0, bytes.find_last_not_of(kMarks) + 1);
}

}  // namespace

std::vector<Caption> SourceImport::Read(SourceMap& map, TextView separator, CarryOn& errors) {
  MapSink sink(map, talk_, cancelled_);
  const std::size_t guess = map.Bytes().size() / 32 + 16;
  sink.rows.reserve(std::min<std::size_t>(guess, kMostCaptionsOfLoad + kCaptionsBetweenPauses + 2));
  const SourceText text{WithoutEndMark(map), map.File()};
  errors([&] { map.Rules().Read(text, separator, sink); });
  troubleLine_ = sink.stoppedAt ? map.LineOf(*sink.stoppedAt) : 0;
  if (sink.full) errors.Note({kErrorOutOfMemory, u"Out of memory"});
  if (sink.tooMany) {
    talk_.messages.Show(
        {talk_.strings[Message::TooManyCaptions], BoxIcon::Error, BoxButtons::Ok, talk_.strings[Message::Warning]});
  }
  return std::move(sink.rows);
}

}  // namespace cuewright
