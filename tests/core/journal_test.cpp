#include "core/journal.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/support/printers.h"

namespace cuewright {
namespace {

JournalDocument Sample() {
  JournalDocument document;
  document.time = 1790000000123;
  document.path = u"/films/été \xD83D\xDE00.srt";
  document.format = u"SUBRIP";
  document.fps = 23.976F;
  document.codePage = 65001;
  document.mark = true;
  document.separator = u"|";
  document.selected = 2;
  document.captions = {{1000, 2000, u"one|two"}, {-5, 2147483647, u""}, {0, 0, Text(1, u'\xD800')}};
  return document;
}

std::string File(const std::vector<std::string>& payloads) {
  std::string bytes(kJournalMagic);
  for (const std::string& payload : payloads) bytes += JournalRecord(payload);
  return bytes;
}

struct JournalTest : ::testing::Test {
  JournalTest() {
    const JournalDocument sample = Sample();
    list.Replace(1, 1, sample.captions);
    list.Spliced.Connect([this](const Splice& splice) { batch.Add(list, splice); });
  }
  std::vector<Caption> All() const {
    std::vector<Caption> all;
    for (Row row = 1; row < list.Rows(); ++row) all.push_back(list.At(row));
    return all;
  }

  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
  JournalBatch batch;
};

using Journal = JournalTest;

TEST_F(Journal, GivesTheDocumentBackAsItWas) {
  const std::string bytes = File({JournalSnapshot(Sample())});
  const JournalReading reading = ReadJournal(bytes);
  ASSERT_TRUE(reading.document);
  EXPECT_EQ(*reading.document, Sample());
  EXPECT_EQ(reading.validBytes, bytes.size());
}

// A first record that is all there was not cut off, whatever its length says.
TEST_F(Journal, ADamagedLengthOfTheFirstRecordIsDamage) {
  std::string bytes = File({JournalSnapshot(Sample())});
  const std::size_t length = kJournalMagic.size();
  bytes[length + 2] = static_cast<char>(bytes[length + 2] ^ 0x40);
  EXPECT_EQ(ReadJournal(bytes).fault, JournalFault::Damaged);
  EXPECT_EQ(ReadJournal(std::string_view(bytes).substr(0, bytes.size() - 1)).fault, JournalFault::CutOff);
}

TEST_F(Journal, AppliesItsBatchesInTheirOrder) {
  list.SetCaptionStart(1, 1500, false);
  list.AddCaption(7, 8, u"new", 2);
  const std::string first = batch.Take(1790000001000, 3, u"|");
  list.DeleteCaption(1);
  list.SetCaptionText(1, u"changed");
  const std::string second = batch.Take(1790000002000, 1, u"/n");
  const JournalReading reading = ReadJournal(File({JournalSnapshot(Sample()), first, second}));
  ASSERT_TRUE(reading.document);
  EXPECT_EQ(reading.document->captions, All());
  EXPECT_EQ(reading.document->time, 1790000002000);
  EXPECT_EQ(reading.document->selected, 1);
  EXPECT_EQ(reading.document->separator, u"/n");
  EXPECT_EQ(reading.document->path, Sample().path);
}

TEST_F(Journal, CutOffAnywhereHoldsTheStateOfItsLastWholeRecord) {
  std::vector<std::string> payloads = {JournalSnapshot(Sample())};
  std::vector<std::vector<Caption>> states = {Sample().captions};
  std::vector<std::size_t> ends = {File(payloads).size()};
  for (int i = 0; i < 4; ++i) {
    list.SetCaptionText(1, u"state " + Decimal(i));
    list.AddCaption(i, i, u"x", 1);
    payloads.push_back(batch.Take(i, 1, u"|"));
    states.push_back(All());
    ends.push_back(File(payloads).size());
  }
  const std::string whole = File(payloads);
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const JournalReading reading = ReadJournal(std::string_view(whole).substr(0, length));
    if (length < ends[0]) {
      EXPECT_FALSE(reading.document) << length;
      continue;
    }
    std::size_t last = 0;
    while (last + 1 < ends.size() && ends[last + 1] <= length) ++last;
    ASSERT_TRUE(reading.document) << length;
    EXPECT_EQ(reading.document->captions, states[last]) << length;
    EXPECT_EQ(reading.validBytes, ends[last]) << length;
  }
}

TEST_F(Journal, ADamagedByteEndsItAtTheRecordBefore) {
  std::vector<std::string> payloads = {JournalSnapshot(Sample())};
  const std::size_t end = File(payloads).size();
  list.SetCaptionText(1, u"later");
  payloads.push_back(batch.Take(5, 1, u"|"));
  const std::string whole = File(payloads);
  for (std::size_t at = 0; at < whole.size(); ++at) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(damaged[at] ^ 0x10);
    const JournalReading reading = ReadJournal(damaged);
    if (at < end) {
      EXPECT_FALSE(reading.document) << at;
    } else {
      ASSERT_TRUE(reading.document) << at;
      EXPECT_EQ(reading.document->captions, Sample().captions) << at;
      EXPECT_EQ(reading.validBytes, end) << at;
    }
  }
}

