#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "formats/caption_collector.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// Finds out where the record of each caption stands in a file, by watching which lines change the collector.
class RecordWatch {
 public:
  /// `linesBeforeStart` is how many lines of a record stand in front of the one with its start.
  explicit RecordWatch(std::size_t linesBeforeStart) : linesBeforeStart_(linesBeforeStart) {}

  /// A line at these places was taken by the collector.
  void TakeLine(std::size_t at, std::size_t behind, bool blank, const CaptionCollector& captions);
  /// The file has ended.
  void End(const CaptionCollector& captions) { Close(captions.ImportedCount()); }

  /// One record for each caption, in their order; each includes the blank lines behind it.
  const std::vector<Stretch>& Records() const { return records_; }
  /// The places of lines between two records that belong to neither.
  const std::vector<std::size_t>& LinesLeft() const { return left_; }

 private:
  void Close(int count);
  std::size_t BeginOfRecord() const;

  std::size_t linesBeforeStart_;
  std::array<std::size_t, 4> lastLines_{};  // places of the last lines that were not blank, the newest first
  std::size_t begin_ = 0;                   // of the open record
  std::size_t end_ = 0;                     // behind its last line
  bool open_ = false;
  std::size_t textSize_ = 0;
  CaptionTimes times_{CaptionCollector::kNotRead, CaptionCollector::kNotRead};
  std::vector<Stretch> records_;
  std::vector<std::size_t> left_;
  std::vector<std::size_t> maybeLeft_;  // lines since the last record that may begin the next one
};

}  // namespace cuewright
