#include <gtest/gtest.h>

#include "form/controls.h"
#include "form/dialog.h"
#include "form/focus_group.h"
#include "tests/support/printers.h"

namespace cuewright {
namespace {

struct Controls : Form {
  Controls() : Form("frmTest") {}
  CheckBox check{*this, "check"};
  Slider slider{*this, "slider"};
  ListBox list{*this, "list"};
};

TEST(CheckBoxControl, AClickTurnsItOverAndTells) {
  Controls form;
  int clicks = 0;
  form.check.Clicked.Connect([&] { ++clicks; });
  form.check.Click();
  EXPECT_TRUE(form.check.Value());
  form.check.Click();
  EXPECT_FALSE(form.check.Value());
  form.check.SetEnabled(false);
  form.check.Click();
  EXPECT_FALSE(form.check.Value());
  EXPECT_EQ(clicks, 2);
}

TEST(SliderControl, KeepsItsValueInRange) {
  Controls form;
  int scrolls = 0;
  form.slider.Scrolled.Connect([&] { ++scrolls; });
  form.slider.SetRange(1, 40);
  EXPECT_EQ(form.slider.Value(), 1);
  form.slider.SetValue(90);
  EXPECT_EQ(form.slider.Value(), 40);
  EXPECT_EQ(scrolls, 0);
  form.slider.Move(-5);
  EXPECT_EQ(form.slider.Value(), 1);
  EXPECT_EQ(scrolls, 1);
  form.slider.SetRange(10, 20);
  EXPECT_EQ(form.slider.Value(), 10);
}

TEST(ListControl, ChoosingTellsAndNewItemsSelectNothing) {
  Controls form;
  int chosen = 0;
  form.list.Chosen.Connect([&] { ++chosen; });
  form.list.SetItems({u"a", u"b"});
  EXPECT_EQ(form.list.Index(), -1);
  form.list.Choose(1);
  EXPECT_EQ(form.list.Index(), 1);
  form.list.SetIndex(2);
  EXPECT_EQ(form.list.Index(), 1);
  form.list.SetItems({u"c"});
  EXPECT_EQ(form.list.Index(), -1);
  EXPECT_EQ(chosen, 1);
}

struct OnceOpen : Dialog {
  OnceOpen() : Dialog("frmOnce") { NoteOpened(); }
  void OnClose() override { ++closes; }
  int closes = 0;
};

TEST(DialogForm, ClosesOnce) {
  OnceOpen dialog;
  int told = 0;
  dialog.Closed.Connect([&] {
    EXPECT_EQ(dialog.closes, 1);
    ++told;
    dialog.Close();
  });
  dialog.Close();
  dialog.Close();
  EXPECT_FALSE(dialog.IsOpen());
  EXPECT_EQ(told, 1);
}

TEST(WithoutAccessKey, LeavesThePlainCaption) {
  const std::pair<TextView, TextView> rows[] = {{u"&Yes", u"Yes"},     {u"Cance&lar", u"Cancelar"},
                                                {u"نعم (&Y)", u"نعم"}, {u"A && B", u"A & B"},
                                                {u"plain", u"plain"},  {u"", u""},
                                                {u"end&", u"end&"},    {u"(&", u"(&"},
                                                {u"(a) &b", u"(a) b"}};
  for (const auto& [caption, plain] : rows) EXPECT_EQ(WithoutAccessKey(caption), plain);
}

TEST(FocusGroupOfButtons, PassesTheFocusToTheFirstThatCanBePressedAndLeavesItToOneThatCanAgain) {
  Form form("frmTest");
  Button first(form, "first");
  Button second(form, "second");
  Button third(form, "third");
  const FocusGroup group({&first, &second, &third});
  EXPECT_EQ(group.HolderAfter(second), &second) << "was disabled for a moment";
  second.SetEnabled(false);
  EXPECT_EQ(group.HolderAfter(second), &first);
  first.SetVisible(false);
  EXPECT_EQ(group.HolderAfter(second), &third);
  third.SetEnabled(false);
  EXPECT_EQ(group.HolderAfter(second), nullptr);
}

}  // namespace
}  // namespace cuewright
