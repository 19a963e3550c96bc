#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "formats/caption_collector.h"
#include "text/text_file.h"

namespace cuewright {

/// The text of the caption in work while a parser reads lines by itself: they are decoded to the place where they
/// stay, and captions without anything special about them are stored from there.
class TextRun {
 public:
  /// `absent`: a further character that the parser sees to being in no text.
  explicit TextRun(CaptionCollector& captions, char16_t absent = u'\0');

  /// Takes the collector's text over, and gives it back.
  void Begin();
  void End();

  TextView View() const { return text_.View(); }
  bool Empty() const { return text_.Size() == 0; }
  bool Full() const { return text_.Size() > CaptionCollector::kMostText; }

  /// Looks at the line at the beginning of `rest`; nothing is taken yet.
  LineScan Look(std::string_view rest, char lineEnd, LineMarks marks = {});

  /// Decodes the line that was looked at last, of which only the first `length` bytes count.
  TextView Decode(const TextFile& file, std::string_view rest, const LineScan& scan);

  /// Makes the line that was decoded last a line of the text. `marked`: it may hold a "<" or a mark of tags.
  void Take(bool marked);

  /// Decodes bytes behind the text, without a separator, and takes them.
  void Append(const TextFile& file, std::string_view bytes);

  /// Adds a line as `CaptionCollector::AddLine` does.
  void AddLine(TextView line);
  /// Adds a separator.
  void AddSeparator();

  /// Empties the text without storing it.
  void Clear();

  /// Closes the caption as `CaptionCollector::FlushImportedCaption` does.
  void Flush();

  /// A mark of tags to look for beside "<"; "<" itself when there is no other.
  char TagMark() const { return tagMark_; }

 private:
  CaptionCollector& captions_;
  char16_t absent_;
  bool straight_ = false;
  char tagMark_ = '<';
  LineBuffer text_;
  std::size_t place_ = 0;    // where the line that is looked at begins
  std::size_t decoded_ = 0;  // and where it ends
  bool marked_ = false;
};

}  // namespace cuewright
