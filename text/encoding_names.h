#pragma once

#include <optional>
#include <string>
#include <vector>

#include "text/encodings.h"
#include "text/text.h"

namespace cuewright {

/// Where the writing of an encoding is at home, in the order in which encodings are offered.
enum class EncodingRegion {
  Unicode,
  WesternEuropean,
  CentralEuropean,
  SouthEuropean,
  Nordic,
  Baltic,
  Celtic,
  Cyrillic,
  Greek,
  Turkish,
  Hebrew,
  Arabic,
  Thai,
  Vietnamese,
  ChineseSimplified,
  ChineseTraditional,
  Japanese,
  Korean,
};

/// An encoding that files are read and saved in.
struct ListedEncoding {
  DocumentEncoding encoding;
  EncodingRegion region = EncodingRegion::Unicode;
};

/// All of them by region, UTF-8 first.
std::vector<ListedEncoding> ListedEncodings();

/// The encoding of a name as people and the library know it ("UTF-8", "utf16le", "cp1252", "Shift_JIS", "latin2");
/// nothing for a name that is unknown or of an encoding that texts aren't kept in. UTF-16 has a mark.
std::optional<DocumentEncoding> EncodingByName(TextView name);

/// The library's name of a code page's converter; empty for a code page without one.
std::string ConverterOfCodePage(int codePage);

/// The name of a code page in a file that says of itself what it is written in, such as an XML file.
std::string DeclaredName(int codePage);

/// True for a code page whose characters have one byte each.
bool HasOneByteCharacters(int codePage);

}  // namespace cuewright
