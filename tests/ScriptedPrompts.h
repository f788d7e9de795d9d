// Answers the program's questions in tests from lists written beforehand, and keeps the exact words of all
// that was asked.
#pragma once

#include "platform/Prompts.h"

#include <QStringList>

#include <deque>
#include <utility>
#include <vector>

namespace vistor {

/// Stands in as the prompter for as long as it lives. A question without an answer in its list is answered
/// like a person who cancels.
class ScriptedPrompts final : public Prompter {
public:
    ScriptedPrompts() : m_before(setPrompter(this)) {}
    ~ScriptedPrompts() override { setPrompter(m_before); }
    ScriptedPrompts(const ScriptedPrompts&) = delete;
    ScriptedPrompts& operator=(const ScriptedPrompts&) = delete;

    std::deque<Answer> answers;                ///< to messages with a choice
    std::deque<std::optional<QString>> inputs; ///< to input boxes
    std::deque<std::optional<QString>> files;  ///< to both file dialogs
    std::deque<std::optional<std::int32_t>> colours;
    std::deque<std::optional<FontChoice>> fonts;
    std::vector<MessageRequest> messages; ///< all that was shown
    std::vector<InputRequest> inputRequests;
    std::vector<FileRequest> fileRequests;

    /// The texts of all messages and input boxes since the last call, in order.
    QStringList takeWords() { return std::exchange(m_words, {}); }

    Answer message(const MessageRequest& request) override {
        messages.push_back(request);
        m_words += request.text;
        if (request.buttons == Buttons::Ok) return Answer::Ok;
        return next(answers, unanswered(request.buttons));
    }
    std::optional<QString> input(const InputRequest& request) override {
        inputRequests.push_back(request);
        m_words += request.text;
        return next(inputs, std::optional<QString>());
    }
    std::optional<QString> openFile(const FileRequest& request) override {
        fileRequests.push_back(request);
        return next(files, std::optional<QString>());
    }
    std::optional<QString> saveFile(const FileRequest& request) override { return openFile(request); }
    std::optional<std::int32_t> colour(std::int32_t) override {
        return next(colours, std::optional<std::int32_t>());
    }
    std::optional<FontChoice> font(const FontChoice&) override {
        return next(fonts, std::optional<FontChoice>());
    }

private:
    template <typename Value>
    static Value next(std::deque<Value>& list, Value otherwise) {
        if (list.empty()) return otherwise;
        Value first = list.front();
        list.pop_front();
        return first;
    }

    Prompter* m_before;
    QStringList m_words;
};

} // namespace vistor
