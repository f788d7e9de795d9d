#include "instruments/PinTable.h"

#include "variables/GlobalVarsAndTypes.h"

#include <gtest/gtest.h>

namespace vistor {
namespace {

/// One column as texts, row 0 first.
QStringList column(const PinTable& pins, int which = 0) {
    QStringList texts;
    for (int row = 0; row <= pins.upperBound(); ++row) texts << pins.at(row, which);
    return texts;
}

struct Step {
    int pin;          ///< below 0: remove
    const char* name; ///< of the variable to bind
};

TEST(PinTable, AssignsAndRemoves) {
    const struct {
        std::vector<Step> steps;
        QStringList table;
    } cases[] = {
        {{}, {"0"}},
        {{{3, "a"}}, {"1", "", "", "a"}},
        {{{1, "a"}, {1, "b"}}, {"1", "b"}},
        {{{1, "a"}, {3, "c"}, {-3, ""}}, {"1", "a"}},
        {{{3, "c"}, {-3, ""}}, {"0"}},
        {{{1, "a"}, {2, "b"}, {3, "c"}, {-2, ""}}, {"2", "a", "", "c"}},
        {{{1, "a"}, {2, "b"}, {3, "c"}, {-2, ""}, {-3, ""}}, {"1", "a"}},
        {{{0, "a"}, {-5, ""}, {8001, "x"}}, {"0"}},
        {{{1, "a"}, {2, "b"}, {-9, ""}}, {"1", "a", "b"}},
        {{{1, "a"}, {3, "c"}, {-2, ""}}, {"1", "a", "", "c"}},
    };
    for (const auto& c : cases) {
        PinTable pins;
        for (const Step& step : c.steps) {
            if (step.pin < 0)
                pins.remove(-step.pin);
            else
                pins.assign(step.pin, QString::fromLatin1(step.name));
        }
        EXPECT_EQ(column(pins), c.table);
    }
}

TEST(PinTable, GraphShrinksOnlyWhenBothAxesAreEmpty) {
    PinTable pins(PinTable::kGraphColumns);
    pins.assign(2, "x", 0);
    pins.assign(2, "y", 1);
    pins.remove(2, 0);
    EXPECT_EQ(pins.upperBound(), 2);
    EXPECT_EQ(pins.count(0), 0);
    EXPECT_EQ(pins.count(1), 1);
    pins.remove(2, 1);
    EXPECT_EQ(pins.upperBound(), 0);
    EXPECT_EQ(column(pins, 1), QStringList{"0"});
}

TEST(PinTable, BlockFormsDifferOnHoles) {
    PinTable hole;
    hole.assign(3, "c");
    PinTable full;
    full.assign(1, "a");
    full.assign(2, "b");
    const struct {
        const PinTable& pins;
        PinForm form;
        QStringList block;
        QStringList read;
    } cases[] = {
        {hole, PinForm::ToBound, {"1", "3", "", "", "c"}, {"1", "", "", "c"}},
        {hole, PinForm::ToCount, {"1", "3", "", "", ""}, {"1", "", "", ""}},
        {full, PinForm::ToCount, {"2", "2", "a", "b"}, {"2", "a", "b"}},
        {full, PinForm::None, {}, {"0"}},
    };
    for (const auto& c : cases) {
        QStringList list{"before"};
        EXPECT_EQ(writePins(c.pins, c.form, list), c.block.size());
        EXPECT_EQ(list.mid(1), c.block);
        EXPECT_EQ(column(readPins(c.form, list, 1)), c.read);
    }
}

TEST(PinTable, GraphBlockHoldsBothColumnsOfNames) {
    PinTable pins(PinTable::kGraphColumns);
    pins.assign(1, "Time", 0);
    pins.assign(2, "Speed", 1);
    pins.set(1, "12.5", 2);
    QStringList list;
    writePins(pins, PinForm::Graph, list);
    EXPECT_EQ(list, (QStringList{"1", "2", "Time", "", "1", "2", "", "Speed"}));
    const PinTable read = readPins(PinForm::Graph, list, 0);
    EXPECT_EQ(column(read, 0), (QStringList{"1", "Time", ""}));
    EXPECT_EQ(column(read, 1), (QStringList{"1", "", "Speed"}));
    EXPECT_EQ(read.at(1, 2), "") << "nothing is pending";
    const struct {
        int item;
        const char* bound;
    } faults[] = {{1, "-2"}, {1, "1000"}, {1, "x"}, {1, "0"}, {5, "-2"}, {5, "70000"}, {5, ""}};
    for (const auto& f : faults) {
        QStringList faulty = list;
        faulty[f.item] = f.bound;
        const PinTable kept = readPins(PinForm::Graph, faulty, 0);
        EXPECT_EQ(column(kept, 0), (QStringList{"1", "Time", ""})) << f.item << ": " << f.bound;
        EXPECT_EQ(column(kept, 1), (QStringList{"1", "", "Speed"})) << f.item << ": " << f.bound;
    }
    EXPECT_EQ(column(readPins(PinForm::Graph, list.first(7), 0), 1), (QStringList{"1", "", ""}))
        << "a list cut short keeps what it has";
}

TEST(PinTable, ReadsWhatAHostileBlockHas) {
    const struct {
        QStringList list;
        QStringList table;
    } cases[] = {
        {{}, {"0"}},
        {{"1"}, {"0"}},
        {{"1", "1"}, {"1"}},
        {{"2", "1000000000", "a"}, {"2", "a"}},
        {{"1", "-5", "a"}, {"1"}},
        {{"many", "x", "a"}, {"0"}},
        {{"1", "3", "0", "0", "c"}, {"1", "", "", "c"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(column(readPins(PinForm::ToBound, c.list, 0)), c.table);
        EXPECT_LE(readPins(PinForm::Graph, c.list, 0).upperBound(), 3);
    }
    const QStringList wide(20000, "n");
    QStringList list{"9", "9000"};
    EXPECT_EQ(readPins(PinForm::ToBound, list + wide, 0).upperBound(), PinTable::kMaximumBound);
}

TEST(PinTable, CaptionNamesTheFirstKnownVariable) {
    VariableTable.resize(8001);
    VariableTable[10].PhysicalName = QStringLiteral("EngineSpeed");
    VariableTable[15].PhysicalName = QStringLiteral("Speed");
    tableChanged();
    PinTable pins;
    EXPECT_EQ(tagCaption(pins), "");
    pins.assign(1, "Gone");
    EXPECT_EQ(tagCaption(pins), "");
    pins.assign(3, "enginespeed");
    pins.assign(4, "Speed");
    EXPECT_EQ(tagCaption(pins), "[3] EngineSpeed");
    PinTable graph(PinTable::kGraphColumns);
    graph.assign(1, "Speed", 0);
    graph.assign(2, "EngineSpeed", 1);
    EXPECT_EQ(tagCaption(graph), "[1] Speed [2] EngineSpeed");
}

} // namespace
} // namespace vistor
