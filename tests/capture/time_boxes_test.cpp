#include "capture/time_boxes.h"

#include "tests/support/capture_rig.h"

namespace cuewright {
namespace {

struct Typing {
  static KeyEvent Press(TextBox& box, char16_t c) {
    KeyEvent key{c == 8 ? kKeyBackspace : 0, c, 1, false, false, false};
    box.TypeKey(key);
    return key;
  }
  static void Key(TextBox& box, int code) {
    KeyEvent key{code, 0, 1, false, false, false};
    box.PressKey(key);
  }
};

using TimeBox = testing::CaptureRig;
using BestDuration = testing::CaptureRig;

TEST_F(BestDuration, CountsCharactersByClass) {
  struct Case {
    const char16_t* text;
    int end;
  };
  const Case cases[] = {
      {u"12345", 1000 + 1250},
      {u"123456", 1000 + 720},
      {u"1234567890123456", 1000 + 800},
      {u"1234567890123456<i>", 1000 + 800},  // counts 16
      {u"1234567890123456<b>", 1000 + 950},  // counts 19
      {u"123|45", 1000 + 1250},
      {u"<i>", 1100},
  };
  for (const Case& c : cases) {
    list.Replace(1, 1, {Caption{1000, 0, c.text}});
    SetBestDuration(list, 1);
    EXPECT_EQ(list.GetCaptionEnd(1), c.end) << ToUtf8(c.text);
  }
}

TEST_F(BestDuration, AProductOverSixteenBitsLeavesTheEnd) {
  list.Replace(1, 1, {Caption{1000, 5000, Text(700, u'x')}});
  EXPECT_THROW(SetBestDuration(list, 1), RuntimeError);
  EXPECT_EQ(list.GetCaptionEnd(1), 5000);
}

TEST_F(TimeBox, TypingOverwritesAndStepsOverTheSeparators) {
  TextBox& box = window.txtTime[0];
  box.Select(1, 1);
  Typing::Press(box, u'7');
  EXPECT_EQ(box.GetText(), u"07:00:00,000");
  EXPECT_EQ(box.SelStart(), 3);
  EXPECT_EQ(box.SelLength(), 1);
  box.Select(11, 1);
  Typing::Press(box, u'9');
  EXPECT_EQ(box.GetText(), u"07:00:00,009");
  EXPECT_EQ(box.SelStart(), 11);
}

TEST_F(TimeBox, BackspaceTypesAZeroAndStepsBack) {
  struct Case {
    int at, to;
  };
  TextBox& box = window.txtTime[0];
  for (const Case& c : {Case{3, 1}, Case{6, 4}, Case{9, 7}, Case{0, 0}, Case{1, 0}, Case{4, 3}, Case{11, 10}}) {
    box.SetText(u"11:11:11,111");
    box.Select(c.at, 1);
    Typing::Press(box, 8);
    EXPECT_EQ(box.GetText()[static_cast<std::size_t>(c.at)], u'0') << c.at;
    EXPECT_EQ(box.SelStart(), c.to) << c.at;
  }
}

TEST_F(TimeBox, ArrowsStepOneCharacterOverTheSeparators) {
  TextBox& box = window.txtTime[0];
  box.Select(0, 1);
  const int right[] = {1, 3, 4, 6, 7, 9, 10, 11, 11};
  for (const int to : right) {
    Typing::Key(box, kKeyRight);
    EXPECT_EQ(box.SelStart(), to);
  }
  const int left[] = {10, 9, 7, 6, 4, 3, 1, 0, 0};
  for (const int to : left) {
    Typing::Key(box, kKeyLeft);
    EXPECT_EQ(box.SelStart(), to);
  }
}

TEST_F(TimeBox, TakesDigitsColonAndSemicolonAlone) {
  TextBox& box = window.txtTime[0];
  for (const char16_t c : {u'a', u',', u' ', u'/', u'<'}) {
    box.Select(0, 1);
    EXPECT_TRUE(Typing::Press(box, c).handled);
    EXPECT_EQ(box.GetText(), u"00:00:00,000");
  }
  box.Select(0, 1);
  Typing::Press(box, u';');
  EXPECT_EQ(box.GetText(), u";0:00:00,000");
  KeyEvent del{kKeyDelete, 0, 1, false, false, false};
  box.PressKey(del);
  EXPECT_TRUE(del.handled);
}

TEST_F(TimeBox, LosingTheFocusWithABrokenTextBringsTheOldOneBack) {
  TextBox& box = window.txtTime[0];
  box.SetText(u"00:00:05,000");
  box.TakeFocus();
  for (const char16_t* broken : {u"00:00:05,00", u"00;00:06,000", u"00:00:06;000", u""}) {
    box.SetText(broken);
    box.LoseFocus();
    EXPECT_EQ(box.GetText(), u"00:00:05,000");
  }
  box.SetText(u"00:00:06,000");
  box.LoseFocus();
  EXPECT_EQ(box.GetText(), u"00:00:06,000");
}

TEST_F(TimeBox, EnterStoresStartAndDuration) {
  window.txtTime[0].SetText(u"00:00:05,000");
  window.txtTime[1].SetText(u"00:00:02,500");
  Typing::Key(window.txtTime[1], kKeyEnter);
  EXPECT_EQ(Times(1), "5000-7500");
  EXPECT_TRUE(document.DocModified);
}

TEST_F(TimeBox, EnterWithoutADurationTakesTheBestOne) {
  window.txtTime[0].SetText(u"00:00:05,000");
  window.txtTime[1].SetText(u"00:00:00,000");
  Typing::Key(window.txtTime[0], kKeyEnter);
  EXPECT_EQ(Times(1), "5000-5750");
  EXPECT_EQ(window.txtTime[1].GetText(), u"00:00:00,750");
}

TEST_F(TimeBox, EnterChecksBothBoxes) {
  window.txtTime[0].TakeFocus();
  window.txtTime[0].SetText(u"broken");
  window.txtTime[1].SetText(u"broken too");
  Typing::Key(window.txtTime[1], kKeyEnter);
  EXPECT_EQ(window.txtTime[0].GetText(), u"00:00:00,000");
  EXPECT_EQ(list.GetCaptionStart(1), 0);
}

}  // namespace
}  // namespace cuewright
