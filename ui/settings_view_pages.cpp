#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QVBoxLayout>

#include "ui/link_button.h"
#include "ui/sample_area.h"
#include "ui/settings_view.h"
#include "ui/svg_picture.h"

// The widgets of the pages.

namespace cuewright {
namespace {

QSlider* MakeSlider(const QString& name, QWidget* parent) {
  auto* slider = new QSlider(Qt::Horizontal, parent);
  slider->setObjectName(name);
  slider->setMinimumWidth(120);
  return slider;
}

QFont Bold(const QWidget& widget) {
  QFont font = widget.font();
  font.setBold(true);
  return font;
}

QPushButton* MakeButton(const char* name, QWidget* parent) {
  auto* button = Named(new QPushButton(parent), name);
  button->setMinimumWidth(100);
  return button;
}

/// The widget keeps its place while it is hidden.
void KeepPlace(QWidget& widget) {
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
}

QComboBox* MakeCombo(const char* name, QWidget* parent) {
  auto* combo = Named(new QComboBox(parent), name);
  combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  return combo;
}

}  // namespace

QWidget* SettingsView::MakeRuleRow(const char* check, const char* image, QWidget* page) {
  auto* row = new QWidget(page);
  auto* line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(6);
  auto* box = Named(new QCheckBox(row), check);
  line->addWidget(box);
  auto* icon = Named(new SvgPicture(":/unfold.svg", row), image);
  icon->setFixedSize(18, 18);
  icon->setCursor(Qt::PointingHandCursor);
  line->addWidget(icon);
  line->addStretch();
  return row;
}

void SettingsView::MakeRulesPage() {
  QVBoxLayout* column = nullptr;
  QWidget* page = MakePage(0, column);
  column->addWidget(Named(new QCheckBox(page), "chkAutoSplit"));
  column->addWidget(Named(new QCheckBox(page), "chkCollision"));
  const auto rule = [&](std::size_t index, const char* check, const char* image) {
    QWidget* row = MakeRuleRow(check, image, page);
    column->addWidget(row);
    checks_[index] = row;
  };
  // Each panel is made behind its check box: the keyboard goes from one into the other.
  rule(0, "chkAutoJoin", "imgAutoJoin");
  MakeJoinPanel(page);
  rule(1, "chkDuration", "imgDuration");
  MakeDurationPanel(page);
  rule(2, "chkCredits", "imgCredits");
  MakeCreditsPanel(page);
  column->addSpacing(10);
  column->addWidget(MakeLabel("lblApply", page));
  auto* apply = MakeCombo("cmbApply", page);
  column->addWidget(apply, 0, Qt::AlignLeft);
  column->addWidget(Named(new QCheckBox(page), "chkRulesOnLoad"));
  column->addStretch();
}

QWidget* SettingsView::MakePanel(const char* name, QWidget* page) {
  auto* panel = Named(new QFrame(page), name);
  panel->setFrameShape(QFrame::StyledPanel);
  panel->setAutoFillBackground(true);
  panel->hide();
  return panel;
}

void SettingsView::MakeJoinPanel(QWidget* page) {
  QWidget* panel = MakePanel("picAutoJoin", page);
  auto* row = new QHBoxLayout(panel);
  row->setSpacing(12);
  row->addWidget(MakeLabel("lblAutoJoin", panel));
  row->addWidget(MakeSlider("sldAutoJoin", panel), 1);
  panels_[0] = panel;
}

void SettingsView::MakeDurationPanel(QWidget* page) {
  QWidget* panel = MakePanel("picDuration", page);
  auto* grid = new QGridLayout(panel);
  grid->setHorizontalSpacing(16);
  grid->setVerticalSpacing(4);
  const char* const classes[] = {"lblShort", "lblMedium", "lblLong"};
  for (std::size_t k = 0; k < 3; ++k) {
    const int row = static_cast<int>(k) * 2;
    QLabel* name = MakeLabel(classes[k], panel);
    name->setFont(Bold(*name));
    grid->addWidget(name, row, 0, 2, 1);
    grid->addWidget(MakeLabel(Indexed("lblDuration", k), panel), row, 1);
    grid->addWidget(MakeSlider(Indexed("sldDuration", k), panel), row + 1, 1);
    grid->addWidget(MakeLabel(Indexed("lblTolerance", k), panel), row, 2);
    grid->addWidget(MakeSlider(Indexed("sldTolerance", k), panel), row + 1, 2);
  }
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(2, 1);
  panels_[1] = panel;
}

void SettingsView::MakeCreditsPanel(QWidget* page) {
  QWidget* panel = MakePanel("picCredits", page);
  auto* column = new QVBoxLayout(panel);
  column->addWidget(MakeLabel("lblCredits", panel));
  column->addWidget(Named(new QLineEdit(panel), "txtCredits"));
  panels_[2] = panel;
}

void SettingsView::AddHotkey(QGridLayout& grid, int row, int column, std::size_t index, int position) {
  QWidget* group = grid.parentWidget();
  QLabel* label = MakeLabel(Indexed("lblHotkey", index), group, true);
  label->setMinimumWidth(column == 0 ? 80 : 170);
  grid.addWidget(label, row, column);
  auto* key = new QLineEdit(group);
  key->setObjectName(Indexed("txtHotkey", index));
  key->setMaxLength(1);
  key->setAlignment(Qt::AlignCenter);
  key->setFixedWidth(44);
  key->setAttribute(Qt::WA_InputMethodEnabled, false);
  grid.addWidget(key, row, column + 1);
  if (position < 0) return;
  const auto place = static_cast<std::size_t>(position);
  auto* seconds = new QLineEdit(group);
  seconds->setObjectName(Indexed("txtPosition", place));
  seconds->setMaxLength(4);
  seconds->setFixedWidth(52);
  seconds->setAttribute(Qt::WA_InputMethodEnabled, false);
  grid.addWidget(seconds, row, column + 2);
  grid.addWidget(MakeLabel(Indexed("lblSeconds", place), group), row, column + 3);
}

void SettingsView::MakeKeysPage() {
  QVBoxLayout* column = nullptr;
  QWidget* page = MakePage(1, column);
  column->addWidget(Named(new QCheckBox(page), "chkKeys"));
  auto* group = Named(new QGroupBox(page), "fraKeys");
  auto* grid = new QGridLayout(group);
  grid->setContentsMargins(12, 10, 12, 12);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(8);
  grid->setColumnMinimumWidth(4, 20);
  constexpr int kRight = 5;
  QLabel* playback = MakeLabel("lblPlayback", group);
  QLabel* captioning = MakeLabel("lblCaptioning", group);
  playback->setFont(Bold(*playback));
  captioning->setFont(Bold(*captioning));
  grid->addWidget(playback, 0, 0, 1, 4);
  grid->addWidget(captioning, 0, kRight, 1, 2);
  const std::pair<std::size_t, int> left[] = {{0, -1}, {1, -1}, {2, -1}, {8, 0}, {9, 1}};
  int row = 1;
  for (const auto& [index, position] : left) AddHotkey(*grid, row++, 0, index, position);
  row = 1;
  for (const std::size_t index : {3, 4, 5, 6, 7}) AddHotkey(*grid, row++, kRight, index, -1);
  grid->setColumnStretch(kRight, 1);
  column->addWidget(group);
  column->addStretch();
}

void SettingsView::MakePlayerPage() {
  QVBoxLayout* column = nullptr;
  QWidget* page = MakePage(2, column);
  column->addWidget(Named(new QCheckBox(page), "chkStretch"));
  auto* mode = new QHBoxLayout;
  mode->addWidget(MakeLabel("lblUImode", page));
  mode->addWidget(MakeCombo("cmbUImode", page));
  mode->addStretch();
  column->addLayout(mode);
  column->addSpacing(14);
  auto* heading = new QHBoxLayout;
  QLabel* filter = MakeLabel("lblVSFilter", page);
  filter->setFont(Bold(*filter));
  heading->addWidget(filter);
  auto* help = Named(new SvgPicture(":/help.svg", page), "imgVSHelp");
  help->setFixedSize(20, 20);
  help->setFocusPolicy(Qt::TabFocus);
  heading->addWidget(help);
  heading->addStretch();
  column->addLayout(heading);
  column->addWidget(Named(new QRadioButton(page), "optVSDisable"));
  column->addWidget(Named(new QRadioButton(page), "optVSHide"));
  column->addWidget(MakeLabel("lblVSNotice", page, true));
  column->addWidget(MakeButton("cmdVSFilter", page), 0, Qt::AlignLeft);
  column->addStretch();
}

void SettingsView::MakePreviewPage() {
  QVBoxLayout* column = nullptr;
  QWidget* page = MakePage(3, column);
  column->addWidget(MakeLabel("lblFormat", page, true));
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(MakeButton("cmdFont", page));
  buttons->addWidget(MakeButton("cmdColor", page));
  buttons->addStretch();
  column->addLayout(buttons);
  auto* ground = new QHBoxLayout;
  ground->setSpacing(20);
  ground->addWidget(Named(new QRadioButton(page), "optOpaque"));
  ground->addWidget(Named(new QRadioButton(page), "optShadow"));
  ground->addStretch();
  column->addLayout(ground);
  auto* bars = new QGridLayout;
  bars->setHorizontalSpacing(16);
  bars->addWidget(MakeLabel("lblShadow", page), 0, 0);
  QSlider* shadow = MakeSlider("sldShadow", page);
  shadow->setTickPosition(QSlider::TicksBelow);
  shadow->setPageStep(1);
  bars->addWidget(shadow, 0, 1);
  bars->addWidget(MakeLabel("lblHeight", page), 1, 0);
  bars->addWidget(MakeSlider("sldHeight", page), 1, 1);
  bars->setColumnStretch(1, 1);
  column->addLayout(bars);
  sample_ = new SampleArea("picSample", "lblSample", "lblSampleShadow", page);
  column->addWidget(sample_, 1);
  column->addWidget(Named(new QCheckBox(page), "chkFollow"));
}

QGroupBox* SettingsView::MakeCharsetGroup(QWidget* page) {
  auto* group = Named(new QGroupBox(page), "fraCharset");
  auto* column = new QVBoxLayout(group);
  auto* row = new QHBoxLayout;
  auto* charset = Named(new QLineEdit(group), "txtCharset");
  charset->setReadOnly(true);
  row->addWidget(charset, 1);
  row->addWidget(MakeButton("cmdRegionalSettings", group));
  column->addLayout(row);
  column->addWidget(MakeLabel("lblCharset", group, true));
  return group;
}

QGroupBox* SettingsView::MakeNoticeGroup(QWidget* page) {
  auto* group = Named(new QGroupBox(page), "fraNotice");
  KeepPlace(*group);
  auto* row = new QHBoxLayout(group);
  auto* icon = new SvgPicture(":/warning.svg", group);
  icon->setFixedSize(32, 32);
  row->addWidget(icon, 0, Qt::AlignTop);
  auto* column = new QVBoxLayout;
  QLabel* warning = MakeLabel("lblWarning", group);
  warning->setFont(Bold(*warning));
  column->addWidget(warning);
  column->addWidget(MakeLabel("lblCurrLang", group, true));
  column->addWidget(MakeLabel("lblReqLang", group, true));
  row->addLayout(column, 1);
  return group;
}

void SettingsView::MakeLanguagePage() {
  QVBoxLayout* column = nullptr;
  QWidget* page = MakePage(4, column);
  column->addWidget(MakeLabel("lblLanguage", page));
  auto* row = new QHBoxLayout;
  row->setSpacing(12);
  row->addWidget(MakeCombo("cboLanguage", page));
  flag_ = Named(new SvgPicture(":/flags/english.svg", page), "picFlag");
  flag_->setFixedSize(48, 32);
  row->addWidget(flag_);
  row->addStretch();
  column->addLayout(row);
  auto* credits = new QHBoxLayout;
  credits->addWidget(MakeLabel("lblTranslator", page), 1);
  auto* link = Named(new LinkButton(page), "lblComplete");
  KeepPlace(*link);
  credits->addWidget(link);
  column->addLayout(credits);
  column->addWidget(MakeCharsetGroup(page));
  column->addWidget(MakeNoticeGroup(page));
  column->addStretch();
  column->addWidget(Named(new QCheckBox(page), "chkClassic"));
}

}  // namespace cuewright
