#include "formats/lacking_letters.h"

#include <algorithm>

#include "formats/source/source_map.h"

namespace cuewright {
namespace {

/// The characters that the codec lacks, each once, in their order.
Text LackingIn(TextView text, const Codec& codec) {
  Text lacking;
  if (codec.Holds(text)) return lacking;
  for (std::size_t at = 0; at < text.size();) {
    const bool pair = (text[at] & 0xFC00) == 0xD800 && at + 1 < text.size();
    const TextView character = text.substr(at, pair ? 2 : 1);
    if (!codec.Holds(character) && lacking.find(character) == Text::npos) lacking += character;
    at += character.size();
  }
  return lacking;
}

/// The record that a caption was read from; null for none.
const SourceRecord* RecordOf(const Caption& caption, const SourceMap* source) {
  if (source == nullptr || caption.origin == 0 || caption.origin > source->Pieces().size()) return nullptr;
  return &source->Pieces()[caption.origin - 1].record;
}

/// Finds the numbers of lines for places that mostly follow each other, without starting at the file's beginning for
/// each.
class LineFinder {
 public:
  explicit LineFinder(const SourceMap* source)
      : source_(source), lines_(source != nullptr ? source->Bytes() : std::string_view()) {}

  /// The line of the file in which a line of a caption's text stands; 0 for a caption that stands in none.
  std::size_t LineOf(const SourceRecord* record, std::size_t rowLine) {
    if (record == nullptr) return 0;
    const Stretch& text = record->text.Empty() ? record->whole : record->text;
    const std::size_t first = NumberOf(text.at);
    const std::size_t last = text.Empty() ? first : NumberOf(text.End() - 1);
    return std::min(first + rowLine - 1, last);
  }

 private:
  std::size_t NumberOf(std::size_t place) {
    if (place < begin_) {
      lines_ = SourceLines(source_->Bytes());
      number_ = 0;
    }
    SourceLine line;
    while (lines_.Place() <= place) {
      begin_ = lines_.Place();
      if (!lines_.Next(line)) break;
      ++number_;
    }
    return number_;
  }

  const SourceMap* source_;
  SourceLines lines_;
  std::size_t begin_ = 0;   // of the line that was read last
  std::size_t number_ = 0;  // its number, from 1
};

void FindInCaptions(const CaptionList& captions, Row lastRow, const SourceMap* source, const Codec& codec,
                    std::vector<LackingPlace>& places) {
  LineFinder lines(source);
  for (Row row = 1; row <= lastRow && captions.InRange(row); ++row) {
    const Caption& caption = captions.At(row);
    if (codec.Holds(caption.text)) continue;
    int rowLine = 0;
    for (const Text& line : Split(caption.text, captions.Options().lineSeparator)) {
      ++rowLine;
      Text lacking = LackingIn(line, codec);
      if (lacking.empty()) continue;
      places.push_back({lines.LineOf(RecordOf(caption, source), rowLine), row, rowLine, std::move(lacking)});
    }
  }
}

/// Letters in comments, names and headers, which stay in the file, may be lacking as well.
void FindBesideRecords(const SourceMap& source, const Codec& codec, std::vector<LackingPlace>& places) {
  TextFile file = source.File();
  file.Rewind();
  LineBuffer text;
  auto piece = source.Pieces().begin();
  for (std::size_t line = 1;; ++line) {
    const std::size_t at = file.BytesRead();
    if (!file.NextText(text)) return;
    while (piece != source.Pieces().end() && piece->record.whole.End() <= at) ++piece;
    const bool inRecord = piece != source.Pieces().end() && piece->record.whole.at < file.BytesRead();
    if (!inRecord && !codec.Holds(text.View())) places.push_back({line, 0, 0, LackingIn(text.View(), codec)});
  }
}

}  // namespace

std::vector<LackingPlace> FindLackingLetters(const CaptionList& captions, Row lastRow, const SourceMap* source,
                                             const Codec& codec) {
  std::vector<LackingPlace> places;
  FindInCaptions(captions, lastRow, source, codec, places);
  if (source != nullptr) FindBesideRecords(*source, codec, places);
  return places;
}

}  // namespace cuewright
