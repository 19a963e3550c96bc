#include "formats/catalogue.h"

#include <algorithm>
#include <utility>

#include "core/runtime_error.h"
#include "formats/further_formats.h"
#include "text/text_file.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr std::size_t kMostIdentifiers = 255;

constexpr TextView kStartPrefix = u"---";
constexpr TextView kStartSuffix = u" FORMAT---";
constexpr TextView kEndLine = u"---END FORMAT DEFINITION---";
constexpr TextView kRepeat = u"{SubRepeat}";
constexpr TextView kRepeatEnd = u"{/SubRepeat}";

Text DecodeFormatFile(const std::string& bytes, const Encodings& encodings) {
  const std::string_view mark = MarkOf(kCodePageUtf8);
  if (bytes.starts_with(mark)) return MakeCodec(kCodePageUtf8)->Decoded(std::string_view(bytes).substr(mark.size()));
  if (ExamineUtf8(bytes) == Utf8Kind::MultiByte) return MakeCodec(kCodePageUtf8)->Decoded(bytes);
  return encodings.SystemCodec()->Decoded(bytes);
}

/// Lines that end at CR or CR LF; a lone LF ends none, unless there is no CR at all.
std::vector<TextView> CutLines(TextView text) {
  std::vector<TextView> lines;
  const char16_t lineEnd = text.find(u'\r') == TextView::npos ? u'\n' : u'\r';
  while (!text.empty()) {
    const std::size_t end = text.find(lineEnd);
    lines.push_back(text.substr(0, end));
    if (end == TextView::npos) break;
    text.remove_prefix(end + 1);
    if (lineEnd == u'\r' && text.starts_with(u'\n')) text.remove_prefix(1);
  }
  return lines;
}

TextView Behind(TextView text, std::size_t at) { return at < text.size() ? text.substr(at) : TextView(); }

/// The parts of a block's text; the marks are taken to stand at the starts of their own lines.
void CutBlock(const Text& text, FormatBlock& block) {
  const std::size_t open = text.find(kRepeat);
  const std::size_t close = text.find(kRepeatEnd);
  if (open == Text::npos || close == Text::npos) return;
  for (const TextView mark : {TextView(u"qxmStart"), TextView(u"qxmEnd"), TextView(u"qxmCaption")}) {
    if (text.find(mark) == Text::npos) return;
  }
  const std::size_t recordStart = open + kRepeat.size() + kLineEnd.size();
  // The record keeps the CR in front of the closing mark and not its LF.
  if (close < recordStart + 1) return;
  block.valid = true;
  block.header = text.substr(0, open);
  if (block.header.size() > 2 && block.header.ends_with(kLineEnd)) block.header.resize(block.header.size() - 2);
  block.record = text.substr(recordStart, close - 1 - recordStart);
  block.footer = Behind(text, close + kRepeatEnd.size() + kLineEnd.size());
}

}  // namespace

void FormatCatalogue::Load(const std::string& iniBytes, const std::string& datBytes, const Encodings& encodings) {
  profile_ = Profile(DecodeFormatFile(iniBytes, encodings));
  dat_ = DecodeFormatFile(datBytes, encodings);
  lines_ = CutLines(dat_);
  NoteStartLines();
  ReadList();
  AddFurtherFormats();
}

void FormatCatalogue::ReadList() {
  identifiers_.clear();
  count_ = 0;
  for (const TextView line : lines_) {
    Text entry = ToUpper(TrimBlanks(line));
    if (entry == u"</FORMATSLIST>") break;
    if (entry == u"<FORMATSLIST>") continue;
    // The number of a format in the files has 8 bits.
    if (identifiers_.size() == kMostIdentifiers) ThrowOverflow();
    identifiers_.push_back(std::move(entry));
    countWritten_ = ++count_;
  }
  if (identifiers_.empty()) ThrowOverflow();
}

void FormatCatalogue::AddFurtherFormats() {
  further_ = Profile(kFurtherFormatsIni);
  for (std::size_t i = 0; i < kFurtherFormats.size() && identifiers_.size() < kMostIdentifiers; ++i) {
    // Where the files describe a format, their description counts.
    if (IndexOf(kFurtherFormats[i]) >= 0) continue;
    identifiers_.emplace_back(kFurtherFormats[i]);
    if (i < kFurtherFormatsWritten) countWritten_ = CountAll();
  }
}

int FormatCatalogue::CountToRead(const Manner& manner) const {
  return manner.ReadsByPublishedRules() ? CountAll() : count_;
}

int FormatCatalogue::CountToWrite(const Manner& manner) const {
  return manner.ReadsByPublishedRules() ? countWritten_ : count_;
}

void FormatCatalogue::NoteStartLines() {
  starts_.clear();
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const TextView line = TrimBlanks(lines_[i]);
    if (line.size() < kStartPrefix.size() + kStartSuffix.size()) continue;
    if (!line.starts_with(kStartPrefix) || !line.ends_with(kStartSuffix)) continue;
    const std::size_t length = line.size() - kStartPrefix.size() - kStartSuffix.size();
    starts_.try_emplace(line.substr(kStartPrefix.size(), length), i + 1);
  }
}

const Text& FormatCatalogue::Identifier(int index) const {
  return index >= 0 && index < CountAll() ? identifiers_[index] : none_;
}

int FormatCatalogue::IndexOf(TextView identifier) const {
  for (int i = CountAll() - 1; i >= 0; --i) {
    if (Identifier(i) == identifier) return i;
  }
  return -1;
}

FormatBlock FormatCatalogue::Block(TextView identifier) const {
  FormatBlock block;
  const auto start = starts_.find(identifier);
  if (start == starts_.end()) {
    const bool further = IsFurther(std::max(IndexOf(identifier), 0));
    // The further formats have rules of their own for writing, and no record here.
    return further ? FormatBlock{true, true, {}, u"qxmStart qxmEnd qxmCaption\r", {}} : block;
  }
  block.found = true;
  Text text;
  for (std::size_t i = start->second; i < lines_.size() && TrimBlanks(lines_[i]) != kEndLine; ++i) {
    text.append(lines_[i]).append(kLineEnd);
  }
  CutBlock(text, block);
  return block;
}

bool LoadFormatCatalogue(FormatCatalogue& catalogue, const Files& files, TextView iniPath, TextView datPath,
                         const Encodings& encodings, const LangStrings& strings, Messages& messages) {
  bool complete = true;
  for (const TextView path : {iniPath, datPath}) {
    if (files.Exists(path)) continue;
    complete = false;
    Text text = strings[Message::ComponentNotFound];
    text.append(kLineEnd).append(kLineEnd).append(u"[").append(path).append(u"]");
    messages.Show({text, BoxIcon::Error, BoxButtons::Ok, strings[Message::Warning]});
  }
  if (!complete) return false;
  const std::string ini = files.Read(iniPath, kLargestTextFile);
  const std::string dat = files.Read(datPath, kLargestTextFile);
  CarryOn load;
  if (!load([&] { catalogue.Load(ini, dat, encodings); })) {
    throw RuntimeError{load.Last()->number, load.Last()->description + u": " + Text(datPath)};
  }
  return true;
}

}  // namespace cuewright
