#include <gtest/gtest.h>

#include "tests/formats/source_rig.h"

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

const std::string kFull =
    "{\"text\": \" Good evening. Nobody\", \"language\": \"en\", \"segments\": [\n"
    "  {\"id\": 0, \"start\": 12.4, \"end\": 15.2, \"text\": \" Good \\\"evening\\\",\\nInsp\\u00e9ctor \",\n"
    "   \"words\": [{\"word\": \" Good\", \"text\": \"Good\", \"start\": 12.4, \"end\": 13.0}]},\n"
    "  {\"end\": 19.80, \"text\": \"Nobody\", \"start\": 16}\n"
    "]}\n";

TEST(TranscriptJson, SegmentsAreReadAndAllElseIsLeft) {
  const SourceRig rig(u"TRANSCRIPTJSON", kFull);
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"Good \"evening\",|Insp\u00e9ctor"}, {16000, 19800, u"Nobody"}}));
  EXPECT_TRUE(rig.Blamed().empty());
  const auto replaced = [&](const std::string& from, const std::string& to) {
    std::string changed = kFull;
    return changed.replace(changed.find(from), from.size(), to);
  };
  EXPECT_EQ(rig.WithStart(0, 12404), replaced("12.4", "12.404"));
  EXPECT_EQ(rig.WithStart(1, 17000), replaced("\"start\": 16", "\"start\": 17"));
  EXPECT_EQ(rig.WithEnd(1, 20000), replaced("19.80", "20.00"));
  EXPECT_EQ(rig.WithText(1, u"a \"b\"|c\\"), replaced("\"Nobody\", \"start\"", "\"a \\\"b\\\"\\nc\\\\\", \"start\""));
  EXPECT_EQ(rig.Again(rig.Without(1)), (Rows{rig.Rows()[0]}));
  EXPECT_EQ(rig.Again(rig.WithNew(1, {20000, 21500, u"n|m"})).back(), (Caption{20000, 21500, u"n|m"}));
  EXPECT_TRUE(SourceRig(u"TRANSCRIPTJSON", rig.WithNew(0, {15300, 15400, u"n"})).Blamed().empty());
}

TEST(TranscriptJson, WholeNumbersAreMilliseconds) {
  const SourceRig rig(
      u"TRANSCRIPTJSON",
      "[{\"start\":12400,\"end\":15200,\"text\":\"a\"},{\"start\":16000,\"end\":19800,\"text\":\"b\"}]");
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"a"}, {16000, 19800, u"b"}}));
  rig.ExpectFieldsAreTheirOwn();
  const SourceRig seconds(u"TRANSCRIPTJSON", "[{\"start\":12,\"end\":15,\"text\":\"a\"}]");
  EXPECT_EQ(seconds.Rows(), (Rows{{12000, 15000, u"a"}}));
}

TEST(TranscriptJson, AFileThatBreaksOffIsBlamed) {
  const std::string segment = "{\"start\":1.5,\"end\":2,\"text\":\"a\"}";
  for (const std::string& bytes :
       {"[" + segment + ",", "[" + segment + ",{\"start\":", "[" + segment + "]x", "[" + segment}) {
    const SourceRig rig(u"TRANSCRIPTJSON", bytes);
    EXPECT_EQ(rig.Rows(), (Rows{{1500, 2000, u"a"}})) << bytes;
    EXPECT_EQ(rig.Blamed().size(), 1u) << bytes;
  }
  for (const std::string bytes : {"", "{", "[[[", "\"", "\"\\", "{\"a\"", "nothing else"}) {
    EXPECT_FALSE(SourceRig(u"TRANSCRIPTJSON", bytes).Blamed().empty()) << bytes;
  }
  EXPECT_EQ(SourceRig(u"TRANSCRIPTJSON", std::string(1 << 20, '[')).Blamed().size(), 1u);
}

}  // namespace
}  // namespace cuewright::testing
