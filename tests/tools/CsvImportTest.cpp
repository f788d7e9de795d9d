#include "tools/CsvImport.h"

#include "tests/StreamReading.h"

#include <QBuffer>

namespace vistor {
namespace {

CsvResult import(QByteArray text, const CsvOptions& options = {}) {
    QBuffer in(&text);
    in.open(QIODevice::ReadOnly);
    return importCsv(in, options, {{QStringLiteral("ENGINE SPEED"), 2}, {QStringLiteral("ÖLTEMP"), 72}});
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
        {"a row without values", "time,2\n1,\n1,\n", {}, {{1, {{1, 1}}}, {1, {{1, 1}}}}},
    };
    for (const auto& one : cases) {
        const CsvResult result = import(one.text, one.options);
        EXPECT_EQ(result.error, QString()) << one.what;
        EXPECT_EQ(result.rows, 2) << one.what;
        EXPECT_EQ(readAll(result.run).messages, one.expected) << one.what;
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
        {QByteArray("time,2\n0,1\0\n", 12), "line 2: column 2, \"2\": \"1\" is no number"},
    };
    for (const auto& one : cases) {
        CsvResult result = import(one.text);
        EXPECT_EQ(result.error.remove(QChar(0)).toStdString(), one.error);
        EXPECT_TRUE(result.run.empty()) << one.error;
    }
}

TEST(CsvImport, NamesOfATable) {
    std::vector<VariableDefinition> table(8001);
    table[0].PhysicalName = QStringLiteral("none");
    table[2].PhysicalName = QStringLiteral(" Engine Speed ");
    table[3].PhysicalName = QStringLiteral("engine speed");
    table[8000].PhysicalName = QStringLiteral("dummy");
    EXPECT_EQ(channelNames(table), (ChannelNames{{QStringLiteral("ENGINE SPEED"), 2}}));
    EXPECT_TRUE(channelNames({}).isEmpty());
}

} // namespace
} // namespace vistor
