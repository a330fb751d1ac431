// The frame's template editors.

#include <QDate>
#include <QLocale>
#include <QMdiSubWindow>

#include "shell/ui/BackWin.h"
#include "shell/ui/FrameWindows.h"
#include "template_editor/ui/frmTemplate.h"

namespace shell::ui {

using template_editor::ui::AboutTemplate, template_editor::ui::frmTemplate;

void BackWin::BindTemplateCommands() {
  m_commands.Bind("newTemplate", [this](const std::string&) { AddTemplateEditor()->OpenedEmpty(); });
  m_commands.Bind("OpenTemplate", [this](const std::string&) { OpenTemplate(); });
  m_commands.Bind("miHAboutTemplate", [this](const std::string&) { ShowAboutTemplate(); });
}

frmTemplate* BackWin::TemplateEditorIn(const QMdiSubWindow* window) {
  return window ? qobject_cast<frmTemplate*>(window->widget()) : nullptr;
}

frmTemplate* BackWin::AddTemplateEditor() {
  auto* made = new frmTemplate(*this);
  connect(made, &frmTemplate::Closing, this, [this, made] { UpdateWindowTabs(made); });
  m_windows->Add(made);
  return made;
}

void BackWin::OpenTemplate() {
  const std::string path = GetOpenFile("Open Template", "Template Definition File", "def", m_values.ProgramFolder);
  if (path.empty()) return;
  const QPointer<frmTemplate> opened = AddTemplateEditor();
  if (!opened->OpenFile(path) && opened) opened->CloseWindow();
}

void BackWin::TemplateEditorActivated(frmTemplate& activated) {
  m_status->SetStyle(platform::StatusStyle::Simple);
  DisableDocumentTools();
  activated.Activated();
}

void BackWin::ShowAboutTemplate() {
  if (const frmTemplate* active = TemplateEditorIn(m_windows->currentSubWindow())) {
    AboutTemplate(active->About(), this).exec();
  } else if (editor::ui::Mainwin* document = ActiveDocument()) {
    const templates::TemplateFields& fields = document->Core().State().Template;
    AboutTemplate({fields.TName, fields.TVer, fields.TDate, fields.TAuthor, fields.TComments}, this).exec();
  }
}

rich_text::ColourValue BackWin::GetColour(rich_text::ColourValue initial) {
  return m_prompts.AskColour(initial).value_or(initial);
}

std::string BackWin::Today() const {
  return QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat).toStdString();
}

}  // namespace shell::ui
