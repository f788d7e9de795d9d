#include "instruments/displays/PropertyStore.h"

#include "SampleTable.h"
#include "instruments/displays/PropertyList.h"
#include "variables/GlobalVarsAndTypes.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vistor {
namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

TEST(PropertyStore, TakesNumbersAsDeclared) {
    const struct {
        int number;
        double written;
        double read;
    } cases[] = {
        {3, 2.5, 2},           {3, 3.5, 4},         {3, -2.5, -2}, {3, 40000, 32767},     {3, -1e300, -32768},
        {3, kInfinite, 32767}, {3, kNotANumber, 7}, {14, 2.5, 2},  {14, 3e9, 2147483647}, {5, 1, -1},
        {5, -7, -1},           {5, 0, 0},           {1001, 3, -1}, {6, 0.1, 0.1F},        {9, 0.1, 0.1},
        {999, 5, 0},           {-9999, 5, 0},       {40000, 5, 0},
    };
    for (const auto& c : cases) {
        PropertyStore store(kSampleTable);
        store.setNumber(c.number, c.written);
        EXPECT_EQ(store.number(c.number), c.read) << c.number << " given " << c.written;
    }
}

TEST(PropertyStore, ReadsTextsAsALenientReaderDoes) {
    const struct {
        int number;
        const char* text;
        const char* item;
    } cases[] = {
        {9, "1.5", "1.5"},
        {9, " 2,25 ", "2.25"},
        {9, "0.1", "0.1"},
        {9, "-1.5E2", "-150"},
        {9, "1e400", "0"},
        {9, "abc", "0"},
        {9, "", "0"},
        {9, "nan", "0"},
        {9, "3rpm", "3"},
        {3, "12.5", "12"},
        {3, "x", "0"},
        {3, "99999999999", "32767"},
        {5, "True", "-1"},
        {5, "false", "0"},
        {5, "-1", "-1"},
        {5, "1", "-1"},
        {1001, "TRUE", "True"},
        {1001, "-1", "True"},
        {1001, "0", "False"},
        {12, "a.b,c", "a.b,c"},
        {6, "3.14159274", "3.1415927"},
        {9, "1e15", "1E+15"},
        {9, "123456789012345", "123456789012345"},
        {9, "0.1234567890123456", "0.1234567890123456"},
    };
    DecimalSeparator = QStringLiteral(",");
    for (const auto& c : cases) {
        PropertyStore store(kSampleTable);
        store.setItem(c.number, 0, QString::fromLatin1(c.text));
        EXPECT_EQ(store.item(c.number, 0).toStdString(), c.item) << c.number << " given " << c.text;
    }
}

TEST(PropertyStore, SelectorWrapsRoundItsSections) {
    PropertyStore store(kSampleTable);
    store.setNumber(30, 3);
    for (int pin = 1; pin <= 3; ++pin) {
        store.setNumber(31, pin);
        store.setNumber(32, pin * 10);
    }
    EXPECT_EQ(store.number(32, 0), 30) << "pin 3 wraps to section 0";
    EXPECT_EQ(store.number(32, 1), 10);
    EXPECT_EQ(store.number(32, 2), 20);
    store.setNumber(31, -1);
    store.setNumber(32, 99);
    EXPECT_EQ(store.number(32, 0), 99) << "a negative selector leaves the current section";
    store.setNumber(30, 1);
    store.setNumber(31, 1);
    store.setNumber(32, 5);
    EXPECT_EQ(store.number(32, 0), 5) << "the one section takes pin 1";
}

TEST(PropertyStore, CountsMakeAndDropSectionsWithinBounds) {
    PropertyStore store(kSampleTable);
    EXPECT_EQ(store.sections(2), 2);
    store.setNumber(33, 1, 77);
    store.setNumber(30, 1e9);
    EXPECT_EQ(store.sections(2), PropertyStore::kMaximumSections);
    EXPECT_EQ(store.number(30), PropertyStore::kMaximumSections);
    EXPECT_EQ(store.number(33, 1), 77);
    EXPECT_EQ(store.number(33, 255), 255) << "a new section has the defaults";
    store.setNumber(30, -4);
    EXPECT_EQ(store.sections(2), 0);
    store.setNumber(31, 3);
    store.setNumber(32, 1);
    EXPECT_EQ(store.number(32), 0) << "without sections there is nothing to write";
}

TEST(PropertyStore, TellsLiveChangesFromOthers) {
    PropertyStore store(kSampleTable);
    const auto before = store.staticRevision();
    const auto all = store.revision();
    store.setNumber(31, 1);
    store.setNumber(32, 4);
    EXPECT_EQ(store.staticRevision(), before);
    EXPECT_EQ(store.revision(), all + 1);
    store.setNumber(32, 4);
    EXPECT_EQ(store.revision(), all + 1) << "the same value again is no change";
    store.setNumber(33, 9);
    EXPECT_GT(store.staticRevision(), before);
}

/// Every item a different one, so that a swapped position shows.
QStringList fullList() {
    return {"3000", "1500", "255", "8",    "-1",   "2.5",  "0.125", "text", "2",     "2",
            "3",    "",     "",    "True", "0",    "Mono", "10.5",  "1",    "Arial", "11",
            "0",    "1.5",  "111", "1",    "-2.5", "222",  "2",     "3.5",  "333"};
}

TEST(PropertyList, KeepsEveryPosition) {
    PropertyStore store(kSampleTable);
    EXPECT_EQ(readProperties(store, fullList()), fullList().size());
    store.setNumber(31, 2);
    QStringList written{"3000", "1500"};
    writeProperties(store, written);
    EXPECT_EQ(written, fullList());
    EXPECT_EQ(store.number(31), 2) << "writing leaves the selector where it stood";
    EXPECT_EQ(store.text(-512, 1), "Arial");
    EXPECT_EQ(store.number(32, 2), 3.5);
}

TEST(PropertyList, TakesWhatIsThere) {
    const QStringList full = fullList();
    for (qsizetype size = 0; size <= full.size(); ++size) {
        PropertyStore store(kSampleTable);
        readProperties(store, full.first(size));
        EXPECT_EQ(store.number(3), size > 3 ? 8 : 7) << size;
        EXPECT_EQ(store.sections(2), size > 10 ? 3 : 2) << size;
        EXPECT_EQ(store.number(33, 1), size > 25 ? 222 : 255) << size;
    }
}

TEST(PropertyList, HostileCountsEndInTime) {
    for (const char* count : {"1000000", "-5", "1e300", "nan", "x", "32767", "99999999999999999999"}) {
        QStringList list = fullList();
        list[9] = list[10] = QString::fromLatin1(count);
        PropertyStore store(kSampleTable);
        const qsizetype next = readProperties(store, list);
        EXPECT_LE(store.sections(1), PropertyStore::kMaximumSections) << count;
        EXPECT_GE(next, 14) << count;
        EXPECT_EQ(store.number(3), 8) << count;
    }
}

TEST(PropertyStore, RearrangesSections) {
    PropertyStore store(kSampleTable);
    readProperties(store, fullList());
    const int order[] = {2, -1, 0};
    store.rearrange(2, order);
    EXPECT_EQ(store.number(33, 0), 333);
    EXPECT_EQ(store.number(33, 1), 255);
    EXPECT_EQ(store.number(33, 2), 111);
    store.rearrange(1, {});
    EXPECT_EQ(store.sections(1), 0);
    EXPECT_EQ(store.number(20), 0);
}

} // namespace
} // namespace vistor
