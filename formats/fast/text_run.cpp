#include "formats/fast/text_run.h"

#include "text/units.h"

namespace cuewright {
namespace {

/// Room for a line of text, in units; a longer line is decoded into a buffer of its own.
constexpr std::size_t kUsualLine = 512;

}  // namespace

void TextRun::Begin(const TextFile& file) {
  file_ = &file;
  Text& text = captions_.captionText;
  text.copy(text_.RoomBehind(0, text.size()).data(), text.size());
  text_.SetSize(text.size());
  marked_ = !text.empty();
  text.clear();
  straight_ = captions_.StoresStraight(absent_);
  const char16_t anchor = captions_.TagAnchor();
  tagMark_ = anchor != u'\0' && anchor < 0x80 ? LowByte(anchor) : '<';
}

const LineScan& TextRun::Look(std::string_view rest, LineMarks marks) {
  const Text& separator = captions_.Separator();
  line_ = rest;
  place_ = text_.Size();
  std::span<char16_t> room = text_.RoomBehind(place_, separator.size() + kUsualLine);
  if (place_ != 0) {
    separator.copy(room.data(), separator.size());
    room = room.subspan(separator.size());
    place_ += separator.size();
  }
  scan_ = WidenLine(rest, file_->LineEnd(), room, marks);
  return scan_;
}

TextView TextRun::Decode() {
  const std::string_view left = line_.substr(scan_.ascii, scan_.length - scan_.ascii);
  decoded_ = place_ + scan_.ascii;
  if (!left.empty()) decoded_ += file_->DecodeTo(left, text_.RoomBehind(decoded_, left.size()));
  return {text_.View().data() + place_, decoded_ - place_};
}

void TextRun::Take() {
  text_.SetSize(decoded_);
  marked_ = marked_ || scan_.angled || scan_.markedA;
}

void TextRun::Append(std::string_view bytes) {
  const std::size_t size = text_.Size();
  text_.SetSize(size + file_->DecodeTo(bytes, text_.RoomBehind(size, bytes.size())));
}

void TextRun::AddSeparator() {
  const Text& separator = captions_.Separator();
  const std::size_t size = text_.Size();
  text_.SetSize(size + separator.copy(text_.RoomBehind(size, separator.size()).data(), separator.size()));
}

void TextRun::Clear() {
  text_.SetSize(0);
  marked_ = false;
}

void TextRun::Flush() {
  if (straight_ && !marked_) {
    captions_.FlushStraight(text_.View());
  } else {
    captions_.captionText = text_.View();
    captions_.FlushImportedCaption();
  }
  Clear();
}

}  // namespace cuewright
