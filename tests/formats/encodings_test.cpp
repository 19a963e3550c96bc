#include "text/encodings.h"

#include <gtest/gtest.h>

#include "formats/convert_from_utf8.h"
#include "tests/formats/catalogue_documents.h"
#include "tests/formats/format_rig.h"
#include "tests/support/printers.h"
#include "text/utf8.h"

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

constexpr int kCodePages[] = {874,  932,  936,  949,  950,  1250, 1251, 1252,
                              1253, 1254, 1255, 1256, 1257, 1258, 1361, 65001};

std::string AllBytes() {
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

std::string Sixteen(TextView text, bool bigEndian) {
  return MakeCodec(bigEndian ? kCodePageUtf16Be : kCodePageUtf16Le)->Encoded(text);
}

std::string OneCaption(const std::string& text) { return "1\r\n00:00:01,000 --> 00:00:02,000\r\n" + text + "\r\n\r\n"; }

struct Sample {
  int codePage;
  const char* bytes;
  TextView text;
};

TEST(CodePage, DecodesAndEncodesItsOwnLetters) {
  for (const Sample& sample : {Sample{874, "\xA1\xD1\xB9", u"กัน"},
                               {932, "\x93\xFA\x96\x7B\\ ~", u"日本\\ ~"},
                               {936, "\xD6\xD0\xCE\xC4", u"中文"},
                               {949, "\xC7\xD1\xB1\xDB", u"한글"},
                               {950, "\xA4\xA4\xA4\xE5", u"中文"},
                               {1250, "\xE1\xF8\x9A", u"ářš"},
                               {1251, "\xC4\xE0", u"Да"},
                               {1252, "\xE9\x80\x81", u"é€\u0081"},
                               {1253, "\xE1\xE2", u"αβ"},
                               {1254, "\xFD\xF0", u"ığ"},
                               {1255, "\xE0\xE1", u"אב"},
                               {1256, "\xC7\xC8", u"اب"},
                               {1257, "\xE0\xE8", u"ąč"},
                               {1258, "\xF0\xF5", u"đơ"},
                               {1361, "\xD0\x65\x8B\x69\\", u"한글\\"},
                               {65001, "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\xAC", u"é€🎬"}}) {
    const auto codec = MakeCodec(sample.codePage);
    EXPECT_EQ(codec->Decoded(sample.bytes), sample.text) << sample.codePage;
    EXPECT_EQ(codec->Encoded(sample.text), sample.bytes) << sample.codePage;
    EXPECT_TRUE(codec->Holds(sample.text)) << sample.codePage;
  }
}

TEST(CodePage, OfOneByteACharacterGivesEveryByteBack) {
  for (const int codePage : {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258}) {
    const auto codec = MakeCodec(codePage);
    EXPECT_EQ(codec->Encoded(codec->Decoded(AllBytes())), AllBytes()) << codePage;
  }
}

TEST(CodePage, KeepsAsciiAsItIs) {
  std::string ascii;
  for (char c = 1; c < 127; ++c) ascii += c;
  for (const int codePage : kCodePages) {
    const auto codec = MakeCodec(codePage);
    EXPECT_EQ(codec->Decoded(ascii), FromUtf8(ascii)) << codePage;
    EXPECT_EQ(codec->Encoded(FromUtf8(ascii)), ascii) << codePage;
  }
}

TEST(CodePage, WritesAQuestionMarkForACharacterThatItLacks) {
  for (const int codePage : kCodePages) {
    if (codePage == kCodePageUtf8) continue;
    const auto codec = MakeCodec(codePage);
    EXPECT_FALSE(codec->Holds(u"a🎬b")) << codePage;
    EXPECT_EQ(codec->Encoded(u"a🎬b"), "a?b") << codePage;
  }
  EXPECT_EQ(MakeCodec(1252)->Encoded(u"ā"), "?") << "there is no best fit";
}

TEST(CodePage, SurvivesTruncatedAndInvalidSequences) {
  for (const int codePage : kCodePages) {
    const auto codec = MakeCodec(codePage);
    for (const std::string bytes :
         {"\x81", "\xFF", "a\xE0", "\xE0\xA0", "\xF0\x9F\x8E", "\xC0\x80", "\xED\xA0\x80", "\x80\x80\x80"}) {
      EXPECT_LE(codec->Decoded(bytes).size(), bytes.size()) << codePage;
    }
  }
}

TEST(CodePage, ThatIsUnknownCountsAsWestern) {
  EXPECT_EQ(Encodings(437).SystemCodePage(), 1252);
  EXPECT_EQ(Encodings(0).SystemCodePage(), 1252);
  EXPECT_EQ(Encodings(1250).SystemCodePage(), 1250);
}

TEST(Utf8, KeepsTheBytesOfAFileThatAreNone) {
  const auto codec = MakeCodec(kCodePageUtf8);
  for (const std::string bytes : {"a\xFFz", "\xC3", "\xE2\x82", "\xED\xA0\x80", "\xC3\xA9\x80"}) {
    EXPECT_EQ(codec->Encoded(codec->Decoded(bytes)), bytes);
  }
}

TEST(ExamineUtf8, TellsAsciiMultiByteAndInvalid) {
  const std::string fill(200, 'a');
  EXPECT_EQ(ExamineUtf8(""), Utf8Kind::Ascii);
  EXPECT_EQ(ExamineUtf8(fill), Utf8Kind::Ascii);
  for (const std::string sequence :
       {"\xC3\xA9", "\xE2\x82\xAC", "\xE0\xA4\x85", "\xED\x95\x9C", "\xF0\x9F\x8E\xAC", "\xF4\x8F\xBF\xBF"}) {
    for (std::size_t place = 0; place < 140; ++place) {
      std::string bytes = fill;
      bytes.insert(place, sequence);
      EXPECT_EQ(ExamineUtf8(bytes), Utf8Kind::MultiByte) << place;
      EXPECT_EQ(ExamineUtf8(bytes.substr(0, place + sequence.size())), Utf8Kind::MultiByte) << place;
      EXPECT_EQ(ExamineUtf8(bytes.substr(0, place + sequence.size() - 1)), Utf8Kind::Invalid) << place;
    }
  }
  for (const std::string sequence :
       {"\x80", "\xC0\xAF", "\xC1\xBF", "\xC3", "\xC3\xC3\xA9", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xE2\x82",
        "\xE2\x82\x82\x82", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\xC3\xA9\xA9"}) {
    for (std::size_t place = 0; place < 140; ++place) {
      std::string bytes = fill;
      bytes.insert(70, "\xC3\xA9\xC3\xA9");
      bytes.insert(place, sequence);
      EXPECT_EQ(ExamineUtf8(bytes), Utf8Kind::Invalid) << place << " " << ::testing::PrintToString(sequence);
    }
  }
}

TEST(DecodeUtf8, GivesTheSameFromEveryPlaceAndWithEverySlack) {
  const std::string text =
      "ASCII of more than sixteen bytes, \xC3\xA9t\xC3\xA9, \xE2\x82\xAC\xE2\x82\xAC, \xF0\x9F\x8E\xAC end";
  const std::string padded = text + std::string(16, '\xC3');
  for (std::size_t from = 0; from <= text.size(); ++from) {
    for (std::size_t length = 0; from + length <= text.size(); ++length) {
      const std::string_view part = std::string_view(padded).substr(from, length);
      Text plain(DecodedRoom(length), u'\0');
      Text slack(DecodedRoom(length), u'\0');
      plain.resize(DecodeUtf8(part, plain));
      slack.resize(DecodeUtf8(part, slack, Surrogates::AreInvalid, true));
      ASSERT_EQ(plain, slack);
      ASSERT_EQ(plain, FromUtf8(part));
      std::string back;
      AppendUtf8(plain, back);
      ASSERT_EQ(back, part);
    }
  }
}

TEST(BytesToText, EndsAtTheFirstNul) {
  const Encodings encodings(1252);
  EXPECT_EQ(encodings.BytesToText(std::string("a\xE9\0b", 4), kSystemCodePage), u"aé");
  EXPECT_EQ(encodings.BytesToText("\xC3\xA9", kCodePageUtf8), u"é");
  EXPECT_EQ(encodings.BytesToText("\xC3\xA9", 0), u"Ã©");
  EXPECT_EQ(encodings.BytesToText("a\xFFz", kCodePageUtf8), u"a\uFFFDz");
}

TEST(EncodeUtf8Line, GivesAnEmptyTextForAnEmptyOne) { EXPECT_EQ(Encodings(1252).EncodeUtf8Line(u""), u""); }

TEST(EncodeUtf8Line, SpreadsTheBytesByTheSystemsCodePage) {
  EXPECT_EQ(Encodings(1252).EncodeUtf8Line(u"é"), u"Ã©");
  EXPECT_EQ(Encodings(1250).EncodeUtf8Line(u"é"), u"Ă©");
}

TEST(AutoReading, TellsTheEncodingOfTheWholeFile) {
  struct Row {
    const char* name;
    std::string bytes;
    DocumentEncoding encoding;
    TextView text;
  };
  const Row rows[] = {
      {"ascii", OneCaption("plain"), {1252, false}, u"plain"},
      {"utf8", OneCaption("caf\xC3\xA9"), {kCodePageUtf8, false}, u"café"},
      {"utf8 with mark", "\xEF\xBB\xBF" + OneCaption("caf\xC3\xA9"), {kCodePageUtf8, true}, u"café"},
      {"ascii with mark", "\xEF\xBB\xBF" + OneCaption("plain"), {kCodePageUtf8, true}, u"plain"},
      {"code page", OneCaption("caf\xE9"), {1252, false}, u"café"},
      {"one bad byte at the end", OneCaption("caf\xC3\xA9") + "\xC3", {1252, false}, u"cafÃ©"},
      {"utf16 little",
       "\xFF\xFE" + Sixteen(FromUtf8(OneCaption("caf\xC3\xA9 \xF0\x9F\x8E\xAC")), false),
       {kCodePageUtf16Le, true},
       u"café 🎬"},
      {"utf16 big", "\xFE\xFF" + Sixteen(FromUtf8(OneCaption("caf\xC3\xA9")), true), {kCodePageUtf16Be, true}, u"café"},
  };
  for (const Row& row : rows) {
    FormatRig rig;
    rig.options.manner.SetClassic(true);
    EXPECT_EQ(rig.Open("a.srt", row.bytes), u"SUBRIP") << row.name;
    EXPECT_EQ(rig.state.Encoding, row.encoding) << row.name;
    EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, Text(row.text)}})) << row.name;
  }
}

