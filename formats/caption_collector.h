#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "core/caption_list.h"
#include "core/counting.h"
#include "core/style_markers.h"
#include "formats/definition.h"
#include "text/text.h"
#include "text/text_search.h"

namespace cuewright {

/// The caption that an import is gathering, and the finished ones before it.
class CaptionCollector {
 public:
  static constexpr std::int32_t kNotRead = -1;
  /// Characters that an import may gather. Only a file that is no subtitle comes to so many.
  static constexpr std::size_t kMostText = std::size_t{64} << 20;

  /// `definition` is the record in force, `separator` the line break of captions.
  CaptionCollector(const FormatDefinition& definition, const Text& separator);

  Ms captionStart = kNotRead;
  Ms captionEnd = kNotRead;
  Text captionText;

  bool StartSet() const { return captionStart != kNotRead; }
  bool EndSet() const { return captionEnd != kNotRead; }
  bool TimesSet() const { return StartSet() && EndSet(); }
  const Text& Separator() const { return separator_; }

  /// Takes a time as the start, or as the end when the start is there; not when both are.
  void TakeNextTime(Ms time) {
    if (!TimesSet()) (StartSet() ? captionEnd : captionStart) = time;
  }

  /// Adds a line to the text, behind the separator when there is text already.
  void AddLine(TextView line);

  /// Discards text and times.
  void Reset();

  /// Closes the caption: tags become markers, line breaks the separator. Text other than blanks is stored.
  void FlushImportedCaption();

  /// True when a text without CR, "<", mark of tags and `absent` is stored as it is, also with separators in it.
  bool StoresStraight(char16_t absent) const;

  /// `FlushImportedCaption` for such a text, which is given instead of gathered.
  void FlushStraight(TextView text);

  /// A character that every tag of the format holds; NUL when none is known.
  char16_t TagAnchor() const { return tagAnchor_; }

  /// The format's line break, where a text in which every "<" begins such a break is stored with separators in place of
  /// the breaks and otherwise unchanged; empty for a format that asks for more.
  TextView MereBreak() const;

  /// Appends the caption as it is, a time not read as 0. Text and times stay.
  void StoreImportedCaption();

  /// Takes over the record's tags and line break; to be called when another format has come in force.
  void DefinitionChanged();

  /// True when the captions, with the one in work, hold more text than an import may gather; further ones are dropped.
  bool Full() const { return dropped_ || gathered_ + captionText.size() > kMostText; }

  int ImportedCount() const { return CountOf(buffer_); }
  void Reserve(std::size_t count) { buffer_.reserve(count); }
  std::vector<Caption> Take() { return std::move(buffer_); }

 private:
  struct Tag {
    Needle open;
    Needle close;  // empty: none to take away
    Text markers;  // in the order in which they end up in front
  };

  void TagsToMarkers();
  void RemoveLineEnds();
  void Store(TextView text);
  static Tag MakeTag(const FormatDefinition& definition, char16_t letter);

  const FormatDefinition& definition_;
  const Text& separator_;
  const std::array<Needle, 3> markers_ = {Needle(Text(kBoldMarker)), Needle(Text(kItalicMarker)),
                                          Needle(Text(kUnderlineMarker))};
  const std::array<Needle, 3> closings_ = {Needle(u"</b>"), Needle(u"</i>"), Needle(u"</u>")};
  std::vector<Tag> tags_;
  char16_t tagAnchor_ = u'<';  // a character that every tag holds; NUL: none is known
  bool separatorIsAngled_ = false;
  bool breaks_ = false;
  std::size_t gathered_ = 0;
  bool dropped_ = false;
  std::vector<Caption> buffer_;
};

}  // namespace cuewright
