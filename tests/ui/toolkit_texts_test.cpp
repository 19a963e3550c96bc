#include "ui/toolkit_texts.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>

namespace cuewright {
namespace {

QString Title() { return QCoreApplication::translate("QColorDialog", "Select Color"); }

TEST(TextsOfTheToolkit, FollowTheProgramsLanguageAndBack) {
  ASSERT_TRUE(QFile::exists(QLibraryInfo::path(QLibraryInfo::TranslationsPath) + "/qtbase_es.qm"))
      << "the toolkit's translations aren't installed";
  ToolkitTexts texts;
  texts.Use(u"SPANISH");
  const QString spanish = Title();
  EXPECT_NE(spanish, "Select Color");
  texts.Use(u"ARABIC");
  EXPECT_NE(Title(), spanish);
  EXPECT_NE(Title(), "Select Color");
  texts.Use(u"ENGLISH");
  EXPECT_EQ(Title(), "Select Color");
}

TEST(TextsOfTheToolkit, AreEnglishForALanguageThatTheToolkitHasnt) {
  ToolkitTexts texts;
  texts.Use(u"SPANISH");
  texts.Use(u"KAZAKH");
  EXPECT_EQ(Title(), "Select Color");
}

TEST(TextsOfTheToolkit, GoWithTheirOwner) {
  { ToolkitTexts().Use(u"SPANISH"); }
  EXPECT_EQ(Title(), "Select Color");
}

}  // namespace
}  // namespace cuewright
