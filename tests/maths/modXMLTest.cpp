#include "maths/modXML.h"

#include "maths/DefinitionForms.h"
#include "maths/DefinitionTables.h"
#include "maths/VariableFiles.h"
#include "platform/CodePage.h"
#include "tests/ScriptedPrompts.h"
#include "tests/TestTables.h"
#include "variables/SetupVariables.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vistor {
namespace {

class ModXml : public testing::Test {
protected:
    ~ModXml() override { ResetGlobals(); }

    QString path(const char* name = "a.xvr") const { return dir.filePath(QLatin1String(name)); }
    void write(const QByteArray& bytes, const char* name = "a.xvr") {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray read(const char* name = "a.xvr") {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// Loads blocks, each given as its elements, followed by that of row 8000.
    void load(const QByteArrayList& blocks) {
        QByteArray bytes("<VariableList>");
        for (const QByteArray& block : blocks) bytes += "<Data>" + block + "</Data>";
        write(bytes + "<Data><IndexNumber>8000</IndexNumber><Misc>1</Misc></Data></VariableList>");
        VariableSlots.fill({});
        LoadXvrDocument(path(), false);
    }
    static const VariableDefinition& row(std::size_t number) { return VariableTable[number]; }

    QTemporaryDir dir;
    ScriptedPrompts prompts;
};

TEST_F(ModXml, WritesABlockForEveryRowWithANumber) {
    VariableTable.assign(4, {});
    VariableDefinition& full = VariableTable[2];
    full.UseCustomTrans = kTrue16;
    full.MaximumROC = 9;
    full.SmoothingTime = 0.25F;
    full.Calculus = 2;
    full.DefaultMin = -1.5F;
    full.DefaultMax = 16777216;
    full.IndexNumber = 2;
    full.PhysicalName = QStringLiteral("Oil");
    full.BaseName = QStringLiteral("\u00D6l");
    full.Enabled = 1;
    full.VariableType = 4;
    full.FilterLowVal = 0.1F;
    full.FilterRipple = 1e-9F;
    full.ApplyTransformation = QStringLiteral("V");
    full.AllowTransformations = QStringList{QStringLiteral("V"), QStringLiteral("mV")};
    full.CustomTransformation = QStringLiteral("x*2\r\ny");
    full.CustomUnits = QStringLiteral("\u00B0\u4E00"); // one that the code page lacks
    full.Misc = 200;
    VariableTable[3].IndexNumber = 3; // whose list was never allocated
    SaveXvrDocument(path());
    const QByteArray expected = "<VariableList>\r\n"
                                "   <Data>\r\n"
                                "     <IndexNumber>2</IndexNumber>\r\n"
                                "     <PhysicalName>Oil</PhysicalName>\r\n"
                                "     <BaseName>\xD6l</BaseName>\r\n"
                                "     <Enabled>-1</Enabled>\r\n"
                                "     <AlwaysOn>0</AlwaysOn>\r\n"
                                "     <Available>0</Available>\r\n"
                                "     <VariableType>4</VariableType>\r\n"
                                "     <DefaultMin>-1.5</DefaultMin>\r\n"
                                "     <DefaultMax>1.677722E+07</DefaultMax>\r\n"
                                "     <FilterDesign>0</FilterDesign>\r\n"
                                "     <FilterLowVal>0.1</FilterLowVal>\r\n"
                                "     <FilterHighVal>0</FilterHighVal>\r\n"
                                "     <FilterRipple>1E-09</FilterRipple>\r\n"
                                "     <FilterOrder>0</FilterOrder>\r\n"
                                "     <ApplyTransformation>V</ApplyTransformation>\r\n"
                                "     <AllowTransformations>V#mV</AllowTransformations>\r\n"
                                "     <UseCustomTrans>-1</UseCustomTrans>\r\n"
                                "     <CustomTransformation>x*2#$y</CustomTransformation>\r\n"
                                "     <CustomUnits>\xC2\xB0\xE4\xB8\x80</CustomUnits>\r\n"
                                "     <Description></Description>\r\n"
                                "     <SmoothingTime>0.25</SmoothingTime>\r\n"
                                "     <MaximumROC>9</MaximumROC>\r\n"
                                "     <calculus>2</calculus>\r\n"
                                "     <Misc>200</Misc>\r\n"
                                "   </Data>\r\n"
                                "\r\n";
    const QByteArray bytes = read();
    EXPECT_EQ(bytes.left(expected.size()).toStdString(), expected.toStdString());
    EXPECT_EQ(bytes.count("<Data>"), 2);
    EXPECT_EQ(bytes.count("<AllowTransformations>V#mV<"), 2);
    EXPECT_TRUE(bytes.endsWith("   </Data>\r\n\r\n</VariableList>\r\n"));
}

TEST_F(ModXml, ReadsEachElementWithItsOwnParse) {
    struct Case {
        const char* separator;
        const char* element;
        double (*field)(const VariableDefinition&);
        double expected;
    };
    const auto enabled = [](const VariableDefinition& r) { return double(r.Enabled); };
    const auto design = [](const VariableDefinition& r) { return double(r.FilterDesign); };
    const auto type = [](const VariableDefinition& r) { return double(r.VariableType); };
    const auto minimum = [](const VariableDefinition& r) { return double(r.DefaultMin); };
    const auto ripple = [](const VariableDefinition& r) { return double(r.FilterRipple); };
    const auto calculus = [](const VariableDefinition& r) { return double(r.Calculus); };
    const auto misc = [](const VariableDefinition& r) { return double(r.Misc); };
    const Case cases[] = {
        {".", "<Enabled>1</Enabled>", enabled, -1},
        {".", "<Enabled>0.2x</Enabled>", enabled, -1},
        {".", "<Enabled>True</Enabled>", enabled, 0},
        {".", "<FilterDesign>2.5</FilterDesign>", design, 2},
        {".", "<FilterDesign>3.5</FilterDesign>", design, 4},
        {".", "<FilterDesign>5 Hz</FilterDesign>", design, 5},
        {".", "<FilterDesign>3000000000</FilterDesign>", design, 0},
        {".", "<VariableType>2.5</VariableType>", type, 2},
        {".", "<VariableType>4 Hz</VariableType>", type, 0},
        {".", "<DefaultMin>2.5</DefaultMin>", minimum, 2.5},
        {",", "<DefaultMin>2,5</DefaultMin>", minimum, 2.5},
        {".", "<DefaultMin>1E+39</DefaultMin>", minimum, 0},
        {".", "<DefaultMin></DefaultMin>", minimum, 0},
        {",", "<FilterRipple>2,5</FilterRipple>", ripple, 2},
        {".", "<FilterRipple>1 2.5dB</FilterRipple>", ripple, 12.5},
        {".", "<CALCULUS>3</CALCULUS>", calculus, 3},
        {".", "<Calculus>2</Calculus>", calculus, 2},
        {".", "<Misc>255</Misc>", misc, 255},
        {".", "<Misc>256</Misc>", misc, 0},
        {".", "<Misc>-1</Misc>", misc, 0},
    };
    for (const Case& c : cases) {
        DecimalSeparator = QLatin1String(c.separator);
        load({QByteArray("<IndexNumber>7</IndexNumber>") + c.element});
        EXPECT_EQ(c.field(row(7)), c.expected) << c.separator << ' ' << c.element;
    }
}

TEST_F(ModXml, TextsComeBack) {
    load({"<IndexNumber>7</IndexNumber><CustomTransformation>a#$b</CustomTransformation>"
          "<AllowTransformations>V#mV</AllowTransformations><Description>1 &lt; 2</Description>",
          "<IndexNumber>8</IndexNumber><AllowTransformations></AllowTransformations>"});
    EXPECT_EQ(row(7).CustomTransformation, "a\r\nb");
    EXPECT_EQ(row(7).AllowTransformations, (QStringList{"V", "mV"}));
    EXPECT_EQ(row(7).Description, "1 < 2");
    EXPECT_EQ(row(8).AllowTransformations, QStringList());
}

TEST_F(ModXml, ABlockIsStoredWhenTheNextBegins) {
    const QByteArray one = "<Data><IndexNumber>1</IndexNumber><Misc>1</Misc></Data>";
    const QByteArray two = "<Data><IndexNumber>2</IndexNumber><Misc>2</Misc></Data>";
    const QByteArray nameless = "<Data><BaseName>x</BaseName><Misc>3</Misc></Data>";
    const QByteArray single = "<Data><IndexNumber>3</IndexNumber></Data>";
    const QByteArray beyond = "<Data><IndexNumber>8001</IndexNumber><Misc>3</Misc></Data>";
    const QByteArray last = "<Data><IndexNumber>8000</IndexNumber><Misc>8</Misc></Data>";
    struct Case {
        QByteArray blocks;
        QList<int> numbers;
    };
    const Case cases[] = {
        {one, {}},
        {one + two, {1}},
        {one + two + last, {1, 2, 8000}},
        {last + one, {8000}},
        {one + nameless + last, {1, 8000}},
        {one + single + last,
         {3, 8000}}, // one child is no container: the number goes over to the block before
        {one + beyond + two + last, {1, 2, 8000}},
    };
    for (const Case& c : cases) {
        VariableSlots.fill({});
        write("<VariableList>" + c.blocks + "</VariableList>");
        LoadXvrDocument(path(), false);
        QList<int> numbers;
        for (const VariableDefinition& variable : VariableTable) {
            if (variable.IndexNumber != 0) numbers += variable.IndexNumber;
        }
        EXPECT_EQ(numbers, c.numbers) << c.blocks.toStdString();
        EXPECT_EQ(VariableTable.size(), std::size_t(kVariableCount));
    }
}

TEST_F(ModXml, UnitConversionsBeginWithTwoEmptyRows) {
    write("<Units><Record><UnitName>V</UnitName><Uniit>v</Uniit></Record>"
          "<Record><Conversion>$1$0</Conversion><DESCRIPTION>d</DESCRIPTION></Record></Units>");
    LoadXvrDocument(path(), true);
    ASSERT_EQ(UnitConversions.size(), 4U);
    EXPECT_EQ(UnitConversions[0].UnitName + UnitConversions[1].UnitName, "");
    EXPECT_EQ(UnitConversions[2].UnitName, "V");
    EXPECT_EQ(UnitConversions[2].Uniit, "v");
    EXPECT_EQ(UnitConversions[2].Conversion, "");
    EXPECT_EQ(UnitConversions[3].Conversion, "$1$0");
    EXPECT_EQ(UnitConversions[3].Description, "d");
    EXPECT_EQ(FindUnit(QStringLiteral("V")), 2);
}

TEST_F(ModXml, AFileThatIsNoDocumentIsToldAndChangesNothing) {
    makeTable();
    write("<VariableList>\r\n<Data>1 & 2</Data></VariableList>");
    for (const bool units : {false, true}) LoadXvrDocument(path(), units);
    EXPECT_EQ(VariableTable.size(), std::size_t(kVariableCount));
    EXPECT_EQ(row(7).PhysicalName, "P7");
    EXPECT_EQ(UnitConversions.size(), 1U);
    ASSERT_EQ(prompts.messages.size(), 2U);
    EXPECT_EQ(prompts.messages[0].icon, Icon::Notice);
    EXPECT_EQ(prompts.messages[0].text, "Your XVR Document failed to loaddue the following error.\r\n"
                                        "Error #: 4: not well-formed (invalid token)\r\n"
                                        "Line #: 2\r\nLine Position: 10\r\nPosition In File: 25\r\n"
                                        "Source Text: <Data>1 & 2</Data></VariableList>\r\nDocument URL: " +
                                            path());
}

/// Texts with every character of the code page that a document can hold and that mean nothing to one.
QString everyCharacter() {
    QString text;
    for (int byte = 0x20; byte < 256; ++byte) {
        if (byte == '<' || byte == '&' || byte == '#' || byte == '$') continue;
        const char character = static_cast<char>(byte);
        text += fromCodePage({&character, 1});
    }
    return text + QString::fromUtf8("\u03A9\u6CB9\U0001F600>\u00C2\u00B0");
}

TEST_F(ModXml, ATableComesBackWhole) {
    for (const char* separator : {".", ","}) {
        DecimalSeparator = QLatin1String(separator);
        makeTable();
        for (std::size_t i = 1; i < VariableTable.size(); ++i)
            VariableTable[i].AllowTransformations.emplace();
        VariableDefinition& full = VariableTable[7];
        full.BaseName = full.Description = full.CustomTransformation = everyCharacter();
        full.DefaultMin = -0.001234567F;
        full.MaximumROC = 1234.5F;
        const Definitions before{{}, VariableTable};
        SaveXvrDocument(path());
        VariableSlots.fill({});
        LoadXvrDocument(path(), false);
        const Definitions after{{}, VariableTable};
        EXPECT_TRUE(printTables(after).variables == printTables(before).variables) << separator;
        EXPECT_TRUE(prompts.messages.empty());
    }
}

TEST_F(ModXml, AFileCutAnywhereIsRefused) {
    makeTable();
    SaveXvrDocument(path());
    const QByteArray whole = read().left(20'000) + "</Data></VariableList>";
    for (qsizetype size = 0; size < 20'000; size += 100) {
        XmlDocument document;
        EXPECT_FALSE(document.parse({whole.constData(), static_cast<std::size_t>(size)})) << size;
    }
}

TEST_F(ModXml, AFileThatCannotBeWrittenChangesNothing) {
    makeTable();
    QDir(dir.path()).mkdir(QStringLiteral("folder.xvr"));
    SaveXvrDocument(path("folder.xvr"));
    SaveXvrDocument(path("no/such/folder.xvr"));
    EXPECT_TRUE(QFileInfo(path("folder.xvr")).isDir());
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(ModXml, BothFormsAndTheReadableTablesHoldTheSame) {
    const QString delivered = QStringLiteral(VISTOR_SOURCE_DIR "/OtherFiles/");
    QString fault;
    QString loss;
    const auto binary = readForm(delivered + QLatin1String(kBinaryForm.workingFile), fault);
    const auto text = readForm(delivered + QLatin1String(kTextForm.workingFile), fault);
    ASSERT_TRUE(binary && text) << qPrintable(fault);
    EXPECT_EQ(printTables(*text).variables, printTables(*binary).variables)
        << "vxdefs build OtherFiles makes both";
    EXPECT_EQ(printTables(*text).units, printTables(*binary).units);

    ASSERT_TRUE(writeForm(path("b.xvr"), *binary, fault, loss)) << qPrintable(fault);
    EXPECT_EQ(loss, "");
    QFile from(delivered + QLatin1String(kTextForm.workingFile));
    ASSERT_TRUE(from.open(QIODevice::ReadOnly));
    EXPECT_TRUE(read("b.xvr") == from.readAll());
}

TEST_F(ModXml, WhatTheTextFormCannotHoldIsTold) {
    makeTable();
    Definitions definitions{UnitConversions, VariableTable};
    QString fault;
    QString loss;
    definitions.variables[7].CustomTransformation = QStringLiteral("a#b");
    ASSERT_TRUE(writeForm(path(), definitions, fault, loss));
    EXPECT_EQ(loss, "variables.tsv, line 8 is not kept whole");
    definitions.variables[7].CustomTransformation = QStringLiteral("a<b");
    const QByteArray before = read();
    EXPECT_FALSE(writeForm(path(), definitions, fault, loss));
    EXPECT_EQ(fault, "line 182: not well-formed (invalid token)");
    EXPECT_EQ(read(), before);
}

TEST_F(ModXml, ADeliveredFileIsBroughtToTheLocale) {
    const QString delivered = QStringLiteral(VISTOR_SOURCE_DIR "/OtherFiles/Vistor.XVR");
    for (const char* separator : {".", ","}) {
        QFile::remove(path());
        QFile::copy(delivered, path());
        DecimalSeparator = QLatin1String(separator);
        localiseDelivered(path());
        EXPECT_EQ(DecimalSeparator, separator);
        EXPECT_EQ(read().contains("<SmoothingTime>0,25<"), *separator == ',');
        LoadXvrDocument(path(), false);
        const auto smoothed =
            std::count_if(VariableTable.begin(), VariableTable.end(),
                          [](const VariableDefinition& v) { return v.SmoothingTime == 0.25F; });
        EXPECT_EQ(smoothed, 1) << separator;
    }
    write("<no document");
    localiseDelivered(path());
    EXPECT_EQ(read(), "<no document");
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(ModXml, TheTextFormLoadsWithTheConversionsOfThePersonsFolder) {
    const QByteArray personBefore = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", dir.path().toLocal8Bit());
    QDir(dir.path()).mkdir(QStringLiteral("Kelvane"));
    for (const QString& name : variableFileNames(kTextForm))
        QFile::copy(QStringLiteral(VISTOR_SOURCE_DIR "/OtherFiles/") + name, path("Kelvane/") + name);
    loadVariables(path("Kelvane/Vistor.XVR"), kTextForm);
    EXPECT_EQ(row(2).ConstantName, "Engine speed [rpm]");
    EXPECT_EQ(VariableTableEdit.size(), VariableTable.size());
    EXPECT_TRUE(prompts.messages.empty());
    qputenv("XDG_CONFIG_HOME", personBefore);
}

} // namespace
} // namespace vistor
