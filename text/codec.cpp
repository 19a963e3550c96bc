#include "text/codec.h"

#include <iconv.h>
#include <unicode/ucnv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>
#include <vector>

#include "text/encoding_names.h"
#include "text/units.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr char16_t kReplacement = 0xFFFD;
/// A byte that a code page leaves undefined becomes this character of private use plus its number, so that it reads
/// as no other character. It is written back as the same byte.
constexpr char16_t kUndefinedBase = 0xF700;

char16_t UnitOf(char high, char low) { return LowUnit(ByteOf(high) << 8 | ByteOf(low)); }

struct ConverterCloser {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterCloser>;

Converter OpenConverter(int codePage) {
  UErrorCode status = U_ZERO_ERROR;
  Converter converter(ucnv_open(ConverterOfCodePage(codePage).c_str(), &status));
  return U_SUCCESS(status) ? std::move(converter) : nullptr;
}

class Utf8Codec final : public Codec {
 public:
  std::size_t Decode(std::string_view bytes, std::span<char16_t> room) const override {
    return DecodeUtf8(bytes, room);
  }
  bool Encode(TextView text, std::string& out) const override {
    AppendUtf8(text, out);
    return true;
  }
  bool Holds(TextView) const override { return true; }
  bool AsciiIsPlain() const override { return true; }
  bool IsUtf8() const override { return true; }
};

/// Writes UTF-16 files, and decodes them to be turned into UTF-8 when they are opened.
class Utf16Codec final : public Codec {
 public:
  explicit Utf16Codec(bool bigEndian) : bigEndian_(bigEndian) {}

  std::size_t Decode(std::string_view bytes, std::span<char16_t> room) const override {
    const std::size_t units = bytes.size() / 2;
    for (std::size_t i = 0; i < units; ++i) {
      const char a = bytes[2 * i];
      const char b = bytes[2 * i + 1];
      room[i] = bigEndian_ ? UnitOf(a, b) : UnitOf(b, a);
    }
    return units;
  }

  bool Encode(TextView text, std::string& out) const override {
    for (const char16_t unit : text) {
      const char high = LowByte(unit >> 8);
      const char low = LowByte(unit);
      out.push_back(bigEndian_ ? high : low);
      out.push_back(bigEndian_ ? low : high);
    }
    return true;
  }
  bool Holds(TextView) const override { return true; }

 private:
  bool bigEndian_;
};

/// Writes UTF-32 files, and decodes them to be turned into UTF-8. A number beyond Unicode becomes U+FFFD.
class Utf32Codec final : public Codec {
 public:
  explicit Utf32Codec(bool bigEndian) : bigEndian_(bigEndian) {}

  std::size_t Decode(std::string_view bytes, std::span<char16_t> room) const override {
    std::size_t count = 0;
    for (std::size_t at = 0; at + 4 <= bytes.size(); at += 4) {
      std::uint32_t character = 0;
      for (std::size_t i = 0; i < 4; ++i) {
        character = character << 8 | ByteOf(bytes[at + (bigEndian_ ? i : 3 - i)]);
      }
      if (character > 0x10FFFF) character = kReplacement;
      if (character < 0x10000) {
        room[count++] = LowUnit(character);
        continue;
      }
      room[count++] = LeadOf(character);
      room[count++] = TrailOf(character);
    }
    return count;
  }

  bool Encode(TextView text, std::string& out) const override {
    for (std::size_t i = 0; i < text.size(); ++i) {
      const bool pair = IsLead(text[i]) && i + 1 < text.size() && IsTrail(text[i + 1]);
      const char32_t character = pair ? CharacterOfPair(text[i], text[i + 1]) : text[i];
      if (pair) ++i;
      for (unsigned byte = 0; byte < 4; ++byte) {
        out.push_back(LowByte(character >> (bigEndian_ ? 24 - 8 * byte : 8 * byte)));
      }
    }
    return true;
  }
  bool Holds(TextView) const override { return true; }

 private:
  bool bigEndian_;
};

/// Code pages of one byte a character, by a table for each direction.
class SingleByteCodec final : public Codec {
 public:
  explicit SingleByteCodec(int codePage) {
    const Converter converter = OpenConverter(codePage);
    for (unsigned byte = 0; byte < 256; ++byte) {
      toText_[byte] = byte < 0x80 ? LowUnit(byte) : DecodeByte(converter.get(), LowByte(byte));
      if (byte >= 0x80) toByte_.emplace_back(toText_[byte], ByteOf(LowByte(byte)));
    }
    std::sort(toByte_.begin(), toByte_.end());
  }

