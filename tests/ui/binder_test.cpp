#include "ui/binder.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "form/sheet.h"
#include "ui/sheet_view.h"

namespace cuewright {
namespace {

static_assert(Shows<QPushButton, Button> && Shows<QRadioButton, OptionButton> && Shows<QCheckBox, CheckBox>);
static_assert(Shows<QLabel, Label> && Shows<QPushButton, Label>, "a label may be one that the keyboard reaches");
static_assert(Shows<QLineEdit, TextBox> && Shows<QPlainTextEdit, TextBox>);
static_assert(Shows<SheetView, Sheet> && !Shows<SheetView, ListBox>);
static_assert(!Shows<QLabel, Button> && !Shows<QPushButton, CheckBox> && !Shows<QLabel, TextBox>);
static_assert(!Shows<QComboBox, ListBox> && !Shows<QLineEdit, ComboBox> && !Shows<QLabel, Slider>);

struct Fields final : Form {
  Fields() : Form("frmFields") {}
  TextBox txtName{*this, "txtName"};
  Button cmdApply{*this, "cmdApply"};
};

TEST(Binder, GivesTheWidgetTheNameAndTheStateOfItsControl) {
  Fields form;
  form.cmdApply.SetText(u"Apply");
  form.cmdApply.SetEnabled(false);
  form.cmdApply.SetSpokenName(u"Apply the delay");
  QWidget window;
  Binder binder(window, form);
  QPushButton* button = binder.Bind(form.cmdApply, new QPushButton(&window));
  EXPECT_EQ(button->objectName(), "cmdApply");
  EXPECT_EQ(button->accessibleName(), "Apply the delay");
  EXPECT_EQ(button->text(), "Apply");
  EXPECT_FALSE(button->isEnabled());
  EXPECT_EQ(&binder.WidgetOf(form.cmdApply), button);
}

TEST(Binder, HasNoWidgetForAControlThatWasNotBound) {
  Fields form;
  QWidget window;
  const Binder binder(window, form);
  EXPECT_THROW(binder.WidgetOf(form.txtName), std::out_of_range);
}

}  // namespace
}  // namespace cuewright
