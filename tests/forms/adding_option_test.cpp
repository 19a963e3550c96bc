#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "settings/option_table.h"
#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

std::string Source(const std::string& path) {
  std::ifstream file(std::filesystem::path(CUEWRIGHT_SOURCE_DIR) / path);
  std::stringstream content;
  content << file.rdbuf();
  return content.str();
}

// The example of docs/adding-an-option.md, line by line as it stands in the code.
TEST(AddingAnOption, TheExampleIsTheCode) {
  const std::string guide = Source("docs/adding-an-option.md");
  const std::pair<std::string, std::string> places[] = {
      {"core/app_options.h", "bool followCaptions = true;"},
      {"settings/option_table.cpp", R"({u"F_FOLLOW", kFlag<&O::followCaptions>, Preview, "chkFollow"},)"},
      {"forms/preview_page.h", R"(CheckBox chkFollow{window_, "chkFollow"};)"},
      {"forms/preview_page.cpp", "Shows(chkFollow, Message::FollowSubtitles, Message::FollowSubtitlesHint);"},
      {"ui/preview_page_view.cpp", "column_->addWidget(Bind(page.chkFollow, new QCheckBox(this)));"}};
  for (const auto& [file, line] : places) {
    EXPECT_NE(guide.find(line), std::string::npos) << line;
    EXPECT_NE(Source(file).find(line), std::string::npos) << file;
  }
}

struct AddedOption : testing::ProgramFixture {};

// What its row and its line on the page give a check box, with nothing written for it elsewhere.
TEST_F(AddedOption, IsShownSetExplainedStoredAndReset) {
  SettingsDialog& dialog = program->dialogs.settings;
  dialog.Open();
  CheckBox& check = dialog.preview.chkFollow;
  EXPECT_TRUE(check.Value());
  EXPECT_EQ(check.GetText(), program->strings[Message::FollowSubtitles]);
  check.Hover();
  EXPECT_EQ(dialog.details.lblDetails.GetText(), program->strings[Message::FollowSubtitlesHint]);
  check.Click();
  EXPECT_FALSE(program->options.followCaptions);
  dialog.cmdOK.Click();
  EXPECT_EQ(program->store.GetSetting(kMainSection, u"F_FOLLOW", u"?"), u"0");
  AppOptions loaded;
  LoadSettings(program->store, loaded);
  EXPECT_FALSE(loaded.followCaptions);
  ResetOptions(loaded, OptionPlace::Preview);
  EXPECT_TRUE(loaded.followCaptions);
}

}  // namespace
}  // namespace cuewright