  std::size_t Decode(std::string_view bytes, std::span<char16_t> room) const override {
    char16_t* out = room.data();
    for (const char byte : bytes) *out++ = toText_[ByteOf(byte)];
    return bytes.size();
  }

  bool AsciiIsPlain() const override { return true; }

  bool Encode(TextView text, std::string& out) const override {
    bool complete = true;
    for (std::size_t at = 0; at < text.size(); ++at) {
      const char16_t unit = text[at];
      if (unit < 0x80) {
        out.push_back(LowByte(unit));
        continue;
      }
      const auto hit = std::ranges::lower_bound(toByte_, unit, {}, &std::pair<char16_t, unsigned char>::first);
      if (hit != toByte_.end() && hit->first == unit) {
        out.push_back(LowByte(hit->second));
        continue;
      }
      complete = false;
      out.push_back('?');
      if (IsLead(unit) && at + 1 < text.size() && IsTrail(text[at + 1])) ++at;
    }
    return complete;
  }

 private:
  static char16_t DecodeByte(UConverter* converter, char source) {
    std::array<char16_t, 4> target{};
    UErrorCode status = U_ZERO_ERROR;
    const int length = converter == nullptr ? 0 : ucnv_toUChars(converter, target.data(), 4, &source, 1, &status);
    if (U_FAILURE(status) || length != 1 || target[0] == kReplacement) {
      return LowUnit(kUndefinedBase + ByteOf(source));
    }
    return target[0];
  }

  std::array<char16_t, 256> toText_{};
  std::vector<std::pair<char16_t, unsigned char>> toByte_;
};

/// Code pages with characters of two bytes or more. The ASCII in front is widened; the rest goes through a library.
class DoubleByteCodec : public Codec {
 public:
  std::size_t Decode(std::string_view bytes, std::span<char16_t> room) const final {
    std::size_t ascii = 0;
    while (ascii < bytes.size() && ByteOf(bytes[ascii]) < 0x80) ++ascii;
    WidenAscii(bytes.substr(0, ascii), room);
    return ascii == bytes.size() ? ascii : ascii + DecodeRest(bytes.substr(ascii), room.subspan(ascii));
  }

  bool Encode(TextView text, std::string& out) const final {
    bool complete = true;
    for (std::size_t at = 0; at < text.size();) {
      if (text[at] < 0x80) {
        out.push_back(LowByte(text[at++]));
        continue;
      }
      const bool pair = IsLead(text[at]) && at + 1 < text.size() && IsTrail(text[at + 1]);
      const std::size_t length = pair ? 2 : 1;
      if (!EncodeCharacter(text.substr(at, length), out)) {
        complete = false;
        out.push_back('?');
      }
      at += length;
    }
    return complete;
  }

 protected:
  virtual std::size_t DecodeRest(std::string_view bytes, std::span<char16_t> room) const = 0;
  /// Appends the bytes of one character; false, with nothing appended, when it is lacking.
  virtual bool EncodeCharacter(TextView character, std::string& out) const = 0;
};

class IcuDoubleByteCodec final : public DoubleByteCodec {
 public:
  explicit IcuDoubleByteCodec(int codePage) : converter_(OpenConverter(codePage)) {
    if (converter_ == nullptr) return;
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setFromUCallBack(converter_.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setFallback(converter_.get(), 0);
  }

 protected:
  std::size_t DecodeRest(std::string_view bytes, std::span<char16_t> room) const override {
    char16_t* to = room.data();
    if (converter_ == nullptr) {
      std::fill_n(to, bytes.size(), kReplacement);
      return bytes.size();
    }
    const char* from = bytes.data();
    UErrorCode status = U_ZERO_ERROR;
    ucnv_reset(converter_.get());
    ucnv_toUnicode(converter_.get(), &to, to + DecodedRoom(bytes.size()), &from, from + bytes.size(), nullptr, 1,
                   &status);
    return to - room.data();
  }

  bool EncodeCharacter(TextView character, std::string& out) const override {
    if (converter_ == nullptr) return false;
    std::array<char, 16> bytes{};
    char* to = bytes.data();
    const char16_t* from = character.data();
    UErrorCode status = U_ZERO_ERROR;
    ucnv_reset(converter_.get());
    ucnv_fromUnicode(converter_.get(), &to, bytes.data() + bytes.size(), &from, from + character.size(), nullptr, 1,
                     &status);
    if (U_FAILURE(status)) return false;
    out.append(bytes.data(), to);
    return true;
  }

 private:
  Converter converter_;
};

/// Korean Johab, which only the C library has.
class JohabCodec final : public DoubleByteCodec {
 public:
  JohabCodec() : decode_(::iconv_open("UTF-16LE", "JOHAB")), encode_(::iconv_open("JOHAB", "UTF-16LE")) {}
  JohabCodec(const JohabCodec&) = delete;
  JohabCodec& operator=(const JohabCodec&) = delete;
  ~JohabCodec() override {
    if (Opened(decode_)) ::iconv_close(decode_);
    if (Opened(encode_)) ::iconv_close(encode_);
  }

