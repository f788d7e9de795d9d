// Lists as a stranger's file may hold them, on every kind and at every size and ratio: nothing but a picture
// comes of them, soon and in bounded memory. VISTOR_RANDOM_LISTS asks for more lists than a usual run paints,
// VISTOR_RANDOM_SEED for others; list n of seed s is list 0 of seed s + n.
#include "instruments/Instrument.h"
#include "instruments/displays/InnerDisplay.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QProcess>

#include <cmath>
#include <ctime>
#include <gtest/gtest.h>
#include <random>

namespace vistor {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr double kSlower = 10;
constexpr int kUsualLists = 54;
#else
constexpr double kSlower = 1;
constexpr int kUsualLists = 180;
#endif
constexpr double kMostSeconds = 1;
constexpr double kMostMiB = 300;
constexpr double kMostPixels = 6e6; ///< of a picture, so that it is the display that takes the memory
constexpr int kLargestSide = 2000;
constexpr const char* kLists = "VISTOR_RANDOM_LISTS";

constexpr double kHostile[] = {0,      1,          -1,          0.5,  2,      3,       5,
                               10,     50,         100,         255,  256,    1000,    32767,
                               -32768, 1e6,        1e-30,       1e30, -1e300, 1.7e308, 1e-310,
                               -1e-3,  2147483647, -2147483648, 1e15, NAN,    INFINITY};

class RandomList {
public:
    explicit RandomList(unsigned seed) : m_random(seed) {}

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    bool oneIn(int times) { return below(times) == 0; }
    double number() {
        if (oneIn(3)) return kHostile[static_cast<std::size_t>(below(std::size(kHostile)))];
        if (oneIn(3)) return below(0x1000000); // a colour
        return std::uniform_real_distribution(-2.0, oneIn(2) ? 3.0 : 150.0)(m_random);
    }
    QString text() {
        const QString texts[] = {{},
                                 QStringLiteral("Oil"),
                                 QStringLiteral("-123456.7"),
                                 QStringLiteral("<img src=file:///dev/null>\n%1%n&"),
                                 QString(5000, u'W'),
                                 QString::fromUtf8("\xF0\x9F\x8F\x81 \xD7\xA9\xD7\x9C"),
                                 QStringLiteral("Sans Serif"),
                                 QString(QChar(0xD800)) + QChar(0)};
        return texts[static_cast<std::size_t>(below(std::size(texts)))];
    }
    /// Small ones as often as large ones.
    int side() {
        return static_cast<int>(
            std::exp(std::uniform_real_distribution(0.0, 1.0)(m_random) * std::log(kLargestSide)));
    }

    void fill(PropertyStore& p) {
        const KindTable& table = p.table();
        for (const SectionInfo& section : table.sections())
            p.setNumber(section.countProperty, oneIn(20) ? number() : below(5));
        for (std::size_t block = 0; block < table.blockCount(); ++block)
            for (int index = 0; index < std::min(p.sections(block), 6); ++index)
                for (const PropertyInfo& info : table.fields(block)) fillOne(p, info, index);
    }
    void damage(QStringList& list) {
        for (int i = below(4); i > 0 && !list.isEmpty(); --i)
            list[below(static_cast<int>(list.size()))] = oneIn(2) ? text() : QString::number(number());
        if (oneIn(8)) list.resize(below(static_cast<int>(list.size()) + 20));
    }
    void feed(Instrument& instrument) {
        for (int i = 20 + below(200); i > 0; --i) {
            const auto pin = static_cast<std::int16_t>(below(6));
            const auto axis = static_cast<std::uint8_t>(below(2));
            instrument.refreshValue(pin, axis, static_cast<float>(oneIn(10) ? number() : i * 0.37));
            if (oneIn(60)) instrument.interruptData();
        }
    }

private:
    void fillOne(PropertyStore& p, const PropertyInfo& info, int index) {
        const auto role = p.table().find(info.number).role;
        if (info.type == PropertyType::Empty || role != PropertyAddress::Role::Field) return;
        if (isText(info.type)) {
            if (oneIn(3)) p.setText(info.number, index, text());
        } else if (info.choices.words.size() > 0 && !oneIn(5)) {
            p.setNumber(info.number, index, below(static_cast<int>(info.choices.words.size())));
        } else if (info.high > info.low && oneIn(2)) {
            p.setNumber(info.number, index, std::uniform_real_distribution(info.low, info.high)(m_random));
        } else if (!oneIn(3)) {
            p.setNumber(info.number, index, number());
        }
    }

    std::mt19937 m_random;
};

/// Of this process at its most, in MiB.
double peakMiB() {
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly)) return 0;
    const QByteArray all = file.readAll();
    return all.mid(all.indexOf("VmHWM:") + 6).trimmed().split(' ').value(0).toDouble() / 1024;
}

void paintList(unsigned seed) {
    RandomList random(seed);
    const Kind kind = kInstrumentKinds[seed % kInstrumentKinds.size()].kind;
    const auto model = makeInstrument(kind, nullptr);
    random.fill(model->inCTRL().properties());
    QStringList list;
    model->Serialise(list);
    random.damage(list);
    const auto instrument = makeInstrument(kind, nullptr);
    instrument->Deserialise(list);
    for (int pin = 1; pin < 6; ++pin)
        for (const auto axis : {std::uint8_t{0}, std::uint8_t{1}})
            instrument->AssignPin(pin, axis, QStringLiteral("Oil"));
    InnerDisplay& display = instrument->inCTRL();
    for (int picture = 0; picture < 3; ++picture) {
        const double ratio = display.devicePixelRatioF();
        QSize size(random.side(), random.side());
        const double room = kMostPixels / (ratio * ratio) / size.width();
        size.setHeight(std::clamp(size.height(), 1, std::max(static_cast<int>(room), 1)));
        display.resize(size);
        random.feed(*instrument);
        QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        display.render(&image);
        random.feed(*instrument);
        display.render(&image); // what moves alone
    }
}

TEST(RandomLists, PaintAtThisRatio) {
    const int asked = qEnvironmentVariableIntValue(kLists);
    const auto first = static_cast<unsigned>(qEnvironmentVariableIntValue("VISTOR_RANDOM_SEED"));
    const double before = peakMiB();
    for (unsigned i = 0; i < static_cast<unsigned>(asked > 0 ? asked : kUsualLists); ++i) {
        const std::clock_t start = std::clock();
        paintList(first + i);
        const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        EXPECT_LT(seconds, kMostSeconds * kSlower) << "list of seed " << first + i;
    }
    EXPECT_LT(peakMiB() - before, kMostMiB * kSlower);
}

TEST(RandomLists, PaintAtOtherRatios) {
    for (const char* ratio : {"1.5", "2", "3"}) {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QLatin1String(ratio));
        if (!environment.contains(QLatin1String(kLists)))
            environment.insert(QLatin1String(kLists), QString::number(kUsualLists / 3));
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("--gtest_filter=RandomLists.PaintAtThisRatio")});
        ASSERT_TRUE(process.waitForFinished(-1));
        const QByteArray said = process.readAll();
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << ratio << said.constData();
        EXPECT_EQ(process.exitCode(), 0) << ratio << said.constData();
    }
}

} // namespace
} // namespace vistor
