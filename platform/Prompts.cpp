#include "platform/Prompts.h"

#include <cstdio>

namespace vistor {
namespace {

class NobodyThere final : public Prompter {
public:
    Answer message(const MessageRequest& request) override {
        std::fprintf(stderr, "%s\n", qPrintable(request.text));
        return unanswered(request.buttons);
    }
    std::optional<QString> input(const InputRequest&) override { return std::nullopt; }
    std::optional<QString> openFile(const FileRequest&) override { return std::nullopt; }
    std::optional<QString> saveFile(const FileRequest&) override { return std::nullopt; }
    std::optional<std::int32_t> colour(std::int32_t) override { return std::nullopt; }
    std::optional<FontChoice> font(const FontChoice&) override { return std::nullopt; }
};

NobodyThere nobodyThere;
Prompter* current = nullptr;

Prompter& prompter() {
    return current ? *current : nobodyThere;
}

} // namespace

Answer unanswered(Buttons buttons) {
    switch (buttons) {
    case Buttons::YesNo:
        return Answer::No;
    case Buttons::YesNoCancel:
        return Answer::Cancel;
    case Buttons::Ok:
        break;
    }
    return Answer::Ok;
}

Prompter* setPrompter(Prompter* other) {
    Prompter* before = current;
    current = other;
    return before;
}

Answer MsgBox(const QString& text, Icon icon, Buttons buttons, const QString& title) {
    return prompter().message({text, icon, buttons, title});
}

std::optional<QString> InputBox(const QString& text, const QString& title, const QString& initial) {
    return prompter().input({text, title, initial});
}

std::optional<QString> OpenFile(const FileRequest& request) {
    return prompter().openFile(request);
}
std::optional<QString> SaveFile(const FileRequest& request) {
    return prompter().saveFile(request);
}
std::optional<std::int32_t> PickColour(std::int32_t initial) {
    return prompter().colour(initial);
}
std::optional<FontChoice> PickFont(const FontChoice& initial) {
    return prompter().font(initial);
}

} // namespace vistor
