#include <gtest/gtest.h>

#include <chrono>

#include "tests/formats/source_rig.h"
#include "text/utf8.h"

namespace cuewright::testing {
namespace {

/// Takes whatever a reader finds.
struct PatientSink final : SourceSink {
  bool Add(std::int32_t, std::int32_t, Text, const SourceRecord&) override { return true; }
  void NotUnderstood(std::size_t) override {}
};

double SecondsToRead(TextView identifier, const std::string& bytes) {
  const Encodings encodings(1252);
  const TextFile file = TextFile::Auto(bytes, encodings);
  const auto format = MakeSourceFormat(identifier);
  PatientSink sink;
  const auto begin = std::chrono::steady_clock::now();
  format->Read(SourceText{file.Bytes(), file}, u"|", sink);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// Four times the file may take no more than a good deal above four times the time.
TEST(SourceFormats, TakeTimeByTheSizeOfAHostileFile) {
  struct Case {
    TextView identifier;
    std::string begin;
    std::string piece;
  };
  const Case cases[] = {
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
  for (const Case& row : cases) {
    const auto file = [&](std::size_t size) {
      std::string bytes = row.begin;
      while (bytes.size() < size) bytes += row.piece;
      return bytes;
    };
    const double small = SecondsToRead(row.identifier, file(1 << 17));
    const double large = SecondsToRead(row.identifier, file(1 << 19));
    EXPECT_LT(large, 12 * small + 0.25) << ToUtf8(row.identifier) << ' ' << row.piece;
  }
}

}  // namespace
}  // namespace cuewright::testing
