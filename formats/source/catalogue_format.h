#pragma once

#include "core/frame_rate.h"
#include "formats/definition.h"
#include "formats/source/source_format.h"
#include "text/codec.h"

namespace cuewright {

/// A format that is known by the catalogue's record alone: its fields are written as the record tells. Where a
/// caption's record and fields stand in a file `RecordWatch` finds out while the lines are read.
class CatalogueFormat final : public SourceFormat {
 public:
  CatalogueFormat(const FormatDefinition& definition, TextView identifier, const TimeRules& times)
      : definition_(definition), identifier_(identifier), times_(times) {}

  void Read(const SourceText&, TextView, SourceSink&) override {}
  std::string TimeField(Ms ms, std::string_view old) const override;
  std::string NumberField(int number, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;

  /// Finds the fields of a caption in the bytes of its record, as this format would have written them.
  void FindFields(const Caption& caption, std::string_view bytes, const Codec& codec, TextView separator,
                  SourceRecord& record) const;
  /// True for a line that every record, or the header or footer around them, has as it stands.
  bool IsOfTheForm(TextView line) const;
  /// How many lines of a record stand in front of the one with its start time.
  std::size_t LinesBeforeStart() const;

 private:
  Stretch FindNumber(std::string_view beforeStart, std::size_t place) const;
  Text Time(Ms ms) const;

  FormatDefinition definition_;
  Text identifier_;
  TimeRules times_;
};

}  // namespace cuewright
