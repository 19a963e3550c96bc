#include "formats/text_run.h"

namespace cuewright {
namespace {

/// Room for a line of text, in units; a longer one is decoded apart.
constexpr std::size_t kUsualLine = 512;

}  // namespace

TextRun::TextRun(CaptionCollector& captions, char16_t absent) : captions_(captions), absent_(absent) {}

void TextRun::Begin() {
  Text& text = captions_.captionText;
  std::copy(text.begin(), text.end(), text_.Room(text.size()));
  text_.SetSize(text.size());
  marked_ = !text.empty();
  text.clear();
  straight_ = captions_.StoresStraight(absent_);
  const char16_t anchor = captions_.TagAnchor();
  tagMark_ = anchor != u'\0' && anchor < 0x80 ? static_cast<char>(anchor) : '<';
}

void TextRun::End() { captions_.captionText = text_.View(); }

LineScan TextRun::Look(std::string_view rest, char lineEnd, LineMarks marks) {
  const Text& separator = captions_.Separator();
  place_ = text_.Size();
  char16_t* const room = text_.Room(place_ + separator.size() + kUsualLine, place_);
  if (place_ != 0) place_ += separator.copy(room + place_, separator.size());
  return WidenLine(rest, lineEnd, room + place_, text_.Capacity() - 16 - place_, marks);
}

TextView TextRun::Decode(const TextFile& file, std::string_view rest, const LineScan& scan) {
  char16_t* line = text_.Room(place_) + place_;
  decoded_ = place_ + scan.ascii;
  if (scan.ascii != scan.length) {
    line = text_.Room(place_ + scan.length, decoded_) + place_;
    decoded_ += file.DecodeTo(rest.substr(scan.ascii, scan.length - scan.ascii), line + scan.ascii);
  }
  return {line, decoded_ - place_};
}

void TextRun::Take(bool marked) {
  text_.SetSize(decoded_);
  marked_ = marked_ || marked;
}

void TextRun::Append(const TextFile& file, std::string_view bytes) {
  const std::size_t size = text_.Size();
  text_.SetSize(size + file.DecodeTo(bytes, text_.Room(size + bytes.size(), size) + size));
}

void TextRun::AddLine(TextView line) {
  if (!Empty()) AddSeparator();
  const std::size_t size = text_.Size();
  text_.SetSize(size + line.copy(text_.Room(size + line.size(), size) + size, line.size()));
  marked_ = true;
}

void TextRun::AddSeparator() {
  const Text& separator = captions_.Separator();
  const std::size_t size = text_.Size();
  text_.SetSize(size + separator.copy(text_.Room(size + separator.size(), size) + size, separator.size()));
}

void TextRun::Clear() {
  text_.SetSize(0);
  marked_ = false;
}

void TextRun::Flush() {
  if (straight_ && !marked_) {
    captions_.FlushStraight(text_.View());
  } else {
    End();
    captions_.FlushImportedCaption();
  }
  Clear();
}

}  // namespace cuewright