TEST(AutoReading, KeepsEncodingAndMarkInASave) {
  const std::string file = OneCaption("caf\xC3\xA9 \xF0\x9F\x8E\xAC");
  for (const std::string& bytes :
       {"\xEF\xBB\xBF" + file, file, OneCaption("caf\xE9"), "\xFF\xFE" + Sixteen(FromUtf8(file), false),
        "\xFE\xFF" + Sixteen(FromUtf8(file), true)}) {
    FormatRig rig;
    rig.Open("a.srt", bytes);
    EXPECT_EQ(rig.Save(u"SUBRIP"), bytes);
    EXPECT_TRUE(rig.savedAsUtf8.empty());
  }
}

TEST(AutoReading, KeepsALoneSurrogateOfASixteenBitFile) {
  FormatRig rig;
  const std::string bytes = "\xFF\xFE" + Sixteen(FromUtf8(OneCaption("x")), false);
  std::string broken = bytes;
  broken.replace(broken.find('x'), 2, "\x00\xD8", 2);
  rig.Open("a.srt", broken);
  EXPECT_EQ(rig.Save(u"SUBRIP"), broken);
}

TEST(AutoReading, TakesAMarkForNoText) {
  FormatRig rig;
  EXPECT_EQ(rig.Open("a.txt", "\xEF\xBB\xBFwords"), u"PLAINTEXT");
  EXPECT_EQ(rig.Rows(), (Rows{{0, 0, u"words"}}));
}

