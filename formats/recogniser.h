#pragma once

#include <optional>
#include <vector>

#include "core/manner.h"
#include "core/runtime_error.h"
#include "formats/definition.h"
#include "text/encodings.h"
#include "text/text_file.h"

namespace cuewright {

/// Finds out which format a file has, by its first lines: by what the published rules of formats demand of every file
/// and, where they leave it open and in the classic manner, by the samples of the catalogue.
class FormatRecogniser {
 public:
  FormatRecogniser(const FormatSet& formats, const Encodings& encodings, const Manner& manner)
      : formats_(formats), encodings_(encodings), manner_(manner) {}

  /// Puts the file's format in force and tells whether it is 16-bit text, whose bytes are to be paired. Nothing when no
  /// format fits; plain text is then the current one. Null stands for a file that can't be read.
  [[nodiscard]] std::optional<bool> Settle(TextFile* file, CarryOn& errors);

  /// A format whose sample a file holds, and its definition as it fits there.
  struct Fit {
    int format = 0;
    FormatDefinition definition;
  };

  /// The formats whose samples the head of the file holds, apart from the one in force, in the catalogue's order. None
  /// where published rules or a heading settle the format, and in the classic manner.
  const std::vector<Fit>& AlsoFitting() const { return alsoFitting_; }

  /// True when the head of the file holds the mask of some format's timecode.
  bool TimecodeLiteral() const { return timecodeLiteral_; }

 private:
  /// The beginning of a file, in upper case and with its digits masked.
  struct Heads {
    Text full;
    Text brief;  ///< numbers of any length as "00"
  };

  bool SettleByRules(const TextFile& file, CarryOn& errors);
  Heads ReadHeads(TextFile& file, bool wide) const;
  bool Recognise(const Heads& heads, CarryOn& errors);
  void LookForTimecode(const Heads& heads);
  bool Fits(const Heads& heads) const;
  bool FitsSecondTemplate(const Heads& heads, TextView formatId);
  void NoteOthers(const Heads& heads, CarryOn& errors);
  bool SettleLookAlikes(const Heads& heads, CarryOn& errors);

  FormatSet formats_;
  const Encodings& encodings_;
  const Manner& manner_;
  bool timecodeLiteral_ = false;
  std::vector<Fit> alsoFitting_;
};

}  // namespace cuewright
