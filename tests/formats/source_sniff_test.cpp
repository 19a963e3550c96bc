#include <gtest/gtest.h>

#include "formats/source/sniff.h"
#include "tests/support/printers.h"

namespace cuewright::testing {
namespace {

TEST(SniffFormat, TellsWhatIsSure) {
  struct Case {
    TextView head;
    TextView format;
  };
  constexpr Case kCases[] = {
      {u"WEBVTT", u"WEBVTT"},
      {u"WEBVTT - a film\n\n1\n00:00:01,000 --> 00:00:02,000", u"WEBVTT"},
      {u"WEBVTT\n\n00:01.000 --> 01:00:02.000\nx", u"WEBVTT_RSS"},
      {u"\n[Script Info]\nScriptType: v4.00+\n", u"ADVANCEDSSA"},
      {u"[V4+ Styles]\nStyle: x\n[Events]\n", u"ADVANCEDSSA"},
      {u"[script info]\r\n; x\r\nscripttype: V4.00\r\n", u"SUBSTATIONALPHA"},
      {u"<?xml version='1.0'?>\n<!-- <sami> -->\n<tt:tt xmlns:tt='x'>", u"TTML"},
      {u"<tt>", u"TTML"},
      {u" <SAMI>\n", u"SAMI"},
      {u"{QTtext} {font:x}\n", u"QUICKTIMETEXT"},
      {u"{1}{1}25\n", u"MICRODVD"},
      {u"{10}{}x\n", u"MICRODVD"},
      {u"[10][20]x\n", u"MPL2"},
      {u"0:00:12.400,0:00:15.200\nx", u"YOUTUBESBV"},
      {u"00:00:12.40,00:00:15.20\nx", u"SUBVIEWER2"},
      {u"[INFORMATION]\n[TITLE]\n[SUBTITLE]\n00:00:12.40,00:00:15.20\nx", u"SUBVIEWER2"},
      {u"1\n00:00:12,400 --> 00:00:15,200\nx", u"SUBRIP"},
      {u"\n\n1\n0:00:12.4-->0:00:15.2 X1:5\nx", u"SUBRIP"},
      {u"1\n00:12,400 -> 00:15,200\nx", u"SUBRIP"},
      {u"1\n00: 00:12, 400 --> 00:00:15,200\nx", u"SUBRIP"},
      {u"00:00:12.400,00:00:15.200\nx\n", u"YOUTUBESBV"},
      {u"00:00:12:10 men\n00:00:15:x\n", u"TMPLAYERCOLON"},
      {u"[ti:A song]\n[00:12.40]x", u"KARAOKELRC"},
      {u"[00:12]x", u"KARAOKELRC"},
      {u"[ti:A song]\n[00:12:40]x", u"KARAOKELRC"},
      {u"{\"segments\": [{\"start\": 1, \"end\": 2, \"text\": \"x\"}]}", u"TRANSCRIPTJSON"},
      {u"00:00:12,1=x\n", u"TMPLAYER"},
      {u"0:00:12=x\n0:00:15=\n", u"TMPLAYERPLUS"},
      {u"00:00:12:x\n00:00:15:\n", u"TMPLAYERCOLON"},
  };
  for (const auto& [head, format] : kCases) EXPECT_EQ(SniffFormat(head), Text(format)) << Text(head).size();
}

TEST(SniffFormat, LeavesOpenWhatIsNot) {
  for (const TextView head :
       {u"", u"words\nand words", u"WEBVTTX", u"00:00:12:10 00:00:15:05 x", u"00:00:12:10,x\n00:00:15:05,y", u"<html>",
        u"[00:00:12.40]\nx", u"[00:12:40]x", u"12\nwords", u"[00:12.400 --> 00:15.200] x", u"0:00:12.400,0:00:15.200,x",
        u"{a}{b}", u"<?xml", u"<!--", u"12:00:00: it was noon", u"00:00:12,400 --> 00:00:15,200\nx", u"[Events]\n",
        u"[00012400][00015200]x"}) {
    EXPECT_EQ(SniffFormat(head), std::nullopt) << Text(head).size();
  }
}

}  // namespace
}  // namespace cuewright::testing
