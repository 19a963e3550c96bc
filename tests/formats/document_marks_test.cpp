#include "formats/document_marks.h"

#include <gtest/gtest.h>

#include "core/seen_text.h"
#include "core/style_markers.h"
#include "formats/source/markup_styles.h"
#include "tests/support/printers.h"

namespace cuewright {
namespace {

constexpr MarkKind kKinds[] = {MarkKind::Plain, MarkKind::SubRip,   MarkKind::WebVtt, MarkKind::SubStation,
                               MarkKind::Sami,  MarkKind::MicroDvd, MarkKind::Ttml,   MarkKind::Mpl2};

/// Marks of a kind, as a document of its format has them.
class KindMarks final : public CaptionMarks {
 public:
  explicit KindMarks(MarkKind kind) : kind_(kind) {}
  SeenCaption Read(TextView, TextView) const override { return {}; }
  Text ReadPlaces(TextView stored, TextView separator, std::vector<TextPlace>& places) const override {
    return VisibleText(stored, kind_, separator, places);
  }
  Text WithoutStyle(TextView stored, TextView, TextView) const override { return Text(stored); }

 private:
  MarkKind kind_;
};

/// What is seen of a text, and what is stored when another text is to be seen.
struct Edit {
  MarkKind kind;
  TextView stored;
  TextView seen;
  TextView wanted;
  TextView changed;
};

TEST(SeenPlaces, AreThoseOfEachKindsMarks) {
  using enum MarkKind;
  const Edit rows[] = {
      {SubRip, u"{\\an8}a <i>b</i>|<3", u"a b\n<3", u"a bx\n<3", u"{\\an8}a <i>bx</i>|<3"},
      {SubStation, u"{\\pos(1,2)}a\\nb {\\i1}c", u"a b c", u"ax b c", u"{\\pos(1,2)}ax\\nb {\\i1}c"},
      {WebVtt, u"<v Ann>a &lt;b&gt; c", u"a <b> c", u"a <b> cd", u"<v Ann>a &lt;b&gt; cd"},
      {WebVtt, u"<v Ann>a|<v Bob>b", u"a\nb", u"a\nbc", u"<v Ann>a|<v Bob>bc"},
      {WebVtt, u"a &amp;amp; &x; b", u"a &amp; &x; b", u"a &amp; &x; c", u"a &amp;amp; &x; c"},
      {WebVtt, u"<ruby>a<rt>b</rt></ruby>", u"a(b)", u"a(bc)", u"<ruby>a<rt>bc</rt></ruby>"},
      {WebVtt, u"a <00:01.000>b", u"a b", u"a bc", u"a <00:01.000>bc"},
      {Sami, u"a<br>b &#x1F600;", u"a\nb \U0001F600", u"a b \U0001F600", u"a b &#x1F600;"},
      {MicroDvd, u"{y:i}a|{c:$0000ff}/b", u"a\nb", u"a\nbc", u"{y:i}a|{c:$0000ff}/bc"},
      {Mpl2, u"/a|\\b", u"a\nb", u"ax\nb", u"/ax|\\b"},
      {Plain, u"<i>{\\an8}", u"{\\an8}", u"{\\an8}x", u"<i>{\\an8}x"},
  };
  for (const Edit& row : rows) {
    SeenText text;
    text.Take(row.stored, u"|", KindMarks(row.kind));
    EXPECT_EQ(text.View(), row.seen) << ToUtf8(row.stored);
    text.ChangeTo(row.wanted);
    EXPECT_EQ(text.Stored(), row.changed) << ToUtf8(row.stored);
  }
}

TEST(SeenPlaces, AreInOrderAndWithinTheTextForAnyMarks) {
  const TextView pieces[] = {u"<i>",  u"</i>",  u"{\\an8}", u"{\\p1}", u"&lt;", u"&#65;", u"|",
                             u"<rt>", u"</rt>", u"<v A>",   u"<v B>",  u"a",    u"<br>",  u"\\n",
                             u"<",    u"{y:b}", u"/a",      u"&",      u"{",    u">"};
  std::uint32_t state = 7;
  for (int i = 0; i < 4000; ++i) {
    Text stored;
    for (int n = 0; n < 8; ++n) {
      state = state * 1664525 + 1013904223;
      stored += pieces[(state >> 16) % std::size(pieces)];
    }
    for (const MarkKind kind : kKinds) {
      std::vector<TextPlace> places;
      const Text seen = VisibleText(stored, kind, u"|", places);
      ASSERT_EQ(places.size(), seen.size()) << ToUtf8(stored);
      std::size_t from = 0;
      for (const TextPlace& place : places) {
        ASSERT_LE(from, place.begin) << ToUtf8(stored);
        ASSERT_LE(place.begin, place.end) << ToUtf8(stored);
        from = place.end;
      }
      ASSERT_LE(from, stored.size());
    }
  }
}

TEST(StyleMarks, OfOneStyleAreTakenOutOfAllKinds) {
  using enum MarkKind;
  struct Row {
    MarkKind kind;
    TextView text;
    char16_t letter;
    TextView without;
  };
  const Row rows[] = {
      {SubRip, u"{\\an8}a <i>b</i> <b>c</b>", u'i', u"{\\an8}a b <b>c</b>"},
      {SubRip, u"{\\i1\\b1}a{\\i0} <img <I>b", u'i', u"{\\b1}a <img b"},
      {SubRip, u"a <3 b> <", u'b', u"a <3 b> <"},
      {WebVtt, u"<i.loud>a</i> <em>b</em> {\\i1}", u'i', u"a b {\\i1}"},
      {SubStation, u"{\\i1}a{\\i0}b{\\iclip(1,2)}{\\bord2\\b700}{x}{}", u'i', u"ab{\\iclip(1,2)}{\\bord2\\b700}{x}{}"},
      {SubStation, u"{\\b1\\t(1,2,\\b0)\\u1}a", u'b', u"{\\t(1,2,\\b0)\\u1}a"},
      {MicroDvd, u"{y:b,i}a|{Y:i}{c:$ff}/b", u'i', u"{y:b}a|{c:$ff}b"},
      {Mpl2, u"/_a|\\/b", u'i', u"_a|\\b"},
      {Plain, u"/a <i>b</i>", u'i', u"/a <i>b</i>"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(WithoutStyleMarks(row.text, row.kind, row.letter, u"|"), row.without) << ToUtf8(row.text);
  }
}

TEST(DocumentMarksTest, OfADocumentWithoutAFileAreTags) {
  const FormatState state;
  const DocumentMarks marks(state);
  const SeenCaption seen = marks.Read(u"<b>{\\an8}a <i>b</i>", u"|");
  ASSERT_EQ(seen.runs.size(), 2u);
  EXPECT_EQ(seen.runs[0].text, u"a ");
  EXPECT_TRUE(seen.runs[0].style.bold);
  EXPECT_FALSE(seen.runs[0].style.italic);
  EXPECT_TRUE(seen.runs[1].style.italic);
  EXPECT_EQ(seen.place, 8);
  EXPECT_EQ(marks.WithoutStyle(u"a <i>b</i>", kItalicMarker, u"|"), u"a b");
}

}  // namespace
}  // namespace cuewright