 protected:
  std::size_t DecodeRest(std::string_view bytes, std::span<char16_t> room) const override {
    std::size_t count = 0;
    for (std::size_t at = 0; at < bytes.size();) {
      const unsigned char lead = ByteOf(bytes[at]);
      if (lead < 0x80) {
        room[count++] = lead;
        ++at;
        continue;
      }
      const std::size_t length = DecodeCharacter(bytes.substr(at, 2), room[count]) ? 2 : 1;
      if (length == 1) room[count] = kReplacement;
      ++count;
      at += length;
    }
    return count;
  }

  bool EncodeCharacter(TextView character, std::string& out) const override {
    if (!Opened(encode_)) return false;
    std::string source;
    for (const char16_t unit : character) {
      source.push_back(LowByte(unit));
      source.push_back(LowByte(unit >> 8));
    }
    std::array<char, 8> bytes{};
    std::size_t room = bytes.size();
    if (!Convert(encode_, source, bytes.data(), room)) return false;
    out.append(bytes.data(), bytes.size() - room);
    return true;
  }

 private:
  static bool Opened(iconv_t handle) { return handle != reinterpret_cast<iconv_t>(-1); }

  static bool Convert(iconv_t handle, std::string source, char* to, std::size_t& room) {
    char* from = source.data();
    std::size_t left = source.size();
    ::iconv(handle, nullptr, nullptr, nullptr, nullptr);
    return ::iconv(handle, &from, &left, &to, &room) == 0 && left == 0;
  }

  bool DecodeCharacter(std::string_view pair, char16_t& unit) const {
    if (!Opened(decode_) || pair.size() < 2) return false;
    std::array<char, 8> bytes{};
    std::size_t room = bytes.size();
    if (!Convert(decode_, std::string(pair), bytes.data(), room) || room != bytes.size() - 2) return false;
    unit = UnitOf(bytes[1], bytes[0]);
    return true;
  }

  iconv_t decode_;
  iconv_t encode_;
};

}  // namespace

bool IsTextCodePage(int codePage) {
  switch (codePage) {
    case 874:
    case 932:
    case 936:
    case 949:
    case 950:
    case kCodePageJohab:
    case kCodePageUtf8:
      return true;
    default:
      return codePage >= 1250 && codePage <= 1258;
  }
}

Text Codec::Decoded(std::string_view bytes) const {
  Text text(DecodedRoom(bytes.size()), u'\0');
  text.resize(Decode(bytes, text));
  return text;
}

std::string Codec::Encoded(TextView text) const {
  std::string bytes;
  Encode(text, bytes);
  return bytes;
}

bool Codec::Holds(TextView text) const {
  if (std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; })) return true;
  std::string bytes;
  return Encode(text, bytes);
}

std::shared_ptr<const Codec> MakeCodec(int codePage) {
  switch (codePage) {
    case kCodePageUtf8:
      return std::make_shared<Utf8Codec>();
    case kCodePageUtf16Le:
    case kCodePageUtf16Be:
      return std::make_shared<Utf16Codec>(codePage == kCodePageUtf16Be);
    case kCodePageUtf32Le:
    case kCodePageUtf32Be:
      return std::make_shared<Utf32Codec>(codePage == kCodePageUtf32Be);
    case kCodePageJohab:
      return std::make_shared<JohabCodec>();
    default:
      if (ConverterOfCodePage(codePage).empty()) return std::make_shared<SingleByteCodec>(kCodePageWestern);
      if (HasOneByteCharacters(codePage)) return std::make_shared<SingleByteCodec>(codePage);
      return std::make_shared<IcuDoubleByteCodec>(codePage);
  }
}

}  // namespace cuewright
