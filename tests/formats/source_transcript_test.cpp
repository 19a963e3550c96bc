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

struct Shape {
  std::string file;
  std::string segment;  ///< of a caption from 20 to 21.5 seconds, as the file would have it
};

/// Two captions from 12.4 to 15.2 and from 16 to 19.8 seconds, told in many ways.
const std::vector<Shape> kShapes = {
    {"[{\"text\":\"a\",\"start\":12.4,\"duration\":2.8},{\"text\":\"b\",\"start\":16.0,\"duration\":3.8}]",
     "{\"start\": 20.0, \"duration\": 1.5, \"text\": \"n\"}"},
    {"[{\"start\":\"12.4\",\"end\":\"15.2\",\"text\":\"a\"},{\"start\":\"16.0\",\"end\":\"19.8\",\"text\":\"b\"}]",
     "{\"start\": \"20.0\", \"end\": \"21.5\", \"text\": \"n\"}"},
    {"[{\"start_time\":1.24e1,\"end_time\":1.52E+1,\"transcript\":\"a\"},"
     "{\"start_time\":16.0,\"end_time\":19.8,\"transcript\":\"b\"}]",
     "{\"start_time\": 20.0, \"end_time\": 21.5, \"transcript\": \"n\"}"},
    {"{\"segments\":[{\"speaker\":\"Ann\",\"startTime\":\"12.4s\",\"endTime\":\"15.2s\",\"body\":\"a\"},"
     "{\"startTime\":\"16.0s\",\"endTime\":\"19.8s\",\"body\":\"b\"}]}",
     "{\"startTime\": \"20.0s\", \"endTime\": \"21.5s\", \"body\": \"n\"}"},
    {"[{\"start\":\"00:00:12,400\",\"end\":\"00:00:15,200\",\"text\":\"a\"},"
     "{\"start\":\"00:00:16,000\",\"end\":\"00:00:19,800\",\"text\":\"b\"}]",
     "{\"start\": \"00:00:20,000\", \"end\": \"00:00:21,500\", \"text\": \"n\"}"},
    {"{\"chunks\":[{\"timestamp\":[12.4,15.2],\"text\":\" a\"},{\"timestamp\":[16.0,19.8],\"text\":\" b\"}]}",
     "{\"timestamp\": [20.0, 21.5], \"text\": \"n\"}"},
    {"{\"transcription\":[{\"timestamps\":{\"from\":\"00:00:12,400\",\"to\":\"00:00:15,200\"},"
     "\"offsets\":{\"from\":12400,\"to\":15200},\"text\":\" a\",\"tokens\":[{\"text\":\"a\",\"offsets\":{\"from\":1,"
     "\"to\":2}}]},{\"timestamps\":{\"from\":\"00:00:16,000\",\"to\":\"00:00:19,800\"},"
     "\"offsets\":{\"from\":16000,\"to\":19800},\"text\":\" b\"}]}",
     "{\"timestamps\": {\"from\": \"00:00:20,000\", \"to\": \"00:00:21,500\"}, "
     "\"offsets\": {\"from\": 20000, \"to\": 21500}, \"text\": \"n\"}"},
    {"{\"events\":[{\"tStartMs\":12400,\"dDurationMs\":2800,\"segs\":[{\"utf8\":\"a\"}]},"
     "{\"tStartMs\":16000,\"dDurationMs\":3800,\"segs\":[{\"utf8\":\"b\"}]}]}",
     "{\"tStartMs\": 20000, \"dDurationMs\": 1500, \"segs\": [{\"utf8\": \"n\"}]}"},
};

TEST(TranscriptJson, SegmentsOfEveryShapeAreReadAndWritten) {
  for (const Shape& shape : kShapes) {
    SCOPED_TRACE(shape.file);
    const SourceRig rig(u"TRANSCRIPTJSON", shape.file);
    EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"a"}, {16000, 19800, u"b"}}));
    EXPECT_TRUE(rig.Blamed().empty());
    const std::string more = rig.WithNew(1, {20000, 21500, u"n"});
    EXPECT_NE(more.find(shape.segment), std::string::npos) << more;
    EXPECT_EQ(rig.Again(more).back(), (Caption{20000, 21500, u"n"}));
    EXPECT_EQ(rig.Again(rig.Without(1)), (Rows{rig.Rows()[0]}));
    // Its own record written anew keeps what didn't change, and all that stands beside.
    EXPECT_EQ(rig.WithOwn(1, rig.Rows()[1]), shape.file);
    EXPECT_EQ(rig.Again(rig.WithOwn(1, {17000, 18500, u"c|d"})), (Rows{rig.Rows()[0], {17000, 18500, u"c|d"}}));
  }
}

TEST(TranscriptJson, PiecesOfATextAreOneCaption) {
  const std::string file =
      "{\"events\":[{\"tStartMs\":0,\"dDurationMs\":900,\"segs\":[{\"utf8\":\"one\"},{\"utf8\":\" \\\"two\\\"\","
      "\"tOffsetMs\":400}]},{\"tStartMs\":900,\"dDurationMs\":0,\"segs\":[{\"utf8\":\"\\n\"}]},{\"tStartMs\":950}]}";
  const SourceRig rig(u"TRANSCRIPTJSON", file);
  ASSERT_EQ(rig.Rows().size(), 2u);
  EXPECT_EQ(rig.Rows()[0], (Caption{0, 900, u"one \"two\""}));
  EXPECT_TRUE(rig.Blamed().empty());
}

TEST(TranscriptJson, LinesOfTheirOwnAreSegments) {
  const std::string file = "{\"start\":1.5,\"end\":2,\"text\":\"a\"}\n{\"start\":3,\"end\":4.5,\"text\":\"b\"}\n";
  const SourceRig rig(u"TRANSCRIPTJSON", file);
  EXPECT_EQ(rig.Rows(), (Rows{{1500, 2000, u"a"}, {3000, 4500, u"b"}}));
  EXPECT_TRUE(rig.Blamed().empty());
  EXPECT_FALSE(rig.Format().RecordsAreAList());
  EXPECT_EQ(rig.WithNew(0, {2000, 2500, u"n"}),
            "{\"start\":1.5,\"end\":2,\"text\":\"a\"}\n{\"start\": 2.0, \"end\": 2.5, \"text\": \"n\"}\n"
            "{\"start\":3,\"end\":4.5,\"text\":\"b\"}\n");
  EXPECT_EQ(rig.Without(0), "{\"start\":3,\"end\":4.5,\"text\":\"b\"}\n");
}

TEST(TranscriptJson, ATimeThatNobodyKnowsIsTold) {
  const SourceRig rig(
      u"TRANSCRIPTJSON",
      "{\"chunks\":[{\"timestamp\":[1.5,2],\"text\":\"a\"},\n{\"timestamp\":[3.0,null],\"text\":\"b\"}]}");
  EXPECT_EQ(rig.Rows(), (Rows{{1500, 2000, u"a"}}));
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{2}));
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
