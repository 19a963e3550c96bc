#include "external/common_dialogs.h"

#include <gtest/gtest.h>

#include "core/runtime_error.h"
#include "tests/support/fakes.h"
#include "tests/support/printers.h"

namespace cuewright {
namespace {

using testing::FakeFileDialogs;
using testing::FakePickers;

/// Pickers that can't be shown.
class BrokenPickers final : public Pickers {
 public:
  std::optional<std::int32_t> PickColor(std::int32_t, const CustomColors&) override { throw RuntimeError{5, u"no"}; }
  std::optional<FontChoice> PickFont(const FontChoice&) override { throw RuntimeError{5, u"no"}; }
  Text PickFolder(TextView) override { throw RuntimeError{5, u"no"}; }
};

class BrokenFileDialogs final : public FileDialogs {
 public:
  Text ShowOpenDialog(TextView, TextView, TextView) override { throw RuntimeError{5, u"no"}; }
  Text ShowSaveDialog(TextView, TextView, TextView, TextView) override { throw RuntimeError{5, u"no"}; }
};

const FontChoice kArial{u"Arial", 18, true, false, false, false, 700};

TEST(ShowColorDialog, StartsOnTheGivenColorAndGivesTheChosenOne) {
  FakePickers pickers;
  pickers.colors = {0x332211};
  EXPECT_EQ(ShowColorDialog(pickers, 0xFFFFFF), 0x332211);
  EXPECT_EQ(pickers.colorsShown, std::vector<std::int32_t>{0xFFFFFF});
}

TEST(ShowColorDialog, ACancelGivesMinusOne) {
  FakePickers pickers;
  EXPECT_EQ(ShowColorDialog(pickers, 5), -1);
}

TEST(ShowColorDialog, AFailureGivesMinusOne) {
  BrokenPickers pickers;
  EXPECT_EQ(ShowColorDialog(pickers, 5), -1);
}

TEST(ShowColorDialog, OffersTheSameSixteenColorsAtEachCall) {
  FakePickers pickers;
  ShowColorDialog(pickers, 0);
  const CustomColors first = pickers.customColors;
  EXPECT_EQ(first[0], 0xC0C0C0);
  EXPECT_EQ(first[1], 0x0000FF);
  EXPECT_EQ(first[7], 0xFF00FF);
  EXPECT_EQ(first[8], 0x808080);
  EXPECT_EQ(first[15], 0xC000C0);
  pickers.customColors.fill(7);
  ShowColorDialog(pickers, 0);
  EXPECT_EQ(pickers.customColors, first);
}

TEST(ShowFontDialog, WritesTheChosenFontBack) {
  FakePickers pickers;
  const FontChoice chosen{u"Tahoma", 12, false, true, true, true, 300};
  pickers.fonts = {chosen};
  FontChoice font = kArial;
  EXPECT_TRUE(ShowFontDialog(pickers, font, 0, 0));
  EXPECT_EQ(font, chosen);
  EXPECT_EQ(pickers.fontsShown, std::vector<FontChoice>{kArial});
}

TEST(ShowFontDialog, ACancelChangesNothing) {
  FakePickers pickers;
  FontChoice font = kArial;
  EXPECT_FALSE(ShowFontDialog(pickers, font, 8, 48));
  EXPECT_EQ(font, kArial);
}

TEST(ShowFontDialog, AFailureChangesNothing) {
  BrokenPickers pickers;
  FontChoice font = kArial;
  EXPECT_FALSE(ShowFontDialog(pickers, font, 8, 48));
  EXPECT_EQ(font, kArial);
}

TEST(ShowFontDialog, ASizeOutsideTheLimitsBecomesTheNearestWithin) {
  FakePickers pickers;
  FontChoice font = kArial;
  pickers.fonts = {{u"A", 5}, {u"A", 72}, {u"A", 72}, {u"A", 12.34}};
  ShowFontDialog(pickers, font, 8, 24);
  EXPECT_EQ(font.Size, 8);
  ShowFontDialog(pickers, font, 8, 24);
  EXPECT_EQ(font.Size, 24);
  ShowFontDialog(pickers, font, 0, 0);
  EXPECT_EQ(font.Size, 72);
  ShowFontDialog(pickers, font, 8, 24);
  EXPECT_EQ(font.Size, 12.3);
}

TEST(ShowFontDialog, CutsTheNameAtItsNul) {
  FakePickers pickers;
  pickers.fonts = {{Text(u"Arial\0rest", 10), 8}};
  FontChoice font;
  ShowFontDialog(pickers, font, 0, 0);
  EXPECT_EQ(font.Name, u"Arial");
}

TEST(ShowOpenDialog, EndsTheFilterWithItsMarkOnce) {
  FakeFileDialogs dialogs;
  dialogs.paths = {u"/a.srt", u"/b.srt"};
  EXPECT_EQ(ShowOpenDialog(dialogs, u"Text|*.txt", u"Open", u"/home"), u"/a.srt");
  EXPECT_EQ(ShowOpenDialog(dialogs, u"Text|*.txt|", u"Open", u"/home"), u"/b.srt");
  ASSERT_EQ(dialogs.calls.size(), 2u);
  for (const auto& call : dialogs.calls) {
    EXPECT_EQ(call.filter, u"Text|*.txt|");
    EXPECT_EQ(call.title, u"Open");
    EXPECT_EQ(call.folder, u"/home");
  }
}

TEST(ShowSaveDialog, OffersTheProposedNameAndCutsAtNul) {
  FakeFileDialogs dialogs;
  dialogs.paths = {Text(u"/a.srt\0x", 8)};
  EXPECT_EQ(ShowSaveDialog(dialogs, u"Text|*.txt", u"Save", u"/home", u"a.srt"), u"/a.srt");
  EXPECT_EQ(dialogs.calls.at(0).proposal, u"a.srt");
}

TEST(FileDialogFailures, GiveTheEmptyText) {
  BrokenFileDialogs dialogs;
  EXPECT_EQ(ShowOpenDialog(dialogs, u"", u"", u""), u"");
  EXPECT_EQ(ShowSaveDialog(dialogs, u"", u"", u"", u""), u"");
}

TEST(BrowseForFolder, EndsTheFolderWithOneSlash) {
  FakePickers pickers;
  pickers.folders = {u"/home/a", u"/home/b/", u"/"};
  EXPECT_EQ(BrowseForFolder(pickers, u"Where?"), u"/home/a/");
  EXPECT_EQ(BrowseForFolder(pickers, u"Where?"), u"/home/b/");
  EXPECT_EQ(BrowseForFolder(pickers, u"Where?"), u"/");
  EXPECT_EQ(pickers.prompts.at(0), u"Where?");
}

TEST(BrowseForFolder, ACancelOrAFailureGivesTheEmptyText) {
  FakePickers pickers;
  BrokenPickers broken;
  EXPECT_EQ(BrowseForFolder(pickers, u"Where?"), u"");
  EXPECT_EQ(BrowseForFolder(broken, u"Where?"), u"");
}

TEST(CutAtNul, KeepsATextWithoutOne) {
  EXPECT_EQ(CutAtNul(u"abc"), u"abc");
  EXPECT_EQ(CutAtNul(TextView(u"a\0c", 3)), u"a");
  EXPECT_EQ(CutAtNul(TextView(u"\0c", 2)), u"");
}

}  // namespace
}  // namespace cuewright
