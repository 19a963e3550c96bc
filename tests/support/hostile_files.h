#pragma once

#include <string>

#include "text/text.h"

namespace cuewright::test {

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
    {u"SCC", "Scenarist_SCC V1.0\n00:00:01:00\t", "942f "},
    {u"SCC", "Scenarist_SCC V1.0\n00:00:01:00\t9429 ", "6180 942c 942c "},
    {u"SCC", "Scenarist_SCC V1.0\n", "00:00:01:00\n"},
    {u"EBUSTL", "850STL25.011000" + std::string(1009, ' '), std::string(128, '\0')},
    {u"EBUSTL", "850STL25.011000" + std::string(1009, ' '), std::string(16, '\xFF') + std::string(112, '\xC8')},
};

}  // namespace cuewright::test
