#include <gtest/gtest.h>

#include "formats/document_marks.h"
#include "formats/source/cue_settings.h"
#include "tests/formats/format_rig.h"

// Who speaks and where a caption stands are kept beside its text in some formats, and carried over between them.

namespace cuewright::testing {
namespace {

const std::string kScript =
    "[Script Info]\nScriptType: v4.00+\n\n[V4+ Styles]\n"
    "Format: Name, Fontname, Alignment, Encoding\nStyle: Default,Arial,2,1\nStyle: Sign,Arial,8,1\n\n[Events]\n"
    "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
    "Dialogue: 0,0:00:01.00,0:00:02.00,Default,Ann & Bob,0,0,0,,Hello\n"
    "Dialogue: 0,0:00:03.00,0:00:04.00,Sign,,0,0,0,,Exit\n"
    "Dialogue: 0,0:00:05.00,0:00:06.00,Default,,0,0,0,,Bye\n";

const std::string kCues =
    "WEBVTT\n\n00:01.000 --> 00:02.000\n<v Ann>Hello\n\n00:03.000 --> 00:04.000 line:0 align:left\nExit\n\n"
    "00:05.000 --> 00:06.000 line:90%\nBye\n\n";

std::string Converted(const std::string& name, const std::string& content, TextView to, Losses* lost = nullptr) {
  FormatRig rig;
  rig.Open(name, content);
  const std::string saved = rig.Save(to);
  if (lost != nullptr) *lost = rig.exporter.Lost();
  return saved;
}

bool Has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST(Beside, SpeakersAndPlacesOfAScriptStandInCues) {
  Losses lost;
  const std::string saved = Converted("a.ass", kScript, u"WEBVTT", &lost);
  EXPECT_TRUE(Has(saved, "--> 00:00:02.000\r\n<v Ann & Bob>Hello\r\n")) << saved;
  EXPECT_TRUE(Has(saved, "--> 00:00:04.000 line:0\r\nExit\r\n")) << saved;
  EXPECT_TRUE(Has(saved, "--> 00:00:06.000\r\nBye\r\n")) << saved;
  EXPECT_FALSE(lost.Any());
}

TEST(Beside, SpeakersAndPlacesOfCuesStandInAScript) {
  Losses lost;
  const std::string saved = Converted("a.vtt", kCues, u"ADVANCEDSSA", &lost);
  EXPECT_TRUE(Has(saved, ",Default,Ann,0,0,0,,Hello\r\n")) << saved;
  EXPECT_TRUE(Has(saved, ",Default,,0,0,0,,{\\an7}Exit\r\n")) << saved;
  EXPECT_TRUE(Has(saved, ",Default,,0,0,0,,Bye\r\n")) << saved;
  EXPECT_FALSE(lost.Any());
  const std::string old = Converted("a.vtt", kCues, u"SUBSTATIONALPHA");
  EXPECT_TRUE(Has(old, ",Default,Ann,0000,")) << old;
  EXPECT_TRUE(Has(old, ",Default,NTP,0000,")) << old;
}

TEST(Beside, TimedTextGetsRegionsAndAgents) {
  const std::string saved = Converted("a.ass", kScript, u"TTML");
  EXPECT_TRUE(Has(saved, "xmlns:tts=\"http://www.w3.org/ns/ttml#styling\"")) << saved;
  EXPECT_TRUE(Has(saved, "xmlns:ttm=\"http://www.w3.org/ns/ttml#metadata\"")) << saved;
  EXPECT_TRUE(Has(saved, "<ttm:name type=\"full\">Ann &amp; Bob</ttm:name>")) << saved;
  EXPECT_TRUE(Has(saved, " region=\"place2\" ttm:agent=\"speaker1\">Hello</p>")) << saved;
  EXPECT_TRUE(Has(saved, " region=\"place8\">Exit</p>")) << saved;
  const std::string back = Converted("b.ttml", saved, u"ADVANCEDSSA");
  EXPECT_TRUE(Has(back, ",Default,Ann & Bob,0,0,0,,Hello\r\n")) << back;
  EXPECT_TRUE(Has(back, ",Default,,0,0,0,,{\\an8}Exit\r\n")) << back;
  EXPECT_TRUE(Has(back, ",Default,,0,0,0,,Bye\r\n")) << back;
}

TEST(Beside, TagsOfSubRipTellThePlaceOfACue) {
  const std::string saved = Converted("a.srt", "1\n00:00:01,000 --> 00:00:02,000\n{\\an9}a\n\n", u"WEBVTT");
  EXPECT_TRUE(Has(saved, "--> 00:00:02.000 line:0 align:right\r\na\r\n")) << saved;
}

TEST(Beside, WhatSubRipHasNoPlaceForIsLost) {
  Losses lost;
  const std::string saved = Converted("a.ass", kScript, u"SUBRIP", &lost);
  EXPECT_TRUE(Has(saved, "\r\n{\\an8}Exit\r\n")) << saved;
  EXPECT_EQ(lost.Of(Loss::Speaker), 1u);
  EXPECT_EQ(lost.Of(Loss::Position), 0u);
  (void)Converted("a.ass", kScript, u"YOUTUBESBV", &lost);
  EXPECT_EQ(lost.Of(Loss::Speaker), 1u);
  EXPECT_EQ(lost.Of(Loss::Position), 1u);
}

TEST(Beside, TheOtherKindOfScriptKeepsThem) {
  const std::string saved = Converted("a.ass", kScript, u"SUBSTATIONALPHA");
  EXPECT_TRUE(Has(saved, ",Default,Ann & Bob,0000,0000,0000,!Effect,Hello\r\n")) << saved;
  EXPECT_TRUE(Has(saved, "!Effect,{\\an8}Exit\r\n")) << saved;
}

TEST(Beside, OldScriptsCountPlacesInTheirOwnWay) {
  const std::string saved = Converted("a.ssa",
                                      "[Script Info]\nScriptType: v4.00\n\n[V4 Styles]\n"
                                      "Format: Name, Fontname, Alignment\nStyle: Default,Arial,2\nStyle: Top,Arial,6\n"
                                      "Style: Middle,Arial,9\n\n[Events]\n"
                                      "Dialogue: Marked=0,0:00:01.00,0:00:02.00,*Top,NTP,0,0,0,,a\n"
                                      "Dialogue: Marked=0,0:00:03.00,0:00:04.00,Middle,NTP,0,0,0,,b\n",
                                      u"SUBRIP");
  EXPECT_TRUE(Has(saved, "\r\n{\\an8}a\r\n")) << saved;
  EXPECT_TRUE(Has(saved, "\r\n{\\an4}b\r\n")) << saved;
}

TEST(Beside, ThePreviewIsToldThePlace) {
  FormatRig rig;
  rig.Open("a.vtt", kCues);
  const DocumentMarks marks(rig.state);
  EXPECT_EQ(marks.ReadOf(rig.captions.At(2).origin, u"a", u"|").place, 7);
  EXPECT_EQ(marks.ReadOf(rig.captions.At(3).origin, u"a", u"|").place, 2);
  EXPECT_EQ(marks.ReadOf(0, u"a", u"|").place, 2);
}

TEST(Beside, CueSettingsNameTheNearestPlace) {
  for (const auto& [settings, place] : std::initializer_list<std::pair<std::string_view, int>>{
           {"", 2},
           {" line:0", 8},
           {" line:-1", 2},
           {" line:13", 2},
           {" line:7 align:end", 6},
           {"\tline:10%,start position:10% align:center size:30%", 7},
           {" align:start position:50%", 2},
           {" position:90%,line-right align:right line:50%", 6},
           {" region:x vertical:rl line:", 2}}) {
    EXPECT_EQ(PlaceOfCue(settings), place) << settings;
  }
  for (int place = 1; place <= 9; ++place) EXPECT_EQ(PlaceOfCue(ToUtf8(SettingsOfPlace(place))), place);
}

TEST(Beside, RegionsOfTimedTextNameTheNearestPlace) {
  const std::string saved = Converted(
      "a.ttml",
      "<tt xmlns='http://www.w3.org/ns/ttml' xmlns:t='http://www.w3.org/ns/ttml#styling' t:extent='1280px 720px'>"
      "<head><layout><region xml:id='low' t:origin='10% 80%' t:extent='80% 15%' t:displayAlign='after'/>"
      "<region xml:id='high'><style t:origin='128px 36px'/><style t:textAlign='right'/></region></layout></head>"
      "<body><div region='high'><p begin='1s' end='2s'>a</p><p begin='3s' end='4s' "
      "region='low'>b</p></div></body></tt>",
      u"SUBRIP");
  EXPECT_TRUE(Has(saved, "\r\n{\\an9}a\r\n")) << saved;
  EXPECT_TRUE(Has(saved, "\r\nb\r\n")) << saved;
}

/// A TTML file with these styles in its head and this in its body.
std::string Styled(const std::string& styles, const std::string& body) {
  return "<tt xmlns='http://www.w3.org/ns/ttml' xmlns:tts='http://www.w3.org/ns/ttml#styling'><head><styling>" +
         styles + "</styling><layout><region xml:id='r' tts:color='#00ff00'/></layout></head><body>" + body +
         "</body></tt>";
}

TEST(Beside, StylesAroundTimedTextAreCarriedOver) {
  const std::string styles =
      "<style xml:id='late' style='slanted fat'/><style xml:id='slanted' tts:fontStyle='italic' tts:color='white'/>"
      "<style xml:id='fat' tts:fontWeight='bold'/>";
  struct Case {
    const char* body;
    const char* text;
  };
  const Case cases[] = {
      {"<div><p begin='1s' end='2s' tts:fontStyle='italic'>a</p></div>", "<i>a</i>"},
      {"<div tts:textDecoration='underline'><p begin='1s' end='2s'>a<br/>b</p></div>", "<u>a\r\nb</u>"},
      {"<div style='slanted'><p begin='1s' end='2s' tts:fontStyle='normal'>a</p></div>", "a"},
      {"<div><p begin='1s' end='2s' style='late'>a</p></div>", "<b><i>a</i></b>"},
      {"<div><p begin='1s' end='2s' tts:color='#ff0000'>a</p></div>", "<font color=\"#ff0000\">a</font>"},
      {"<div region='r'><p begin='1s' end='2s'>a</p></div>", "{\\an8}<font color=\"#00ff00\">a</font>"},
      {"<div region='r'><p begin='1s' end='2s' tts:color='white'>a</p></div>", "{\\an8}a"},
      {"<div><p begin='1s' end='2s'>a <span style='slanted'>b</span></p></div>", "a <i>b</i>"},
      {"<div><p begin='1s' end='2s'>a <span tts:fontStyle='normal' style='late'>b</span></p></div>", "a <b>b</b>"},
      {"<div style='slanted'><p begin='1s' end='2s'>a <span tts:fontStyle='normal'>b</span></p></div>", "<i>a </i>b"},
      {"<div><p begin='1s' end='2s' style='none'>a</p></div>", "a"},
  };
  for (const auto& [body, text] : cases) {
    const std::string saved = Converted("a.ttml", Styled(styles, body), u"SUBRIP");
    EXPECT_TRUE(Has(saved, "00:00:02,000\r\n" + std::string(text) + "\r\n")) << body << saved;
  }
}

TEST(Beside, ThePreviewIsToldTheStyle) {
  FormatRig rig;
  rig.Open("a.ttml", Styled("<style xml:id='x' tts:fontStyle='italic'/>",
                            "<p begin='1s' end='2s' style='x'>a</p><p begin='3s' end='4s'>b</p>"));
  const DocumentMarks marks(rig.state);
  EXPECT_TRUE(marks.ReadOf(rig.captions.At(1).origin, u"a", u"|").runs.at(0).style.italic);
  EXPECT_FALSE(marks.ReadOf(rig.captions.At(2).origin, u"b", u"|").runs.at(0).style.italic);
}

TEST(Beside, StylesOfTimedTextAreDeclared) {
  const std::string whole = Converted("a.srt", "1\n00:00:01,000 --> 00:00:02,000\n<i>a</i>\n\n", u"TTML");
  EXPECT_TRUE(Has(whole, "<tt xmlns=\"http://www.w3.org/ns/ttml\" xml:lang=\"en\" xmlns:tts=")) << whole;
  // A file that declares no styles gets one that says what it means.
  FormatRig rig;
  rig.Open("a.ttml", "<tt xmlns='http://www.w3.org/ns/ttml'><body><p begin='1s' end='2s'>a</p></body></tt>");
  rig.captions.SetCaptionText(1, u"<b><i>a");
  EXPECT_TRUE(Has(rig.Save(u"TTML"),
                  "<span xmlns:tts=\"http://www.w3.org/ns/ttml#styling\" tts:fontWeight=\"bold\" "
                  "tts:fontStyle=\"italic\">a</span></p>"));
}

TEST(ScriptHeader, IsLaidOutForTheFilmsPicture) {
  FormatRig rig;
  rig.Open("a.srt", "1\n00:00:01,000 --> 00:00:02,000\na\n\n");
  rig.state.FilmPicture = {1920, 1080};
  const std::string saved = rig.Save(u"ADVANCEDSSA");
  EXPECT_TRUE(Has(saved, "PlayResX: 1920\r\nPlayResY: 1080\r\n")) << saved;
  EXPECT_FALSE(Has(saved, "384")) << saved;
  // 24, 2, 1 and 20 of 288 pixels, 20 of 384.
  EXPECT_TRUE(Has(saved, "Style: Default,Tahoma,90,")) << saved;
  EXPECT_TRUE(Has(saved, ",1,8,4,2,100,100,75,1\r\n")) << saved;
  EXPECT_TRUE(Has(rig.Save(u"SUBSTATIONALPHA"), "ScriptType: v4.00\r\nPlayResX: 1920\r\nPlayResY: 1080\r\n"));
  rig.options.manner.SetClassic(true);
  EXPECT_TRUE(Has(rig.Save(u"ADVANCEDSSA"), "PlayResX: 384\r\n"));
}

}  // namespace
}  // namespace cuewright::testing
