#include <gtest/gtest.h>

#include "formats/source/markup.h"
#include "formats/source/markup_colours.h"
#include "tests/support/printers.h"

namespace cuewright::testing {
namespace {

struct Case {
  MarkKind from;
  TextView text;
  MarkKind to;
  TextView converted;
  std::vector<Loss> lost;
};

std::vector<Loss> Kinds(const Losses& losses) {
  std::vector<Loss> kinds;
  for (std::size_t i = 0; i < kLossKinds; ++i) {
    if (losses.Of(static_cast<Loss>(i)) != 0) kinds.push_back(static_cast<Loss>(i));
  }
  return kinds;
}

void Expect(const std::vector<Case>& cases) {
  for (const Case& row : cases) {
    Losses losses;
    EXPECT_EQ(ConvertWithin({Text(row.text)}, row.from, row.to, u"|", losses), row.converted);
    EXPECT_EQ(Kinds(losses), row.lost) << ::testing::PrintToString(Text(row.text));
  }
}

TEST(Markup, StylesOfPartsAreCarriedOver) {
  using enum MarkKind;
  Expect({
      {SubRip, u"a <i>b</i> c", SubStation, u"a {\\i1}b{\\i0} c", {}},
      {SubStation, u"a {\\i1}b{\\i0} c", SubRip, u"a <i>b</i> c", {}},
      {SubStation, u"{\\b1}a{\\i1}b|c{\\r}d", WebVtt, u"<b>a<i>b|c</i></b>d", {}},
      {SubRip, u"<font color=\"#FF8000\">a</font> b", SubStation, u"{\\c&H0080FF&}a{\\c} b", {}},
      {SubStation, u"{\\c&H0080FF&}a{\\c} b", Sami, u"<font color=\"#ff8000\">a</font> b", {}},
      {SubRip, u"<font color=red>a</font>", WebVtt, u"<c.red>a</c>", {}},
      {WebVtt, u"<c.yellow>a</c> b", SubRip, u"<font color=\"#ffff00\">a</font> b", {}},
      {SubRip,
       u"<s>a</s> <u>b</u>",
       Ttml,
       u"<span tts:textDecoration=\"lineThrough\">a</span> <span tts:textDecoration=\"underline\">b</span>",
       {}},
      {Ttml,
       u"<tt:span tts:fontStyle='italic' tts:color='#00ff00'>a</tt:span> b",
       SubRip,
       u"<font color=\"#00ff00\"><i>a</i></font> b",
       {}},
      {SubRip, u"{\\an8}a", SubStation, u"{\\an8}a", {}},
      {SubRip, u"{\\a6}a", SubStation, u"{\\an8}a", {}},
      {Sami, u"<B>a</B> b", SubRip, u"<b>a</b> b", {}},
      {MicroDvd, u"{y:i}a|b", SubRip, u"<i>a</i>|b", {}},
      {MicroDvd, u"{Y:b,i}{c:$0080ff}a|b", SubStation, u"<b><i>{\\c&H0080FF&}a{\\c}|b", {}},
      {Mpl2, u"/a|b", WebVtt, u"<i>a</i>|b", {}},
      {SubRip, u"<i>a</i>|b", MicroDvd, u"{y:i}a|b", {}},
      {SubRip, u"<font color=\"#ff8000\"><b><s>a</s></b></font>|b", MicroDvd, u"{y:b,s}{c:$0080ff}a|b", {}},
      {SubRip, u"<i>a</i>|b", Mpl2, u"/a|b", {}},
  });
}

TEST(Markup, MarkersMeanTheWholeCaptionInEveryKind) {
  using enum MarkKind;
  for (const MarkKind from : {Plain, SubRip, WebVtt, SubStation, Sami, MicroDvd, Ttml, Mpl2}) {
    for (const MarkKind to : {SubRip, WebVtt, SubStation, Sami, MicroDvd, Ttml, Mpl2}) {
      Losses losses;
      EXPECT_EQ(ConvertWithin({u"<i>a|b"}, from, to, u"|", losses), u"<i>a|b");
      EXPECT_FALSE(losses.Any());
    }
    EXPECT_EQ(VisibleText(u"<b>a|b", from, u"|"), u"a|b");
  }
  Expect(
      {{SubRip, u"<i>a</i>|<i>b</i>", SubStation, u"<i>a|b", {}}, {SubRip, u"<i>a|b</i>", SubStation, u"<i>a|b", {}}});
}

TEST(Markup, WhatTheTargetLacksIsTold) {
  using enum MarkKind;
  Expect({
      {SubStation, u"{\\k20}la{\\k30}la", SubRip, u"lala", {Loss::Karaoke}},
      {SubStation, u"{\\pos(10,20)\\fs30\\fnTahoma}a", WebVtt, u"a", {Loss::ExactPosition, Loss::Font, Loss::Size}},
      {SubStation, u"{\\p1}m 0 0 l 1 1{\\p0}a", SubRip, u"a", {Loss::Drawing}},
      {SubStation, u"{\\t(0,500,\\fscx200)\\bord2\\fad(1,2)}a{a remark}", SubRip, u"a", {Loss::Effect, Loss::Remark}},
      {SubRip, u"<font color=\"#123456\">a</font>", WebVtt, u"a", {Loss::Colour}},
      {SubRip, u"<s>a</s> <i>b</i>", WebVtt, u"a <i>b</i>", {Loss::Strike}},
      {SubRip, u"<font face=\"x\" size=3>a</font>", Sami, u"a", {Loss::Font, Loss::Size}},
      {SubRip, u"{\\an8}a <i>b</i>", Plain, u"a b", {Loss::Italic, Loss::Position}},
      {SubRip, u"a <i>b</i>", MicroDvd, u"a b", {Loss::Italic}},
      {SubRip, u"<i>a", Plain, u"a", {Loss::Italic}},
      {WebVtt, u"<v Ann>a", SubRip, u"a", {Loss::Speaker}},
      {WebVtt, u"<ruby>a<rt>b</rt></ruby> <c.loud>c</c>", SubRip, u"a(b) c", {Loss::Ruby, Loss::Class}},
      {WebVtt, u"<00:00:01.000>a<lang en>b</lang>", SubRip, u"ab", {Loss::Karaoke, Loss::Other}},
      {MicroDvd,
       u"{f:Tahoma}{s:20}{P:1,2}{H:x}a",
       SubRip,
       u"a",
       {Loss::ExactPosition, Loss::Font, Loss::Size, Loss::Other}},
      {MicroDvd, u"{z:1}a", SubRip, u"{z:1}a", {}},
  });
}

TEST(Markup, WhatLiesBesideTheTextIsHandedOver) {
  Losses losses;
  const MarkedText cue = ConvertMarks({u"a", {u"Ann", 8}}, MarkKind::SubStation, MarkKind::WebVtt, u"|", losses);
  EXPECT_EQ(cue.text, u"<v Ann>a");
  EXPECT_EQ(cue.beside.place, 8);
  EXPECT_EQ(cue.beside.speaker, u"");
  const MarkedText event = ConvertMarks({u"<v Ann>a", {{}, 8}}, MarkKind::WebVtt, MarkKind::SubStation, u"|", losses);
  EXPECT_EQ(event.text, u"{\\an8}a");
  EXPECT_EQ(event.beside.speaker, u"Ann");
  EXPECT_FALSE(losses.Any());
}

TEST(Markup, CharactersThatTheTargetWouldTakeForMarksAreNamed) {
  using enum MarkKind;
  Expect({{SubStation, u"a <b> c", WebVtt, u"a &lt;b> c", {}},
          {SubStation, u"<q> & 1 < 2 &amp;", WebVtt, u"&lt;q> & 1 < 2 &amp;amp;", {}},
          {WebVtt, u"&lt;q> x", SubRip, u"<q> x", {}},
          {SubRip, u"I <3 you <you>", Sami, u"I <3 you &lt;you>", {}}});
}

TEST(Markup, ViewersSeeNoMarks) {
  EXPECT_EQ(VisibleText(u"{\\an8}<i>a</i> <unknown> <3 {b}", MarkKind::SubRip, u"|"), u"a <unknown> <3 {b}");
  EXPECT_EQ(VisibleText(u"a\\nb{\\i1}c{", MarkKind::SubStation, u"|"), u"a bc{");
  EXPECT_EQ(VisibleText(u"<v Ann>a &lt;i&gt;", MarkKind::WebVtt, u"|"), u"a <i>");
  EXPECT_EQ(VisibleText(u"<v Ann>a|<v Bob>b", MarkKind::WebVtt, u"|"), u"a|Bob: b");
  EXPECT_EQ(VisibleText(u"/a|_b", MarkKind::Mpl2, u"|"), u"a|b");
  EXPECT_EQ(VisibleText(u"a < b > c", MarkKind::SubRip, u"|"), u"a < b > c");
}

TEST(Markup, HostileTextsTakeNoTime) {
  const std::size_t size = 1 << 17;
  for (const TextView piece : {u"<", u"{", u"<b>", u"</i>", u"{\\", u"&lt;a", u"<a", u"\\n", u"{\\t("}) {
    Text text;
    while (text.size() < size) text += piece;
    for (const MarkKind kind : {MarkKind::SubRip, MarkKind::WebVtt, MarkKind::SubStation, MarkKind::MicroDvd}) {
      EXPECT_LE(VisibleText(text, kind, u"|").size(), text.size());
    }
  }
}

TEST(Markup, ColoursAreReadInEveryForm) {
  EXPECT_EQ(WebColour(u"#abc"), 0xAABBCCu);
  EXPECT_EQ(WebColour(u"FF8000"), 0xFF8000u);
  EXPECT_EQ(WebColour(u"#FF800080"), 0xFF8000u);
  EXPECT_EQ(WebColour(u" Teal "), 0x008080u);
  EXPECT_EQ(WebColour(u"rgb(1, 2,255)"), 0x0102FFu);
  EXPECT_EQ(WebColour(u"rgba(1,2,256,0)"), std::nullopt);
  EXPECT_EQ(WebColour(u"nothing"), std::nullopt);
  EXPECT_EQ(ColourWithRedLast(u"&H000080FF&"), 0xFF8000u);
  EXPECT_EQ(ColourWithRedLast(u"$0080ff"), 0xFF8000u);
  EXPECT_EQ(ColourWithRedLast(u"$"), std::nullopt);
}

}  // namespace
}  // namespace cuewright::testing