TEST(AutoReading, EndsLinesAtLfInAFileWithoutCr) {
  FormatRig rig;
  std::string file = OneCaption("one\r\ntwo");
  std::erase(file, '\r');
  EXPECT_EQ(rig.Open("a.srt", file), u"SUBRIP");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"one|two"}}));
}

TEST(AutoReading, TakesCrCrLfForOneLineEnd) {
  FormatRig rig;
  std::string file;
  for (const char c : OneCaption("one\r\ntwo")) file += c == '\n' ? std::string("\r\n") : std::string(1, c);
  EXPECT_EQ(rig.Open("a.srt", file), u"SUBRIP");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"one|two"}}));
}

TEST(AutoReading, EndsLinesAtCrAlone) {
  FormatRig rig;
  std::string file = OneCaption("one\r\ntwo");
  std::erase(file, '\n');
  EXPECT_EQ(rig.Open("a.srt", file), u"SUBRIP");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"one|two"}}));
}

TEST(AutoReading, EndsNoLineAtALoneLfInAFileWithCrInTheClassicManner) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  EXPECT_EQ(rig.Open("a.txt", "one\ntwo\r\nthree"), u"PLAINTEXT");
  EXPECT_EQ(rig.Rows(), (Rows{{0, 0, u"one\ntwo"}, {0, 0, u"three"}}));
}

