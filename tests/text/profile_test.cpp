#include "text/profile.h"

#include <gtest/gtest.h>

#include <string>

namespace cuewright {
namespace {

/// What the lines say: "number [section]", "number key=value", "number ?text".
std::string Said(TextView text) {
  std::string said;
  ProfileLines lines(text);
  for (ProfileLine line; lines.Next(line);) {
    said += std::to_string(line.number) + ' ';
    switch (line.kind) {
      case ProfileLine::Kind::Section:
        said += "[" + ToUtf8(line.name) + "]";
        break;
      case ProfileLine::Kind::Value:
        said += ToUtf8(line.name) + "=" + ToUtf8(line.value);
        break;
      case ProfileLine::Kind::Other:
        said += "?" + ToUtf8(line.value);
    }
    said += ';';
  }
  return said;
}

TEST(ProfileLinesTest, TellsSectionsKeysAndWhatIsNeither) {
  EXPECT_EQ(Said(u"[ One ]\n key = a value \n; remark\n\nnothing at all\nquoted=\" a \"\nempty=\n"),
            "1 [One];2 key=a value;5 ?nothing at all;6 quoted= a ;7 empty=;");
  EXPECT_EQ(Said(u""), "");
}

TEST(ProfileLinesTest, CountsEveryEndOfALineOnce) {
  EXPECT_EQ(Said(u"a=1\r\nb=2\rc=3\nd=4\r\n\r\ne=5"), "1 a=1;2 b=2;3 c=3;4 d=4;6 e=5;");
}

TEST(ProfileTest, ReadsTheFirstOfKeysAndSectionsWithOneName) {
  const Profile profile(u"lost=0\r\n[A]\r\nKey=1\r\nkey=2\r\n[B]\r\nkey='3'\r\n[a]\r\nother=4\r\n");
  EXPECT_EQ(profile.Read(u"a", u"KEY", u"-"), u"1");
  EXPECT_EQ(profile.Read(u"B", u"key", u"-"), u"3");
  EXPECT_EQ(profile.Read(u"A", u"other", u"-"), u"-");
  EXPECT_EQ(profile.Find(u"", u"lost"), nullptr);
}

}  // namespace
}  // namespace cuewright
