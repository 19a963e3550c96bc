#include "tests/support/hostile_files.h"

#include <gtest/gtest.h>

#include "formats/source/source_format.h"
#include "text/encodings.h"

namespace cuewright::test {
namespace {

/// Holds that records come in the file's order and lie in it.
class OrderlySink final : public SourceSink {
 public:
  explicit OrderlySink(std::size_t size) : size_(size) {}

  bool Add(Ms, Ms, Text, const SourceRecord& record) override {
    orderly = orderly && record.whole.at >= last_ && record.whole.End() <= size_;
    last_ = record.whole.at;
    ++records;
    return true;
  }
  void NotUnderstood(std::size_t place) override { orderly = orderly && place <= size_; }

  bool orderly = true;
  int records = 0;

 private:
  std::size_t size_;
  std::size_t last_ = 0;
};

TEST(SourceFormats, ReadHostileFilesToTheirEnds) {
  const Encodings encodings(1252);
  int records = 0;
  for (const HostileFile& hostile : kHostileFiles) {
    const TextFile file = hostile.Opened(1 << 16, encodings);
    OrderlySink sink(file.Bytes().size());
    MakeSourceFormat(hostile.format)->Read(SourceText{file.Bytes(), file}, u"|", sink);
    EXPECT_TRUE(sink.orderly) << ToUtf8(hostile.format) << ' ' << hostile.piece;
    records += sink.records;
  }
  EXPECT_GT(records, 1000);
}

}  // namespace
}  // namespace cuewright::test