TEST(AutoReading, LineEndsMayMix) {
  FormatRig rig;
  const std::string text = "one\ntwo\r\nthree\rfour\r\r\nfive\n\nsix";
  EXPECT_EQ(rig.Open("a.txt", text), u"PLAINTEXT");
  EXPECT_EQ(TextsOf(rig.Rows()), (std::vector<Text>{u"one", u"two", u"three", u"four", u"five", u"six"}));
  EXPECT_EQ(rig.Save(u"PLAINTEXT"), text);
  // A format that the catalogue's record reads.
  const std::string lines =
      "00:00:01:00 00:00:02:00 one\n00:00:03:00 00:00:04:00 two\r\n"
      "00:00:05:00 00:00:06:00 three\r00:00:07:00 00:00:08:00 four\n";
  EXPECT_EQ(rig.Open("b.txt", lines), u"ADOBEENCORE");
  EXPECT_EQ(TextsOf(rig.Rows()), (std::vector<Text>{u"one", u"two", u"three", u"four"}));
  EXPECT_EQ(rig.Save(u"ADOBEENCORE", 25.0), lines);
}

TEST(AutoReading, KnowsUtf32AndSavesItAsItWas) {
  for (const int codePage : {kCodePageUtf32Le, kCodePageUtf32Be}) {
    for (const bool mark : {true, false}) {
      SCOPED_TRACE(std::to_string(codePage) + (mark ? " with mark" : ""));
      FormatRig rig;
      const std::string file = (mark ? std::string(MarkOf(codePage)) : std::string()) +
                               MakeCodec(codePage)->Encoded(u"1\n00:00:01,000 --> 00:00:02,000\nŻółw \U0001F422\n\n");
      EXPECT_EQ(rig.Open("a.srt", file), u"SUBRIP");
      EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"Żółw \U0001F422"}}));
      EXPECT_EQ(rig.state.Encoding, (DocumentEncoding{codePage, mark}));
      EXPECT_EQ(rig.Save(u"SUBRIP"), file);
    }
  }
}

TEST(AutoReading, TextWithFewZerosIsNoUtf32) {
  FormatRig rig;
  const std::string utf16 = MakeCodec(kCodePageUtf16Le)->Encoded(u"1\n00:00:01,000 --> 00:00:02,000\nx\n\n");
  rig.Open("a.srt", utf16);
  EXPECT_EQ(rig.state.Encoding, (DocumentEncoding{kCodePageUtf16Le, false}));
}

TEST(AutoReading, GivesANewDocumentUtf8WithoutAMark) {
  FormatRig rig;
  rig.Fill({{1000, 2000, u"café"}});
  EXPECT_EQ(rig.Save(u"PLAINTEXT"), "caf\xC3\xA9\r\n");
}

TEST(AutoReading, SavesUtf8AndTellsItWhenTheEncodingLacksACharacter) {
  FormatRig rig;
  rig.Open("a.srt", OneCaption("caf\xE9"));
  rig.captions.SetCaptionText(1, u"café ő");
  EXPECT_EQ(rig.Save(u"SUBRIP"), OneCaption("caf\xC3\xA9 \xC5\x91"));
  EXPECT_EQ(rig.savedAsUtf8, std::vector<int>{1252});
  EXPECT_EQ(rig.state.Encoding, DocumentEncoding{});
  rig.Save(u"SUBRIP");
  EXPECT_EQ(rig.savedAsUtf8.size(), 1u) << "told once: the document is UTF-8 now";
}

TEST(AutoReading, LooksForLackingCharactersInWhatIsWrittenOnly) {
  FormatRig rig;
  rig.Open("a.srt", OneCaption("caf\xE9"));
  rig.Fill({{1000, 2000, u"café"}, {3000, 4000, u"ő"}});
  rig.Choose(u"SUBRIP");
  rig.path = rig.folder / "saved";
  rig.exporter.ExportSubtitle(1);
  EXPECT_EQ(rig.folder.Read("saved"), OneCaption("caf\xE9"));
}

