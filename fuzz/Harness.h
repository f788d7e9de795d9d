// What the targets share: an application without a screen, a folder of their own, nobody who answers.
#pragma once

#include "platform/Prompts.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

/// What the toolkit's libraries keep to the end is no leak.
extern "C" inline __attribute__((used)) const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\nleak:libQt6Gui\nleak:libQt6Widgets\n";
}

namespace vistor {

/// Cancels every question and shows nothing.
class SilentPrompter final : public Prompter {
    Answer message(const MessageRequest&) override { return Answer::Cancel; }
    std::optional<QString> input(const InputRequest&) override { return {}; }
    std::optional<QString> openFile(const FileRequest&) override { return {}; }
    std::optional<QString> saveFile(const FileRequest&) override { return {}; }
    std::optional<std::int32_t> colour(std::int32_t) override { return {}; }
    std::optional<FontChoice> font(const FontChoice&) override { return {}; }
};

/// The application; made at the first call, for targets that draw.
inline void startApplication() {
    static int count = 1;
    static char name[] = "fuzz";
    static char* words[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication application(count, words);
}

inline void silence() {
    static SilentPrompter prompter;
    setPrompter(&prompter);
}

/// The path of a file in a folder of this process that holds these bytes.
inline QString fileOf(const char* name, const unsigned char* data, std::size_t size) {
    static const QTemporaryDir folder;
    QFile file(folder.filePath(QLatin1String(name)));
    const auto length = static_cast<qint64>(size);
    if (!file.open(QIODevice::WriteOnly) || file.write(reinterpret_cast<const char*>(data), length) != length)
        std::abort();
    return file.fileName();
}

inline QByteArray bytesOf(const unsigned char* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)};
}

} // namespace vistor
