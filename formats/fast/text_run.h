#pragma once

#include <cstddef>
#include <string_view>

#include "formats/caption_collector.h"
#include "formats/fast/scan.h"
#include "formats/line_parsers.h"
#include "text/text_file.h"

namespace cuewright {

/// The text of the caption in work while lines are read straight from the file's bytes: they are decoded to the place
/// where they stay, and captions without anything special about them are stored from there.
class TextRun {
 public:
  /// `absent`: a further character that is in no text, since the one who reads sees to that.
  explicit TextRun(CaptionCollector& captions, char16_t absent = u'\0') : captions_(captions), absent_(absent) {}

  /// Reads lines by `takeLine` until it leaves one to the parser, or the import pauses or is full.
  template <class TakeLine>
  void ReadOn(const TextFile& file, TakeLine takeLine) {
    const auto pauses = [&] { return captions_.ImportedCount() % kYieldEvery == 0; };
    if (pauses() || captions_.captionText.size() > kLongestOpenText) return;
    Begin(file);
    while (!pauses() && !captions_.Full() && text_.Size() <= CaptionCollector::kMostText && takeLine()) {
    }
    captions_.captionText = text_.View();
  }

  TextView View() const { return text_.View(); }
  bool Empty() const { return text_.Size() == 0; }

  /// Looks at the line at the beginning of `rest`; nothing is taken yet.
  const LineScan& Look(std::string_view rest, LineMarks marks = {});
  /// Decodes the line that was looked at.
  TextView Decode();
  /// Makes that line a line of the text.
  void Take();

  /// Takes a line whose `lineBreak`s stand for separators. False, with the text cleared, when a `mark`, with which line
  /// breaks begin, begins something else; `lengthAt` tells the length of the line break at the beginning of its bytes.
  template <class LengthAt>
  bool TakeBroken(std::string_view line, char mark, LengthAt lengthAt) {
    std::size_t at = 0;
    for (std::size_t hit = line.find(mark); hit != std::string_view::npos; hit = line.find(mark, at)) {
      const std::size_t length = lengthAt(line.substr(hit));
      if (length == 0) {
        Clear();
        return false;
      }
      Append(line.substr(at, hit - at));
      AddSeparator();
      at = hit + length;
    }
    Append(line.substr(at));
    return true;
  }

  /// Empties the text without storing it.
  void Clear();
  /// Closes the caption as `CaptionCollector::FlushImportedCaption` does.
  void Flush();

  /// A mark of tags to look for beside "<"; "<" itself when there is no other.
  char TagMark() const { return tagMark_; }

 private:
  /// A text that is open and longer than this is no caption's. It would be carried to and fro with every line that is
  /// left to the parser.
  static constexpr std::size_t kLongestOpenText = 1024;

  void Begin(const TextFile& file);
  void Append(std::string_view bytes);
  void AddSeparator();

  CaptionCollector& captions_;
  const TextFile* file_ = nullptr;
  char16_t absent_;
  bool straight_ = false;
  char tagMark_ = '<';
  LineBuffer text_;
  bool marked_ = false;  // the text may hold a "<" or a mark of tags

  std::string_view line_;  // that is looked at, and what is behind it
  LineScan scan_;
  std::size_t place_ = 0;    // where it begins in the buffer
  std::size_t decoded_ = 0;  // and where it ends
};

}  // namespace cuewright
