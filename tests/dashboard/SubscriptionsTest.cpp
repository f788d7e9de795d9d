#include "dashboard/Subscriptions.h"

#include "dashboard/Page.h"
#include "instruments/Instrument.h"
#include "instruments/displays/AngularGaugeDisplay.h"
#include "instruments/displays/AngularGaugeProperties.h"
#include "variables/GlobalVarsAndTypes.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace vistor {
namespace {

/// Writes down what reaches it, as "pin:value" or "pin/axis:value".
class Probe final : public Instrument {
public:
    Probe(Kind kind, QWidget* page)
        : Instrument(kind, new AngularGaugeDisplay, page), table(isGraph(kind) ? 6 : 1) {
        inCTRL().properties().setNumber(GaugeNeedles, 3);
    }

    PinTable curVarTable() const override { return table; }
    void ClearCurrentData() override { ++cleared; }
    void refreshValue(std::int16_t pin, float value) override {
        if (fails) throw std::runtime_error("probe");
        seen += QStringLiteral("%1:%2").arg(pin).arg(double(value));
    }
    void refreshValue(std::int16_t pin, std::uint8_t axis, float value) override {
        seen += QStringLiteral("%1/%2:%3").arg(pin).arg(axis).arg(double(value));
    }

    PinTable table;
    QStringList seen;
    int cleared = 0;
    bool fails = false;

private:
    static bool isGraph(Kind kind) { return kind == Kind::TimeGraph || kind == Kind::XYGraph; }
};

class SubscriptionsTest : public testing::Test {
protected:
    SubscriptionsTest() {
        VariableTable.resize(kVariableCount);
        name(5, "Five");
        name(40, "Forty");
        name(41, "FortyOne");
        tableChanged();
    }
    static void name(std::size_t row, const char* text) {
        VariableTable[row].PhysicalName = QLatin1String(text);
    }
    Probe* add(int number, Kind kind, QWidget* page) {
        auto made = std::make_unique<Probe>(kind, page);
        Probe* probe = made.get();
        instruments.adopt(number, std::move(made));
        return probe;
    }
    Probe* bound(const char* variable, QWidget* page) {
        Probe* probe = add(nextNumber++, Kind::Led, page);
        probe->table.assign(1, QLatin1String(variable));
        return probe;
    }
    void send(const char* variable, float value, int tab = 0) {
        dispatchValue(table, tab, QLatin1String(variable), value);
    }

