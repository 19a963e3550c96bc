#include <array>

#include "formats/source/markup_colours.h"
#include "formats/source/markup_reader.h"
#include "formats/source/override_tags.h"
#include "text/digits.h"

namespace cuewright {
namespace {

int NumberAt(TextView text) {
  int number = 0;
  for (const char16_t c : text) {
    if (!IsDigit(c) || number > 9999) break;
    number = number * 10 + (c - u'0');
  }
  return number;
}

bool BeginsWithNumber(TextView text) { return !text.empty() && IsDigit(text.front()); }

struct OtherTag {
  TextView name;
  Loss kind;
};
/// A name stands behind the longer ones that begin with it.
constexpr std::array<OtherTag, 13> kOtherTags = {{{u"pos(", Loss::ExactPosition},
                                                  {u"move(", Loss::ExactPosition},
                                                  {u"org(", Loss::ExactPosition},
                                                  {u"fn", Loss::Font},
                                                  {u"fsc", Loss::Effect},
                                                  {u"fsp", Loss::Effect},
                                                  {u"fs", Loss::Size},
                                                  {u"fe", Loss::Font},
                                                  {u"kt", Loss::Karaoke},
                                                  {u"k", Loss::Karaoke},
                                                  {u"K", Loss::Karaoke},
                                                  {u"pbo", Loss::Effect},
                                                  {u"", Loss::Effect}}};

}  // namespace

void OverrideReader::ReadBlock(TextView tags) {
  std::size_t at = tags.find(u'\\');
  // Words in braces are remarks.
  if (!TrimBlanks(tags.substr(0, at)).empty()) runs_.Found(Loss::Remark);
  while (at != TextView::npos) {
    const std::size_t end = EndOfOverride(tags, at);
    ReadTag(tags.substr(at + 1, end == TextView::npos ? end : end - at - 1));
    at = end;
  }
}

bool OverrideReader::ReadStyle(TextView tag) {
  if (tag.empty()) return false;
  const TextView value = tag.substr(1);
  const auto set = [&](bool RunStyle::*member) {
    if (!value.empty() && !IsDigit(value.front())) return false;
    runs_.style.*member = value.empty() ? base_.*member : NumberAt(value) == 1 || NumberAt(value) > 400;
    return true;
  };
  switch (tag.front()) {
    case u'b':
      return set(&RunStyle::bold);
    case u'i':
      return set(&RunStyle::italic);
    case u'u':
      return set(&RunStyle::underline);
    case u's':
      return set(&RunStyle::strike);
    case u'r':
      runs_.style = base_;
      return true;
    default:
      break;
  }
  const TextView colour = tag.starts_with(u"1c") ? tag.substr(2) : tag.front() == u'c' ? value : TextView();
  if (tag != u"c" && tag != u"1c" && !colour.starts_with(u'&') && !colour.starts_with(u'H')) return false;
  runs_.style.colour = colour.empty() ? base_.colour : ColourWithRedLast(colour);
  return true;
}

bool OverrideReader::ReadPlace(TextView tag) {
  const bool keys = tag.starts_with(u"an");
  const TextView value = tag.substr(keys ? 2 : 1);
  if (!tag.starts_with(u'a') || !BeginsWithNumber(value)) return false;
  const int place = keys ? NumberAt(value) : PlaceOfOldNumber(NumberAt(value));
  if (place >= 1 && place <= 9) runs_.Result().place = place;
  return true;
}

void OverrideReader::ReadTag(TextView tag) {
  tag = TrimBlanks(tag);
  if (tag.empty() || ReadStyle(tag) || ReadPlace(tag)) return;
  if (tag.front() == u'p' && BeginsWithNumber(tag.substr(1))) {
    drawing_ = NumberAt(tag.substr(1)) > 0;
    if (drawing_) runs_.Found(Loss::Drawing);
    return;
  }
  for (const auto& [name, kind] : kOtherTags) {
    if (!tag.starts_with(name)) continue;
    runs_.Found(kind);
    return;
  }
}

void ReadOverrides(TextView text, RunBuilder& runs) {
  OverrideReader overrides(runs, runs.style);
  std::size_t at = 0;
  const std::size_t lastEnd = text.rfind(u'}');
  while (at < text.size()) {
    std::size_t next = text.find_first_of(u"{\\", at);
    if (next == TextView::npos) next = text.size();
    if (!overrides.Drawing()) runs.Append(text.substr(at, next - at));
    at = next;
    if (at == text.size()) return;
    if (text[at] == u'{' && lastEnd != TextView::npos && at < lastEnd) {
      const std::size_t end = text.find(u'}', at);
      overrides.ReadBlock(text.substr(at + 1, end - at - 1));
      at = end + 1;
      continue;
    }
    // A soft break is a blank wherever lines are filled.
    const bool soft = text.substr(at, 2) == u"\\n";
    if (!overrides.Drawing() && soft) runs.AppendInstead(u" ", text.substr(at, 2));
    if (!overrides.Drawing() && !soft) runs.Append(text.substr(at, 1));
    at += soft ? 2 : 1;
  }
}

}  // namespace cuewright
