#include "maths/LoadAndSaveVariableDefinitions.h"

#include "platform/Notices.h"
#include "platform/Prompts.h"
#include "variables/SetupVariables.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstring>
#include <gtest/gtest.h>

namespace vistor {
namespace {

const QString kCorrupted =
    QStringLiteral("The variable file appears to be corrupted, cannot continue operation");

/// Notes what the person is told.
class Listener final : public Prompter {
public:
    Listener() : m_before(setPrompter(this)) {}
    ~Listener() override { setPrompter(m_before); }
    Answer message(const MessageRequest& request) override {
        EXPECT_EQ(request.icon, Icon::None);
        texts += request.text;
        return Answer::Ok;
    }
    std::optional<QString> input(const InputRequest&) override { return {}; }
    std::optional<QString> openFile(const FileRequest&) override { return {}; }
    std::optional<QString> saveFile(const FileRequest&) override { return {}; }
    std::optional<std::int32_t> colour(std::int32_t) override { return {}; }
    std::optional<FontChoice> font(const FontChoice&) override { return {}; }
    QStringList texts;

private:
    Prompter* m_before;
};

/// Builds a file's bytes by hand.
struct Bytes {
    QByteArray bytes;
    template <typename Number>
    Bytes& put(Number number) {
        bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
        return *this;
    }
    Bytes& text(const char* characters) {
        return put(static_cast<std::uint16_t>(std::strlen(characters))).raw(characters);
    }
    Bytes& raw(const char* characters) {
        bytes.append(characters);
        return *this;
    }
    Bytes& head() {
        return text("C")
            .text("Phys")
            .text("Base")
            .put(7)
            .put<std::int16_t>(-1)
            .put<std::int16_t>(1)
            .put<std::int16_t>(0x1234);
    }
    Bytes& middle() {
        return put(4).put(-1.5F).put(2.5F).put(5).put(0.1F).put(20.0F).put(0.5F).put(3).text("V");
    }
    Bytes& tail() {
        return put<std::int16_t>(2)
            .text("x*2")
            .text("\xB0")
            .text("D")
            .put(0.25F)
            .put(9.0F)
            .put(2)
            .put<std::uint8_t>(200);
    }
};

/// A row with every field set, and one whose array was never allocated.
QByteArray handMade() {
    Bytes file;
    file.put(1).text("None").text("").text("$1$0").text("").text("K").text("Long").text("x").text("\xB0"
                                                                                                  "C");
    file.put(1);
    file.head().middle().put<std::uint16_t>(1).put(2).put(3).text("K").text("").tail();
    file.head().middle().put<std::uint16_t>(0).tail();
    return file.put(7576).bytes;
}

std::optional<Definitions> read(const QByteArray& bytes) {
    return readDefinitions({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

void putFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(DefinitionFile, EveryFieldIsReadAndWrittenByteForByte) {
    const auto definitions = read(handMade());
    ASSERT_TRUE(definitions);
    ASSERT_EQ(definitions->units.size(), 2U);
    EXPECT_EQ(definitions->units[1].Uniit, QStringLiteral("\u00B0C"));
    ASSERT_EQ(definitions->variables.size(), 2U);
    const VariableDefinition& row = definitions->variables[0];
    EXPECT_EQ(row.ConstantName, "C");
    EXPECT_EQ(row.PhysicalName, "Phys");
    EXPECT_EQ(row.BaseName, "Base");
    EXPECT_EQ(row.IndexNumber, 7);
    EXPECT_EQ(row.Enabled, -1);
    EXPECT_EQ(row.AlwaysOn, 1);
    EXPECT_EQ(row.Available, 0x1234);
    EXPECT_EQ(row.VariableType, 4);
    EXPECT_EQ(row.DefaultMin, -1.5F);
    EXPECT_EQ(row.DefaultMax, 2.5F);
    EXPECT_EQ(row.FilterDesign, 5);
    EXPECT_EQ(row.FilterLowVal, 0.1F);
    EXPECT_EQ(row.FilterHighVal, 20.0F);
    EXPECT_EQ(row.FilterRipple, 0.5F);
    EXPECT_EQ(row.FilterOrder, 3);
    EXPECT_EQ(row.ApplyTransformation, "V");
    EXPECT_EQ(row.AllowTransformations, QStringList({"K", ""}));
    EXPECT_EQ(row.allowLowerBound, 3);
    EXPECT_EQ(row.UseCustomTrans, 2);
    EXPECT_EQ(row.CustomTransformation, "x*2");
    EXPECT_EQ(row.CustomUnits, QStringLiteral("\u00B0"));
    EXPECT_EQ(row.Description, "D");
    EXPECT_EQ(row.SmoothingTime, 0.25F);
    EXPECT_EQ(row.MaximumROC, 9.0F);
    EXPECT_EQ(row.Calculus, 2);
    EXPECT_EQ(row.Misc, 200);
    EXPECT_FALSE(definitions->variables[1].AllowTransformations);
    EXPECT_EQ(definitionBytes(definitions->units, definitions->variables), handMade());
}

TEST(DefinitionFile, ArraysKeepTheirKind) {
    VariableDefinition unallocated;
    VariableDefinition empty;
    empty.AllowTransformations.emplace();
    empty.allowLowerBound = -4;
    const QByteArray bytes = definitionBytes({}, std::vector{unallocated, empty});
    EXPECT_EQ(bytes.size(), 4 + 4 + 73 + 73 + 8 + 4);
    const auto again = read(bytes);
    ASSERT_TRUE(again);
    EXPECT_TRUE(again->units.empty());
    EXPECT_FALSE(again->variables[0].AllowTransformations);
    EXPECT_EQ(again->variables[1].AllowTransformations, QStringList());
    EXPECT_EQ(again->variables[1].allowLowerBound, -4);
}

TEST(DefinitionFile, LongTextsAreCutToTheirLengthField) {
    VariableDefinition row;
    row.CustomTransformation = QString(70000, u'x');
    const auto again = read(definitionBytes({}, std::vector{row}));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->variables[0].CustomTransformation.size(), 65535);
}

TEST(DefinitionFile, BadFilesShowOneMessageAndChangeNothing) {
    QTemporaryDir dir;
    const QString path = dir.filePath("a.var");
    const QByteArray good = handMade();
    struct Case {
        QString what;
        QByteArray bytes;
    };
    const auto array = [](std::uint16_t dimensions, std::int32_t count) {
        return Bytes()
            .put(-1)
            .put(0)
            .head()
            .middle()
            .put(dimensions)
            .put(count)
            .put(0)
            .tail()
            .put(7576)
            .bytes;
    };
    ASSERT_TRUE(read(array(1, 0)));
    QList<Case> cases = {
        {"no mark", good.chopped(4) + QByteArray(4, '\0')},
        {"mark one off", good.chopped(4) + QByteArray("\x99\x1D\0\0", 4)},
        {"units huge", Bytes().put(0x7FFFFFFF).put(-1).put(7576).bytes},
        {"units more than follow", Bytes().put(4000).put(-1).put(7576).bytes},
        {"units negative", Bytes().put(-2).put(-1).put(7576).bytes},
        {"variables huge", Bytes().put(-1).put(0x7FFFFFFE).put(7576).bytes},
        {"variables negative", Bytes().put(-1).put(-0x7FFFFFFF - 1).put(7576).bytes},
        {"variables beyond row 8000",
         Bytes().put(-1).put(8001).bytes + QByteArray(73 * 8002, '\0') + Bytes().put(7576).bytes},
        {"two dimensions", array(2, 0)},
        {"array huge", array(1, 0x7FFFFFFF)},
        {"array negative", array(1, -1)},
        {"array unsigned look", array(0xFFFF, 0)},
    };
    for (qsizetype size = 0; size < good.size(); ++size)
        cases.append({QStringLiteral("cut at %1").arg(size), good.left(size)});

    VariableTable.resize(3);
    VariableTable[2].PhysicalName = "Mine";
    UnitConversions = {{"U", "", "$1$0", "u"}};
    const QByteArray before = definitionBytes(UnitConversions, VariableTable);
    for (const Case& c : cases) {
        putFile(path, c.bytes);
        Listener listener;
        LoadVariableFile(path);
        EXPECT_EQ(listener.texts, QStringList(kCorrupted)) << qPrintable(c.what);
        EXPECT_EQ(definitionBytes(UnitConversions, VariableTable), before) << qPrintable(c.what);
    }
}

TEST(DefinitionFile, MissingFileIsToldAndMade) {
    QTemporaryDir dir;
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", dir.path().toLocal8Bit());
    ASSERT_TRUE(QDir(dir.path()).mkdir("Kelvane"));
    const QString working = dir.filePath("Kelvane/VistorVars.cfg");
    Listener listener;
    LoadVariableFile({});
    LoadVariableFile(dir.path());
    LoadVariableFile("/dev/zero");
    EXPECT_EQ(listener.texts, QStringList({kCorrupted, kCorrupted, kCorrupted}));
    EXPECT_TRUE(QFileInfo(working).isFile());
    EXPECT_EQ(QFileInfo(working).size(), 0);
    qputenv("XDG_CONFIG_HOME", before);
}

TEST(DefinitionFile, LoadReplacesBothTablesAndSetsThemUp) {
    QTemporaryDir dir;
    const QString path = dir.filePath("a.var");
    putFile(path, handMade());
    Listener listener;
    LoadVariableFile(path);
    EXPECT_TRUE(listener.texts.isEmpty());
    ASSERT_EQ(VariableTable.size(), 2U);
    EXPECT_EQ(VariableTable[1].ConstantName, QStringLiteral("Base [\u00B0]"));
    EXPECT_EQ(VariableTable[1].Available, kTrue16);
    EXPECT_EQ(VariableTable[1].AlwaysOn, 1);
    EXPECT_EQ(FindUnit("K"), 1);
    EXPECT_EQ(FindVariableByPhysicalName("phys"), 0);
}

TEST(DefinitionFile, SavingReplacesTheWholeFile) {
    QTemporaryDir dir;
    const QString path = dir.filePath("a.var");
    VariableTable.resize(4);
    SaveVariableFile(path);
    const qsizetype longer = bytesOf(path).size();
    VariableTable.resize(2);
    VariableTable[1].PhysicalName = "Second";
    SaveVariableFile(path);
    EXPECT_EQ(bytesOf(path), definitionBytes(UnitConversions, VariableTable));
    EXPECT_LT(bytesOf(path).size(), longer);
    putFile(path, bytesOf(path) + "a tail of a longer file");
    Listener listener;
    VariableTable.clear();
    LoadVariableFile(path);
    EXPECT_TRUE(listener.texts.isEmpty());
    ASSERT_EQ(VariableTable.size(), 2U);
    EXPECT_EQ(VariableTable[1].PhysicalName, "Second");
}

TEST(DefinitionFile, SavingWhereItCannotBeDoneLeavesTheFileAndIsTold) {
    QTemporaryDir dir;
    const QString path = dir.filePath("a.var");
    putFile(path, "old");
    VariableTable.resize(257);
    for (VariableDefinition& row : VariableTable) row.Description = QString(65535, u'x');
    SaveVariableFile(path); // more than a load would read
    EXPECT_TRUE(notices().back().text.contains("more than 16 MB"));
    EXPECT_EQ(bytesOf(path), "old");
    VariableTable.resize(1);
    for (const QString& nowhere : {dir.path(), dir.filePath("no/such/folder.var")}) {
        clearNotices();
        SaveVariableFile(nowhere);
        EXPECT_EQ(notices().size(), 1U) << nowhere.toStdString();
    }
    EXPECT_FALSE(QFileInfo::exists(dir.filePath("no")));
}

TEST(DefinitionFile, AnyCharacterSurvivesAndNoneIsCutInTwo) {
    VariableDefinition row;
    row.PhysicalName = QString::fromUtf8("\u03A9\u6CB9\U0001F600");
    row.BaseName = QString::fromUtf8("\u00C2\u00B0");
    row.Description = QString(32766, u'\u03A9') + QString::fromUtf8("\u00B0\u6CB9");
    const auto again = read(definitionBytes({}, std::vector{row}));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->variables[0].PhysicalName, row.PhysicalName);
    EXPECT_EQ(again->variables[0].BaseName, row.BaseName);
    EXPECT_EQ(again->variables[0].Description, row.Description.chopped(1)) << "65,534 of 65,537 bytes";
}

} // namespace
} // namespace vistor
