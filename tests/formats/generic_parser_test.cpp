#include <gtest/gtest.h>

#include "formats/record_pieces.h"
#include "tests/formats/format_rig.h"
#include "tests/formats/reading_ways.h"
#include "tests/support/printers.h"

namespace cuewright::testing {
namespace {

using Captions = std::vector<Caption>;

/// A catalogue of one format beside plain text.
struct OwnFormat : FormatRig {
  OwnFormat(const std::string& ini, const std::string& record)
      : FormatRig("[OWN]\n" + ini,
                  "PLAINTEXT\nOWN\n</FORMATSLIST>\n---PLAINTEXT FORMAT---\n{SubRepeat}\nqxmStart qxmEnd "
                  "qxmCaption\n{/SubRepeat}\n---END FORMAT DEFINITION---\n---OWN FORMAT---\n{SubRepeat}\n" +
                      record + "{/SubRepeat}\n---END FORMAT DEFINITION---\n") {}

  Captions Recognised(const std::string& lines) {
    EXPECT_EQ(Open("file", CrLf(lines)), u"OWN");
    const bool nothing = captions.Rows() == 2 && captions.At(1) == Caption{};
    return nothing ? Captions{} : Rows();
  }
};

RecordPieces PiecesOf(const std::string& ini, const std::string& record, int* error = nullptr) {
  OwnFormat rig(ini, record);
  EXPECT_TRUE(rig.loader.LoadFormatDefinition(u"OWN"));
  CarryOn errors;
  RecordPieces pieces = CutRecord(rig.loader.Definition(), errors);
  if (error != nullptr) *error = errors.Last() ? errors.Last()->number : 0;
  return pieces;
}

TEST(CutRecord, GivesThePiecesOfARecordOfOneLine) {
  const RecordPieces pieces = PiecesOf("", "{qxmStart}{qxmEnd}qxmCaption\n");
  EXPECT_EQ(pieces.StartLead, u"{");
  EXPECT_EQ(pieces.StartTrail, u"}{");
  EXPECT_EQ(pieces.EndLead, u"}{");
  EXPECT_EQ(pieces.EndTrail, u"}");
  EXPECT_EQ(pieces.CaptionLead, u"}");
  EXPECT_EQ(pieces.CaptionTrail, u"\r");
}

TEST(CutRecord, GivesThePiecesOfARecordOfThreeLines) {
  const RecordPieces pieces = PiecesOf("", "qxmStart,qxmEnd\nqxmCaption\n\n");
  EXPECT_EQ(pieces.StartLead, u"");
  EXPECT_EQ(pieces.StartTrail, u",");
  EXPECT_EQ(pieces.EndLead, u",");
  EXPECT_EQ(pieces.EndTrail, u"\r");
  EXPECT_EQ(pieces.CaptionLead, u"");
  EXPECT_EQ(pieces.CaptionTrail, u"\r");
}

TEST(CutRecord, MasksDigitsAndTakesTheCounterOff) {
  const RecordPieces pieces = PiecesOf("", "qxmSubCount,1,\"qxmStart\",\"qxmEnd\",9,\"qxmCaption\"\n");
  EXPECT_EQ(pieces.StartLead, u",0,\"");
  EXPECT_EQ(pieces.EndTrail, u"\",0,\"");
  EXPECT_EQ(pieces.CaptionTrail, u"\"\r");
}

TEST(CutRecord, LetsTheLeadRunIntoThePlaceholderWhenACounterStandsInFrontAndTheEndIsLast) {
  const RecordPieces pieces = PiecesOf("", "qxmSubCount: qxmStart qxmCaption qxmEnd\n");
  EXPECT_EQ(pieces.StartLead, u": qxmStart qx");
}

TEST(CutRecord, GivesThePiecesOfStartTextEnd) {
  const RecordPieces pieces = PiecesOf("", "{T qxmStart\nqxmCaption\n}\n{T qxmEnd\n\n}\n");
  EXPECT_EQ(pieces.StartLead, u"{T ");
  EXPECT_EQ(pieces.StartTrail, u"\r");
  EXPECT_EQ(pieces.CaptionLead, u"");
  EXPECT_EQ(pieces.CaptionTrail, u"\r");
  EXPECT_EQ(pieces.EndLead, u"{T ");
  EXPECT_EQ(pieces.EndTrail, u"\r");
}

TEST(CutRecord, PassesTwoLineEndsInALead) {
  EXPECT_EQ(PiecesOf("", "a\nb\nc qxmStart qxmEnd qxmCaption\n").StartLead, u"c ");
  EXPECT_EQ(PiecesOf("", "a\nb\nc\nd qxmStart qxmEnd qxmCaption\n").StartLead, u"c\r\nd ");
}

TEST(CutRecord, IsARunTimeErrorForPlaceholdersOutOfOrder) {
  int error = 0;
  const RecordPieces pieces = PiecesOf("", "qxmEnd qxmCaption qxmStart\n", &error);
  EXPECT_EQ(error, kErrorInvalidCall);
  EXPECT_EQ(pieces.StartTrail, u"");
}

TEST(GenericStartEndText, ReadsARecordOfOneLine) {
  OwnFormat rig("timecode=hh:mm:ss:ff\nsample=00:00:00:00,00:00:00:00,\nlbreak=|\n", "qxmStart,qxmEnd,qxmCaption\n");
  EXPECT_EQ(
      rig.Recognised("$FontName = Arial\n00:00:12:10,00:00:15:05,one|two, three\n\n00:00:16:00,00:00:19:20,four\n"),
      (Captions{{12400, 15200, u"one|two, three"}, {16000, 19800, u"four"}}));
}

TEST(GenericStartEndText, ReadsARecordOfThreeLines) {
  OwnFormat rig("timecode=h:mm:ss.zzz\nsample=0:00:00.000,0:00:00.000\n", "qxmStart,qxmEnd\nqxmCaption\n\n");
  EXPECT_EQ(rig.Recognised("0:00:12.400,0:00:15.200\none\n\n0:00:16.000,0:00:19.800\ntwo\nthree\n\n"),
            (Captions{{12400, 15200, u"one"}, {16000, 19800, u"two|three"}}));
}

TEST(GenericStartEndText, EndsACaptionAtTheNextTimingLineWithoutAnEmptyOne) {
  OwnFormat rig("timecode=h:mm:ss.zzz\nsample=0:00:00.000,0:00:00.000\n", "qxmStart,qxmEnd\nqxmCaption\n\n");
  EXPECT_EQ(rig.Recognised("0:00:12.400,0:00:15.200\none\n0:00:16.000,0:00:19.800\ntwo\n"),
            (Captions{{12400, 15200, u"one"}, {16000, 19800, u"two"}}));
}

TEST(GenericStartEndText, TakesThePlaceOfAFieldFromTheMaskedLine) {
  OwnFormat rig("timecode=ff\nsample=!-->> 00\nlbreak=|\n", "-->> qxmStart, qxmEnd\nqxmCaption\n\n");
  EXPECT_EQ(rig.Recognised("-->> 000025, 000050\none\n\n"), (Captions{{1000, 2000, u"one"}}));
}

TEST(GenericStartEndText, DoesNotReadAFieldOf13CharactersOrMore) {
  OwnFormat rig("timecode=ms\nsample=[00\nlbreak=|\n", "[qxmStart][qxmEnd] qxmCaption\n");
  EXPECT_EQ(rig.Recognised("[000000001000][000000002000] fits\n[0000000003000][000000004000] too long\n"),
            (Captions{{1000, 2000, u"fits"}}));
}

TEST(GenericStartEndText, LosesACaptionWithoutTextIntoTheNextLine) {
  OwnFormat rig("timecode=ff\nsample={00}{00}\nlbreak=|\n", "{qxmStart}{qxmEnd}qxmCaption\n");
  EXPECT_EQ(rig.Recognised("{25}{50}\n{75}{100}two\n"), (Captions{{1000, 2000, u"{75}{100}two"}}));
}

TEST(GenericStartEndText, LosesColumnsBeyond255) {
  OwnFormat rig("timecode=ff\nsample={00}{00}\nlbreak=|\n", "{qxmStart}{qxmEnd}qxmCaption\n");
  // With CR the line's text ends at column 255, and one character more is past what a column holds.
  const std::string fits(246, 'x');
  EXPECT_EQ(rig.Recognised("{25}{50}" + fits + "\n"), (Captions{{1000, 2000, FromUtf8(fits)}}));
  EXPECT_TRUE(rig.messages.shown.empty());
  rig.Recognised("{25}{50}" + fits + "xx\n{75}{99}two\n{125}{150}three\n");
  EXPECT_EQ(rig.captions.At(rig.captions.Rows() - 1), (Caption{5000, 6000, u"three"}));
  ASSERT_FALSE(rig.messages.shown.empty());
  EXPECT_TRUE(rig.messages.shown.back().text.ends_with(u"Error #6: Overflow"));
}

TEST(GenericStartTextEnd, ReadsTheEndFromALaterLine) {
  OwnFormat rig("timecode=hh:mm:ss:zz\nsample={T 00:00:00:00!\n", "{T qxmStart\nqxmCaption\n}\n{T qxmEnd\n\n}\n");
  EXPECT_EQ(rig.Recognised(
                "{T 00:00:12:40\none\n}\n{T 00:00:15:20\n\n}\n{T 00:00:16:00\ntwo\nthree\n}\n{T 00:00:19:80\n\n}\n"),
            (Captions{{12400, 15200, u"one"}, {16000, 19800, u"two|three"}}));
}

TEST(GenericStartTextEnd, ReadsTextOnTheLineOfItsStart) {
  OwnFormat rig("timecode=hh:mm:ss\nsample=[00:00:00]\nlbreak=|\n", "[qxmStart]qxmCaption\n[qxmEnd]\n");
  EXPECT_EQ(rig.Recognised("[00:00:12]one|two\n[00:00:15]\n[00:00:16]three\n[00:00:19]\n"),
            (Captions{{12000, 15000, u"one|two"}, {16000, 19000, u"three"}}));
}

TEST(GenericStartTextEnd, TakesTheEndOfAWholeSecondsFormatFromALaterLineWhenItEqualsTheStart) {
  OwnFormat rig("timecode=hh:mm:ss\nsample=[00:00:00]\nlbreak=|\n", "[qxmStart]qxmCaption\n[qxmEnd]\n");
  // The second stamp equals the first, so the next timing line completes the record.
  EXPECT_EQ(rig.Recognised("[00:00:12]one\n[00:00:12]\n[00:00:13]two\n"), (Captions{{12000, 13000, u"one"}}));
}

TEST(GenericStartTextEnd, TakesTheStartLinesOwnStampForTheEndWhenTheTemplateHasFractions) {
  OwnFormat rig("timecode=mm:ss.zz\nsample=[00:00.00]\nlbreak=none\n", "[qxmStart]qxmCaption\n[qxmEnd]\n");
  EXPECT_EQ(rig.Recognised("[00:12.40]one\n[00:15.20]\n"), (Captions{{12400, 12400, u"one"}}));
}

TEST(GenericStartTextEnd, ReadsStartTextAndEndOfOneLine) {
  OwnFormat rig("timecode=hh:mm:ss.zz\nsample=00:00:00.00 [\nlbreak=|\n", "qxmStart [qxmCaption] qxmEnd\n");
  EXPECT_EQ(rig.Recognised("00:00:01.00 [one|two] 00:00:02.50\n00:00:03.00 [three] 00:00:04.00\n"),
            (Captions{{1000, 2500, u"one|two"}, {3000, 4000, u"three"}}));
}

// Lines of the plain form are taken apart without searching; both ways give the same.

TEST(GenericPlainLines, GiveWhatSearchingGives) {
  struct Form {
    const char* ini;
    const char* record;
    bool literal;
    FrameRate fps;
  };
  const Form forms[] = {
      {"timecode=ff\nlbreak=|\n", "{qxmStart}{qxmEnd}qxmCaption\n", false, 25.0},
      {"timecode=ms\nlbreak=|\n", "qxmStart,qxmEnd,qxmCaption\n", false, 0.0},
      {"timecode=ff\n", "-->> qxmStart -->> qxmEnd\nqxmCaption\n\n", false, 25.0},
      {"timecode=hh:mm:ss.zzz\ntags=7\ntagopen=<b>\ntagclose=</b>\n", "qxmStart --> qxmEnd\nqxmCaption\n\n", true, 0.0},
      {"timecode=hh:mm:ss.zzz\nlbreak=|\n", "[qxmStart --> qxmEnd]  qxmCaption\n", true, 0.0},
      {"timecode=hh:mm:ss:ff\nlbreak=//\n", "qxmStart qxmEnd qxmCaption\n", true, 25.0},
      {"timecode=hh:mm:ss:ff\nlbreak=//\n", "qxmStart qxmEnd qxmCaption\n", true, 23.976},
      {"timecode=ff\nlbreak=|\n", "{qxmStart}{qxmEnd}qxmCaption\n", false, 29.97},
  };
  const std::vector<std::string> lines = {"",
                                          "",
                                          "text",
                                          "off course",
                                          "7",
                                          "a 12 b",
                                          "{25}{50}one",
                                          "{1}{2}",
                                          "{}{5}x",
                                          "{123456789012}{5}x",
                                          "{1234567890123}{5}x",
                                          "x{1}{2}y",
                                          "{1}{2}" + std::string(247, 'x'),
                                          "{1}{2}" + std::string(248, 'x'),
                                          "{1}{2}" + std::string(249, 'x'),
                                          "{9}{10}{y:i}z",
                                          "100,200,word",
                                          "1,2",
                                          "99999999999,5,over",
                                          "-->> 10 -->> 20",
                                          "-->> 10 -->> 20 more",
                                          "-->> 10",
                                          "00:00:01.000 --> 00:00:02.000",
                                          "00:00:03.500 --> 00:00:04.000 align:start",
                                          "[00:00:01.000 --> 00:00:02.000]  bracket",
                                          "[00:00:01.000 --> 00:00:02.000] near",
                                          "00:00:01:10 00:00:02:05 pair",
                                          "00:00:01:10 00:00:02:05",
                                          "0:00:01:10 00:00:02:05 short",
                                          "see 00:00:01:10 00:00:02:05 inside"};
  std::uint32_t state = 11;
  const auto next = [&](std::size_t below) {
    return static_cast<std::size_t>((state = state * 1664525u + 1013904223u) >> 16) % below;
  };
  for (const Form& form : forms) {
    OwnFormat rig(form.ini, form.record);
    for (int round = 0; round < 200; ++round) {
      const bool exact = round % 2 == 0;
      std::string content;
      for (int i = 0; i < 60; ++i) content += lines[next(lines.size())] + "\r\n";
      const LinesOf read{u"OWN", TextFile::Auto(content, rig.encodings), form.literal, {form.fps, exact}};
      const Captions plain = ReadLines(Way::ParserAlone, rig.loader, rig.options.lineSeparator, read);
      ASSERT_EQ(ReadLines(Way::ParserAndRun, rig.loader, rig.options.lineSeparator, read), plain)
          << form.record << content;
    }
  }
}

TEST(GenericLines, DropACaptionOfBlanks) {
  OwnFormat rig("timecode=ff\nsample={00}{00}\nlbreak=|\n", "{qxmStart}{qxmEnd}\"qxmCaption\"\n");
  EXPECT_EQ(rig.Recognised("{25}{50}\"  \"\n{75}{100}\"two\"\n"), (Captions{{3000, 4000, u"two"}}));
}

TEST(GenericLines, ReplaceTheLineBreakOfTheFormat) {
  for (const std::string lineBreak : {"//", "[br]", "<br/>", "~", "\\n"}) {
    OwnFormat rig("timecode=ff\nsample={00}{00}\nlbreak=" + lineBreak + "\n", "{qxmStart}{qxmEnd}qxmCaption\n");
    EXPECT_EQ(rig.Recognised("{25}{50}one" + lineBreak + "two" + lineBreak + "three\n"),
              (Captions{{1000, 2000, u"one|two|three"}}))
        << lineBreak;
  }
}

TEST(GenericLines, LookForNoLineBreakNamedNone) {
  OwnFormat rig("timecode=ff\nsample={00}{00}\nlbreak=none\n", "{qxmStart}{qxmEnd}qxmCaption\n");
  EXPECT_EQ(rig.Recognised("{25}{50}nonesuch is gone\n"), (Captions{{1000, 2000, u"nonesuch is gone"}}));
}

TEST(GenericLines, UseTheUsersSeparator) {
  OwnFormat rig("timecode=ff\nsample={00}{00}\nlbreak=|\n", "{qxmStart}{qxmEnd}qxmCaption\n");
  rig.options.lineSeparator = u"/n";
  EXPECT_EQ(rig.Recognised("{25}{50}one|two\n"), (Captions{{1000, 2000, u"one/ntwo"}}));
}

}  // namespace
}  // namespace cuewright::testing
