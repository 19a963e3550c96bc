// The dialog that CONTRIBUTING.md shows. A test holds that each piece of code there stands here.

#include <QLineEdit>
#include <QVBoxLayout>

#include "tests/ui/dialog_fixture.h"
#include "ui/dialog_view.h"

namespace cuewright {
namespace {

/// Asks for a name and greets.
class GreetingDialog final : public Dialog {
 public:
  GreetingDialog() : Dialog("frmGreeting") {
    cmdOK.Clicked.Connect([this] { lblGreeting.SetText(u"Good evening, " + txtName.GetText() + u"."); });
  }

  Label lblGreeting{*this, "lblGreeting"};
  TextBox txtName{*this, "txtName"};
  Button cmdOK{*this, "cmdOK"};

  void Open() {
    SetTitle(u"Greeting");
    lblGreeting.SetText(u"Who is there?");
    cmdOK.SetText(u"OK");
    NoteOpened();
  }
};

/// The dialog `frmGreeting` on the toolkit.
class GreetingView final : public DialogView {
 public:
  GreetingView(GreetingDialog& form, QWidget* owner) : DialogView(form, owner) {
    auto* name = Bind(form.txtName, new QLineEdit(this));
    auto* column = new QVBoxLayout(this);
    column->addWidget(MakeLabelOf(form.lblGreeting, name));
    column->addWidget(name);
    column->addLayout(MakeButtons({nullptr, &form.cmdOK}, &form.cmdOK));
    Complete(name);
  }
};

using GreetingWindow = testing::DialogFixture;

TEST(GreetingDialog, GreetsByName) {
  GreetingDialog dialog;
  dialog.Open();
  dialog.txtName.SetText(u"Inspector");
  dialog.cmdOK.Click();
  EXPECT_EQ(dialog.lblGreeting.GetText(), u"Good evening, Inspector.");
}

TEST_F(GreetingWindow, EveryControlHasAWidgetAndEveryNamedWidgetAControl) {
  GreetingDialog dialog;
  dialog.Open();
  Show(std::make_unique<GreetingView>(dialog, nullptr));
  ExpectBound(dialog);
  ExpectNamed();
}

}  // namespace
}  // namespace cuewright
