#include "shell/HelpTopics.h"

#include <algorithm>

namespace shell {

const std::vector<HelpTopic>& HelpTopics() {
  static const std::vector<HelpTopic> topics = {
      {"BackWin", "frame.html", "Quillmark window", true},
      {"Mainwin", "document.html", "Document window", true},
      {"FindReplace", "find-replace.html", "Find and Replace window"},
      {"frmOptions", "options.html", "Options window"},
      {"frmFontSet", "fonts.html", "Fonts window"},
      {"frmAssociations", "associations.html", "Associations window"},
      {"frmSynonyms", "edit-synonyms.html", "Edit Synonyms window"},
      {"frmSynonymSelect", "select-synonym.html", "Select Synonym window"},
      {"frmHelpChoose", "choose-help.html", "Context Help window"},
      {"frmTemplate", "template-editor.html", "Template editor"},
      {"GeneralPage", "template-general.html", "General page of a template"},
      {"ColourWordsPage", "template-colour-words.html", "Colour Words page of a template"},
      {"ActionWordsPage", "template-action-words.html", "Action Words page of a template"},
      {"InitialText", "template-initial-text.html", "Initial Text page of a template"},
      {"SynonymsPage", "template-synonyms.html", "Synonyms page of a template"},
      {"AboutPage", "template-about.html", "About page of a template"},
      {"frmTemplateMsg", "template-question.html", "Unfinished words in the template editor"},
      {"AboutTemplate", "about-template.html", "About Template window"},
      {"CustomiseDialog", "customise.html", "Customise window"},
      {"AboutBox", "about.html", "About window"},
      {"HelpWindow", "help-window.html", "Help window"},
  };
  return topics;
}

const HelpTopic* FindHelpTopic(std::string_view window) {
  const std::vector<HelpTopic>& topics = HelpTopics();
  const auto found =
      std::find_if(topics.begin(), topics.end(), [&](const HelpTopic& topic) { return topic.Window == window; });
  return found == topics.end() ? nullptr : &*found;
}

}  // namespace shell
