#include "settings/ui/frmFontSet.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>
#include <QVBoxLayout>

#include "platform/qt/FontChoice.h"
#include "settings/ui/CaptionLabel.h"
#include "settings/ui/OkAndCancel.h"

namespace settings::ui {
namespace {

/// The names of a group's controls end alike.
struct GroupNames {
  const char *Ending, *Caption;
};
constexpr std::array<GroupNames, FontSetModel::Groups> Names = {
    {{"Prop", "Proportional Font"}, {"Fixed", "Fixed Width Font"}, {"DOS", "DOS Font"}}};

}  // namespace

frmFontSet::frmFontSet(FontSetModel model, platform::Prompts& prompts, bool& dialogCancelled, QWidget* parent)
    : QDialog(parent), m_model(std::move(model)), m_prompts(prompts), m_dialogCancelled(dialogCancelled) {
  setObjectName(QStringLiteral("frmFontSet"));
  setWindowTitle(QStringLiteral("Set Quillmark Fonts"));
  auto* defaults = new QButtonGroup(this);  // the options stand in different frames, and one is selected
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(12);
  for (std::size_t group = 0; group < FontSetModel::Groups; ++group) {
    layout->addWidget(Group(group), 1);
    defaults->addButton(m_options[group]);
    ShowSample(group);
  }
  m_chkOverride = new QCheckBox(QStringLiteral("Override template suggested fonts with def. font"), this);
  m_chkOverride->setObjectName(QStringLiteral("chkOverride"));
  m_chkOverride->setChecked(m_model.Override);
  layout->addWidget(m_chkOverride);
  layout->addWidget(Buttons());
  if (m_model.DefaultType) m_options[*m_model.DefaultType]->setChecked(true);
  m_options[m_model.DefaultType.value_or(0)]->setFocus();
}

QGroupBox* frmFontSet::Group(std::size_t group) {
  const QString ending = QString::fromUtf8(Names[group].Ending), caption = QString::fromUtf8(Names[group].Caption);
  auto* frame = new QGroupBox(caption, this);
  frame->setObjectName(QStringLiteral("fra") + ending);
  m_options[group] = new QRadioButton(frame);
  m_options[group]->setObjectName(QStringLiteral("opt") + ending);
  auto* def = new CaptionLabel(QStringLiteral("Def."), *m_options[group], frame);
  m_options[group]->setAccessibleName(QStringLiteral("Def.: ") + caption);
  m_options[group]->setToolTip(QStringLiteral("Documents use this font by default"));
  def->setToolTip(m_options[group]->toolTip());
  auto* set = new QPushButton(QStringLiteral("Set Font"), frame);
  set->setObjectName(QStringLiteral("cmd") + ending);
  set->setAccessibleName(QStringLiteral("Set Font: ") + caption);
  set->setAutoDefault(false);
  m_samples[group] = new QTextEdit(frame);
  m_samples[group]->setObjectName(QStringLiteral("txt") + ending);
  m_samples[group]->setAccessibleName(QStringLiteral("Sample: ") + caption);
  m_samples[group]->setReadOnly(true);
  m_samples[group]->setTabChangesFocus(true);
  m_samples[group]->setLineWrapMode(QTextEdit::NoWrap);
  m_samples[group]->setMinimumSize(320, 46);
  m_samples[group]->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  auto* sample = new QLabel(QStringLiteral("Sample:"), frame);
  sample->setBuddy(m_samples[group]);
  auto* layout = new QGridLayout(frame);
  layout->addWidget(m_options[group], 0, 0);
  layout->addWidget(def, 0, 1);
  layout->addWidget(set, 0, 2, Qt::AlignRight);
  layout->addWidget(sample, 1, 0, 1, 2, Qt::AlignTop);
  layout->addWidget(m_samples[group], 1, 2);
  layout->setColumnStretch(2, 1);
  layout->setRowStretch(1, 1);
  connect(m_options[group], &QRadioButton::clicked, this, [this, group] { m_model.DefaultType = group; });
  connect(set, &QPushButton::clicked, this, [this, group] {
    if (m_model.ChooseFont(group, m_prompts)) ShowSample(group);
  });
  return frame;
}

QWidget* frmFontSet::Buttons() {
  QDialogButtonBox* buttons = OkAndCancel(*this);
  QPushButton* reset = buttons->addButton(QStringLiteral("Reset Fonts"), QDialogButtonBox::ResetRole);
  reset->setObjectName(QStringLiteral("cmdReset"));
  reset->setAutoDefault(false);
  connect(reset, &QPushButton::clicked, this, [this] {
    m_model.Reset();
    for (std::size_t group = 0; group < FontSetModel::Groups; ++group) ShowSample(group);
  });
  return buttons;
}

void frmFontSet::ShowSample(std::size_t group) {
  QTextEdit& sample = *m_samples[group];
  const platform::FontRecord& font = m_model.Font(group);
  sample.setFont(platform::qt::FontOf(font));
  sample.setPlainText(QStringLiteral("AaBbCcDd This is a sample"));
  sample.setToolTip(QString::fromStdString(font.Name) + QStringLiteral(", ") + QString::number(font.Size));
}

void frmFontSet::accept() {
  m_model.Override = m_chkOverride->isChecked();
  m_model.Accept();
  QDialog::accept();
}

void frmFontSet::reject() {
  m_dialogCancelled = true;
  QDialog::reject();
}

}  // namespace settings::ui