TEST(ClassicReading, KeepsAMarkAsThreeCharacters) {
  FormatRig rig;
  rig.options.readAs = u"classic";
  EXPECT_EQ(rig.Open("a.txt", "\xEF\xBB\xBFwords"), u"PLAINTEXT");
  EXPECT_EQ(rig.Rows(), (Rows{{0, 0, u"ï»¿words"}}));
}

TEST(ClassicReading, MatchesASampleBehindAMark) {
  FormatRig rig;
  EXPECT_EQ(rig.OpenClassic("a.srt", "\xEF\xBB\xBF" + OneCaption("x")), u"SUBRIP");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"x"}}));
}

TEST(ClassicReading, ReadsUtf8AsTheSystemsCodePage) {
  FormatRig rig;
  rig.OpenClassic("a.srt", OneCaption("caf\xC3\xA9"));
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"cafÃ©"}}));
}

TEST(ClassicReading, EndsNoLineAtLf) {
  FormatRig rig;
  EXPECT_EQ(rig.OpenClassic("a.txt", "one\ntwo\n"), u"PLAINTEXT");
  EXPECT_EQ(rig.Rows(), (Rows{{0, 0, u"one\ntwo\n"}}));
}

TEST(ClassicReading, TakesCrCrLfForTwoLineEnds) {
  FormatRig rig;
  EXPECT_EQ(rig.OpenClassic("a.srt", "00:00:01,000 --> 00:00:02,000\r\r\none\r\r\n"), u"SUBRIP");
  EXPECT_EQ(rig.captions.At(1), Caption{}) << "the empty line behind the times flushes nothing";
}

TEST(ClassicReading, WritesTheSystemsCodePageWithQuestionMarksAndTellsNothing) {
  FormatRig rig;
  rig.options.readAs = u"classic";
  rig.Fill({{1000, 2000, u"café ő"}});
  EXPECT_EQ(rig.Save(u"SUBRIP"), OneCaption("caf\xE9 ?"));
  EXPECT_TRUE(rig.savedAsUtf8.empty());
}

TEST(ClassicReading, WritesEncoreAsUtf8) {
  FormatRig rig;
  rig.options.readAs = u"classic";
  rig.Fill({{1000, 2000, u"café"}});
  EXPECT_EQ(rig.Save(u"ADOBEENCORE", 25), "00:00:01:00 00:00:02:00 caf\xC3\xA9\r\n");
}

TEST(AutoReading, WritesEncoreAsUtf8WhateverTheDocumentsEncoding) {
  FormatRig rig;
  rig.Open("a.srt", OneCaption("caf\xE9"));
  EXPECT_EQ(rig.Save(u"ADOBEENCORE", 25), "00:00:01:00 00:00:02:00 caf\xC3\xA9\r\n");
  EXPECT_EQ(rig.Save(u"SUBRIP"), OneCaption("caf\xE9"));
}

TEST(ConvertFromUtf8, RegainsTheBytesAndDecodesThem) {
  FormatRig rig;
  rig.OpenClassic("a.srt", OneCaption("caf\xC3\xA9"));
  rig.modified = false;
  ConvertCaptionsFromUtf8(rig.captions, rig.encodings);
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"café"}}));
  EXPECT_FALSE(rig.modified);
}

TEST(ConvertFromUtf8, IsWrittenInTheSystemsCodePageAgainUnlessTheFormatIsEncore) {
  FormatRig rig;
  rig.OpenClassic("a.srt", OneCaption("caf\xC3\xA9"));
  ConvertCaptionsFromUtf8(rig.captions, rig.encodings);
  EXPECT_EQ(rig.Save(u"SUBRIP"), OneCaption("caf\xE9"));
  EXPECT_EQ(rig.Save(u"ADOBEENCORE", 25), "00:00:01:00 00:00:02:00 caf\xC3\xA9\r\n");
}

TEST(ConvertFromUtf8, DamagesATextTheSecondTime) {
  FormatRig rig;
  rig.Fill({{1000, 2000, u"café"}});
  ConvertCaptionsFromUtf8(rig.captions, rig.encodings);
  EXPECT_EQ(rig.captions.At(1).text, u"caf\uFFFD");
}

}  // namespace
}  // namespace cuewright::testing
