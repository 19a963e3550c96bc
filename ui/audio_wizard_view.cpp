#include "ui/audio_wizard_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/counting.h"
#include "ui/link_button.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

constexpr int kLightSize = 16;
constexpr int kTextWidth = 460;
constexpr std::array<const char*, 4> kLightFiles = {":/light_grey.svg", ":/light_red.svg", ":/light_yellow.svg",
                                                    ":/light_green.svg"};

}  // namespace

AudioWizardView::AudioWizardView(AudioWizard& form, QWidget* owner) : WizardView(form, owner), form_(form) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, 16, 20, 14);
  column->setSpacing(14);
  auto* icon = new SvgPicture(":/player.svg", this);
  icon->setFixedSize(44, 44);
  column->addWidget(MakeHead(icon));
  auto* stack = new QGridLayout;
  MakeFormatPage(*stack);
  MakeRatePage(*stack);
  MakeToolPage(*stack);
  MakeFilePage(*stack);
  MakeTasksPage(*stack);
  column->addLayout(stack, 1);
  column->addLayout(MakeWizardButtons());
  ShowLights();
  Complete(&binder_.WidgetOf(form.cmdNext));
  Keep(form.LightsChanged.ConnectScoped([this] { ShowLights(); }));
  // The message at the end of a run may need more room than the pages before.
  Keep(form.lblStep5b.Changed.ConnectScoped([this] { FitContent(); }));
}

void AudioWizardView::MakeFormatPage(QGridLayout& stack) {
  auto* column = MakePage(form_.picStep[0], stack);
  QWidget* page = column->parentWidget();
  column->addWidget(Bind(form_.lblStep1, WrappedLabel(page)));
  column->addWidget(Bind(form_.optWAV, new QRadioButton(page)));
  column->addWidget(Bind(form_.optOriginal, new QRadioButton(page)));
  column->addSpacing(8);
  column->addWidget(Bind(form_.chkAudioBar, new QCheckBox(page)));
  column->addStretch();
  column->addWidget(Bind(form_.lblStep1b, WrappedLabel(page)));
}

void AudioWizardView::MakeRatePage(QGridLayout& stack) {
  auto* column = MakePage(form_.picStep[1], stack);
  QWidget* page = column->parentWidget();
  column->addWidget(Bind(form_.lblStep2, WrappedLabel(page)));
  auto* row = new QHBoxLayout;
  auto* rate = Bind(form_.cmbSampleRate, new QComboBox(page));
  row->addWidget(MakeLabelOf(form_.lblSampleRate, rate));
  rate->setMinimumWidth(160);
  row->addWidget(rate);
  row->addStretch();
  column->addLayout(row);
  column->addStretch();
  column->addWidget(Bind(form_.lblStep2b, WrappedLabel(page)));
}

void AudioWizardView::MakeToolPage(QGridLayout& stack) {
  auto* column = MakePage(form_.picStep[2], stack);
  QWidget* page = column->parentWidget();
  column->addWidget(Bind(form_.lblStep3, WrappedLabel(page)));
  QLabel* tool = Bind(form_.lblVirtualdub, PlainLabel(page));
  column->addWidget(tool);
  tool->setBuddy(AddPathRow(*column, form_.txtVirtualdub, form_.cmdBrowseVD));
  column->addStretch();
  column->addWidget(Bind(form_.lblStep3b, WrappedLabel(page)));
  auto* row = new QHBoxLayout;
  QWidget* icon = MakeIcon(form_.imgGetVirtualDub, ":/folder.svg", page, 24);
  icon->setCursor(Qt::PointingHandCursor);
  row->addWidget(icon);
  row->addWidget(Bind(form_.lblDownload, new LinkButton(page)));
  row->addStretch();
  column->addLayout(row);
}

void AudioWizardView::MakeFilePage(QGridLayout& stack) {
  auto* column = MakePage(form_.picStep[3], stack);
  QWidget* page = column->parentWidget();
  column->addWidget(Bind(form_.lblStep4, WrappedLabel(page)));
  QLabel* file = Bind(form_.lblSave, PlainLabel(page));
  column->addWidget(file);
  file->setBuddy(AddPathRow(*column, form_.txtSave, form_.cmdSave));
  column->addStretch();
  column->addWidget(Bind(form_.lblStep4b, WrappedLabel(page)));
}

void AudioWizardView::MakeTasksPage(QGridLayout& stack) {
  auto* column = MakePage(form_.picStep[4], stack);
  QWidget* page = column->parentWidget();
  QLabel* head = Bind(form_.lblStep5, WrappedLabel(page));
  head->setMinimumWidth(kTextWidth);
  column->addWidget(head);
  auto* tasks = new QGridLayout;
  tasks->setHorizontalSpacing(10);
  for (int row = 0; row < CountOf(lights_); ++row) {
    SvgPicture*& light = ItemAt(lights_, row);
    light = Bind(ItemAt(form_.picTask, row), new SvgPicture(kLightFiles[0], page));
    light->setFixedSize(kLightSize, kLightSize);
    tasks->addWidget(light, row, 0);
    tasks->addWidget(Bind(ItemAt(form_.lblTask, row), PlainLabel(page)), row, 1);
  }
  tasks->setColumnStretch(1, 1);
  column->addLayout(tasks);
  column->addSpacing(8);
  column->addWidget(Bind(form_.chkClose, new QCheckBox(page)));
  column->addStretch();
  column->addWidget(Bind(form_.lblStep5b, WrappedLabel(page)));
}

void AudioWizardView::ShowLights() {
  for (std::size_t i = 0; i < lights_.size(); ++i) {
    lights_[i]->ShowFile(ItemAt(kLightFiles, form_.LightOf(i)));
  }
}

}  // namespace cuewright
