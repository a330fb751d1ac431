// The frame's commands of the editing aids and of the settings.

#include "settings/ui/frmAssociations.h"
#include "settings/ui/frmFontSet.h"
#include "settings/ui/frmOptions.h"
#include "shell/ui/BackWin.h"
#include "shell/ui/FrameWindows.h"

namespace shell::ui {

void BackWin::BindAidCommands() {
  using Document = editor::ui::Mainwin;
  BindDocument("miFind", [this](Document& document) { m_aids.Find(document); });
  BindDocument("miFindNext", [this](Document& document) { m_aids.FindNext(document); });
  BindDocument("miReplace", [this](Document& document) { m_aids.Replace(document); });
  BindDocument("miAddSynonym", [this](Document& document) { m_aids.AddSynonym(document); });
  BindDocument("miEditSynonyms", [this](Document& document) { m_aids.EditSynonyms(document); });
  BindDocument("miSaveSynonyms", [this](Document& document) { m_aids.SaveSynonyms(document); });
  BindDocument("miLoadSynonyms", [this](Document& document) {
    m_aids.LoadSynonyms(document, GetOpenFile("Load Synonyms", "Synonym File", "syn"));
  });
  BindDocument("GenPrev", [this](Document& document) { m_aids.GenerateJavaScriptPreview(document); });
  BindDocument("SaveExec", [this](Document& document) { m_aids.SaveExec(document); });
  m_commands.Bind("WordHelp", [this](const std::string&) {
    if (Document* document = ActiveDocument())
      m_aids.ShowWordHelp(*document);
    else
      m_commands.Run("miHContents");
  });
}

void BackWin::BindSettingsCommands() {
  m_commands.Bind("fntSet", [this](const std::string&) {
    m_values.DialogCancelled = false;
    settings::ui::frmFontSet(settings::FontSetModel(m_values.Settings), m_prompts, m_values.DialogCancelled, this)
        .exec();
    if (!m_values.DialogCancelled) EveryDocument([](editor::ui::Mainwin& document) { document.UpdateFont(); });
  });
  m_commands.Bind("Options", [this](const std::string&) {
    m_values.DialogCancelled = false;
    settings::ui::frmOptions({m_values.Settings, m_values.TemplateList, m_values.ExtraTemplates, m_prompts},
                             m_values.ProgramFolder, m_values.DialogCancelled, this)
        .exec();
    if (!m_values.DialogCancelled) EveryDocument([](editor::ui::Mainwin& document) { document.ColourScan(); });
  });
  m_commands.Bind("Associations", [this](const std::string&) {
    settings::ui::frmAssociations(settings::AssociationsModel(m_values.Settings.Associations), this).exec();
  });
}

void BackWin::EveryDocument(const std::function<void(editor::ui::Mainwin&)>& action) {
  QList<QPointer<editor::ui::Mainwin>> documents;  // colouring lets events run, in which one of them may go
  for (editor::ui::Mainwin* document : m_windows->findChildren<editor::ui::Mainwin*>()) documents.append(document);
  for (const QPointer<editor::ui::Mainwin>& document : documents)
    if (document && !document->Closed()) action(*document);
  FocusChild();
}

}  // namespace shell::ui
