#include <gtest/gtest.h>

#include <utility>

#include "tests/formats/file_dice.h"
#include "tests/formats/plain_rules.h"
#include "tests/formats/ruled_format.h"

namespace cuewright::testing {
namespace {

std::string QuickTimeFile(Dice& dice) {
  FileWriter file(dice);
  Times times;
  const int digits = dice.OneOf({"2", "2", "3"}) == "3" ? 3 : 2;
  const int scale = digits == 3 ? dice.Between(0, 1) * 600 : dice.Below(3) * 30;
  file.Line("{QTtext} {font:Tahoma} {size:20}");
  if (scale != 0) file.Line("{timeStamps:absolute}{timeScale:" + std::to_string(scale) + "}");
  for (int count = dice.Between(1, 12); count > 0; --count) {
    times.Next(dice);
    const auto stamp = [&](std::int64_t ms) {
      std::string units = std::to_string(1000 + (scale == 0 ? ms % 1000 : ms % 1000 * scale / 1000)).substr(1);
      units = scale == 0 ? units.substr(0, static_cast<std::size_t>(digits))
                         : units.substr(units.size() - static_cast<std::size_t>(digits));
      return "[" + Clock(ms, 2, "", 0) + "." + units + "]";
    };
    const std::string text = JoinedBy("\n", TextOf(dice));
    file.Line(stamp(times.start) + (dice.OneIn(4) ? "" : "\n") + text);
    if (dice.OneIn(6)) file.Line("");
    if (!dice.OneIn(3)) continue;
    // What is told stands in the order of time.
    file.Line(stamp(times.end));
    times.start = times.end;
  }
  return file.Taken();
}

/// Attributes in an order by chance, with blanks and quotes of one kind or another.
std::string Attributes(Dice& dice, std::vector<std::pair<std::string, std::string>> list) {
  std::string attributes;
  while (!list.empty()) {
    const auto at = list.begin() + dice.Below(static_cast<int>(list.size()));
    const std::string quote = dice.OneOf({"\"", "'"});
    attributes +=
        dice.OneOf({" ", " ", "\n  "}) + at->first + dice.OneOf({"=", "=", " = "}) + quote + at->second + quote;
    list.erase(at);
  }
  return attributes;
}

class TtmlWriter {
 public:
  explicit TtmlWriter(Dice& dice) : dice_(dice), prefix_(dice.OneOf({"", "", "tt:"})) {}

  std::string File() {
    std::string root = "<" + prefix_ + "tt xmlns:tts=\"http://www.w3.org/ns/ttml#styling\"";
    if (dice_.OneIn(2)) root += " ttp:frameRate=\"25\"";
    hasTicks_ = dice_.OneIn(2);
    if (hasTicks_) root += " ttp:tickRate=\"1000\"";
    if (dice_.OneIn(4)) root += " xml:space=\"preserve\"";
    std::string file = dice_.OneOf({"", "<?xml version=\"1.0\"?>\n"}) + root + ">\n<" + prefix_ + "head>" +
                       dice_.OneOf({"", "<!-- <p begin='1s'>no</p> -->"}) + "<" + prefix_ + "layout/></" + prefix_ +
                       "head>\n<" + prefix_ + "body" + dice_.OneOf({"", "", " begin=\"10s\""}) + ">\n";
    for (int divisions = dice_.Between(1, 2); divisions > 0; --divisions) Division(file);
    return file + "</" + prefix_ + "body></" + prefix_ + "tt>\n";
  }

 private:
  std::string Time(std::int64_t ms) {
    switch (dice_.Below(6)) {
      case 0:
        return std::to_string(ms / 1000) + "." + std::to_string(1000 + ms % 1000).substr(1) + "s";
      case 1:
        return std::to_string(ms) + "ms";
      case 2:
        return Clock(ms, 2, ":", 2).substr(0, 8) + ":" + std::to_string(10 + ms % 15);
      case 3:
        return std::to_string(ms / 40) + "f";
      case 4:
        return hasTicks_ ? std::to_string(ms) + "t" : std::to_string(ms / 1000) + "s";
      default:
        return Clock(ms, 2, ".", 3);
    }
  }

