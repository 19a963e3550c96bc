#include <gtest/gtest.h>

#include <algorithm>

#include "tests/formats/file_dice.h"
#include "tests/formats/plain_rules.h"
#include "tests/formats/ruled_format.h"

namespace cuewright::testing {
namespace {

std::string SubRipFile(Dice& dice) {
  FileWriter file(dice);
  Times times;
  const bool numbered = !dice.OneIn(4);
  const std::string sign = dice.OneOf({",", ",", "."});
  const int hours = dice.Between(1, 2);
  for (int i = 1, count = dice.Between(1, 12); i <= count; ++i) {
    times.Next(dice);
    std::string start = Clock(times.start, hours, sign, 3);
    std::string end = Clock(times.end, hours, sign, 3);
    if (dice.OneIn(12)) (dice.OneIn(2) ? start : end) = dice.OneOf({"", "soon", "00:0x:00,000", "00:00:0x,000"});
    if (dice.OneIn(15)) end += "  X1:100 X2:200 Y1:10 Y2:20";
    if (numbered && !dice.OneIn(10)) file.Line(std::to_string(dice.OneIn(10) ? dice.Below(99) : i));
    file.Line(start + dice.OneOf({" --> ", " --> ", "-->", "  -->\t"}) + end);
    if (dice.OneIn(12)) file.Line("");
    for (const std::string& line : TextOf(dice)) {
      if (!dice.OneIn(12)) file.Line(dice.OneOf({"", "", " "}) + line);
      if (dice.OneIn(15)) file.Line("");
    }
    for (int blank = dice.OneIn(6) ? dice.Below(3) : 1; blank > 0; --blank) file.Line(dice.OneIn(9) ? "  " : "");
  }
  return file.Taken();
}

std::string WebVttFile(Dice& dice) {
  FileWriter file(dice);
  Times times;
  file.Line(dice.OneOf({"WEBVTT", "WEBVTT - a title", "WEBVTT\tX"}));
  if (dice.OneIn(4)) file.Line("Kind: captions");
  file.Line("");
  for (int i = 1, count = dice.Between(1, 12); i <= count; ++i) {
    times.Next(dice);
    if (dice.OneIn(8)) file.Line(dice.OneOf({"NOTE a remark", "NOTE", "STYLE", "REGION", "a line of nothing"}));
    if (dice.OneIn(8)) file.Line("::cue { color: red }");
    if (!dice.OneIn(12)) file.Line("");
    const bool isShort = times.end < 3600000 && !dice.OneIn(3);
    std::string start = isShort ? ShortClock(times.start, 3) : Clock(times.start, 2, ".", 3);
    std::string end = isShort ? ShortClock(times.end, 3) : Clock(times.end, 2, ".", 3);
    if (dice.OneIn(12)) (dice.OneIn(2) ? start : end) = dice.OneOf({"", "soon", "00:0x.000"});
    if (dice.OneIn(3)) file.Line(dice.OneOf({std::to_string(i), "a name", "42"}));
    file.Line(start + dice.OneOf({" --> ", " --> ", "-->", "\t-->  "}) + end +
              dice.OneOf({"", "", " align:left line:0", "\tposition:10%", "line:0"}));
    for (std::string& line : TextOf(dice)) {
      if (dice.OneIn(9)) line += dice.OneOf({" &amp; co.", " &lt; 3", " a&b"});
      if (!dice.OneIn(12)) file.Line(dice.OneIn(12) ? " " : line);
    }
    if (!dice.OneIn(12)) file.Line("");
  }
  return file.Taken();
}

/// Lines of two numbers in brackets.
void NumberedPairs(Dice& dice, FileWriter& file, const std::string& brackets, const std::vector<std::string>& marks) {
  int number = 0;
  for (int count = dice.Between(1, 12); count > 0; --count) {
    number += dice.OneIn(20) ? 90000 : dice.Between(2, 200);
    const std::string start = std::to_string(number);
    const std::string end = dice.OneIn(5) ? "" : std::to_string(number + dice.Between(1, 150));
    const auto at = [&](std::size_t i) { return brackets.substr(i, 1); };
    const std::string text = dice.OneOf(marks) + JoinedBy("|", TextOf(dice));
    std::string line = at(0) + start + at(1) + at(0) + end + at(1) + text;
    if (dice.OneIn(12))
      line = dice.OneOf({"", "nothing", at(0) + "x" + at(1) + at(0) + "9" + at(1) + "no", line + "|"});
    if (dice.OneIn(20)) line = at(0) + start + at(1) + text;
    file.Line(line);
  }
}

std::string MicroDvdFile(Dice& dice) {
  FileWriter file(dice);
  if (dice.OneIn(2)) file.Line("{1}{1}" + dice.OneOf({"23.976", "25", "25.000", "29.97", "30.0", "24"}));
  NumberedPairs(dice, file, "{}", {"", "", "{y:i}", "{Y:b}", "{y:u}", "{C:$0000ff}", "/"});
  return file.Taken();
}

std::string Mpl2File(Dice& dice) {
  FileWriter file(dice);
  NumberedPairs(dice, file, "[]", {"", "", "/", "\\", "_"});
  return file.Taken();
}

std::string SbvFile(Dice& dice) {
  FileWriter file(dice);
  Times times;
  for (int count = dice.Between(1, 12); count > 0; --count) {
    times.Next(dice);
    file.Line(Clock(times.start, 1, ".", 3) + "," + Clock(times.end, 1, ".", 3));
    const auto text = TextOf(dice);
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (i > 0 && dice.OneIn(12)) file.Line("");
      if (!dice.OneIn(9)) file.Line(text[i]);
    }
    for (int blank = dice.OneIn(6) ? dice.Below(3) : 1; blank > 0; --blank) file.Line("");
  }
  return file.Taken();
}

std::string SubViewer2File(Dice& dice) {
  FileWriter file(dice);
  Times times;
  if (dice.OneIn(2)) {
    for (const char* line : {"[INFORMATION]", "[TITLE]A film", "[DELAY]0", "[END INFORMATION]", "[SUBTITLE]"}) {
      file.Line(line);
    }
  }
  const int digits = dice.Between(2, 3);
  const std::string between = dice.OneOf({",", ", "});
  for (int count = dice.Between(1, 12); count > 0; --count) {
    times.Next(dice);
    if (dice.OneIn(5)) file.Line("[COLF]&HFFFFFF,[STYLE]bd,[SIZE]24,[FONT]Tahoma");
    file.Line(Clock(times.start, 2, ".", digits) + between + Clock(times.end, 2, ".", digits));
    file.Line(JoinedBy(dice.OneOf({"[br]", "[br]", "\n"}), TextOf(dice)));
    if (!dice.OneIn(9)) file.Line("");
  }
  return file.Taken();
}

std::string LyricsFile(Dice& dice) {
  FileWriter file(dice);
  Times times;
  file.Line(dice.OneOf({"[ti:A song]", "[ar:Ann]", "[offset:250]", "[offset:-100]", "[offset: +50]"}));
  const int digits = dice.Between(2, 3);
  const bool repeats = dice.OneIn(2);
  const bool old = dice.OneIn(4);
  for (int count = dice.Between(1, 12); count > 0; --count) {
    times.Next(dice);
    std::string stamps = "[" + ShortClock(times.start, digits) + "]";
    if (old) std::ranges::replace(stamps, '.', ':');
    if (repeats && dice.OneIn(4)) stamps += "[" + ShortClock(times.start + dice.Between(1000, 99000), digits) + "]";
    if (dice.OneIn(12)) stamps = dice.OneOf({"", "[0x:10.00]", "(00:10.00)", "[00:10.00"});
    file.Line(stamps + (dice.OneIn(4) ? "" : Words(dice)));
  }
  return file.Taken();
}

std::string TmPlayerFile(Dice& dice) {
  FileWriter file(dice);
  std::int64_t ms = 0;
  const int hours = dice.Between(1, 2);
  const std::string sign = dice.OneOf({":", "=", ","});
  for (int count = dice.Between(1, 12); count > 0; --count) {
    ms += std::int64_t{1000} * (dice.OneIn(20) ? 3600 : dice.Between(dice.OneIn(9) ? 0 : 1, 9));
    const std::string time = Clock(ms, hours, "", 0);
    const auto text = dice.OneIn(4) ? std::vector<std::string>{""} : TextOf(dice);
    if (sign != ",") file.Line(time + sign + JoinedBy("|", text));
    for (std::size_t i = 0; sign == "," && i < text.size(); ++i) {
      file.Line(time + "," + std::to_string(i + 1) + "=" + text[i]);
    }
    if (dice.OneIn(12)) file.Line(dice.OneOf({"", "nothing", "00:0x:10" + sign + "no", "00:10"}));
  }
  return file.Taken();
}

std::string SubStationFile(Dice& dice) {
  FileWriter file(dice);
  Times times;
  for (const char* line : {"[Script Info]", "ScriptType: v4.00+", "", "[V4+ Styles]", "Format: Name, Fontname",
                           "Style: Default,Tahoma", "", "[Events]"}) {
    file.Line(line);
  }
  const bool usual = !dice.OneIn(3);
  file.Line(usual ? "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text"
                  : "Format: Style, End, Start, Text");
  for (int count = dice.Between(1, 12); count > 0; --count) {
    times.Next(dice);
    std::string start = Clock(times.start, 1, ".", 2);
    const std::string end = Clock(times.end, dice.Between(1, 2), ".", 2);
    if (dice.OneIn(12)) start = dice.OneOf({"", "soon", "0:0x:00.00"});
    std::string text = JoinedBy(dice.OneOf({"\\N", "\\N", "\\n", "\\h"}), TextOf(dice));
    if (dice.OneIn(6)) text = dice.OneOf({"{\\i1}", "{\\b1}", "{\\an8}", "{\\pos(1,2)}"}) + text;
    const std::string fields =
        usual ? "0," + start + "," + end + ",Default,Ann,0,0,0,," : "Default," + end + ", " + start + ",";
    const std::string kind = dice.OneOf({"Dialogue: ", "Dialogue: ", "Dialogue: ", "Comment: "});
    file.Line(dice.OneIn(15) ? "Dialogue: 0,0:00:01.00" : kind + fields + text);
  }
  return file.Taken();
}

std::string SamiFile(Dice& dice) {
  FileWriter file(dice);
  Times times;
  for (const char* line : {"<SAMI>", "<HEAD><TITLE>A film</TITLE></HEAD>", "<BODY>"}) file.Line(line);
  const std::string paragraph = dice.OneOf({"<P Class=ENCC>", "<p class=\"ENCC\">", "<P>"});
  const std::string sync = dice.OneOf({"<SYNC Start=", "<sync start="});
  for (int count = dice.Between(1, 12); count > 0; --count) {
    times.Next(dice);
    const std::string time = std::to_string(times.start);
    const bool clear = dice.OneIn(4);
    std::vector<std::string> text(static_cast<std::size_t>(dice.Between(1, 3)));
    for (std::string& line : text) line = dice.OneOf({"Good evening,", "Inspector.", "caf\xC3\xA9", "10:30", "a = b"});
    file.Line(sync + (dice.OneIn(3) ? "\"" + time + "\"" : time) + ">" + paragraph +
              (clear ? "&nbsp;" : JoinedBy(dice.OneOf({"<br>", "<BR />", " <br>\n", "\n"}), text)));
    if (dice.OneIn(6)) file.Line(dice.OneOf({"", "  "}));
  }
  file.Line("</BODY>");
  file.Line("</SAMI>");
  return file.Taken();
}

class PlainRules : public ::testing::TestWithParam<Ruled> {};

TEST_P(PlainRules, GiveWhatTheReaderGives) { ExpectTheSame(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Formats, PlainRules,
                         ::testing::Values(Ruled{"SubRip", u"SUBRIP", SubRipFile, PlainSubRip},
                                           Ruled{"WebVtt", u"WEBVTT", WebVttFile, PlainWebVtt},
                                           Ruled{"MicroDvd", u"MICRODVD", MicroDvdFile, PlainMicroDvd},
                                           Ruled{"Mpl2", u"MPL2", Mpl2File, PlainMpl2},
                                           Ruled{"Sbv", u"YOUTUBESBV", SbvFile, PlainSbv},
                                           Ruled{"SubViewer2", u"SUBVIEWER2", SubViewer2File, PlainSubViewer2},
                                           Ruled{"Lyrics", u"KARAOKELRC", LyricsFile, PlainLyrics},
                                           Ruled{"TmPlayer", u"TMPLAYER", TmPlayerFile, PlainTmPlayer},
                                           Ruled{"SubStation", u"ADVANCEDSSA", SubStationFile, PlainSubStation},
                                           Ruled{"Sami", u"SAMI", SamiFile, PlainSami}),
                         [](const auto& of) { return std::string(of.param.name); });

}  // namespace
}  // namespace cuewright::testing
