// vxstream: makes, plays and shows streams of the logger.
#include "maths/LoadAndSaveVariableDefinitions.h"
#include "platform/CodePage.h"
#include "platform/Folders.h"
#include "platform/WholeFile.h"
#include "tools/CsvImport.h"
#include "tools/LiveLine.h"
#include "tools/SimulatedStream.h"
#include "tools/StreamDump.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>

#include <chrono>
#include <iostream>
#include <limits>
#include <optional>
#include <span>
#include <thread>

namespace vistor {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kMisused = 2;

int complain(const QString& what, int code = kFailed) {
    std::cerr << "vxstream: " << what.toStdString() << std::endl;
    return code;
}

/// Writes a file whole or not at all.
bool saveFile(const QString& path, const std::vector<std::uint8_t>& bytes, QString& error) {
    const auto* const first = reinterpret_cast<const char*>(bytes.data());
    const QString problem =
        writeWholeFile(path, QByteArray::fromRawData(first, static_cast<qsizetype>(bytes.size())));
    if (!problem.isEmpty()) error = QStringLiteral("%1: %2").arg(path, problem);
    return problem.isEmpty();
}

/// A number given as an option, or no value when it is none or out of its range.
std::optional<double> numberOption(const QCommandLineParser& parser, const QString& name, double least,
                                   double most) {
    bool isNumber = false;
    const double value = parser.value(name).toDouble(&isNumber);
    if (isNumber && value >= least && value <= most) return value;
    complain(QStringLiteral("--%1 is a number from %2 to %3, not \"%4\"")
                 .arg(name)
                 .arg(least)
                 .arg(most)
                 .arg(parser.value(name)));
    return std::nullopt;
}

struct OptionText {
    const char* name;
    const char* does;
    const char* value = nullptr; ///< what stands for it in the help; none for a flag
    const char* fallback = "";
};

void addOptions(QCommandLineParser& parser, std::span<const OptionText> options) {
    for (const OptionText& option : options) {
        const QString fallback = QString::fromLatin1(option.fallback);
        QString does = QString::fromLatin1(option.does);
        if (!fallback.isEmpty()) does += QStringLiteral(" Default: %1.").arg(fallback);
        parser.addOption(
            {QString::fromLatin1(option.name), does, QString::fromLatin1(option.value), fallback});
    }
}

constexpr OptionText kSimulateOptions[] = {
    {"laps", "Laps to drive; 0 is endless (live only).", "N", "3"},
    {"seed", "Seed of driver and noise.", "N", "1"},
    {"out", "Run file to write.", "FILE.run"},
    {"port", "Serial device to send to, as fast as the car drives.", "DEVICE"},
    {"baud", "Speed of the serial device in bits per second.", "N", "115200"},
    {"pty", "Make a pseudo terminal, print its path, and send to it."},
    {"speed", "Play live so many times as fast.", "FACTOR", "1"},
    {"corrupt", "Damage so many of 100 frames.", "PERCENT", "0"},
    {"drop-out", "Let the line fall silent for a moment now and then."},
};
constexpr OptionText kDumpOptions[] = {
    {"summary", "Print counts and ranges only."},
};
constexpr OptionText kFromCsvOptions[] = {
    {"out", "Run file to write.", "FILE.run"},
    {"definitions", "Definition file that names and units come from; the delivered one else.",
     "VistorVars.cfg"},
    {"time", "Head of the column of times.", "HEAD"},
    {"from-zero", "Take the first row's time off all times."},
};

int playLive(const SimulationOptions& options, LiveLine& line, double factor) {
    using Clock = std::chrono::steady_clock;
    SimulatedStream stream(options);
    const Clock::time_point start = Clock::now();
    while (!stream.finished()) {
        const std::chrono::duration<double> due(stream.time() / factor);
        std::this_thread::sleep_until(start + std::chrono::duration_cast<Clock::duration>(due));
        if (!line.send(stream.next())) return complain(line.error());
    }
    return kDone;
}

std::optional<SimulationOptions> simulationOptions(const QCommandLineParser& parser) {
    const auto laps = numberOption(parser, QStringLiteral("laps"), 0, 1000);
    const auto seed = numberOption(parser, QStringLiteral("seed"), 0, 1e15);
    const auto corrupt = numberOption(parser, QStringLiteral("corrupt"), 0, 100);
    if (!laps || !seed || !corrupt) return std::nullopt;
    if (*laps != std::floor(*laps) || *seed != std::floor(*seed)) {
        complain(QStringLiteral("--laps and --seed are whole numbers"));
        return std::nullopt;
    }
    return SimulationOptions{static_cast<int>(*laps), static_cast<std::uint64_t>(*seed), *corrupt,
                             parser.isSet(QStringLiteral("drop-out"))};
}

int simulateLive(const QCommandLineParser& parser, const SimulationOptions& options) {
    const auto factor = numberOption(parser, QStringLiteral("speed"), 0.01, 1000);
    const auto baud = numberOption(parser, QStringLiteral("baud"), 4800, 115200);
    if (!factor || !baud) return kMisused;
    LiveLine line;
    const bool pty = parser.isSet(QStringLiteral("pty"));
    const bool opened = pty ? line.makePseudoTerminal()
                            : line.openDevice(parser.value(QStringLiteral("port")), static_cast<int>(*baud));
    if (!opened) return complain(line.error());
    if (pty) std::cout << line.otherEnd().toStdString() << std::endl;
    return playLive(options, line, *factor);
}

int simulate(const QCommandLineParser& parser, const QStringList& files) {
    if (!files.isEmpty()) return complain(QStringLiteral("a file to write is named by --out"), kMisused);
    const auto options = simulationOptions(parser);
    if (!options) return kMisused;
    const QString out = parser.value(QStringLiteral("out"));
    int targets = 0;
    for (const char* target : {"out", "port", "pty"}) targets += parser.isSet(QLatin1String(target)) ? 1 : 0;
    if (targets != 1) return complain(QStringLiteral("say one of --out, --port and --pty"), kMisused);
    if (!parser.isSet(QStringLiteral("out"))) return simulateLive(parser, *options);
    if (options->laps == 0) return complain(QStringLiteral("a file needs --laps above 0"), kMisused);
    QString error;
    return saveFile(out, simulateRunFile(*options), error) ? kDone : complain(error);
}

int dump(const QCommandLineParser& parser, const QStringList& files) {
    if (files.size() != 1) return complain(QStringLiteral("name one file to dump"), kMisused);
    const FileBytes file = readWholeFile(files.constFirst(), std::numeric_limits<std::int32_t>::max());
    if (!file.problem.isEmpty())
        return complain(QStringLiteral("%1: %2").arg(files.constFirst(), file.problem));
    const std::vector<std::uint8_t> bytes(file.bytes.begin(), file.bytes.end());
    (parser.isSet(QStringLiteral("summary")) ? dumpSummary : dumpMessages)(bytes, std::cout);
    std::cout.flush();
    return std::cout.good() ? kDone : kFailed;
}

QString deliveredDefinitions() {
    return deliveredFolder() + QStringLiteral("VistorVars.cfg");
}

/// Those that were named, else the delivered ones where they are there.
std::optional<Definitions> definitionsAt(const QString& named) {
    const FileBytes file = readDefinitionFile(named.isEmpty() ? deliveredDefinitions() : named);
    if (named.isEmpty() && file.missing) return Definitions();
    return readDefinitions(viewOf(file.bytes));
}

int fromCsv(const QCommandLineParser& parser, const QStringList& files) {
    const QString out = parser.value(QStringLiteral("out"));
    if (files.size() != 1 || out.isEmpty())
        return complain(QStringLiteral("name one table to read, and --out"), kMisused);
    const QString named = parser.value(QStringLiteral("definitions"));
    const auto definitions = definitionsAt(named);
    if (!definitions)
        return complain(
            QStringLiteral("%1: no definition file").arg(named.isEmpty() ? deliveredDefinitions() : named));
    QFile in;
    const QString unread = openPlainFile(in, files.constFirst());
    if (!unread.isEmpty()) return complain(QStringLiteral("%1: %2").arg(files.constFirst(), unread));
    const CsvOptions options{parser.value(QStringLiteral("time")), parser.isSet(QStringLiteral("from-zero"))};
    const CsvResult result = importCsv(in, options, *definitions);
    if (!result.error.isEmpty())
        return complain(QStringLiteral("%1: %2").arg(files.constFirst(), result.error));
    QString error;
    return saveFile(out, result.run, error) ? kDone : complain(error);
}

constexpr struct {
    const char* name;
    int (*run)(const QCommandLineParser& parser, const QStringList& files);
    std::span<const OptionText> options;
    const char* file; ///< the one it reads
    const char* does;
    const char* more;
} kCommands[] = {
    {"simulate", simulate, kSimulateOptions, nullptr,
     "drive a simulated car, into a run file or live to a line",
     "Drives a simulated car round a closed track and writes what its logger sends: to a run file, or live "
     "to a "
     "serial device or a pseudo terminal. The engine speed is sent with two pulses each turn "
     "(IGNTIONPULSESREV=2). The same seed gives the same run on every machine."},
    {"dump", dump, kDumpOptions, "FILE", "print what a run file holds",
     "Prints what a run file or a captured line holds: each message with its place in the file, its number "
     "and "
     "its values by channel, and what had to be skipped and why."},
    {"from-csv", fromCsv, kFromCsvOptions, "IN.csv", "make a run file of a table of text",
     "Makes a run file of a table of text. The first line names the columns: \"Time\" (seconds), and for "
     "each "
     "channel its number or its physical name. A unit in square brackets (\"CoolantTemp [F]\", \"Time "
     "[ms]\") "
     "is converted into what the channel expects; values without one are taken as the channel's raw values. "
     "An empty field gives none."},
};

int runCommand(const QStringList& arguments) {
    const QString name = arguments.value(1);
    for (const auto& command : kCommands) {
        if (name != QLatin1String(command.name)) continue;
        QCommandLineParser parser;
        parser.setApplicationDescription(QString::fromLatin1(command.more));
        parser.addHelpOption();
        parser.addPositionalArgument(name, QString::fromLatin1(command.does), name);
        if (command.file != nullptr)
            parser.addPositionalArgument(QString::fromLatin1(command.file),
                                         QStringLiteral("The file to read."));
        addOptions(parser, command.options);
        parser.process(arguments);
        return command.run(parser, parser.positionalArguments().mid(1));
    }
    if (name == QStringLiteral("--version") || name == QStringLiteral("-v")) {
        std::cout << "vxstream " VISTOR_VERSION << std::endl;
        return kDone;
    }
    const bool asked = name == QStringLiteral("--help") || name == QStringLiteral("-h");
    std::ostream& out = asked ? std::cout : std::cerr;
    out << "Usage: vxstream COMMAND [options]\n\nCommands:\n";
    for (const auto& command : kCommands)
        out << "  " << command.name << std::string(10 - std::string_view(command.name).size(), ' ')
            << command.does << '\n';
    out << "\n\"vxstream COMMAND --help\" tells the options of a command." << std::endl;
    return asked ? kDone : kMisused;
}

} // namespace
} // namespace vistor

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vxstream"));
    return vistor::runCommand(QCoreApplication::arguments());
}
