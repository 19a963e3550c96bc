// Any bytes as text of each code page, and any text as bytes.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "fuzz/engine.h"
#include "text/encodings.h"
#include "text/text_file.h"
#include "text/utf8.h"

namespace {

using namespace cuewright;
using namespace cuewright::fuzz;

constexpr int kCodePages[] = {874,
                              932,
                              936,
                              949,
                              950,
                              1250,
                              1251,
                              1252,
                              1253,
                              1254,
                              1255,
                              1256,
                              1257,
                              1258,
                              1361,
                              kCodePageUtf8,
                              kCodePageUtf16Le,
                              kCodePageUtf16Be};

/// The rules of UTF-8, as plainly as they can be put.
Utf8Kind PlainKind(std::string_view bytes) {
  bool multi = false;
  for (std::size_t at = 0; at < bytes.size();) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned>(static_cast<unsigned char>(bytes[i])); };
    const unsigned lead = byte(at);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC0 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF8 ? 4
                                             : 0;
    if (length == 0 || at + length > bytes.size()) return Utf8Kind::Invalid;
    constexpr unsigned kLead[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    constexpr unsigned kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    unsigned value = lead & kLead[length];
    for (std::size_t i = 1; i < length; ++i) {
      if ((byte(at + i) & 0xC0) != 0x80) return Utf8Kind::Invalid;
      value = value << 6 | (byte(at + i) & 0x3F);
    }
    if (value < kLeast[length] || value > 0x10FFFF || (value >= 0xD800 && value < 0xE000)) return Utf8Kind::Invalid;
    multi = multi || length > 1;
    at += length;
  }
  return multi ? Utf8Kind::MultiByte : Utf8Kind::Ascii;
}

void CheckUtf8(const std::string& bytes) {
  const Utf8Kind kind = ExamineUtf8(bytes);
  Demand(kind == PlainKind(bytes), "the fast look at UTF-8 tells what the plain one does");
  const Text text = MakeCodec(kCodePageUtf8)->Decoded(bytes);
  Demand(text == FromUtf8(bytes), "UTF-8 is decoded alike everywhere");
  Demand(MakeCodec(kCodePageUtf8)->Encoded(text) == bytes, "UTF-8 keeps every byte");
  const std::string padded = bytes + std::string(16, '\xE2');
  Text slack(DecodedRoom(bytes.size()), u'\0');
  slack.resize(DecodeUtf8(std::string_view(padded).substr(0, bytes.size()), slack, Surrogates::AreInvalid, true));
  Demand(slack == text, "what lies behind the bytes doesn't count");
}

void CheckCodePage(const std::string& bytes, const Text& units, int codePage) {
  const auto codec = MakeCodec(codePage);
  const Text text = codec->Decoded(bytes);
  Demand(text.size() <= bytes.size(), "a byte gives at most one unit");
  const std::string back = codec->Encoded(text);
  const bool single = codePage == 874 || (codePage >= 1250 && codePage <= 1258);
  Demand(!single || back == bytes, "a code page of single bytes keeps every byte");
  std::string encoded;
  const bool whole = codec->Encode(units, encoded);
  Demand(whole == codec->Holds(units), "both tell alike whether a character is lacking");
}

void CheckLines(const std::string& bytes, const Encodings& encodings) {
  for (const bool classic : {false, true}) {
    TextFile file = classic ? TextFile::Classic(bytes, encodings) : TextFile::Auto(bytes, encodings);
    LineBuffer buffer;
    std::vector<Text> lines;
    for (std::string_view line; file.NextLine(line);) lines.push_back(file.Decoded(line));
    file.Rewind();
    std::size_t count = 0;
    for (; file.NextText(buffer); ++count) {
      Demand(count < lines.size() && buffer.View() == lines[count], "lines are decoded alike in both ways");
    }
    Demand(count == lines.size(), "both ways give all lines");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  Text units;
  for (std::size_t i = 0; i + 1 < size; i += 2) units.push_back(static_cast<char16_t>(data[i] | (data[i + 1] << 8)));
  CheckUtf8(bytes);
  const int codePage = kCodePages[Choice(bytes, std::size(kCodePages))];
  CheckCodePage(bytes, units, codePage);
  const Encodings encodings(codePage);
  CheckLines(bytes, encodings);
  encodings.EncodeUtf8Line(units);
  encodings.PairBytes(units);
  encodings.BytesToText(bytes, kSystemCodePage);
  encodings.TextToBytes(units, kSystemCodePage);
  return 0;
}
