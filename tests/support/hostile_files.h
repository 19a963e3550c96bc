#pragma once

#include <string>

#include "text/encodings.h"
#include "text/text.h"
#include "text/text_file.h"

namespace cuewright::test {

inline std::string EbuHead() { return "850STL25.011000" + std::string(1009, ' '); }

/// The blocks of one EBU caption, as many as there can be, with a colour for each letter.
inline std::string LongestEbuCaption() {
  constexpr int kMostBlocks = 0xF0;
  std::string blocks;
  for (int extension = 0; extension < kMostBlocks; ++extension) {
    std::string block(16, '\0');
    block[3] = static_cast<char>(static_cast<unsigned char>(extension));
    while (block.size() < 128) block += "\1a\2b";
    blocks += block;
  }
  return blocks;
}

/// A file that is made to keep a reader busy: its beginning, and a piece that is repeated to the end.
struct HostileFile {
  TextView format;
  std::string begin;
  std::string piece;

  std::string OfSize(std::size_t size) const {
    std::string bytes = begin;
    while (bytes.size() < size) bytes += piece;
    return bytes;
  }
  /// As the engine opens one.
  TextFile Opened(std::size_t size, const Encodings& encodings) const {
    if (format == u"EBUSTL") return TextFile::OfBytes(OfSize(size));
    return TextFile::Auto(OfSize(size), encodings, TextFile::Untold::Unicode);
  }
};

inline const HostileFile kHostileFiles[] = {
    {u"WEBVTT", "WEBVTT\n\n", "00:01.000 --> 00:02.000\n"},
    {u"WEBVTT", "WEBVTT\n\n00:01.000 --> 00:02.000\n", "&lt;a&amp;"},
    {u"WEBVTT", "WEBVTT\n\n", "a\n-->\n"},
    {u"ADVANCEDSSA", "[Events]\n", "Dialogue: 0,0:00:01.00\n"},
    {u"ADVANCEDSSA", "[Events]\nDialogue: 0,0:00:01.00,0:00:02.00,,,,,,,{\\i1}", "\\N\\h{"},
    {u"SAMI", "<SAMI><BODY>", "<SYNC Start=1><P>"},
    {u"SAMI", "<SAMI><BODY>", "<"},
    {u"SAMI", "<SAMI><BODY><SYNC Start=1><P>", "<br> "},
    {u"SAMI", "<SAMI><BODY><SYNC Start=1", " =="},
    {u"SAMI", "<SAMI><BODY><SYNC Start=1>", "<P Class=a>b"},
    {u"MICRODVD", "", "{1}{}\n"},
    {u"MICRODVD", "{1}{2}", "{y:b}"},
    {u"MPL2", "", "[1][2]/\n"},
    {u"TMPLAYER", "", "00:00:01,1=\n"},
    {u"TMPLAYERCOLON", "", "00:00:01:x\n"},
    {u"KARAOKELRC", "", "[00:01.00]"},
    {u"KARAOKELRC", "", "[00:01.00][00:02.00]x\n"},
    {u"QUICKTIMETEXT", "{QTtext}\n", "[00:00:01.00]\n\n"},
    {u"SUBVIEWER2", "", "00:00:01.00,00:00:02.00\n"},
    {u"YOUTUBESBV", "0:00:01.000,0:00:02.000\n", "\nx"},
    {u"TTML", "<tt><body>", "<p begin='1s' end='2s'>a</p>"},
    {u"TTML", "<tt><body>", "<div>"},
    {u"TTML", "<tt><body><p begin='1s' end='2s'>", "<br/> <!-- -->&amp;"},
    {u"TTML", "<tt><body>", "<p begin='1s' end='2s'>"},
    {u"TRANSCRIPTJSON", "[", "{\"start\":1,\"end\":2,\"text\":\"\\n\"},"},
    {u"TRANSCRIPTJSON", "{\"", "\\\""},
    {u"TTML", "<tt><body>", "<x/>"},
    {u"TTML", "<tt><body>", "<p>x</p>"},
    {u"TTML", "<tt><body><p>", "<span begin='1s' end='2s'>"},
    {u"TTML", "<tt><body><p>", "<span begin='1s' end='2s'>a</span>"},
    {u"TTML", "<tt><head>", "<region xml:id='a'/>"},
    {u"TTML", "<!DOCTYPE tt [", "<!ENTITY a 'b'>"},
    {u"TTML", "<tt ", "a='b' "},
    {u"TRANSCRIPTJSON", "", "["},
    {u"TRANSCRIPTJSON", "[", "{\"tStartMs\":1,\"dDurationMs\":1,\"segs\":[{\"utf8\":\"a\"},{\"utf8\":\"b\"}]},"},
    {u"SCC", "Scenarist_SCC V1.0\n00:00:01:00\t", "942f "},
    {u"SCC", "Scenarist_SCC V1.0\n00:00:01:00\t9429 ", "6180 942c 942c "},
    {u"SCC", "Scenarist_SCC V1.0\n", "00:00:01:00\n"},
    {u"SCC", "Scenarist_SCC V1.0\n", "00:00:01:00\t9425 9425 94ad 94ad 6180\n"},
    {u"SCC", "Scenarist_SCC V1.0\n00:00:01:00\t9429 ", "9140 6162 91ae 97a1 9470 94a1 "},
    {u"SCC", "Scenarist_SCC V1.0\n00:00:01:00\t", "6161"},
    {u"SCC", "Scenarist_SCC V1.0\n", "00:00:01:00 zz zz\n"},
    {u"EBUSTL", EbuHead(), std::string(128, '\0')},
    {u"EBUSTL", EbuHead(), std::string(16, '\xFF') + std::string(112, '\xC8')},
    {u"EBUSTL", EbuHead(), std::string("\0\0\0\xFE", 4) + std::string(124, '\0')},
    {u"EBUSTL", EbuHead(), std::string("\0\0\0\xFF", 4) + std::string(12, '\0') + std::string(112, '\x8A')},
    {u"EBUSTL", EbuHead(), LongestEbuCaption()},
};

}  // namespace cuewright::test
