// The one place where the program asks a person something. In: the words. Out: the answer. Real dialogs are
// put in by the windows' side; tests put in scripted answers and assert the words.
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace vistor {

enum class Icon { None, Stop, Question, Notice, Information };
enum class Buttons { Ok, YesNo, YesNoCancel };
enum class Answer { Ok, Yes, No, Cancel };

struct MessageRequest {
    QString text;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    QString title; ///< empty: the application's name
};

/// What a box says that went away without a button pressed: Cancel, or No where there is no Cancel, or Ok
/// where there is nothing else.
Answer unanswered(Buttons buttons);

struct InputRequest {
    QString text;
    QString title;
    QString initial;
};

struct FileRequest {
    QString title;
    QString filter;    ///< pairs "words|pattern", all joined by "|"
    QString extension; ///< added to a name without one; without the dot, may be empty
    QString initial;   ///< a path or a folder, may be empty
};

struct FontChoice {
    QString family;
    float size = 8; ///< points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeout = false;
};

/// What answers the questions. Every call is modal: it returns when the person has answered.
class Prompter {
public:
    virtual ~Prompter() = default;
    virtual Answer message(const MessageRequest& request) = 0;
    /// No value when the person cancelled.
    virtual std::optional<QString> input(const InputRequest& request) = 0;
    virtual std::optional<QString> openFile(const FileRequest& request) = 0;
    virtual std::optional<QString> saveFile(const FileRequest& request) = 0;
    /// Colours are 0x00BBGGRR.
    virtual std::optional<std::int32_t> colour(std::int32_t initial) = 0;
    virtual std::optional<FontChoice> font(const FontChoice& initial) = 0;
};

/// Puts in who answers; null puts back the default, which writes a message to the error stream and answers
/// like a person who cancels. Returns the one before (null: the default).
Prompter* setPrompter(Prompter* prompter);

/// The questions themselves; each returns when it is answered. Without a title the application's name stands
/// there.
Answer MsgBox(const QString& text, Icon icon = Icon::None, Buttons buttons = Buttons::Ok,
              const QString& title = {});
std::optional<QString> InputBox(const QString& text, const QString& title = {}, const QString& initial = {});
std::optional<QString> OpenFile(const FileRequest& request);
std::optional<QString> SaveFile(const FileRequest& request);
std::optional<std::int32_t> PickColour(std::int32_t initial);
std::optional<FontChoice> PickFont(const FontChoice& initial);

} // namespace vistor