  void Division(std::string& file) {
    file += "<" + prefix_ + "div" +
            dice_.OneOf({"", "", " begin=\"5s\"", " xml:space='default'", " begin='1m' end='2m'"}) + ">";
    for (int count = dice_.Between(1, 8); count > 0; --count) {
      if (dice_.OneIn(12)) file += "<!-- </p> -->";
      Paragraph(file);
      file += dice_.OneOf({"\n", "\r\n", "", "\n\n"});
    }
    file += "</" + prefix_ + "div>";
  }

  void Paragraph(std::string& file) {
    times_.Next(dice_);
    std::vector<std::pair<std::string, std::string>> attributes = {{"begin", Time(times_.start)}, {"xml:id", "c"}};
    const int kind = dice_.Below(8);
    if (kind < 5) attributes.emplace_back("end", Time(times_.end));
    if (kind == 5) attributes.emplace_back("dur", Time(times_.end - times_.start));
    if (kind == 6) attributes.clear();
    if (dice_.OneIn(10)) attributes.emplace_back("xml:space", "preserve");
    const std::string tag = "<" + prefix_ + "p" + Attributes(dice_, attributes);
    if (dice_.OneIn(15)) {
      file += tag + "/>";
    } else if (kind == 6 && dice_.OneIn(2)) {
      file += tag + ">" + Span(Attributes(dice_, {{"begin", Time(times_.start)}, {"dur", "2s"}}), Words()) + "<" +
              prefix_ + "br/>\n" + Span(Attributes(dice_, {{"begin", Time(times_.end)}, {"end", "999999s"}}), Words()) +
              "</" + prefix_ + "p>";
    } else {
      file += tag + ">" + Text() + "</" + prefix_ + "p>";
    }
  }

  std::string Span(const std::string& attributes, const std::string& inner) {
    return "<" + prefix_ + "span" + attributes + ">" + inner + "</" + prefix_ + "span>";
  }

  std::string Words() {
    return dice_.OneOf({"Good evening,", "Insp<!--</p>-->ector.", "caf\xC3\xA9  10:30", "a &amp; b", " so\n it is"});
  }

  std::string Text() {
    std::string text;
    const std::string end = dice_.OneOf({"/>", " />", "/>\n   "});
    for (int lines = dice_.Between(1, 3); lines > 0; --lines) {
      if (!text.empty()) text += "<" + prefix_ + "br" + end;
      text += dice_.OneIn(5) ? Words() + " " + Span(" tts:color=\"red\"", Words()) : Words();
    }
    if (!dice_.OneIn(4)) return text;
    const std::string style = dice_.OneOf({" tts:fontStyle=\"italic\"", " tts:fontWeight='bold'",
                                           " tts:textDecoration=\"underline\"", " tts:color='red'"});
    return text.find("span") == std::string::npos ? Span(style, text) : text;
  }

  Dice& dice_;
  std::string prefix_;
  bool hasTicks_ = false;
  Times times_;
};

std::string TtmlFile(Dice& dice) { return TtmlWriter(dice).File(); }

/// Blanks that JSON doesn't see.
std::string Gap(Dice& dice) { return dice.OneOf({"", "", " ", "\n  ", "\r\n"}); }

std::string JsonText(Dice& dice) {
  std::string text = JoinedBy("\\n", TextOf(dice));
  if (dice.OneIn(6)) text += dice.OneOf({" \\\"quoted\\\"", " C:\\\\x", " caf\\u00e9", "\\/"});
  return "\"" + dice.OneOf({"", "", " "}) + text + dice.OneOf({"", "", " "}) + "\"";
}

/// How the segments of one file tell their times.
class SegmentMaker {
 public:
  explicit SegmentMaker(Dice& dice) : dice_(dice), shape_(dice.Below(7)) {}

