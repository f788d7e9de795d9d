#include "instruments/displays/StripTraces.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <malloc.h>
#include <random>

namespace vistor {
namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

Extremes walked(const std::vector<double>& values, std::size_t first, std::size_t last) {
    Extremes found;
    for (std::size_t i = first; i < last; ++i) found.take(values[i]);
    return found;
}

/// Takes some stretches whole, at random, and follows the rest step by step.
struct SomeWholeWalker {
    std::mt19937& random;
    Extremes found;
    double at; ///< X, whole numbers one after the other

    bool block(double x0, double x1, const Extremes& y) {
        if (random() % 2 == 0) return false;
        EXPECT_EQ(x0, at);
        at = x1;
        found.take(y);
        return true;
    }
    void step(double x0, double y0, double x1, double) {
        EXPECT_EQ(x0, at);
        EXPECT_EQ(x1, ++at);
        found.take(y0);
    }
    void end(double x, double y) {
        EXPECT_EQ(x, at);
        found.take(y);
    }
};

/// The newest `capacity` of all Y that were added.
std::vector<double> newest(const std::vector<double>& all, std::size_t capacity) {
    return {all.end() - static_cast<std::ptrdiff_t>(std::min(capacity, all.size())), all.end()};
}

TEST(TraceRing, TellsTheExtremesOfAnyStretch) {
    std::mt19937 random(7);
    for (const std::size_t capacity : {1U, 2U, 7U, 8U, 9U, 64U, 65U, 600U}) {
        TraceRing ring;
        ring.setCapacity(capacity);
        std::vector<double> all;
        for (std::size_t i = 0; i < 3 * capacity + 5; ++i) {
            // Few values, so that equal extremes come and go; now and then a spike.
            all.push_back(random() % 97 == 0 ? 1000.0 + double(random() % 3) : double(random() % 11));
            ASSERT_TRUE(ring.add(double(i), all.back()));
            const std::vector<double> held = newest(all, capacity);
            ASSERT_EQ(ring.size(), held.size());
            ASSERT_EQ(ring.extremes(), walked(held, 0, held.size())) << capacity << " after " << i;
            const std::size_t first = random() % held.size();
            const std::size_t last = first + random() % (held.size() - first + 1);
            SomeWholeWalker walker{random, {}, ring.x(first)};
            ring.walk({first, last}, walker);
            ASSERT_EQ(walker.found, walked(held, first, last)) << first << " to " << last;
            ASSERT_EQ(ring.y(held.size() - 1), held.back());
        }
    }
}

TEST(TraceRing, LeavesOutWhatIsNotFinite) {
    TraceRing ring;
    for (const double bad : {kNotANumber, kInfinite, -kInfinite}) {
        EXPECT_FALSE(ring.add(bad, 1));
        EXPECT_FALSE(ring.add(1, bad));
    }
    EXPECT_EQ(ring.size(), 0U);
    EXPECT_TRUE(ring.extremes().empty());
    EXPECT_EQ(ring.runCount(), 0U);
}

TEST(TraceRing, BeginsARunWhereXJumpsBack) {
    TraceRing ring;
    ring.setCapacity(6);
    const auto runs = [&] {
        std::vector<std::vector<double>> list;
        for (std::size_t n = ring.runCount(); n-- > 0;) {
            list.emplace_back();
            for (std::size_t i = ring.run(n).first; i < ring.run(n).last; ++i)
                list.back().push_back(ring.x(i));
        }
        return list;
    };
    using Runs = std::vector<std::vector<double>>;
    for (const double x : {1, 2, 2, 0, 1}) ring.add(x, 0);
    EXPECT_EQ(runs(), (Runs{{1, 2, 2}, {0, 1}}));
    for (const double x : {5, 4, 9}) ring.add(x, 0);
    EXPECT_EQ(runs(), (Runs{{2}, {0, 1, 5}, {4, 9}}));
    ring.add(10, 0);
    EXPECT_EQ(runs(), (Runs{{0, 1, 5}, {4, 9, 10}}));
    ring.setCapacity(4);
    EXPECT_EQ(runs(), (Runs{{5}, {4, 9, 10}}));
    ring.setCapacity(100);
    ring.add(0, 0);
    EXPECT_EQ(runs(), (Runs{{5}, {4, 9, 10}, {0}}));
    ring.clear();
    EXPECT_EQ(ring.runCount(), 0U);
    for (int i = 0; i < 5000; ++i) ring.add(-i, 0);
    EXPECT_LE(ring.runCount(), TraceRing::kMostRuns);
}

TEST(TraceRing, RemembersGapsAsLongAsTheirPoints) {
    TraceRing ring;
    ring.setCapacity(6);
    ring.interrupt(); // before the first point there is nothing to part
    const auto stretches = [&] {
        std::vector<std::pair<std::size_t, std::size_t>> all;
        for (std::size_t i = 0; i <= ring.gapCount(); ++i)
            all.emplace_back(ring.stretch(i).first, ring.stretch(i).last);
        return all;
    };
    using Stretches = std::vector<std::pair<std::size_t, std::size_t>>;
    for (int x = 0; x < 4; ++x) {
        if (x == 2) ring.interrupt();
        ring.add(x, x);
    }
    EXPECT_EQ(stretches(), (Stretches{{2, 4}, {0, 2}}));
    EXPECT_EQ(ring.runCount(), 2U) << "a line of time ends there too";
    EXPECT_TRUE(ring.gapSince(2));
    EXPECT_FALSE(ring.gapSince(3));
    ring.interrupt();
    ring.interrupt();
    EXPECT_EQ(ring.gapCount(), 1U) << "none without a point behind it";
    ring.add(1, 1); // also a jump back
    EXPECT_EQ(stretches(), (Stretches{{4, 5}, {2, 4}, {0, 2}}));
    EXPECT_EQ(ring.runCount(), 3U);
    ring.setCapacity(4);
    EXPECT_EQ(stretches(), (Stretches{{3, 4}, {1, 3}, {0, 1}}));
    EXPECT_EQ(ring.extremes().high, 3);
    ring.add(2, 2);
    EXPECT_EQ(stretches(), (Stretches{{2, 4}, {0, 2}})) << "the oldest stretch has gone";
    for (int x = 3; x < 7; ++x) ring.add(x, x);
    EXPECT_EQ(stretches(), (Stretches{{0, 4}}));
    ring.interrupt();
    ring.clear();
    ring.add(0, 0);
    EXPECT_EQ(ring.gapCount(), 0U);
    EXPECT_EQ(ring.runCount(), 1U);
}

TEST(TraceRing, FindsAPlaceHoweverFarTheGuess) {
    TraceRing ring;
    ring.setCapacity(200);
    std::mt19937 random(3);
    double x = 0;
    for (int i = 0; i < 350; ++i) ring.add(x += double(random() % 4), 0);
    std::vector<double> held;
    for (std::size_t i = 0; i < ring.size(); ++i) held.push_back(ring.x(i));
    for (int i = 0; i < 2000; ++i) {
        const std::size_t from = random() % held.size();
        const double wanted = held.front() - 2 + double(random() % 1300) / 2;
        const auto found =
            std::lower_bound(held.begin() + static_cast<std::ptrdiff_t>(from), held.end(), wanted);
        EXPECT_EQ(ring.firstFrom(from, held.size(), wanted, random() % 300),
                  static_cast<std::size_t>(found - held.begin()));
    }
}

TEST(TraceRing, TakesNoMemoryOnceFull) {
    TraceRing ring;
    ring.setCapacity(5000);
    for (int i = 0; i < 5000; ++i) ring.add(i, i % 13);
    const auto before = mallinfo2().uordblks;
    for (int i = 0; i < 40'000; ++i) ring.add(i % 777, i % 17); // laps
    EXPECT_EQ(mallinfo2().uordblks, before);
    EXPECT_EQ(ring.size(), 5000U);
}

} // namespace
} // namespace vistor
