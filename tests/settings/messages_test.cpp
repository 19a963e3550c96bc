#include "settings/messages.h"

#include <gtest/gtest.h>

namespace cuewright {
namespace {

TEST(MessageCatalogue, HoldsFourHundredSixtyNineEnglishRows) {
  const MessageCatalogue catalogue;
  for (int id = 0; id < static_cast<int>(kMessageCount); ++id) EXPECT_NE(catalogue.Find(id), nullptr) << id;
  EXPECT_EQ(catalogue.Find(469), nullptr);
}

TEST(MessageCatalogue, RowsStandAtTheirNumbers) {
  const MessageCatalogue catalogue;
  LangStrings strings;
  LoadEnglish(catalogue, strings);
  EXPECT_EQ(strings[Message{0}], u"&File");
  EXPECT_EQ(strings[Message{39}], u"Apply");
  EXPECT_EQ(strings[Message{157}], u"The file %1 was not found.");
  EXPECT_EQ(strings[Message{229}], u" \u00B7Text: ");
  EXPECT_EQ(strings[Message{461}], u"The file %FN was not found, please correct the path.");
  EXPECT_EQ(strings[Message{468}], u"Close dialog automatically when done");
}

TEST(MessageCatalogue, EmptyPlacesAreEmpty) {
  const MessageCatalogue catalogue;
  for (const int id : {27, 76, 77, 105, 116, 129, 151, 152, 353, 354, 359, 447, 465}) {
    EXPECT_EQ(*catalogue.Find(id), u"") << id;
  }
}

TEST(MessageCatalogue, LineBreaksAndTheStrayBackslashAreKept) {
  const MessageCatalogue catalogue;
  EXPECT_EQ(*catalogue.Find(414), u"%1 already exists.\nDo you want to replace it?");
  EXPECT_NE(catalogue.Find(199)->find(u"characters.\n\\Edit these"), Text::npos);
}

TEST(MessageCatalogue, HoldsTheTwentyFiveRowsOfTheLanguageTable) {
  const MessageCatalogue catalogue;
  EXPECT_EQ(*catalogue.Find(600), u"1252-&H0809-ENGLISH");
  EXPECT_EQ(*catalogue.Find(620), u"0874-&H041E-THAI");
  EXPECT_EQ(*catalogue.Find(624), u"1251-&H101A-CROATIAN");
  EXPECT_EQ(catalogue.Find(625), nullptr);
}

TEST(MessageCatalogue, ABlockOfALanguageStandsAtItsBase) {
  MessageCatalogue catalogue;
  catalogue.Add("0\t&Archivo\r\n3\tVer\\nm\\\\as\nnot a row\n\n5\n", 1000);
  EXPECT_EQ(*catalogue.Find(1000), u"&Archivo");
  EXPECT_EQ(*catalogue.Find(1003), u"Ver\nm\\as");
  EXPECT_EQ(*catalogue.Find(1005), u"");
  EXPECT_EQ(catalogue.Find(1001), nullptr);
}

}  // namespace
}  // namespace cuewright
