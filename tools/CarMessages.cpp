#include "tools/CarMessages.h"

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kGravity = 9.81;
constexpr double kHalfTrackWidth = 0.78; // m
constexpr double kLatitude = 48.2;       // of the start line, degrees
constexpr double kLongitude = 11.0;
constexpr double kMetresPerDegree = 111'200;    // north
constexpr double kMetresPerDegreeEast = 74'100; // at that latitude
constexpr double kStartHeight = 487;            // m above the sea

double kmh(const CarSimulation& car) {
    return car.state().speed * 3.6;
}
double wheelSpeed(const CarSimulation& car, double side, double slip) {
    return std::max(kmh(car) * (1 + side * kHalfTrackWidth * car.state().place.curvature) * (1 + slip), 0.0);
}
double drivenSlip(const CarSimulation& car) {
    return 0.035 * car.state().power * std::min(30 / std::max(car.state().speed, 8.0), 1.0);
}
double brakedSlip(const CarSimulation& car) {
    return -0.04 * car.state().brake;
}
double brakeVolts(const CarSimulation& car, double fullBar) {
    return 0.5 + 4.0 * car.state().brake * fullBar / 100;
}
double damper(const CarSimulation& car, double rest, double dive, double roll) {
    const CarState& now = car.state();
    return std::max(rest + (dive * now.longitudinal + roll * now.lateral) / kGravity +
                        0.0012 * now.speed * now.speed,
                    0.0);
}
double courseDegrees(const CarSimulation& car) {
    const double heading = car.state().place.heading;
    return heading - 360 * std::floor(heading / 360);
}

struct Sensor {
    std::uint16_t channel;
    double (*read)(const CarSimulation&);
    double noise = 0;            ///< deviation
    bool absentWhenZero = false; ///< a time that has not been taken yet
    bool isSpeed = false;        ///< never below 0, and no noise while the car stands
};

using Car = const CarSimulation&;

constexpr Sensor kEngineSpeed[] = {
    {2, [](Car c) { return c.state().engineSpeed * kPulsesPerRev; }, 14},
};
constexpr Sensor kDriving[] = {
    {4, [](Car c) { return kmh(c); }, 0.08, false, true},
    {10, [](Car c) { return c.state().throttle * 100; }, 0.05},
    {16, [](Car c) { return static_cast<double>(c.state().gear); }},
    {17, [](Car c) { return c.state().distance; }},
    {200, [](Car c) { return wheelSpeed(c, 1, brakedSlip(c)); }, 0.15, false, true},
    {201, [](Car c) { return wheelSpeed(c, -1, brakedSlip(c)); }, 0.15, false, true},
    {202, [](Car c) { return wheelSpeed(c, 1, drivenSlip(c) + brakedSlip(c) / 2); }, 0.2, false, true},
    {203, [](Car c) { return wheelSpeed(c, -1, drivenSlip(c) + brakedSlip(c) / 2); }, 0.2, false, true},
    {204, [](Car c) { return brakeVolts(c, 78); }, 0.004},
    {205, [](Car c) { return brakeVolts(c, 49); }, 0.004},
    {206, [](Car c) { return c.state().steering; }, 0.15},
    {207, [](Car c) { return c.state().lateral / kGravity; }, 0.02},
    {208, [](Car c) { return c.state().longitudinal / kGravity; }, 0.02},
    {209, [](Car c) { return damper(c, 28, -7, 9); }, 0.9},
    {210, [](Car c) { return damper(c, 28, -7, -9); }, 0.9},
    {211, [](Car c) { return damper(c, 33, 6, 8); }, 0.8},
    {212, [](Car c) { return damper(c, 33, 6, -8); }, 0.8},
};
constexpr Sensor kEngine[] = {
    {90, [](Car c) { return c.state().oilPressure; }, 0.03},
    {91, [](Car c) { return c.state().fuelPressure; }, 0.02},
    {100, [](Car c) { return c.state().lambda; }, 0.006},
    {213, [](Car c) { return c.state().fuelFlow; }, 0.15},
};
constexpr Sensor kGps[] = {
    {30, [](Car c) { return kLatitude + c.state().place.north / kMetresPerDegree; }, 2e-6},
    {31, [](Car c) { return kLongitude + c.state().place.east / kMetresPerDegreeEast; }, 3e-6},
    {400, [](Car c) { return kmh(c); }, 0.1, false, true},
    {401, [](Car c) { return courseDegrees(c); }},
    {402, [](Car c) { return kStartHeight + c.state().place.height; }, 0.4},
    {403, [](Car c) { return 9 + std::floor((1 + c.state().place.north / 2000) * 2); }},
};
constexpr Sensor kTiming[] = {
    {300, [](Car c) { return static_cast<double>(c.times().lap); }},
    {301, [](Car c) { return c.times().lapTime; }},
    {302, [](Car c) { return c.times().lastLap; }, 0, true},
    {303, [](Car c) { return c.times().bestLap; }, 0, true},
    {304, [](Car c) { return static_cast<double>(c.times().sector); }},
    {305, [](Car c) { return c.times().sectorTime; }},
    {306, [](Car c) { return c.times().lastSectors[0]; }, 0, true},
    {307, [](Car c) { return c.times().lastSectors[1]; }, 0, true},
    {308, [](Car c) { return c.times().lastSectors[2]; }, 0, true},
};
constexpr Sensor kSlow[] = {
    {15, [](Car c) { return c.state().voltage; }, 0.03},
    {70, [](Car c) { return c.state().coolant; }, 0.1},
    {72, [](Car c) { return c.state().oil; }, 0.1},
    {74, [](Car c) { return c.state().air; }, 0.05},
    {214, [](Car c) { return c.state().fuelLevel; }, 0.08},
    {215, [](Car c) { return c.state().exhaust; }, 2},
};

