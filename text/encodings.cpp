#include "text/encodings.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "text/units.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

/// The bytes in front of the first NUL.
std::string_view UpToNul(std::string_view bytes) { return bytes.substr(0, bytes.find('\0')); }

}  // namespace

std::string_view MarkOf(int codePage) {
  switch (codePage) {
    case kCodePageUtf8:
      return "\xEF\xBB\xBF";
    case kCodePageUtf16Le:
      return "\xFF\xFE";
    case kCodePageUtf16Be:
      return "\xFE\xFF";
    case kCodePageUtf32Le:
      return {"\xFF\xFE\0\0", 4};
    case kCodePageUtf32Be:
      return {"\0\0\xFE\xFF", 4};
    default:
      return {};
  }
}

Encodings::Encodings(int systemCodePage)
    : systemCodePage_(IsTextCodePage(systemCodePage) ? systemCodePage : kCodePageWestern),
      system_(MakeCodec(systemCodePage_)) {}

std::shared_ptr<const Codec> Encodings::CodecOf(int codePage) const {
  if (codePage == kSystemCodePage || codePage == 0 || codePage == systemCodePage_) return system_;
  return MakeCodec(codePage);
}

Text Encodings::BytesToText(std::string_view bytes, int codePage) const {
  Text text = CodecOf(codePage)->Decoded(UpToNul(bytes));
  // Lone units keep the invalid bytes of a file for the way back; this text is only shown.
  const auto lone = [](char16_t unit) { return unit >= 0xDC80 && unit <= 0xDCFF; };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool paired = i != 0 && IsLead(text[i - 1]);
    if (lone(text[i]) && !paired) text[i] = kReplacement;
  }
  return text;
}

std::string Encodings::TextToBytes(TextView text, int codePage) const { return CodecOf(codePage)->Encoded(text); }

Text Encodings::EncodeUtf8Line(TextView text) const {
  if (text.empty()) return {};
  return system_->Decoded(TextToBytes(text, kCodePageUtf8));
}

Text Encodings::PairBytes(TextView text) const {
  const std::string bytes = system_->Encoded(text);
  Text pairs;
  pairs.reserve(bytes.size() / 2);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    pairs.push_back(LowUnit(ByteOf(bytes[i]) | ByteOf(bytes[i + 1]) << 8));
  }
  return pairs;
}

}  // namespace cuewright
