#include "external/spell_text.h"

#include "core/style_markers.h"

#include <algorithm>

namespace cuewright {
namespace {

constexpr TextView kCr = u"\r";

// Each mark that stands on a line of its own is handled as a single character, which no text contains.
constexpr char16_t kCaptionEnd = 0xFDD0;
constexpr char16_t kLineBreak = 0xFDD1;
constexpr char16_t kItalic = 0xFDD2;

Text Between(TextView ends, TextView mark) { return Text(ends) + Text(mark) + Text(ends); }

/// A text with the marks that stand on lines of their own as single characters.
Text WithMarks(TextView text) {
  Text marked = ReplaceAll(text, kLineEnd, kCr);
  const std::pair<TextView, char16_t> marks[] = {
      {kCaptionMark, kCaptionEnd}, {kBreakMark, kLineBreak}, {kItalicMark, kItalic}};
  for (const auto& [mark, unit] : marks) marked = ReplaceAll(marked, Between(kCr, mark), Text(1, unit));
  return marked;
}

/// A caption as it goes to the check, without the mark of its end.
Text Sent(TextView caption) {
  return ReplaceAll(ReplaceAll(caption, kLineEnd, Between(kLineEnd, kBreakMark)), kItalicMarker,
                    Between(kLineEnd, kItalicMark));
}

/// Where the caption that begins at `from` ends; `length` gets the length of the mark that ends it. Marks that the
/// caption contained when it was sent are the user's own text.
std::size_t EndOfCaption(const Text& marked, std::size_t from, const Text& caption, std::size_t& length) {
  std::size_t own = 0;
  for (std::size_t at = caption.find(kCaptionMark); at != Text::npos;
       at = caption.find(kCaptionMark, at + kCaptionMark.size())) {
    ++own;
  }
  const std::size_t whole = marked.find(kCaptionEnd, from);
  std::size_t loose = marked.find(kCaptionMark, from);
  while (own > 0 && loose < whole) {
    loose = marked.find(kCaptionMark, loose + kCaptionMark.size());
    --own;
  }
  length = loose < whole ? kCaptionMark.size() : 1;
  return std::min(whole, loose);
}

/// The piece with its marks replaced by what they stand for. A mark that has come to stand within a line counts as
/// well, unless the caption contained such a text when it was sent.
Text Unmarked(Text piece, const Text& caption, TextView separator) {
  if (caption.find(kBreakMark) == Text::npos) piece = ReplaceAll(piece, kBreakMark, Text(1, kLineBreak));
  if (caption.find(kItalicMark) == Text::npos) piece = ReplaceAll(piece, kItalicMark, Text(1, kItalic));
  piece = ReplaceAll(ReplaceAll(piece, Text(1, kLineBreak), separator), Text(1, kItalic), kItalicMarker);
  return ReplaceAll(piece, kCr, {});
}

}  // namespace

Text SpellingText(const std::vector<Text>& captions) {
  Text text;
  for (const Text& caption : captions) text += Sent(caption) + Between(kLineEnd, kCaptionMark);
  return text;
}

std::vector<std::optional<Text>> CutSpellingText(TextView text, const std::vector<Text>& captions, TextView separator) {
  const Text marked = WithMarks(text);
  std::vector<std::optional<Text>> cut(captions.size());
  std::size_t from = 0;
  for (std::size_t i = 0; i < captions.size(); ++i) {
    std::size_t length = 0;
    const std::size_t to = EndOfCaption(marked, from, captions[i], length);
    if (to == Text::npos) break;
    const Text piece = marked.substr(from, to - from);
    from = to + length;
    if (piece != WithMarks(Sent(captions[i]))) cut[i] = Unmarked(piece, captions[i], separator);
  }
  return cut;
}

}  // namespace cuewright
