#pragma once
// What the user is asked at the start about text that was never saved: which document, from when, and whether its file
// has changed since; and what becomes of each answer.
//
// Yes restores the text, No deletes it, Cancel asks again at the next start. A journal goes only when its text is safe
// elsewhere or not wanted.

#include <functional>
#include <string>

#include "editor/RecoveryStore.h"
#include "platform/Prompts.h"

namespace editor {

/// Opens a window with the text; false when it could not be made safe, so that the old journal must stay.
using RestoreDocument = std::function<bool(const JournalContent& content)>;

/// Asks about each document that nobody has open. A text that is the file's own is not asked about.
void OfferRecovery(RecoveryStore& store, platform::Prompts& prompts, const RestoreDocument& restore);

/// The question about one document, the `number`th of `count`.
std::string RecoveryQuestion(const JournalContent& content, platform::FileDifference base, std::size_t number,
                             std::size_t count);

}  // namespace editor
