#include "formats/source/record_watch.h"

#include <algorithm>

#include "core/counting.h"
#include "formats/source/source_format.h"

namespace cuewright {

void RecordWatch::TakeLine(std::size_t at, std::size_t behind, bool blank, const CaptionCollector& captions) {
  const CaptionTimes times{captions.captionStart, captions.captionEnd};
  const bool closed = captions.ImportedCount() > CountOf(records_);
  const bool ofThisLine = closed && !open_;
  if (ofThisLine) {
    begin_ = at;
    end_ = behind;
  }
  if (closed) Close(captions.ImportedCount());
  if (!blank) {
    std::rotate(lastLines_.begin(), lastLines_.end() - 1, lastLines_.end());
    lastLines_[0] = at;
  }
  const bool begins = captions.StartSet() && (!open_ || times.start != times_.start);
  if (begins) {
    open_ = true;
    begin_ = BeginOfRecord();
    std::erase_if(maybeLeft_, [&](std::size_t line) { return line >= begin_; });
    if (!records_.empty()) left_.insert(left_.end(), maybeLeft_.begin(), maybeLeft_.end());
    maybeLeft_.clear();
  }
  const bool took = begins || times != times_ || captions.captionText.size() != textSize_;
  if (open_ && took && !blank) {
    end_ = behind;
  } else if (blank && !records_.empty() && !open_ && records_.back().End() == at) {
    records_.back() = Stretch::Between(records_.back().at, behind);
  } else if (!blank && !ofThisLine) {
    maybeLeft_.push_back(at);
  }
  times_ = times;
  textSize_ = captions.captionText.size();
}

void RecordWatch::Close(int count) {
  if (count <= CountOf(records_)) return;
  records_.push_back(Stretch::Between(begin_, end_));
  // Several captions of one line stand in the first one's record.
  records_.resize(count, Stretch::Of(end_, 0));
  open_ = false;
}

std::size_t RecordWatch::BeginOfRecord() const {
  const std::size_t from = lastLines_[std::min(linesBeforeStart_, lastLines_.size() - 1)];
  return records_.empty() ? from : std::max<std::size_t>(from, records_.back().End());
}

}  // namespace cuewright
