#include "aids/ui/FrameAids.h"

#include "aids/ScriptRuns.h"
#include "aids/WordHelp.h"
#include "aids/ui/ChooseDialog.h"
#include "aids/ui/DocumentAids.h"
#include "aids/ui/frmSynonyms.h"

namespace aids::ui {

FrameAids::FrameAids(QWidget& window, editor::DocumentFrame& frame, std::string programFolder)
    : m_window(window),
      m_frame(frame),
      m_programFolder(std::move(programFolder)),
      m_findReplace(&window, frame.Prompts()) {}

void FrameAids::Serve(editor::ui::Mainwin& document) {
  auto* aids = new DocumentAids(document, m_frame);
  QObject::connect(aids, &QObject::destroyed, &m_findReplace, [this, aids] {
    if (m_findReplace.ParentForm() == aids) m_findReplace.SetParentForm(nullptr);
  });
}

// Finding and replacing.

void FrameAids::OpenDialog(editor::ui::Mainwin& document) {
  DocumentAids& aids = DocumentAids::Of(document);
  m_findReplace.Open(aids, [&aids] { return aids.CaretOnScreen(); });
}

void FrameAids::Find(editor::ui::Mainwin& document) {
  m_findReplace.ShowFind();
  OpenDialog(document);
}

void FrameAids::Replace(editor::ui::Mainwin& document) {
  m_findReplace.ShowReplace();
  OpenDialog(document);
}

void FrameAids::FindNext(editor::ui::Mainwin& document) {
  DocumentAids::Of(document).Search().FindNext(m_frame.Prompts());
}

// Synonyms.

void FrameAids::AddSynonym(editor::ui::Mainwin& document) {
  DocumentAids::Of(document).Synonyms().AddSynonym([this](const std::vector<std::string>& names) -> std::string {
    QStringList texts;
    for (const std::string& name : names) texts += QString::fromStdString(name);
    frmSynonymSelect chooser(texts, &m_window);
    chooser.exec();
    const auto chosen = chooser.Chosen();
    return chosen ? names[*chosen] : "";
  });
}

void FrameAids::EditSynonyms(editor::ui::Mainwin& document) {
  frmSynonyms(DocumentAids::Of(document).Synonyms(), &m_window).exec();
}

void FrameAids::SaveSynonyms(editor::ui::Mainwin& document) {
  DocumentAids::Of(document).Synonyms().SaveSynonyms(document.Core().State().CurSFileName);
}

void FrameAids::LoadSynonyms(editor::ui::Mainwin& document, const std::string& path) {
  if (!path.empty()) DocumentAids::Of(document).Synonyms().LoadSynonyms(path);
}

// Help, preview and run.

void FrameAids::ShowWordHelp(editor::ui::Mainwin& document) {
  const auto choose = [this](const HelpChoices& choices) -> std::shared_ptr<const templates::HelpWord> {
    QStringList names;
    for (const auto& entry : choices) names += QString::fromStdString(entry->Name);
    frmHelpChoose chooser(names, &m_window);
    chooser.exec();
    const auto chosen = chooser.Chosen();
    return chosen ? choices[*chosen] : nullptr;
  };
  aids::ShowWordHelp(document.TextArea(), document.Core().State().Template, m_shell, m_frame.Prompts(), choose);
}

void FrameAids::GenerateJavaScriptPreview(editor::ui::Mainwin& document) {
  aids::GenerateJavaScriptPreview(document.TextArea(), m_programFolder, {m_shell, m_frame.Prompts()});
}

void FrameAids::SaveExec(editor::ui::Mainwin& document) {
  const auto save = [&document] { return document.SaveFile(document.CurFileName()); };
  aids::SaveExec(document.Core().State(), save, {m_shell, m_frame.Prompts()});
}

}  // namespace aids::ui