struct MessageKind {
    std::uint8_t number;
    int every; ///< calls
    int phase; ///< keeps slow messages out of one another's way
    ValueWidth width;
    std::span<const Sensor> sensors;
};

constexpr MessageKind kKinds[] = {
    {kEngineSpeedMessage, 1, 0, ValueWidth::bits32, kEngineSpeed},
    {2, 1, 0, ValueWidth::bits32, kDriving},
    {3, 5, 0, ValueWidth::bits32, kEngine},
    {4, 5, 1, ValueWidth::bits64, kGps},
    {5, 5, 2, ValueWidth::bits32, kTiming},
    {6, 10, 3, ValueWidth::bits32, kSlow},
};
constexpr std::uint8_t kTimeMessage = 1;
constexpr std::uint16_t kTimeChannel = 1;

} // namespace

std::vector<std::uint8_t> CarMessages::timeFrame(double time) {
    std::vector<std::uint8_t> frame;
    const ChannelValue values[] = {{kTimeChannel, time}};
    appendMessage(frame, kTimeMessage, values);
    return frame;
}

std::vector<std::vector<std::uint8_t>> CarMessages::next(const CarSimulation& car) {
    std::vector<std::vector<std::uint8_t>> frames = {timeFrame(car.state().time)};
    const bool rests = car.state().speed == 0;
    std::vector<ChannelValue> values;
    for (const MessageKind& kind : kKinds) {
        if (m_calls % kind.every != kind.phase) continue;
        values.clear();
        for (const Sensor& sensor : kind.sensors) {
            const double value = sensor.read(car);
            const double noisy = sensor.noise > 0 ? value + sensor.noise * m_random.noise() : value;
            if (sensor.absentWhenZero && value == 0) continue;
            const double sent = !sensor.isSpeed ? noisy : rests ? 0 : std::max(noisy, 0.0);
            values.push_back({sensor.channel, sent});
        }
        appendMessage(frames.emplace_back(), kind.number, values, kind.width);
    }
    ++m_calls;
    return frames;
}

} // namespace vistor
