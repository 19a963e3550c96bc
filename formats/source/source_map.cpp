#include "formats/source/source_map.h"

#include <algorithm>
#include <functional>

#include "formats/source/catalogue_format.h"
#include "formats/source/record_watch.h"

namespace cuewright {
namespace {

std::size_t HashOf(TextView text) { return std::hash<TextView>()(text); }

}  // namespace

std::uint32_t SourceMap::Add(const SourceRecord& record, const Caption& caption) {
  pieces_.push_back({record, {caption.start, caption.end}, HashOf(caption.text)});
  return static_cast<std::uint32_t>(pieces_.size());
}

SourceMap::SourceMap(Text format, TextFile file, std::unique_ptr<SourceFormat> rules)
    : format_(std::move(format)), file_(std::move(file)), rules_(std::move(rules)) {
  const std::size_t end = Bytes().find_first_of("\r\n");
  if (end == std::string_view::npos) return;
  const std::string_view rest = Bytes().substr(end, 3);
  const bool pair = rest.starts_with("\r\n") || rest == "\r\r\n";
  lineEnd_ = pair ? kLineEnd : Text(1, rest.front());
}

void SourceMap::TakeWatched(const RecordWatch& watch, std::unique_ptr<CatalogueFormat> rules, TextView separator,
                            std::vector<Caption>& rows) {
  if (watch.Records().size() == rows.size()) {
    const auto codec = MakeCodec(file_.BytesCodePage());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      SourceRecord record{watch.Records()[i], {}, {}, {}, {}};
      rules->FindFields(rows[i], Bytes(), *codec, separator, record);
      rows[i].origin = Add(record, rows[i]);
    }
    SourceLines lines(Bytes());
    SourceLine line;
    for (const std::size_t place : watch.LinesLeft()) {
      lines.GoTo(place);
      if (lines.Next(line) && !rules->IsOfTheForm(file_.Decoded(line.text))) AddNotUnderstood(place);
    }
  }
  rules_ = std::move(rules);
}

MarkKind MarksOf(const SourceMap* map) { return map == nullptr ? MarkKind::SubRip : MarkKindOf(map->Format()); }

JournalSource KeptSource(const SourceMap& map) {
  const DocumentEncoding& encoding = map.File().Encoding();
  const Text& name = map.CaptionClass();
  const Text format = name.empty() ? map.Format() : map.Format() + Text(kBeforeClass) + name;
  return {format, map.Fps().AsGiven(), encoding.codePage, encoding.mark, std::string(map.Bytes())};
}

Beside SourceMap::BesideOf(std::uint32_t origin) const {
  if (origin == 0 || origin > pieces_.size() || !rules_->TellsBeside()) return {};
  return rules_->BesideOf({Bytes(), file_}, pieces_[origin - 1].record);
}

bool SourceMap::SameText(const Piece& piece, const Caption& caption) { return piece.textHash == HashOf(caption.text); }

std::size_t SourceMap::LineOf(std::size_t place) const {
  if (const std::size_t block = rules_->BlockBytes(); block != 0) return place / block + 1;
  SourceLines lines(Bytes());
  SourceLine line;
  std::size_t number = 0;
  while (lines.Place() <= place && lines.Next(line)) ++number;
  return number;
}

std::vector<std::size_t> SourceMap::LinesNotUnderstood() const {
  std::vector<std::size_t> numbers;
  if (rules_->BlockBytes() != 0) {
    for (const std::uint32_t place : notUnderstood_) numbers.push_back(LineOf(place));
    return numbers;
  }
  SourceLines lines(Bytes());
  SourceLine line;
  std::size_t number = 0;
  for (const std::uint32_t place : notUnderstood_) {
    while (lines.Place() <= place && lines.Next(line)) ++number;
    numbers.push_back(number);
  }
  return numbers;
}

}  // namespace cuewright
