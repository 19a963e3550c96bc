#pragma once

#include <string_view>

#include "core/caption_list.h"
#include "formats/source/source_format.h"
#include "formats/source/transcript_scanner.h"
#include "text/text.h"

namespace cuewright {

/// Which fields of a segment say already what they are to say.
struct SegmentFields {
  bool start = false;
  bool end = false;
  bool text = false;
};

/// Writes one segment of a transcript with the times and the text of a caption.
class SegmentWriter {
 public:
  /// `segment` lies in the bytes of `object`; `format` writes single fields.
  SegmentWriter(const SourceFormat& format, std::string_view object, const TranscriptSegment& segment,
                const Caption& caption, TextView separator);

  /// The object with the caption's times and text in it, but for the fields that have them.
  Text Changed(const SegmentFields& same) const;
  /// An object of its shape and with its names that holds nothing else.
  Text Alike() const;

 private:
  Text Time(Ms ms, Stretch field) const;
  Text Clock(Ms ms, Stretch field) const;
  Text Value(Ms ms, Stretch field) const;
  Text Named(Stretch value) const;

  const SourceFormat& format_;
  std::string_view object_;
  const TranscriptSegment& segment_;
  Ms start_;
  Ms end_;  // or the duration
  Text text_;
};

}  // namespace cuewright
