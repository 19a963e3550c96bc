#include "formats/source/source_output.h"

#include <algorithm>

#include "text/units.h"

namespace cuewright {
namespace {

/// Bytes that are gathered before they are handed on.
constexpr std::size_t kBlock = 1 << 16;
/// How many of the last bytes are kept: two line ends of two bytes.
constexpr std::size_t kTail = 4;

bool EndsLine(std::string_view text) { return text.empty() || text.back() == '\n' || text.back() == '\r'; }

std::string_view WithoutLineEnd(std::string_view text) {
  text.remove_suffix(std::min<std::size_t>(text.ends_with("\r\n") ? 2 : 1, text.size()));
  return text;
}

}  // namespace

void SourceOutput::PutOld(std::size_t from, std::size_t to) {
  reached_ = std::max(from, to);
  if (from >= to) return;
  if (from != oldEnd_) PassOld();
  if (oldBegin_ == oldEnd_) oldBegin_ = from;
  oldEnd_ = to;
  NoteTail(map_.Bytes().substr(from, to - from));
}

void SourceOutput::Replace(Stretch old, TextView text) {
  Put(text);
  reached_ = old.End();
}

void SourceOutput::Put(TextView text) {
  reached_ = std::string_view::npos;
  if (text.empty()) return;
  PassOld();
  codec_.Encode(text, held_);
  std::string end;
  for (const char16_t unit : text.substr(text.size() - std::min(text.size(), kTail))) {
    end += unit < 0x80 ? LowByte(unit) : '?';
  }
  NoteTail(end);
  const std::size_t sign = text.find_last_not_of(u" \t\r\n");
  if (sign != TextView::npos) lastSign_ = text[sign] < 0x80 ? LowByte(text[sign]) : '?';
  if (held_.size() >= kBlock) PassHeld();
}

void SourceOutput::BeginLine(bool blankBefore) {
  if (tail_.empty()) return;
  if (!EndsLine(tail_)) Put(map_.LineEnd());
  if (blankBefore && !EndsLine(WithoutLineEnd(tail_))) Put(map_.LineEnd());
}

void SourceOutput::Finish() {
  PassOld();
  PassHeld();
}

void SourceOutput::NoteTail(std::string_view put) {
  const std::size_t sign = put.find_last_not_of(" \t\r\n");
  if (sign != std::string_view::npos) lastSign_ = put[sign];
  tail_ += put.substr(put.size() - std::min(put.size(), kTail));
  if (tail_.size() > kTail) tail_.erase(0, tail_.size() - kTail);
}

void SourceOutput::PassOld() {
  const std::string_view bytes = map_.Bytes().substr(oldBegin_, oldEnd_ - oldBegin_);
  oldBegin_ = oldEnd_ = 0;
  if (bytes.empty()) return;
  if (turned_) {
    codec_.Encode(map_.File().Decoded(bytes), held_);
  } else if (bytes.size() < kBlock) {
    held_ += bytes;
  } else {
    PassHeld();
    sink_.Write(bytes);
  }
  if (held_.size() >= kBlock) PassHeld();
}

void SourceOutput::PassHeld() {
  if (!held_.empty()) sink_.Write(held_);
  held_.clear();
}

}  // namespace cuewright
