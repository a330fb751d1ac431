#include "aids/ui/ChooseDialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace aids::ui {
namespace {

QPushButton* Button(const char* name, const QString& text) {
  auto* button = new QPushButton(text);
  button->setObjectName(QString::fromLatin1(name));
  return button;
}

}  // namespace

ChooseDialog::ChooseDialog(const QStringList& texts, QWidget* parent) : QDialog(parent), m_list(new QListWidget(this)) {
  m_list->addItems(texts);
  m_list->setUniformItemSizes(true);
  if (!texts.isEmpty()) m_list->setCurrentRow(0);
  connect(m_list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
}

void ChooseDialog::LayOut(const QString& above, const QList<QPushButton*>& buttons) {
  auto* label = new QLabel(above, this);
  label->setObjectName(QStringLiteral("Label1"));
  label->setBuddy(m_list);
  auto* row = new QHBoxLayout;
  row->addStretch(1);
  for (QPushButton* button : buttons) row->addWidget(button);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(label);
  layout->addWidget(m_list, 1);
  layout->addLayout(row);
  buttons.first()->setDefault(true);
  connect(buttons.first(), &QPushButton::clicked, this, &QDialog::accept);
  for (QPushButton* button : buttons.mid(1)) connect(button, &QPushButton::clicked, this, &QDialog::reject);
  resize(360, 300);
}

std::optional<std::size_t> ChooseDialog::Chosen() const {
  if (result() != Accepted || m_list->currentRow() < 0) return std::nullopt;
  return static_cast<std::size_t>(m_list->currentRow());
}

frmHelpChoose::frmHelpChoose(const QStringList& names, QWidget* parent) : ChooseDialog(names, parent) {
  setObjectName(QStringLiteral("frmHelpChoose"));
  setWindowTitle(QStringLiteral("Context Help"));
  List().setObjectName(QStringLiteral("HelpList"));
  LayOut(QStringLiteral("Select Help Topic"), {Button("OKbutton", QStringLiteral("OK"))});
}

frmSynonymSelect::frmSynonymSelect(const QStringList& names, QWidget* parent) : ChooseDialog(names, parent) {
  setObjectName(QStringLiteral("frmSynonymSelect"));
  setWindowTitle(QStringLiteral("Select Synonym"));
  List().setObjectName(QStringLiteral("SynList"));
  LayOut(QStringLiteral("&Action word that the word stands for:"),
         {Button("btnOK", QStringLiteral("OK")), Button("btnCancel", QStringLiteral("Cancel"))});
}

}  // namespace aids::ui
