#include "ui/audio_wizard_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

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
  column->addWidget(MakeHead());
  auto* stack = new QGridLayout;
  MakeFormatPage(*stack);
  MakeRatePage(*stack);
  MakeToolPage(*stack);
  MakeFilePage(*stack);
  MakeTasksPage(*stack);
  column->addLayout(stack, 1);
  column->addLayout(MakeWizardButtons());
  Names("lblSampleRate", "cmbSampleRate");
  Names("lblVirtualdub", "txtVirtualdub");
  Names("lblSave", "txtSave");
  ShowLights();
  Bind(findChild<QPushButton*>("cmdNext"));
  Keep(form.LightsChanged.ConnectScoped([this] { ShowLights(); }));
  // What a run has to tell at its end may need more room than the pages so far.
  Keep(form.lblStep5b.Changed.ConnectScoped([this] { FitContent(); }));
}

QWidget* AudioWizardView::MakeHead() {
  auto* head = new QWidget(this);
  auto* row = new QHBoxLayout(head);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(12);
  auto* icon = new SvgPicture(":/player.svg", head);
  icon->setFixedSize(44, 44);
  row->addWidget(icon);
  auto* texts = new QVBoxLayout;
  texts->addWidget(MakeHeading("lblTop", head));
  texts->addWidget(MakeLabel("lblTop2", head));
  row->addLayout(texts, 1);
  return head;
}

void AudioWizardView::MakeFormatPage(QGridLayout& stack) {
  auto* column = MakePage(stack, 0);
  QWidget* page = column->parentWidget();
  column->addWidget(MakeLabel("lblStep1", page, true));
  column->addWidget(Named(new QRadioButton(page), "optWAV"));
  column->addWidget(Named(new QRadioButton(page), "optOriginal"));
  column->addSpacing(8);
  column->addWidget(Named(new QCheckBox(page), "chkAudioBar"));
  column->addStretch();
  column->addWidget(MakeLabel("lblStep1b", page, true));
}

void AudioWizardView::MakeRatePage(QGridLayout& stack) {
  auto* column = MakePage(stack, 1);
  QWidget* page = column->parentWidget();
  column->addWidget(MakeLabel("lblStep2", page, true));
  auto* row = new QHBoxLayout;
  row->addWidget(MakeLabel("lblSampleRate", page));
  auto* rate = Named(new QComboBox(page), "cmbSampleRate");
  rate->setEditable(true);
  rate->setMinimumWidth(160);
  row->addWidget(rate);
  row->addStretch();
  column->addLayout(row);
  column->addStretch();
  column->addWidget(MakeLabel("lblStep2b", page, true));
}

void AudioWizardView::MakeToolPage(QGridLayout& stack) {
  auto* column = MakePage(stack, 2);
  QWidget* page = column->parentWidget();
  column->addWidget(MakeLabel("lblStep3", page, true));
  column->addWidget(MakeLabel("lblVirtualdub", page));
  AddPathRow(*column, "txtVirtualdub", "cmdBrowseVD");
  column->addStretch();
  column->addWidget(MakeLabel("lblStep3b", page, true));
  auto* row = new QHBoxLayout;
  QWidget* icon = MakeIcon(":/folder.svg", "imgGetVirtualDub", page, 24);
  icon->setCursor(Qt::PointingHandCursor);
  row->addWidget(icon);
  row->addWidget(MakeLink("lblDownload", page));
  row->addStretch();
  column->addLayout(row);
}

void AudioWizardView::MakeFilePage(QGridLayout& stack) {
  auto* column = MakePage(stack, 3);
  QWidget* page = column->parentWidget();
  column->addWidget(MakeLabel("lblStep4", page, true));
  column->addWidget(MakeLabel("lblSave", page));
  AddPathRow(*column, "txtSave", "cmdSave");
  column->addStretch();
  column->addWidget(MakeLabel("lblStep4b", page, true));
}

void AudioWizardView::MakeTasksPage(QGridLayout& stack) {
  auto* column = MakePage(stack, 4);
  QWidget* page = column->parentWidget();
  QLabel* head = MakeLabel("lblStep5", page, true);
  head->setMinimumWidth(kTextWidth);
  column->addWidget(head);
  auto* tasks = new QGridLayout;
  tasks->setHorizontalSpacing(10);
  for (std::size_t i = 0; i < lights_.size(); ++i) {
    lights_[i] = new SvgPicture(kLightFiles[0], page);
    lights_[i]->setObjectName(Indexed("picTask", i));
    lights_[i]->setFixedSize(kLightSize, kLightSize);
    tasks->addWidget(lights_[i], static_cast<int>(i), 0);
    tasks->addWidget(MakeLabel(Indexed("lblTask", i), page), static_cast<int>(i), 1);
  }
  tasks->setColumnStretch(1, 1);
  column->addLayout(tasks);
  column->addSpacing(8);
  column->addWidget(Named(new QCheckBox(page), "chkClose"));
  column->addStretch();
  column->addWidget(MakeLabel("lblStep5b", page, true));
}

void AudioWizardView::ShowLights() {
  for (std::size_t i = 0; i < lights_.size(); ++i) {
    lights_[i]->ShowFile(kLightFiles[static_cast<std::size_t>(form_.LightOf(i))]);
  }
}

}  // namespace cuewright
