#include "formats/source/transcript_writer.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "formats/source/clock_field.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

/// The name under which a value stands.
std::string_view NameOf(std::string_view object, Stretch value) {
  const std::size_t colon = object.substr(0, value.at).rfind(':');
  const std::size_t end = object.substr(0, std::min(colon, object.size())).rfind('"');
  const std::size_t begin = end == std::string_view::npos || end == 0 ? end : object.substr(0, end).rfind('"');
  return begin == std::string_view::npos || begin == 0 ? "" : object.substr(begin + 1, end - begin - 1);
}

}  // namespace

SegmentWriter::SegmentWriter(const SourceFormat& format, std::string_view object, const TranscriptSegment& segment,
                             const Caption& caption, TextView separator)
    : format_(format),
      object_(object),
      segment_(segment),
      start_(caption.start),
      end_(segment.lasts ? Ms::Within(Span(caption.start, caption.end), 0, Ms::Latest()) : caption.end),
      text_(format.TextField(caption.text, separator, {})) {}

Text SegmentWriter::Changed(const SegmentFields& same) const {
  struct Field {
    Stretch place;
    Text anew;
  };
  std::vector<Field> fields;
  const auto put = [&](Stretch place, Text anew) {
    if (place.at != 0) fields.push_back({place, std::move(anew)});
  };
  if (!same.start) {
    put(segment_.start, Time(start_, segment_.start));
    put(segment_.startClock, Clock(start_, segment_.startClock));
  }
  if (!same.end) {
    put(segment_.end, Time(end_, segment_.end));
    put(segment_.endClock, Clock(end_, segment_.endClock));
  }
  const bool inPieces = segment_.text.at == 0;
  if (!same.text) {
    put(inPieces ? segment_.pieces : segment_.text, inPieces ? u"[{\"utf8\": \"" + text_ + u"\"}]" : text_);
  }
  std::ranges::sort(fields, {}, [](const Field& field) { return field.place.at; });
  Text result;
  std::size_t at = 0;
  for (const Field& field : fields) {
    result += FromUtf8(object_.substr(at, field.place.at - at)) + field.anew;
    at = field.place.End();
  }
  return result + FromUtf8(object_.substr(at));
}

Text SegmentWriter::Alike() const {
  const Text words = u"\"" + text_ + u"\"}";
  const Text start = Value(start_, segment_.start);
  const Text end = Value(end_, segment_.end);
  switch (segment_.shape) {
    case SegmentShape::List:
      return u"{\"timestamp\": [" + start + u", " + end + u"], " + Named(segment_.text) + words;
    case SegmentShape::Ranges:
      return u"{\"timestamps\": {\"from\": \"" + Clock(start_, segment_.startClock) + u"\", \"to\": \"" +
             Clock(end_, segment_.endClock) + u"\"}, \"offsets\": {\"from\": " + start + u", \"to\": " + end + u"}, " +
             Named(segment_.text) + words;
    case SegmentShape::Events:
      if (segment_.pieces.Empty()) break;
      return u"{" + Named(segment_.start) + start + u", " + Named(segment_.end) + end + u", \"segs\": [{\"utf8\": " +
             words + u"]}";
    case SegmentShape::Flat:
      break;
  }
  return u"{" + Named(segment_.start) + start + u", " + Named(segment_.end) + end + u", " + Named(segment_.text) +
         words;
}

Text SegmentWriter::Time(Ms ms, Stretch field) const { return FromUtf8(format_.TimeField(ms, field.In(object_))); }
Text SegmentWriter::Clock(Ms ms, Stretch field) const { return FromUtf8(ClockLike(ms, field.In(object_))); }
Text SegmentWriter::Value(Ms ms, Stretch field) const {
  const bool quoted = field.at > 0 && object_[field.at - 1] == '"';
  return quoted ? u"\"" + Time(ms, field) + u"\"" : Time(ms, field);
}
Text SegmentWriter::Named(Stretch value) const { return u"\"" + FromUtf8(NameOf(object_, value)) + u"\": "; }

}  // namespace cuewright
