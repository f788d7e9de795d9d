// The saved lists of the kinds that are made of a table alone, position by position. What files hold is
// written down here once more, apart from the displays' own tables.
#include "instruments/Instrument.h"
#include "instruments/displays/InnerDisplay.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QImage>

#include <gtest/gtest.h>

namespace vistor {
namespace {

struct Field {
    int number;
    char type; ///< i whole, d double, b flag, s text, n selector, c count of a block, e empty
};
using Fields = std::vector<Field>;

struct SavedKind {
    Kind kind;
    Fields fixed; ///< from item 2 on
    std::vector<Fields> blocks;
    bool pinsToCount = false; ///< as many pins are written as are bound: what stands behind a hole is lost
};

const SavedKind kSavedKinds[] = {
    {Kind::AngularGauge,
     {{96, 's'}, {97, 'i'}, {3, 'i'},  {4, 'i'},  {1, 'i'},  {2, 'i'},  {5, 'b'},  {8, 'i'},  {7, 'i'},
      {6, 'i'},  {9, 's'},  {12, 'i'}, {17, 'i'}, {18, 'd'}, {11, 'd'}, {13, 'd'}, {15, 'd'}, {16, 's'},
      {93, 'b'}, {94, 'b'}, {19, 'c'}, {28, 'c'}, {43, 'c'}, {45, 'c'}, {51, 'c'}, {60, 'c'}, {65, 'c'}},
     {{{20, 'n'}, {23, 'd'}, {22, 'd'}, {21, 'i'}, {24, 'd'}, {25, 'd'}, {26, 'd'}, {27, 'd'}},
      {{29, 'n'}, {-512, 's'}, {82, 's'}, {83, 'd'}, {84, 'b'}, {85, 'b'}, {86, 'b'}, {87, 'b'}},
      {{44, 'n'},
       {32, 'i'},
       {38, 'i'},
       {41, 'i'},
       {90, 'b'},
       {91, 'i'},
       {92, 'i'},
       {31, 'd'},
       {30, 'i'},
       {34, 'b'},
       {36, 'b'},
       {35, 'd'},
       {33, 'd'},
       {37, 'd'},
       {42, 'd'},
       {39, 'd'},
       {40, 'd'},
       {88, 'd'}},
      {{46, 'n'}, {48, 'i'}, {80, 'i'}, {47, 'i'}, {49, 'd'}, {50, 'd'}, {-518, 's'}},
      {{52, 'n'}, {57, 'i'}, {53, 'i'}, {54, 'd'}, {58, 'd'}, {59, 'd'}, {55, 'd'}, {56, 'd'}},
      {{61, 'n'}, {64, 'i'}, {62, 'i'}, {63, 'd'}},
      {{66, 'n'},
       {74, 'i'},
       {89, 'i'},
       {76, 'i'},
       {95, 'b'},
       {67, 'i'},
       {77, 'd'},
       {0, 'd'},
       {73, 'd'},
       {78, 'd'},
       {75, 's'},
       {68, 'b'},
       {70, 'i'},
       {79, 'i'},
       {71, 'd'},
       {72, 'd'},
       {69, 'i'}}}},
    {Kind::Led,
     {{39, 's'},
      {-501, 'i'},
      {14, 'i'},
      {15, 'i'},
      {12, 'i'},
      {13, 'i'},
      {33, 'b'},
      {37, 'i'},
      {35, 'i'},
      {36, 's'},
      {34, 'i'},
      {18, 'i'},
      {19, 'i'},
      {32, 'b'},
      {38, 'b'},
      {1, 'c'},
      {10, 'c'}},
     {{{30, 'n'}, {6, 'i'}, {4, 'i'}, {5, 'i'}, {7, 's'}},
      {{23, 'n'},
       {9, 'i'},
       {29, 'i'},
       {0, 'i'},
       {27, 'b'},
       {26, 'i'},
       {21, 'i'},
       {28, 'i'},
       {17, 'i'},
       {25, 'i'},
       {22, 'i'},
       {24, 'i'},
       {11, 'b'},
       {20, 'i'},
       {8, 'i'}}}},
    {Kind::Odometer,
     {{31, 's'}, {-501, 'i'}, {15, 'i'}, {3, 'i'},  {1, 'i'},  {2, 'i'},  {8, 'b'},    {12, 'i'},
      {10, 'i'}, {9, 'i'},    {11, 's'}, {6, 'i'},  {4, 'i'},  {5, 'i'},  {14, 'i'},   {13, 'd'},
      {0, 'd'},  {26, 'b'},   {28, 'i'}, {27, 'i'}, {7, 'b'},  {18, 'i'}, {-512, 's'}, {20, 's'},
      {21, 'd'}, {22, 'b'},   {23, 'b'}, {24, 'b'}, {25, 'b'}, {29, 'b'}, {30, 'b'}},
     {}},
    {Kind::LinearGauge,
     {{89, 's'}, {-501, 'i'}, {15, 'i'}, {16, 'i'}, {13, 'i'}, {14, 'i'}, {26, 'b'}, {30, 'i'}, {28, 'i'},
      {27, 'i'}, {29, 's'},   {84, 'b'}, {88, 'b'}, {60, 'c'}, {24, 'c'}, {7, 'c'},  {20, 'c'}, {69, 'c'},
      {42, 'c'}, {0, 'e'},    {0, 'e'},  {0, 'e'},  {0, 'e'},  {0, 'e'},  {0, 'e'},  {0, 'e'}},
     {{{55, 'n'}, {54, 'i'}, {25, 'i'}, {56, 'd'}, {57, 'd'}, {58, 'd'}, {59, 'd'}},
      {{23, 'n'}, {-512, 's'}, {77, 's'}, {79, 'd'}, {78, 'b'}, {80, 'b'}, {81, 'b'}, {82, 'b'}},
      {{3, 'n'}, {8, 'i'}, {2, 'i'}, {4, 'd'}, {5, 'd'}, {12, 'i'}, {10, 'd'}, {11, 'd'}, {9, 's'}},
      {{19, 'n'}, {18, 'i'}, {17, 'i'}, {21, 'd'}, {22, 'd'}, {-518, 's'}},
      {{64, 'n'},
       {70, 'i'},
       {63, 'i'},
       {74, 'i'},
       {61, 'i'},
       {87, 'b'},
       {85, 'i'},
       {86, 'i'},
       {66, 'b'},
       {67, 'd'},
       {65, 'd'},
       {68, 'd'},
       {75, 'd'},
       {72, 'd'},
       {73, 'd'},
       {62, 'd'},
       {71, 's'}},
      {{38, 'n'}, {43, 'i'}, {31, 'i'}, {83, 'i'}, {49, 'i'}, {50, 'i'}, {45, 'b'}, {46, 'd'},
       {39, 'd'}, {40, 'd'}, {52, 'd'}, {51, 'd'}, {47, 'd'}, {48, 'd'}, {44, 's'}, {32, 'b'},
       {33, 'b'}, {36, 'i'}, {35, 'i'}, {34, 'i'}, {53, 'd'}, {37, 'd'}}},
     true},
    {Kind::PercentageBar,
     {{48, 's'}, {-501, 'i'}, {4, 'i'},    {5, 'i'},  {2, 'i'},  {3, 'i'},  {6, 'b'},  {10, 'i'}, {8, 'i'},
      {7, 'i'},  {9, 's'},    {-512, 's'}, {38, 's'}, {39, 'd'}, {40, 'b'}, {41, 'b'}, {43, 'b'}, {42, 'b'},
      {33, 'i'}, {28, 'i'},   {30, 'd'},   {32, 'd'}, {29, 'd'}, {31, 'd'}, {27, 's'}, {21, 'i'}, {24, 'i'},
      {25, 'i'}, {26, 'i'},   {45, 'i'},   {19, 'd'}, {23, 'd'}, {22, 'd'}, {46, 'b'}, {47, 'b'}, {11, 'c'}},
     {{{12, 'n'},
       {13, 'i'},
       {15, 'd'},
       {20, 'i'},
       {16, 'i'},
       {44, 's'},
       {17, 'd'},
       {18, 'd'},
       {36, 'd'},
       {37, 'd'},
       {0, 'd'}}}},
};

/// An item of its own for every position.
QString itemFor(char type, int index, qsizetype position) {
    switch (type) {
    case 'n':
        return QString::number(index);
    case 's':
        return QStringLiteral("text %1").arg(position);
    case 'b':
        return position % 2 != 0 ? QStringLiteral("-1") : QStringLiteral("0");
    case 'e':
        return {};
    case 'd':
        return QString::number(double(position) + 0.25);
    default:
        return QString::number(position % 30000);
    }
}

QStringList fullList(const SavedKind& saved, const std::vector<int>& counts, const QStringList& pins) {
    QStringList list{"3000", "3015"};
    std::size_t block = 0;
    for (const Field& field : saved.fixed)
        list << (field.type == 'c' ? QString::number(counts[block++]) : itemFor(field.type, 0, list.size()));
    for (block = 0; block < saved.blocks.size(); ++block)
        for (int i = 0; i < counts[block]; ++i)
            for (const Field& field : saved.blocks[block]) list << itemFor(field.type, i, list.size());
    return list + pins;
}

void expectProperty(const PropertyStore& p, const Field& field, int index, const QString& item) {
    if (field.type == 's') {
        EXPECT_EQ(p.text(field.number, index), item) << field.number;
    } else if (field.type != 'n' && field.type != 'e') {
        EXPECT_EQ(p.number(field.number, index), item.toDouble()) << field.number;
    }
}

/// Every property against the item at its position.
void expectProperties(const PropertyStore& p, const SavedKind& saved, const std::vector<int>& counts,
                      const QStringList& list) {
    qsizetype position = 2;
    for (const Field& field : saved.fixed) expectProperty(p, field, 0, list.at(position++));
    for (std::size_t block = 0; block < saved.blocks.size(); ++block)
        for (int i = 0; i < counts[block]; ++i)
            for (const Field& field : saved.blocks[block]) expectProperty(p, field, i, list.at(position++));
}

const QStringList kPins[] = {
    {"1", "1", "EngineSpeed"}, {"0", "0"}, {"1", "2", "", "OilPressure"}, {"2", "4", "a", "", "", "b"}};

/// What a kind writes of a pin block.
QStringList pinsWritten(const SavedKind& saved, const QStringList& pins) {
    QStringList written = pins;
    for (qsizetype i = 2; saved.pinsToCount && i < written.size(); ++i)
        if (i - 1 > pins.first().toInt()) written[i].clear();
    return written;
}

TEST(SavedList, KeepsEveryPosition) {
    const std::vector<int> counts[] = {
        {1, 2, 2, 1, 1, 2, 1}, {0, 0, 0, 0, 0, 0, 0}, {3, 1, 4, 2, 5, 1, 3}, {256, 256, 1, 1, 1, 1, 256}};
    for (const SavedKind& saved : kSavedKinds) {
        for (std::size_t c = 0; c < std::size(counts); ++c) {
            const QString name = QLatin1String(kindInfo(saved.kind).className);
            SCOPED_TRACE(name.toStdString() + " " + std::to_string(c));
            const auto instrument = makeInstrument(saved.kind, nullptr);
            const QStringList list = fullList(saved, counts[c], kPins[c]);
            instrument->Deserialise(list);
            PropertyStore& p = instrument->inCTRL().properties();
            expectProperties(p, saved, counts[c], list);
            const int selector = saved.blocks.empty() ? 0 : saved.blocks.back().front().number;
            if (selector != 0) p.setNumber(selector, 5);
            QStringList written;
            EXPECT_EQ(instrument->Serialise(written), list.size() - 1);
            EXPECT_EQ(written, fullList(saved, counts[c], pinsWritten(saved, kPins[c])));
            EXPECT_EQ(instrument->size(), QSize(200, 201));
            if (selector == 0) continue;
            EXPECT_EQ(p.number(selector), 5) << "writing the list moves no selector";
        }
    }
}

/// Any list comes up, paints and writes a list that is no longer than the sections allow.
void expectWithinBounds(const SavedKind& saved, const QStringList& list) {
    const auto instrument = makeInstrument(saved.kind, nullptr);
    instrument->Deserialise(list);
    for (const Field& field : saved.fixed)
        EXPECT_TRUE(field.type != 'c' || instrument->inCTRL().properties().number(field.number) <= 256);
    QStringList written;
    const int count = instrument->Serialise(written);
    EXPECT_EQ(count, written.size() - 1);
    EXPECT_LT(written.size(), 40'000);
    instrument->setSizeTwips(1500, 1500);
    instrument->inCTRL().grab();
}

TEST(SavedList, HostileListsComeUpWithinBounds) {
    for (const SavedKind& saved : kSavedKinds) {
        SCOPED_TRACE(kindInfo(saved.kind).className);
        const QStringList good = fullList(saved, {1, 2, 2, 1, 1, 2, 1}, kPins[0]);
        for (qsizetype size = 0; size < good.size(); size += 3) expectWithinBounds(saved, good.first(size));
        for (const char* item : {"1000000", "-5", "x", "", "1e300", "-1e300", "nan"}) {
            expectWithinBounds(saved, QStringList(good.size(), QString::fromLatin1(item)));
            for (qsizetype place = 2; place < good.size(); ++place) {
                QStringList list = good;
                list[place] = QString::fromLatin1(item);
                if (place < 40 || place % 5 == 0) expectWithinBounds(saved, list);
            }
        }
        QStringList pins = good;
        pins[good.size() - 2] = QStringLiteral("-7");
        expectWithinBounds(saved, pins);
    }
}

TEST(SavedList, PinsBehindHolesSurviveWhereAllAreWritten) {
    for (const SavedKind& saved : kSavedKinds) {
        const bool survives = !saved.pinsToCount;
        const auto instrument = makeInstrument(saved.kind, nullptr);
        instrument->AssignPin(3, QStringLiteral("kept"));
        QStringList list;
        instrument->Serialise(list);
        EXPECT_EQ(list.last(5), (QStringList{"1", "3", "", "", survives ? "kept" : ""}));
        const auto again = makeInstrument(saved.kind, nullptr);
        again->Deserialise(list);
        EXPECT_EQ(again->curVarTable().at(3), survives ? "kept" : "");
        EXPECT_EQ(again->curVarTable().count(), 1);
    }
}

TEST(SavedList, TextTagKeepsEveryPositionWithoutPins) {
    const auto tag = makeInstrument(Kind::TextTag, nullptr);
    const QStringList list{"3000", "1515", "1",  "0",   "-1",       "Serif",
                           "10.5", "-1",   "-1", "255", "16711680", "Oil, hot"};
    tag->Deserialise(list);
    QStringList written;
    EXPECT_EQ(tag->Serialise(written), 11);
    EXPECT_EQ(written, list);
    tag->Deserialise({"3000", "1515", "2", "True", "False"});
    tag->Serialise(written);
    EXPECT_EQ(written.mid(2, 4), (QStringList{"2", "-1", "0", "Serif"})) << "words of flags are read too";
    for (const char* item : {"", "x", "-1", "1e300", "nan", "99999999999"}) {
        tag->Deserialise(QStringList(12, QString::fromLatin1(item)));
        tag->setSizeTwips(1500, 1500);
        EXPECT_FALSE(tag->inCTRL().grab().isNull());
        EXPECT_EQ(tag->Serialise(written), 11);
    }
}

} // namespace
} // namespace vistor
