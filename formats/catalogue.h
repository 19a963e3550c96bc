#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/counting.h"
#include "core/lang_strings.h"
#include "core/manner.h"
#include "core/ports/files.h"
#include "core/ports/messages.h"
#include "text/encodings.h"
#include "text/profile.h"
#include "text/text.h"

namespace cuewright {

/// Identifiers that the engine knows by name.
inline constexpr TextView kPlainText = u"PLAINTEXT";
inline constexpr TextView kSubRip = u"SUBRIP";
inline constexpr TextView kMicroDvd = u"MICRODVD";
inline constexpr TextView kTtml = u"TTML";
inline constexpr TextView kSubStationAlpha = u"SUBSTATIONALPHA";
inline constexpr TextView kAdvancedSsa = u"ADVANCEDSSA";
inline constexpr TextView kSami = u"SAMI";
inline constexpr TextView kTmPlayer = u"TMPLAYER";
inline constexpr TextView kAdobeEncore = u"ADOBEENCORE";
inline constexpr TextView kPinnacleImp = u"PINNACLEIMP";
inline constexpr TextView kDvdSubSystem = u"DVDSUBSYSTEM";
inline constexpr TextView kMacDvdPro = u"MACDVDPRO";
inline constexpr TextView kSpruceDvdMaestro = u"SPRUCEDVDMAESTRO";
inline constexpr TextView kSonicScenarist = u"SONICSCENARIST";
inline constexpr TextView kUleadWorkshop = u"UDVDWORKSHOP20";
inline constexpr TextView kKaraokeLrc = u"KARAOKELRC";
inline constexpr TextView kDvdSubtitle = u"DVDSUBTITLE";
inline constexpr TextView kCsve = u"CSVE";

/// A block of "formats.dat" cut into its parts.
struct FormatBlock {
  bool found = false;  ///< a start line was met
  bool valid = false;  ///< all required marks were met as well
  Text header;
  Text record;  ///< ends in the CR of its last line
  Text footer;
};

/// The formats of the two format files, held in memory from the start of a run to its end, and behind them those that
/// are known by their published rules alone. Nothing is shown or written here but the boxes of `LoadFormatCatalogue`.
class FormatCatalogue {
 public:
  FormatCatalogue() = default;
  FormatCatalogue(const FormatCatalogue&) = delete;
  FormatCatalogue& operator=(const FormatCatalogue&) = delete;

  /// Reads the files' contents; text that is valid UTF-8 counts as such, any other is of the system's code page.
  /// Run-time error 6 when the list is empty or holds more than 255 identifiers; the first 255 are kept.
  void Load(const std::string& iniBytes, const std::string& datBytes, const Encodings& encodings);

  /// How many formats the files have.
  int Count() const { return count_; }
  /// How many formats there are in a manner, and how many of them, which come first, can be written as new files.
  int CountToRead(const Manner& manner) const;
  int CountToWrite(const Manner& manner) const;
  /// True for a format that the files don't have.
  bool IsFurther(int index) const { return index >= count_; }

  /// The identifiers in upper case; index 0 is plain text. An index out of range gives the empty text.
  const Text& Identifier(int index) const;

  /// The index of the last entry with this identifier; -1 when there is none.
  int IndexOf(TextView identifier) const;

  /// A value of "formats.ini", or of what stands for it.
  Text ReadIni(TextView section, TextView key, TextView fallback) const {
    return profile_.Read(section, key, further_.Read(section, key, fallback));
  }

  /// The format's display name; the identifier when it has none.
  Text DisplayName(TextView identifier) const { return ReadIni(identifier, u"name", identifier); }

  /// The block of an identifier, as a search from the top of the file finds it.
  FormatBlock Block(TextView identifier) const;

 private:
  void ReadList();
  void NoteStartLines();

  int CountAll() const { return CountOf(identifiers_); }
  void AddFurtherFormats();

  Profile profile_;
  Profile further_;
  Text dat_;
  std::vector<TextView> lines_;  // of dat_
  std::vector<Text> identifiers_;
  int count_ = 0;         // how many formats the files have
  int countWritten_ = 0;  // the same and the further ones that can be written
  Text none_;
  std::unordered_map<TextView, std::size_t> starts_;  // identifier -> line behind its first start line
};

/// Loads the catalogue from the two files. A missing file is told by `Message::ComponentNotFound`; then the result is
/// false, and the program is to end at once. Run-time errors of reading are thrown.
[[nodiscard]] bool LoadFormatCatalogue(FormatCatalogue& catalogue, const Files& files, TextView iniPath,
                                       TextView datPath, const Encodings& encodings, const LangStrings& strings,
                                       Messages& messages);

}  // namespace cuewright