    QWidget window;
    Page first{0, &window};
    Page second{1, &window};
    InstrumentArrays instruments;
    SubscriptionTable table;
    int nextNumber = 1;
};

TEST_F(SubscriptionsTest, OnlyTheVisiblePageGetsValues) {
    Probe* front = bound("Forty", &first);
    Probe* back = bound("forty [rpm]", &second);
    table = subscriptionsOf(instruments);
    ASSERT_EQ(table.size(), 40U);
    EXPECT_EQ(table[39].Count, 2);
    send("Forty", 1);
    send("Forty", 2, 1);
    EXPECT_EQ(front->seen, QStringList("1:1"));
    EXPECT_EQ(back->seen, QStringList("1:2"));
}

TEST_F(SubscriptionsTest, CountsDecideAndHolesAreKept) {
    Probe* none = add(1, Kind::AngularGauge, &first);
    none->table.assign(1, QStringLiteral("Five"));
    none->table.setCount(0);
    Probe* holed = add(2, Kind::AngularGauge, &first);
    holed->table.assign(3, QStringLiteral("Five"));
    holed->table.assign(1, QStringLiteral("Five"));
    Probe* hidden = add(0, Kind::AngularGauge, &first);
    hidden->table.assign(1, QStringLiteral("Five"));
    Probe* tag = add(1, Kind::TextTag, &first);
    tag->table.assign(1, QStringLiteral("Five"));
    table = subscriptionsOf(instruments);
    send("Five", 7);
    EXPECT_TRUE(none->seen.isEmpty());
    EXPECT_TRUE(hidden->seen.isEmpty());
    EXPECT_TRUE(tag->seen.isEmpty());
    EXPECT_EQ(holed->seen, QStringList({"1:7", "3:7"}));
    ASSERT_EQ(table.size(), 5U);
    EXPECT_EQ(table[4].Count, 2);
}

TEST_F(SubscriptionsTest, GraphsGetTheirColumnsByAxis) {
    Probe* graph = add(1, Kind::XYGraph, &first);
    graph->table.assign(1, QStringLiteral("Five"), 0);
    graph->table.assign(1, QStringLiteral("Forty"), 1);
    graph->table.assign(2, QStringLiteral("Five"), 1);
    Probe* onlyY = add(1, Kind::TimeGraph, &first);
    onlyY->table.assign(1, QStringLiteral("Forty"), 1);
    onlyY->table.set(1, QStringLiteral("Five"), 0); // a name without a count
    Probe* model = add(0, Kind::TimeGraph, &first);
    table = subscriptionsOf(instruments);
    EXPECT_EQ(graph->cleared + onlyY->cleared + model->cleared, 3);
    send("Five", 1);
    send("Forty", 2);
    EXPECT_EQ(graph->seen, QStringList({"1/0:1", "2/1:1", "1/1:2"}));
    EXPECT_EQ(onlyY->seen, QStringList("1/1:2"));
}

/// Pin 1 to the last that there is, and one more, whose needle, pointer, portion or track was removed.
TEST_F(SubscriptionsTest, APinBeyondTheSectionsMovesNothing) {
    for (const KindInfo& info : kInstrumentKinds) {
        if (info.kind == Kind::TextTag) continue;
        instruments.adopt(1, makeInstrument(info.kind, &first));
        Instrument& instrument = *instruments.all().back().instrument;
        const std::int16_t sections = instrument.inCTRL().properties().table().parts().pinCountProperty;
        if (sections != kNoNumber) instrument.inCTRL().properties().setNumber(sections, 3);
        const auto beyond = static_cast<std::int16_t>(instrument.pinCount() + 1);
        for (const std::uint8_t axis : {std::uint8_t{0}, std::uint8_t{1}}) {
            instrument.AssignPin(beyond - 1, axis, QStringLiteral("Five"));
            instrument.AssignPin(beyond, axis, QStringLiteral("FortyOne"));
        }
        table = subscriptionsOf(instruments);
        const auto state = [&] {
            QStringList list;
            instrument.Serialise(list);
            return list;
        };
        const QStringList before = state();
        send("FortyOne", 77);
        if (sections != kNoNumber) {
            instrument.refreshValue(beyond, 77);
            for (const std::uint8_t axis : {std::uint8_t{0}, std::uint8_t{1}})
                instrument.refreshValue(beyond, axis, 77);
        }
        EXPECT_EQ(state(), before) << info.className;
        send("Five", 42);
        EXPECT_NE(state(), before) << info.className << ": the last pin does";
        instruments.removeFrom(&first);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(SubscriptionsTest, NamesThatAreNoneDoNoHarm) {
    table = subscriptionsOf(instruments);
    EXPECT_EQ(table.size(), 1U);
    send("Five", 1); // nothing bound: above the table
    bound("Five", &first);
    Probe* unknown = bound("No such name", &first);
    Probe* empty = bound("", &first);
    table = subscriptionsOf(instruments);
    EXPECT_EQ(table.size(), 8000U); // the unknown name waits on the inert row
    send("FortyOne", 1);
    send("", 2);
    EXPECT_TRUE(empty->seen.isEmpty());
    EXPECT_TRUE(unknown->seen.isEmpty());
    EXPECT_EQ(table[7999].Count, 1);
    send("Nobody", 3);
    EXPECT_EQ(unknown->seen, QStringList("1:3"));
}

TEST_F(SubscriptionsTest, AFaultyInstrumentLeavesTheOthersServed) {
    bound("Five", &first)->fails = true;
    Probe* after = bound("Five", &first);
    table = subscriptionsOf(instruments);
    send("Five", 4);
    EXPECT_EQ(after->seen, QStringList("1:4"));
}

TEST_F(SubscriptionsTest, ARemovedInstrumentLivesUntilTheNextRebuild) {
    QPointer<Instrument> removed = bound("Five", &first);
    table = subscriptionsOf(instruments);
    instruments.removeFrom(&first);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(removed);
    send("Five", 1);
    table = subscriptionsOf(instruments);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(removed);
}

} // namespace
} // namespace vistor
