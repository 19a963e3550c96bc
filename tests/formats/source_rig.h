#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/caption_list.h"
#include "formats/source/source_format.h"
#include "tests/support/printers.h"
#include "text/encodings.h"
#include "text/text_file.h"
#include "text/utf8.h"

namespace cuewright::testing {

/// Reads a file by the rules of a format and changes single fields of it.
class SourceRig {
 public:
  SourceRig(TextView identifier, std::string bytes, SourceSettings settings = {})
      : identifier_(identifier),
        settings_(std::move(settings)),
        file_(TextFile::Auto(std::move(bytes), encodings_)),
        bytes_(file_.Rest()),
        format_(MakeSourceFormat(identifier, settings_)) {
    Collector sink{*this};
    format_->Read(SourceText{bytes_, file_}, kSeparator, sink);
    CheckPlaces();
  }

  const std::vector<Caption>& Rows() const { return rows_; }
  const SourceRecord& Record(std::size_t i) const { return records_.at(i); }
  std::string_view In(Stretch stretch) const { return stretch.In(bytes_); }
  const SourceFormat& Format() const { return *format_; }
  /// The lines, from 1, that weren't understood.
  const std::vector<int>& Blamed() const { return blamed_; }

  /// The file with one stretch replaced.
  std::string With(Stretch stretch, const std::string& field) const {
    std::string changed(bytes_);
    changed.replace(stretch.at, stretch.size, field);
    return changed;
  }
  std::string WithStart(std::size_t i, Ms ms) const {
    return With(Record(i).start, format_->TimeField(ms - format_->OffsetOf(Record(i)), In(Record(i).start)));
  }
  std::string WithEnd(std::size_t i, Ms ms) const {
    return With(Record(i).end, format_->TimeField(ms - format_->OffsetOf(Record(i)), In(Record(i).end)));
  }
  std::string WithText(std::size_t i, TextView text) const {
    return With(Record(i).text, ToUtf8(format_->TextField(text, kSeparator, u"\n")));
  }
  /// The file with a record of the format's own behind that of caption `i`.
  std::string WithNew(std::size_t i, const Caption& caption) const {
    const SourceRecord& before = Record(i);
    NewRecord fresh{caption, static_cast<int>(i) + 2, u"\n", In(before.whole)};
    fresh.offset = format_->OffsetOf(before);
    return With({before.whole.End(), 0}, ToUtf8(format_->Record(fresh, kSeparator)));
  }
  /// The file with the record of a caption written anew in its place.
  std::string WithOwn(std::size_t i, const Caption& caption) const {
    NewRecord own{caption, static_cast<int>(i) + 1, u"\n", In(Record(i).whole), true};
    own.offset = format_->OffsetOf(Record(i));
    return With(Record(i).whole, ToUtf8(format_->Record(own, kSeparator)));
  }
  std::string Without(std::size_t i) const { return With(Record(i).whole, ""); }

  /// What the format reads in these bytes.
  std::vector<Caption> Again(const std::string& bytes) const { return SourceRig(identifier_, bytes, settings_).Rows(); }

  /// Every caption with its own fields put in place of themselves must leave the file as it is.
  void ExpectFieldsAreTheirOwn() const {
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      SCOPED_TRACE(i);
      if (!Record(i).start.Empty()) {
        EXPECT_EQ(WithStart(i, rows_[i].start), bytes_);
      }
      if (!Record(i).end.Empty()) {
        EXPECT_EQ(WithEnd(i, rows_[i].end), bytes_);
      }
      if (!rows_[i].text.empty() && Record(i).text.at != 0) {
        EXPECT_EQ(WithText(i, rows_[i].text), bytes_);
      }
    }
  }

 private:
  static constexpr TextView kSeparator = u"|";

  struct Collector final : SourceSink {
    explicit Collector(SourceRig& owner) : rig(owner) {}
    bool Add(Ms start, Ms end, Text text, const SourceRecord& record) override {
      rig.rows_.push_back({start, end, std::move(text)});
      rig.records_.push_back(record);
      return true;
    }
    void NotUnderstood(std::size_t place) override {
      EXPECT_LE(place, rig.bytes_.size());
      int line = 1;
      for (const char c : rig.bytes_.substr(0, place)) line += c == '\n' ? 1 : 0;
      rig.blamed_.push_back(line);
    }
    SourceRig& rig;
  };

  /// Records lie in the file one behind the other, and their fields in them.
  void CheckPlaces() const {
    std::size_t end = 0;
    for (const SourceRecord& record : records_) {
      EXPECT_GE(record.whole.at, end);
      EXPECT_LE(record.whole.End(), bytes_.size());
      end = record.whole.End();
      for (const Stretch& field : {record.number, record.start, record.end, record.text}) {
        if (field.Empty()) continue;
        EXPECT_GE(field.at, record.whole.at);
        EXPECT_LE(field.End(), record.whole.End());
      }
    }
  }

  Text identifier_;
  SourceSettings settings_;
  Encodings encodings_{1252};
  TextFile file_;
  std::string_view bytes_;
  std::unique_ptr<SourceFormat> format_;
  std::vector<Caption> rows_;
  std::vector<SourceRecord> records_;
  std::vector<int> blamed_;
};

}  // namespace cuewright::testing