TEST_F(Journal, ABatchThatDoesNotFitTheDocumentCountsAsNeverWritten) {
  const std::string snapshot = JournalSnapshot(Sample());
  // Written for a list of more rows.
  for (int i = 0; i < 5; ++i) list.AddCaption(1, 2, u"more", 0);
  list.DeleteCaption(8);
  batch.Clear();
  list.SetCaptionText(7, u"out of range");
  const std::string text = batch.Take(1, 1, u"|");
  list.SetCaptionEnd(7, 5);
  const std::string times = batch.Take(1, 1, u"|");
  list.DeleteCaption(6);
  const std::string removed = batch.Take(1, 1, u"|");
  for (const std::string& batchBytes :
       {text, times, removed, std::string("\x02\x00\x01", 3), std::string(), snapshot}) {
    const JournalReading reading = ReadJournal(File({snapshot, batchBytes}));
    ASSERT_TRUE(reading.document);
    EXPECT_EQ(*reading.document, Sample());
    EXPECT_EQ(reading.validBytes, File({snapshot}).size());
  }
}

TEST_F(Journal, OfNoCaptionOrOfNothingIsNone) {
  JournalDocument empty = Sample();
  empty.captions.clear();
  EXPECT_FALSE(ReadJournal(File({JournalSnapshot(empty)})).document);
  EXPECT_FALSE(ReadJournal({}).document);
  EXPECT_FALSE(ReadJournal(kJournalMagic).document);
  EXPECT_FALSE(ReadJournal("something else altogether").document);
}

TEST_F(Journal, TellsWhatIsWrongWithOneThatGivesNoDocument) {
  const std::string whole = File({JournalSnapshot(Sample())});
  for (std::size_t size = 0; size < whole.size(); ++size) {
    ASSERT_EQ(ReadJournal(whole.substr(0, size)).fault, JournalFault::CutOff) << size;
  }
  EXPECT_EQ(ReadJournal(whole).fault, JournalFault::None);
  for (std::size_t at = 6; at < whole.size(); ++at) {
    std::string changed = whole;
    changed[at] = static_cast<char>(changed[at] ^ 0x40);
    const JournalFault fault = ReadJournal(changed).fault;
    // A length that was changed may look like a file that was cut off.
    if (at >= 8 && at < 12) continue;
    ASSERT_EQ(fault, at < 8 ? JournalFault::OtherVersion : JournalFault::Damaged) << at;
  }
  EXPECT_EQ(ReadJournal("something else altogether").fault, JournalFault::Damaged);
  EXPECT_EQ(ReadJournal(std::string(whole.size(), '\0')).fault, JournalFault::Damaged);
}

TEST_F(Journal, FollowsAnyChangesOfTheList) {
  std::mt19937 random(7);
  const auto pick = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
  std::vector<std::string> payloads = {JournalSnapshot(Sample())};
  for (int i = 0; i < 2000; ++i) {
    const Row row = pick(list.Count() + 1) + 1;
    switch (pick(6)) {
      case 0:
        list.AddCaption(pick(5000), pick(5000), u"added " + Decimal(i), pick(list.Count() + 1) + 1);
        break;
      case 1:
        list.DeleteCaption(row);
        break;
      case 2:
        list.SetCaptionStart(row, pick(100000), true);
        break;
      case 3:
        list.SetCaptionText(row, u"text " + Decimal(i));
        break;
      case 4: {
        std::vector<CaptionTimes> times(static_cast<std::size_t>(list.Count()), {i, i + 1});
        list.Retime(1, times);
        break;
      }
      default:
        if (pick(20) == 0) list.Reset();
    }
    if (pick(4) == 0) payloads.push_back(batch.Take(i, 1, u"|"));
  }
  payloads.push_back(batch.Take(9999, 1, u"|"));
  const JournalReading reading = ReadJournal(File(payloads));
  ASSERT_TRUE(reading.document);
  EXPECT_EQ(reading.document->captions, All());
  EXPECT_EQ(reading.document->time, 9999);
}

}  // namespace
}  // namespace cuewright
