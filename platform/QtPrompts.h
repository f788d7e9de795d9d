// Questions as real dialogs of the toolkit.
#pragma once

#include "platform/Prompts.h"

#include <QPointer>
#include <QSet>
#include <QWidget>

namespace vistor {

/// Name of a property of actions: true for those of the main window whose shortcuts act while a message
/// stands.
inline constexpr const char* kUnderMessages = "underMessages";

/// Asks over the active window. To be put in with setPrompter() by the program. While a message stands the
/// main window takes no input but those shortcuts and can be closed; once it is closed every message is
/// answered at once. A message of work that goes on behind a dialog of the person's, of a formula in a tick
/// for example, would come over it again and again and leave no way back: it becomes a notice, once for a
/// dialog.
class QtPrompts final : public Prompter {
public:
    Answer message(const MessageRequest& request) override;
    std::optional<QString> input(const InputRequest& request) override;
    std::optional<QString> openFile(const FileRequest& request) override;
    std::optional<QString> saveFile(const FileRequest& request) override;
    std::optional<std::int32_t> colour(std::int32_t initial) override;
    std::optional<FontChoice> font(const FontChoice& initial) override;

private:
    bool toldBesideDialog(const MessageRequest& request);

    bool m_windowClosed = false;
    QPointer<QWidget> m_dialog; ///< over which the last such message came
    QSet<QString> m_told;       ///< what was told beside it
};

/// A filter in the toolkit's form: "words (pattern);;words (pattern)" from "words|pattern|words|pattern".
/// Words that tell their pattern already do not get it twice. "*.*" means every file, also one without an
/// ending.
QString toolkitFilter(const QString& filter);

} // namespace vistor
