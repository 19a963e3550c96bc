#include "external/embed_script.h"

#include <array>

#include "core/numbers.h"

namespace cuewright {
namespace {

// The lines in their order; numbers 700 to 724 of the catalogue. They are commands and are not translated.
constexpr std::array<TextView, 25> kLines = {
    u"VirtualDub.Open([SRCVID],0,0);",
    u"VirtualDub.audio.SetSource(1);",
    u"VirtualDub.audio.SetMode(0);",
    u"VirtualDub.audio.SetInterleave(1,500,1,0,0);",
    u"VirtualDub.audio.SetClipMode(1,1);",
    u"VirtualDub.audio.SetConversion(0,0,0,0,0);",
    u"VirtualDub.audio.SetVolume();",
    u"VirtualDub.audio.SetCompression();",
    u"VirtualDub.audio.EnableFilterGraph(0);",
    u"VirtualDub.audio.filters.Clear();",
    u"VirtualDub.video.SetDepth(24,24);",
    u"VirtualDub.video.SetInputFormat(0);",
    u"VirtualDub.video.SetOutputFormat(7);",
    u"VirtualDub.video.SetMode(3);",
    u"VirtualDub.video.SetFrameRate(0,1);",
    u"VirtualDub.video.SetIVTC(0,0,-1,0);",
    u"VirtualDub.video.SetCompression(0x64697678,0,10000,0);",
    u"VirtualDub.video.SetRange(0,[E]);",
    u"VirtualDub.video.filters.Clear();",
    u"VirtualDub.video.filters.Add('subtitler');",
    u"VirtualDub.video.filters.instance[0].Config(1, [SRCSUB], 0, 0);",
    u"VirtualDub.video.filters.Add('resize');",
    u"VirtualDub.video.filters.instance[1].Config([W],[H],[M]);",
    u"VirtualDub.SaveAVI([TARVID]);",
    u"VirtualDub.Close();",
};
constexpr std::size_t kOpen = 700 - 700;
constexpr std::size_t kRange = 717 - 700;
constexpr std::size_t kAddSubtitler = 719 - 700;
constexpr std::size_t kSubtitler = 720 - 700;
constexpr std::size_t kAddResize = 721 - 700;
constexpr std::size_t kResize = 722 - 700;
constexpr std::size_t kSave = 723 - 700;
constexpr double kLeastRate = 8000;
constexpr double kMostRate = 48000;

/// The line with its values filled in; empty for a line that this script doesn't need.
Text FilledLine(std::size_t line, const EmbedValues& values) {
  Text text(kLines[line]);
  switch (line) {
    case kOpen:
      return ReplaceFirst(text, u"[SRCVID]", values.source);
    case kRange:
      return values.leftOut ? ReplaceFirst(text, u"[E]", Decimal(*values.leftOut)) : Text();
    case kAddSubtitler:
      return ReplaceAll(text, u"'", u"\"");
    case kSubtitler:
      return ReplaceFirst(text, u"[SRCSUB]", values.subtitle);
    case kAddResize:
      return values.size ? ReplaceAll(text, u"'", u"\"") : Text();
    case kResize: {
      if (!values.size) return {};
      const Text sized = ReplaceFirst(ReplaceFirst(text, u"[W]", values.size->width), u"[H]", values.size->height);
      return ReplaceFirst(sized, u"[M]", Decimal(values.size->mode));
    }
    case kSave:
      return ReplaceFirst(text, u"[TARVID]", values.target);
    default:
      return text;
  }
}

}  // namespace

std::string EmbedScriptBytes(const EmbedValues& values) {
  Text script;
  for (std::size_t i = 0; i < kLines.size(); ++i) {
    const Text line = FilledLine(i, values);
    if (!line.empty()) script += line + Text(kLineEnd);
  }
  return ToUtf8(script);
}

std::string ExtractScriptBytes(const ExtractValues& values) {
  Text script = u"VirtualDub.Open(" + values.source + u",0,0);" + Text(kLineEnd);
  if (values.wave) {
    script += u"VirtualDub.audio.SetMode(1);" + Text(kLineEnd);
    const double rate = LeadingNumber(values.sampleRate);
    if (rate >= kLeastRate && rate <= kMostRate) {
      script += u"VirtualDub.audio.SetConversion(" + values.sampleRate + u",0,0);" + Text(kLineEnd);
    }
  }
  script += u"VirtualDub.SaveWAV(" + values.target + u");" + Text(kLineEnd);
  return ToUtf8(script);
}

}  // namespace cuewright