  std::string Next() {
    times_.Next(dice_);
    std::vector<std::string> members = Members();
    if (dice_.OneIn(3)) members.insert(members.begin(), "\"id\":" + Gap(dice_) + std::to_string(times_.start));
    if (dice_.OneIn(4)) members.push_back("\"speaker\": null");
    if (shape_ < 4 && dice_.OneIn(3)) {
      members.push_back(
          "\"words\": [{\"start\": 1.5, \"end\": 2, \"text\": \"no\"}, {\"word\": \"[{\", \"start\": 0}]");
    }
    return "{" + Gap(dice_) + JoinedBy("," + Gap(dice_), members) + Gap(dice_) + "}";
  }

 private:
  static std::string Seconds(std::int64_t ms) {
    return std::to_string(ms / 1000) + "." + std::to_string(1000 + ms % 1000).substr(1);
  }

  std::vector<std::string> Members() {
    const std::string text = "\"text\":" + Gap(dice_) + JsonText(dice_);
    const std::string start = std::to_string(times_.start);
    const std::string end = std::to_string(times_.end);
    const std::string length = std::to_string(times_.end - times_.start);
    switch (shape_) {
      case 0:
        return {"\"start\": " + Seconds(times_.start), "\"end\": " + Seconds(times_.end), text};
      case 1:
        return {text, "\"startTime\": \"" + Clock(times_.start, 2, ".", 3) + "\"",
                "\"endTime\" :\"" + Clock(times_.end, 2, ".", 3) + "\""};
      case 2:
        return {"\"begin\": " + start, "\"dur\": " + length, text};
      case 3:
        return {"\"start_time\": \"" + Seconds(times_.start) + "s\"", "\"end_time\": \"" + Seconds(times_.end) + "s\"",
                text};
      case 4:
        return {"\"timestamp\": [" + Seconds(times_.start) + ", " + Seconds(times_.end) + "]", text};
      case 5:
        return {"\"timestamps\": {\"from\": \"00:00:00,000\", \"to\": \"00:00:00,000\"}",
                "\"offsets\": {\"from\": " + start + ", \"to\": " + end + "}", text};
      default:
        return {"\"tStartMs\": " + start, "\"dDurationMs\": " + length,
                "\"segs\": [{\"utf8\": \"Good \"},{\"utf8\": \"evening\", \"tOffsetMs\": 5}]"};
    }
  }

  Dice& dice_;
  int shape_;
  Times times_;
};

std::string TranscriptFile(Dice& dice) {
  SegmentMaker segments(dice);
  std::string file;
  const int kind = dice.Below(3);
  const int count = dice.Between(2, 12);
  for (int i = 0; i < count; ++i) {
    if (i > 0) file += kind == 2 ? "\n" : "," + Gap(dice);
    file += segments.Next();
  }
  if (kind == 2) return file + "\n";
  if (kind == 1) return "[" + Gap(dice) + file + "]";
  return "{\"language\": \"en\", \"duration\": 9.5, \"text\": \"all\", \"segments\":" + Gap(dice) + "[" + file + "]}\n";
}

class PlainDocumentRules : public ::testing::TestWithParam<Ruled> {};

TEST_P(PlainDocumentRules, GiveWhatTheReaderGives) { ExpectTheSame(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Formats, PlainDocumentRules,
                         ::testing::Values(Ruled{"QuickTime", u"QUICKTIMETEXT", QuickTimeFile, PlainQuickTime},
                                           Ruled{"Ttml", u"TTML", TtmlFile, PlainTtml},
                                           Ruled{"Transcript", u"TRANSCRIPTJSON", TranscriptFile, PlainTranscript}),
                         [](const auto& of) { return std::string(of.param.name); });

}  // namespace
}  // namespace cuewright::testing
