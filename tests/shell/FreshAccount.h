// A program folder with delivered files beside it and a person's folder for application data, all fresh and
// gone after the test.
#pragma once

#include "maths/VariableFiles.h"
#include "platform/Folders.h"
#include "platform/Scratch.h"
#include "tests/ScriptedPrompts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vistor {

class FreshAccount : public testing::Test {
protected:
    FreshAccount() : m_before(qgetenv("XDG_CONFIG_HOME")) {
        qputenv("XDG_CONFIG_HOME", root.filePath("person").toLocal8Bit());
        QDir(root.path()).mkpath("build/program");
        setProgramFolder(root.filePath("build/program"));
    }
    ~FreshAccount() override {
        deleteScratchFolder();
        setProgramFolder({});
        if (m_before.isNull())
            qunsetenv("XDG_CONFIG_HOME");
        else
            qputenv("XDG_CONFIG_HOME", m_before);
    }
    static void write(const QString& path, const QByteArray& bytes) {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    static QByteArray read(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// Puts the delivered definition files in their place; answers the bytes of the table's.
    QByteArray deliver() {
        const QString from = QStringLiteral(VISTOR_SOURCE_DIR "/OtherFiles/");
        for (const QString& name : variableFileNames())
            write(root.filePath("OtherFiles/" + name), read(from + name));
        return read(from + QLatin1String(kVariableFileForm.workingFile));
    }
    QString working(const char* name) const { return root.filePath("person/Kelvane/") + QLatin1String(name); }

    QTemporaryDir root;
    ScriptedPrompts prompts;

private:
    QByteArray m_before;
};

} // namespace vistor
