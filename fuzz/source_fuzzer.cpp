// Reads a file by the published rules of each format: nothing breaks, every stretch lies in the file and in order, and
// the fields of a caption can be written again. The first byte picks the format.

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "formats/source/markup.h"
#include "formats/source/sniff.h"
#include "formats/source/source_format.h"
#include "fuzz/engine.h"

namespace {

using namespace cuewright;

constexpr TextView kSeparator = u"|";
constexpr std::array<TextView, 20> kFormats = {
    u"SUBRIP",     u"WEBVTT",        u"ADVANCEDSSA",   u"SUBSTATIONALPHA", u"SAMI",       u"MICRODVD",   u"MPL2",
    u"TMPLAYER",   u"TMPLAYERPLUS",  u"TMPLAYERCOLON", u"YOUTUBESBV",      u"SUBVIEWER2", u"KARAOKELRC", u"TTML",
    u"WEBVTT_RSS", u"QUICKTIMETEXT", u"SUBVIEWER2SP",  u"TRANSCRIPTJSON",  u"EBUSTL",     u"SCC"};

class CheckingSink final : public SourceSink {
 public:
  CheckingSink(const SourceFormat& format, const SourceText& source, MarkKind kind)
      : format_(format), source_(source), bytes_(source.bytes), kind_(kind) {}

  bool Add(Ms start, Ms end, Text text, const SourceRecord& record) override {
    fuzz::Demand(record.whole.at >= behind_ && record.whole.End() <= bytes_.size(), "records are in order");
    behind_ = record.whole.End();
    for (const Stretch& field : {record.number, record.start, record.end, record.text}) {
      const bool inside = field.at >= record.whole.at && field.End() <= record.whole.End();
      fuzz::Demand(field.Empty() || inside, "fields lie in their record");
    }
    fuzz::Demand(start >= 0, "starts are times");
    (void)format_.TimeField(start, record.start.In(bytes_));
    (void)format_.TimeField(end, record.end.In(bytes_));
    (void)format_.TextField(text, kSeparator, u"\n");
    Losses losses;
    for (const MarkKind to : {MarkKind::Plain, MarkKind::SubRip, MarkKind::WebVtt, MarkKind::SubStation, MarkKind::Sami,
                              MarkKind::MicroDvd, MarkKind::Ttml, MarkKind::Mpl2}) {
      (void)ConvertMarks({text, format_.BesideOf(source_, record)}, kind_, to, kSeparator, losses);
    }
    const Caption caption{start, end, std::move(text)};
    (void)format_.Record({caption, 1, u"\n", record.whole.In(bytes_)}, kSeparator);
    NewRecord own{caption, 1, u"\n", record.whole.In(bytes_)};
    own.isOwn = true;
    const Text same = format_.Record(own, kSeparator);
    if (format_.BlockBytes() != 0) fuzz::Demand(same.size() == record.whole.size, "an unchanged record stays");
    return true;
  }
  void NotUnderstood(std::size_t place) override { fuzz::Demand(place <= bytes_.size(), "lines lie in the file"); }

 private:
  const SourceFormat& format_;
  const SourceText& source_;
  std::string_view bytes_;
  MarkKind kind_;
  std::size_t behind_ = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const TextView identifier = kFormats[data[0] % kFormats.size()];
  const Encodings encodings(1252);
  const std::string bytes(data + 1, data + size);
  const auto format = MakeSourceFormat(identifier);
  const TextFile file = format->BlockBytes() != 0 ? TextFile::OfBytes(bytes)
                                                  : TextFile::Auto(bytes, encodings, TextFile::Untold::Unicode);
  const SourceText text{file.Bytes(), file};
  (void)SniffFormat(file.Decoded(file.Bytes().substr(0, 4096)));
  CheckingSink sink(*format, text, MarkKindOf(identifier));
  format->Read(text, kSeparator, sink);
  return 0;
}
