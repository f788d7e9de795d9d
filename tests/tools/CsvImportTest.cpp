#include "tools/CsvImport.h"

#include "acquisition/AcquisitionTick.h"
#include "acquisition/DataSource.h"
#include "tests/StreamReading.h"
#include "tests/TestTables.h"

#include <QBuffer>
#include <QTemporaryDir>

namespace vistor {
namespace {

const UnitConversion kUnits[] = {
    {"None", {}, "$1$0", {}},
    {"rpm", {}, "$1$0", "rpm"},
    {"rev/s", {}, "$0.0166666667$0", "rev/s"},
    {"°C", {}, "$1$0", "°C"},
    {"°F", {}, "$1.8$32", "°F"},
    {"K", {}, "$1$273.15", "K"},
    {"s", {}, "$1$0", "s"},
    {"ms", {}, "$1000$0", "ms"},
    {"V", {}, "$1$0", "V"},
    {"bar", {}, "$1$0", "bar"},
    {"kPa", {}, "$100$0", "kPa"},
    {"MPa", {}, "$0.1$0", "MPa"},
    {"0.5-4.5 V, 0-100 bar", {}, "$25$-12.5", "bar"},
    {"0.5-4.5 V, 0-60 bar in kPa", {}, "$1500$-750", "kPa"},
    {"NTC 10k", {}, "1/(x+1)", "°C"},
    {"AFR petrol", {}, "$14.7$0", "AFR"},
    {"AFR diesel", {}, "$14.5$0", "AFR"},
    {"Lambda", {}, "$1$0", "Lambda"},
    {"µm", {}, "$1$0", "µm"},
    {"m/s²", {}, "$1$0", "m/s²"},
};

Definitions definitions() {
    struct Row {
        std::size_t number;
        const char* name;
        const char* unit;
        QStringList offered;
    };
    const Row rows[] = {
        {1, "Time", "s", {"s", "ms"}},
        {2, "Engine speed", "rpm", {"rpm", "rev/s"}},
        {72, "ÖlTemp", "°C", {"°C", "°F", "K"}},
        {73, "Shown in K", "K", {"°C", "°F", "K"}},
        {90, "Oil pressure", "bar", {"bar", "kPa", "MPa"}},
        {204, "Brake", "0.5-4.5 V, 0-100 bar", {"V", "0.5-4.5 V, 0-100 bar", "0.5-4.5 V, 0-60 bar in kPa"}},
        {205, "Bath", "NTC 10k", {"V", "NTC 10k"}},
        {206, "Own formula", "rpm", {"rpm"}},
        {207, "Mixture", "Lambda", {"Lambda", "AFR petrol", "AFR diesel"}},
        {208, "Film", "µm", {"µm"}},
        {209, "Grip", "m/s²", {"m/s²"}},
    };
    Definitions all{{std::begin(kUnits), std::end(kUnits)}, std::vector<VariableDefinition>(8001)};
    for (const Row& row : rows) {
        VariableDefinition& definition = all.variables[row.number];
        definition.PhysicalName = QString::fromUtf8(row.name);
        definition.ApplyTransformation = QString::fromUtf8(row.unit);
        definition.AllowTransformations = row.offered;
    }
    all.variables[206].UseCustomTrans = kTrue16;
    all.variables[206].CustomTransformation = QStringLiteral("$10$5");
    all.variables[206].CustomUnits = QStringLiteral("kPa");
    return all;
}

CsvResult import(QByteArray text, const CsvOptions& options = {}, const Definitions& table = definitions()) {
    QBuffer in(&text);
    in.open(QIODevice::ReadOnly);
    return importCsv(in, options, table);
}

/// What a table's messages hold but for the times that stand alone between two rows.
std::vector<Message> rowsOf(const Bytes& run) {
    std::vector<Message> rows;
    for (const Message& message : readAll(run).messages) {
        if (message.number == 1 && !rows.empty() && rows.back().number == 1) rows.pop_back();
        rows.push_back(message);
    }
    return rows;
}

TEST(CsvImport, Tables) {
    const Message half{2, {{2, 3000}, {72, 90.5}}};
    const std::vector<Message> both = {{1, {{1, 0}}}, half, {1, {{1, 0.5}}}, {2, {{2, 3100}}}};
    const struct {
        const char* what;
        const char* text;
        CsvOptions options;
        std::vector<Message> expected;
    } cases[] = {
        {"numbers", "1,2,72\n0,3000,90.5\n0.5,3100,\n", {}, both},
        {"names in any case, with units",
         "TIME [s],engine speed [rpm],\xC3\xB6lTemp\n0,3000,90.5\n0.5,3100,\n",
         {},
         both},
        {"semicolons, carriage returns, blanks, no last line end",
         "time; 2; 72\r\n0; 3000; 90.5\r\n0.5;+3.1e3;",
         {},
         both},
        {"tabs and NaN", "time\t2\t72\n0\t3000\t90.5\n0.5\t3100\tNaN\n", {}, both},
        {"byte order mark, quotes, blank lines",
         "\xEF\xBB\xBF\"time\",\"2\",\"72\"\n\n0,\"3000\",90.5\n\n0.5,3100,\n\n",
         {},
         both},
        {"the time in another column",
         "2,Uhr,72\n3000,0,90.5\n3100,0.5,\n",
         {QStringLiteral("uhr"), false},
         both},
        {"from zero", "time,2,72\n1.7e9,3000,90.5\n1700000000.5,3100,\n", {{}, true}, both},
        {"a row without values", "time,2\n1,\n1,\n", {}, {{1, {{1, 1}}}}},
        {"a time in milliseconds and units that need nothing",
         "Time [ms],2[-],72 [°C]\n0,3000,90.5\n500,3100,\n",
         {},
         both},
    };
    for (const auto& one : cases) {
        const CsvResult result = import(one.text, one.options);
        EXPECT_EQ(result.error, QString()) << one.what;
        EXPECT_EQ(result.rows, 2) << one.what;
        EXPECT_EQ(rowsOf(result.run), one.expected) << one.what;
    }
}

/// What is sent for a value so that the row shows that value in that unit.
TEST(CsvImport, UnitsBecomeWhatTheChannelExpects) {
    const struct {
        const char* head;
        const char* value;
        double raw;
    } cases[] = {
        {"72 [°F]", "212", 100},
        {"72 [F]", "212", 100},
        {"72 [degF]", "212", 100},
        {"öltemp [fahrenheit]", "32", 0},
        {"72 [K]", "373.15", 100},
        {"73 [°C]", "100", 100},
        {"73 [K]", "373.15", 100},
        {"2 [RPM]", "3000", 3000},
        {"2 [rev/s]", "50", 3000},
        {"90 [kPa]", "450", 4.5},
        {"90 [KPA]", "450", 4.5},
        {"90 [Bar]", "4.5", 4.5},
        {"204 [bar]", "37.5", 2},
        {"204 [kPa]", "3750", 2},
        {"204 [MPa]", "3.75", 2},
        {"204 [V]", "2", 2},
        {"204 [0.5-4.5 V, 0-60 bar in kPa]", "2250", 2},
        {"205 [V]", "3", 3},
        {"206 [kPa]", "25", 2},
        {"206 [bar]", "0.25", 2},
        {"207 [AFR petrol]", "14.7", 1},
        {"208 [um]", "7", 7},
        {"209 [m/s^2]", "7", 7},
        {"90 []", "4.5", 4.5},
    };
    for (const auto& one : cases) {
        const CsvResult result = import(QByteArray("time;\"") + one.head + "\"\n0;" + one.value + "\n");
        ASSERT_EQ(result.error.toStdString(), "") << one.head;
        EXPECT_NEAR(readAll(result.run).messages.at(1).values.at(0).second, one.raw, 1e-4) << one.head;
    }
}

TEST(CsvImport, AUnitThatIsNotUnderstoodIsRefused) {
    const QString raw = QStringLiteral("leave the unit out for raw values");
    const struct {
        const char* head;
        const char* way;
    } cases[] = {
        {"90 [mPa]", "use bar, kPa, MPa, or "},
        {"90 [furlong]", "use bar, kPa, MPa, or "},
        {"72 [bar]", "use °C, °F, K, or "},
        {"205 [°C]", "use V, or "},
        {"207 [AFR]", "use Lambda, AFR petrol, AFR diesel, or "},
        {"300 [bar]", ""},
    };
    for (const auto& one : cases) {
        const QString head = QString::fromUtf8(one.head);
        const CsvResult result = import(QStringLiteral("time,%1\n0,1\n").arg(head).toUtf8());
        EXPECT_EQ(result.error.toStdString(),
                  QStringLiteral(
                      "line 1: column 2, \"%1\": \"%2\" cannot be turned into what the channel expects: %3%4")
                      .arg(head, head.section(u'[', 1).chopped(1), QString::fromUtf8(one.way), raw)
                      .toStdString());
        EXPECT_TRUE(result.run.empty());
    }
    EXPECT_EQ(import("time [s],2\n0,1\n", {}, {}).error, QString());
    EXPECT_TRUE(import("time [ms],2\n0,1\n", {}, {}).error.contains("not known without --definitions"));
    EXPECT_TRUE(import("time,2 [rpm]\n0,1\n", {}, {}).error.contains("not known without --definitions"));
}

/// Plays with the program's own tick, 20 ms a tick, until the last sample has come.
double playedSeconds(const QString& path, float lastValue) {
    HandClock clock(100);
    DataSourceDescriptor = QStringLiteral("FIL,") + path;
    EXPECT_TRUE(OpenDataSource());
    PlayMode = true;
    AcquisitionTick tick;
    bool ended = false;
    int ticks = 0;
    for (; !ended && ticks < 100'000; ++ticks) {
        tick.run(
            [&](const QString& name, float value) { ended = ended || (name == "P9" && value == lastValue); });
        clock.moveBy(0.02);
    }
    CloseDataSource();
    return (ticks - 1) * 0.02;
}

TEST(CsvImport, ALogOfAnyRatePlaysAtItsOwnPace) {
    QTemporaryDir folder;
    makeTable();
    for (const int milliseconds : {5, 10, 20, 25, 30, 50, 70, 100, 250, 1000}) {
        QByteArray text = "Time [ms],9\n";
        const int rows = 20'000 / milliseconds;
        for (int row = 0; row <= rows; ++row)
            text += QByteArray::number(row * milliseconds) + ',' + QByteArray::number(row + 1) + '\n';
        const CsvResult result = import(text);
        ASSERT_EQ(result.error, QString());
        const QString path = folder.filePath("a.run");
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(reinterpret_cast<const char*>(result.run.data()), static_cast<qint64>(result.run.size()));
        file.close();
        const double logged = rows * milliseconds / 1000.0;
        EXPECT_NEAR(playedSeconds(path, static_cast<float>(rows + 1)), logged, logged / 100) << milliseconds;
        int samples = 0;
        for (const Message& message : readAll(result.run).messages) samples += message.number == 2 ? 1 : 0;
        EXPECT_EQ(samples, rows + 1) << "no sample is invented";
    }
}

TEST(CsvImport, ManyColumnsTakeSeveralMessages) {
    QByteArray head = "time", row = "3";
    for (int channel = 200; channel < 250; ++channel) {
        head += ',' + QByteArray::number(channel);
        row += ',' + QByteArray::number(channel * 2);
    }
    const Reading reading = readAll(import(head + '\n' + row).run);
    ASSERT_EQ(reading.messages.size(), 4U); // the time, then 21, 21 and 8 values
    EXPECT_EQ(reading.messages[0], (Message{1, {{1, 3}}}));
    EXPECT_EQ(reading.messages[1].values.size(), 21U);
    EXPECT_EQ(reading.messages[3].values.back(), (std::pair<std::int32_t, double>{249, 498}));
}

TEST(CsvImport, ErrorsSayWhere) {
    const struct {
        QByteArray text;
        const char* error;
    } cases[] = {
        {"", "line 1: the file is empty"},
        {"\n \n", "line 2: the file is empty"},
        {"time,2\n", "line 1: there is no row of values"},
        {"2,72\n1,2\n", "line 1: no column of times: name one \"Time\", or tell its head"},
        {"time,Speed\n", "line 1: column 2, \"Speed\": there is no channel of that name"},
        {"time,2,,72\n", "line 1: column 3, \"\": there is no channel of that name"},
        {"time,0\n", "line 1: column 2, \"0\": channels go from 1 to 7999"},
        {"time,8000\n", "line 1: column 2, \"8000\": channels go from 1 to 7999"},
        {"time,99999999999\n", "line 1: column 2, \"99999999999\": there is no channel of that name"},
        {"time,2,Engine speed\n", "line 1: column 3, \"Engine speed\": channel 2 stands in column 2 already"},
        {"time,1\n", "line 1: column 2, \"1\": channel 1 stands in column 1 already"},
        {"time,\"2\n", "line 1: a quote is not closed"},
        {"time,2\n0,1\n\n1,\"2\n", "line 4: a quote is not closed"},
        {"time,2\n0,1\n1\n", "line 3: 1 fields, but the head has 2"},
        {"time,2\n0,1,2\n", "line 2: 3 fields, but the head has 2"},
        {"time,2\n0,abc\n", "line 2: column 2, \"2\": \"abc\" is no number"},
        {"time,2\n0,1 2\n", "line 2: column 2, \"2\": \"1 2\" is no number"},
        {"time;2\n0;1,5\n", "line 2: column 2, \"2\": \"1,5\" is no number"},
        {"time,2\n0,1e99\n", "line 2: column 2, \"2\": \"1e99\" is no number"},
        {"time,2\n0,inf\n", "line 2: column 2, \"2\": \"inf\" is no number"},
        {"time,2\n,1\n", "line 2: column 1, \"time\": \"\" is no number"},
        {"time,2\nnan,1\n", "line 2: column 1, \"time\": \"nan\" is no number"},
        {"time,2\n2,1\n1.5,1\n", "line 3: column 1, \"time\": the time goes back, from 2 to 1.5"},
        {"time,2\n-1,1\n",
         "line 2: column 1, \"time\": times go from 0 to 131072 seconds; let them start from zero"},
        {"time,2\n1.7e9,1\n",
         "line 2: column 1, \"time\": times go from 0 to 131072 seconds; let them start from zero"},
        {"time,2\n0," + QByteArray(2'000'000, '1') + "\n", "line 2: longer than 1000000 bytes"},
        {"time,72 [F]\n0,1e39\n", "line 2: column 2, \"72 [F]\": \"1e39\" is no number"},
        {QByteArray("time,2\n0,1\0\n", 12), "line 2: column 2, \"2\": \"1\" is no number"},
    };
    for (const auto& one : cases) {
        CsvResult result = import(one.text);
        EXPECT_EQ(result.error.remove(QChar(0)).toStdString(), one.error);
        EXPECT_TRUE(result.run.empty()) << one.error;
    }
}

TEST(CsvImport, ARunIsNotMadeLargerThanAPlayerReads) {
    CsvOptions options;
    options.largestRun = 10'000;
    EXPECT_EQ(import("time,2\n0,1\n10,1\n", options).error, QString());
    EXPECT_EQ(import("time,2\n0,1\n100,1\n", options).error,
              QStringLiteral("line 3: the run file grows above 1e-05 GB"));
}

TEST(CsvImport, NamesOfATable) {
    std::vector<VariableDefinition> table(8001);
    table[0].PhysicalName = QStringLiteral("none");
    table[2].PhysicalName = QStringLiteral(" Engine Speed ");
    table[3].PhysicalName = QStringLiteral("engine speed");
    table[8000].PhysicalName = QStringLiteral("dummy");
    EXPECT_EQ(channelNames(table), (ChannelNames{{QStringLiteral("engine speed"), 2}}));
    EXPECT_TRUE(channelNames({}).isEmpty());
}

} // namespace
} // namespace vistor
