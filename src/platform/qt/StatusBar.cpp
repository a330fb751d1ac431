#include "platform/qt/StatusBar.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QStackedWidget>
#include <QToolButton>
#include <algorithm>

#include "platform/qt/Text.h"

namespace platform::qt {
namespace {

/// Sets the text and lets the panel keep the widest room that it ever needed.
template <typename Panel>
void ShowText(Panel& panel, const QString& text) {
  if (panel.text() == text) return;
  panel.setText(text);
  panel.setMinimumWidth(std::max(panel.minimumWidth(), panel.sizeHint().width()));
}

QLabel* MakeLabel(const char* name, const QString& text) {
  auto* label = new QLabel;
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  ShowText(*label, text);
  return label;
}

// How the X and Wayland back ends tell a key's lock states.
constexpr quint32 CapsMask = 0x02, NumMask = 0x10;

bool TellsLocks() {
  static const bool tells = QGuiApplication::platformName() == QLatin1String("xcb") ||
                            QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
  return tells;
}

}  // namespace

StatusBar::StatusBar(QWidget* parent) : QStatusBar(parent), m_pages(new QStackedWidget), m_simple(new QLabel) {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(2, 0, 2, 0);
  layout->setSpacing(12);
  m_coOrds = AddLabel(*row, "CoOrds", QStringLiteral("(Line 99, Col 99)"));
  m_docSize = AddLabel(*row, "DocSize", QStringLiteral("0 Lines"));
  AddTemplateButton(*row);
  layout->addStretch(1);
  m_simple->setObjectName(QStringLiteral("SimpleText"));
  m_simple->setTextFormat(Qt::PlainText);
  m_simple->setContentsMargins(2, 0, 2, 0);
  m_pages->addWidget(row);
  m_pages->addWidget(m_simple);
  m_pages->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  addWidget(m_pages, 1);
  // Beside the pages, so that a narrow window cuts the other panels and never draws over these.
  m_caps = AddIndicator("CAPS", QStringLiteral("CAPS"));
  m_num = AddIndicator("NUM", QStringLiteral("NUM"));
  m_ins = AddIndicator("INS", QStringLiteral("OVR"));
  SetOverwrite(false);
  SetKeyboardLocks(false, false);
  qApp->installEventFilter(this);
}

QLabel* StatusBar::AddLabel(QWidget& row, const char* name, const QString& text) {
  QLabel* label = MakeLabel(name, text);
  row.layout()->addWidget(label);
  return label;
}

QLabel* StatusBar::AddIndicator(const char* name, const QString& text) {
  QLabel* label = MakeLabel(name, text);
  addPermanentWidget(label);
  return label;
}

void StatusBar::AddTemplateButton(QWidget& row) {
  m_template = new QToolButton(&row);
  m_template->setObjectName(QStringLiteral("Template"));
  m_template->setAutoRaise(true);
  m_template->setToolButtonStyle(Qt::ToolButtonTextOnly);
  m_template->setFocusPolicy(Qt::TabFocus);  // a click leaves the keyboard with the text
  m_template->setAccessibleDescription(QStringLiteral("Chooses the template of the document"));
  m_template->setToolTip(m_template->accessibleDescription());
  SetPanelText("Template", "Using '<none>' Template");
  row.layout()->addWidget(m_template);
  connect(m_template, &QToolButton::clicked, this, &StatusBar::TemplateClicked);
}

void StatusBar::SetPanelText(std::string_view key, std::string_view text) {
  if (key == "CoOrds") ShowText(*m_coOrds, Text(text));
  if (key == "DocSize") ShowText(*m_docSize, Text(text));
  if (key != "Template") return;
  // A lone "&" in a button's text would mark a shortcut.
  ShowText(*m_template, Text(text).replace(QLatin1Char('&'), QLatin1String("&&")));
  m_template->setAccessibleName(Text(text));
}

void StatusBar::SetStyle(StatusStyle style) {
  const bool isSimple = style == StatusStyle::Simple;
  m_pages->setCurrentIndex(isSimple ? 1 : 0);
  for (QLabel* indicator : {m_caps, m_num, m_ins}) indicator->setVisible(!isSimple);
}

void StatusBar::SetSimpleText(std::string_view text) {
  m_simple->setText(Text(text));
}

void StatusBar::SetOverwrite(bool overwrite) {
  ShowText(*m_ins, overwrite ? QStringLiteral("OVR") : QStringLiteral("INS"));
}

void StatusBar::SetKeyboardLocks(bool caps, bool num) {
  m_caps->setEnabled(caps);
  m_num->setEnabled(num);
}

bool StatusBar::eventFilter(QObject* watched, QEvent* event) {
  const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
  if (isKey && watched->isWindowType() && TellsLocks()) {
    const auto* key = static_cast<QKeyEvent*>(event);
    // A lock key's own press still tells the state before it.
    const bool presses = event->type() == QEvent::KeyPress;
    const quint32 locks = key->nativeModifiers() ^ (presses && key->key() == Qt::Key_CapsLock  ? CapsMask
                                                    : presses && key->key() == Qt::Key_NumLock ? NumMask
                                                                                               : 0);
    if (presses || (key->key() != Qt::Key_CapsLock && key->key() != Qt::Key_NumLock))
      SetKeyboardLocks((locks & CapsMask) != 0, (locks & NumMask) != 0);
  }
  return QStatusBar::eventFilter(watched, event);
}

}  // namespace platform::qt
