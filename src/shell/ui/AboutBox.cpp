#include "shell/ui/AboutBox.h"

#include <dlfcn.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "platform/qt/ScintillaBase.h"

namespace shell::ui {
namespace {

constexpr int IconSize = 64;

QLabel* Line(const char* name, const QString& text) {
  auto* label = new QLabel(text);
  label->setObjectName(QLatin1String(name));
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

QLabel* NameLine() {
  QLabel* name = Line("lblName", QStringLiteral("Quillmark " QUILLMARK_VERSION));
  QFont font = name->font();
  font.setPointSizeF(font.pointSizeF() * 1.6);
  font.setBold(true);
  name->setFont(font);
  return name;
}

/// The file that the editing component was loaded from: it does not tell its version while it runs, its file does.
QString EditingLibrary() {
  Dl_info info{};
  const auto* inside = reinterpret_cast<const void*>(&QsciScintillaBase::pool);
  if (::dladdr(inside, &info) == 0 || !info.dli_fname) return {};
  return QFileInfo(QFileInfo(QString::fromLocal8Bit(info.dli_fname)).canonicalFilePath()).fileName();
}

QString Libraries() {
  return QStringLiteral("Qt %1, and Scintilla in QScintilla %2 (%3)")
      .arg(QLatin1String(qVersion()), QLatin1String(QSCINTILLA_VERSION_STR), EditingLibrary());
}

}  // namespace

AboutBox::AboutBox(platform::HelpViewer& help, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("AboutBox"));
  setWindowTitle(tr("About Quillmark"));
  auto* licence = Line("lblLicence", tr("Free software under the GNU General Public License, version 3 or later "
                                        "(GPL-3.0-or-later).<br><a href=\"licence.html\">Read the licence</a> "
                                        "&nbsp;·&nbsp; <a href=\"index.html\">Help</a>"));
  licence->setTextInteractionFlags(Qt::TextBrowserInteraction);
  licence->setWordWrap(true);
  connect(licence, &QLabel::linkActivated, this, [&help](const QString& page) { help.ShowPage(page.toStdString()); });
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  auto* icon = new QLabel;
  icon->setPixmap(QApplication::windowIcon().pixmap(QSize(IconSize, IconSize), devicePixelRatioF()));
  auto* text = new QVBoxLayout;
  text->setSpacing(10);
  text->addWidget(NameLine());
  text->addWidget(Line("lblWhat", tr("A script editor whose languages come from plain-text templates.")));
  text->addWidget(licence);
  text->addWidget(Line("lblLibraries", tr("Runs on %1.").arg(Libraries())));
  auto* top = new QHBoxLayout;
  top->setSpacing(20);
  top->addWidget(icon, 0, Qt::AlignTop);
  top->addLayout(text, 1);
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(18);
  layout->addLayout(top);
  layout->addStretch(1);
  layout->addWidget(buttons);
}

}  // namespace shell::ui
