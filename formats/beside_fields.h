#pragma once

#include <set>
#include <vector>

#include "core/caption_list.h"
#include "formats/definition.h"
#include "formats/source/beside.h"
#include "formats/source/markup.h"
#include "text/text.h"

namespace cuewright {

/// The placeholder in a record where what a caption keeps beside its text is put.
inline constexpr TextView kBesideField = u"qxmBeside";

/// What the captions of a list keep beside their texts, as a format of the catalogue writes it.
class BesideFields {
 public:
  /// The format's identifier, and one for each row from 1 on.
  BesideFields(TextView identifier, std::vector<Beside> captions);

  /// Makes room in the format's record, and declares in its header what the fields need. A record without room for
  /// them stays as it is.
  void MakeRoom(FormatDefinition& definition) const;

  /// What is written in that placeholder for a row.
  Text FieldOf(Row row) const;

 private:
  Text Head() const;
  Text SpeakerName(const Text& speaker) const;

  MarkKind kind_;
  TextView identifier_;
  std::vector<Beside> captions_;
  std::set<Text> speakers_;
  std::set<int> places_;
};

/// Declares the prefix of the styles in the texts of TTML.
void DeclareStyles(FormatDefinition& definition);

}  // namespace cuewright
