#include "tools/CarSimulation.h"

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kGravity = 9.81;
constexpr double kMass = 1050;             // kg
constexpr double kBestPower = 270e3;       // W
constexpr double kDrag = 0.5 * 1.2 * 0.85; // N for each (m/s)²
constexpr double kRolling = 0.015 * kMass * kGravity;
constexpr double kTraction = 7.5; // m/s², what the driven wheels take
constexpr double kWheelbase = 2.6;
constexpr double kSteeringRatio = 12;
constexpr double kRadian = 57.29577951308232; // degrees
constexpr Grip kGrip = {.lateral = 13.5, .lateralPerSpeedSquared = 0.0016, .braking = 12.5, .topSpeed = 71};

constexpr double kIdle = 950; // rpm
constexpr double kLaunch = 4800;
constexpr double kTopEngineSpeed = 7400;
constexpr double kUpshift = 7150;
constexpr double kDownshift = 6350; // a lower gear is taken when the engine stays below this in it
constexpr double kGearTops[] = {0, 80 / 3.6, 114 / 3.6, 150 / 3.6, 188 / 3.6, 226 / 3.6, 266 / 3.6};
constexpr int kTopGear = 6;
constexpr double kUpshiftTime = 0.11; // s
constexpr double kDownshiftTime = 0.16;
constexpr double kStandingTime = 3; // s on the grid before the start

/// Share of the best power over the engine speed, in steps of 1000 rpm.
constexpr double kPowerCurve[] = {0.02, 0.10, 0.24, 0.40, 0.56, 0.74, 0.90, 1.0, 0.96};

double powerAt(double engineSpeed) {
    const double place = std::clamp(engineSpeed / 1000, 0.0, 7.99);
    const auto index = static_cast<std::size_t>(place);
    const double part = place - static_cast<double>(index);
    return kPowerCurve[index] + (kPowerCurve[index + 1] - kPowerCurve[index]) * part;
}

/// What comes to rest at `target` with the time constant `seconds`.
void approach(double& value, double target, double seconds) {
    value += (target - value) * std::min(CarSimulation::kStep / seconds, 1.0);
}

double engineSpeedIn(int gear, double speed) {
    return kTopEngineSpeed * speed / kGearTops[gear];
}

} // namespace

CarSimulation::CarSimulation(std::uint64_t seed)
    : m_profile(m_track.speedProfile(kGrip)), m_timer(m_track.length()), m_random(seed) {
    m_state.engineSpeed = kIdle;
    m_state.air = 21 + 6 * m_random.uniform();
    m_state.coolant = 52;
    m_state.oil = 46;
    m_state.exhaust = 310;
    m_state.oilPressure = 2.4;
    m_state.fuelPressure = 4;
    m_state.voltage = 12.6;
    m_state.fuelLevel = 45;
    m_state.place = m_track.at(0);
}

void CarSimulation::step() {
    ++m_steps;
    m_state.time = static_cast<double>(m_steps) * kStep;
    movePedals(wantedAcceleration());
    changeGear();
    turnEngine();
    moveCar();
    steer();
    runFluids();
    if (m_state.time >= kStandingTime) m_timer.advance(m_state.distance, m_state.time - kStandingTime);
}

/// The driver looks a little ahead and wants to be at the profile's speed there. Tyres are cold at first, and
/// no two corners are driven alike.
double CarSimulation::wantedAcceleration() {
    if (m_state.time < kStandingTime) return -5;
    if (m_steps % 200 == 0) approach(m_skill, 0.965 + 0.03 * m_random.noise(), 2 * kStep);
    const double warm = 0.93 + 0.07 * std::min(m_state.distance / 2500, 1.0);
    const double ahead = m_state.distance + m_state.speed * 0.12;
    const double inLap = ahead - std::floor(ahead / m_track.length()) * m_track.length();
    const auto index =
        std::min(static_cast<std::size_t>(inLap * static_cast<double>(m_profile.size()) / m_track.length()),
                 m_profile.size() - 1);
    return (m_profile[index] * std::min(m_skill, 1.0) * warm - m_state.speed) / 0.22;
}

void CarSimulation::movePedals(double wanted) {
    const double resistance = (kDrag * m_state.speed * m_state.speed + kRolling) / kMass;
    const double full =
        std::min(kBestPower * powerAt(m_state.engineSpeed) / kMass / std::max(m_state.speed, 4.0), kTraction);
    const bool coasting = wanted < 0 && wanted > -1.5 * resistance - 0.4;
    const double throttle = wanted > -resistance && !coasting ? (wanted + resistance) / full : 0;
    const double brake = coasting || wanted > 0 ? 0 : (-wanted - resistance) / kGrip.braking;
    approach(m_state.throttle, std::clamp(throttle, 0.0, 1.0), 0.09);
    approach(m_state.brake, std::clamp(brake, 0.0, 1.0), 0.05);
    if (m_state.brake < 0.004) m_state.brake = 0;
}

void CarSimulation::changeGear() {
    m_shiftLeft = std::max(m_shiftLeft - kStep, 0.0);
    if (m_shiftLeft > 0 || m_state.time < kStandingTime) return;
    const double speed = m_state.speed;
    if (m_state.gear < kTopGear && engineSpeedIn(m_state.gear, speed) > kUpshift) {
        ++m_state.gear;
        m_shiftLeft = kUpshiftTime;
    } else if (m_state.gear > 1 && engineSpeedIn(m_state.gear - 1, speed) < kDownshift) {
        --m_state.gear;
        m_shiftLeft = kDownshiftTime;
    }
}

void CarSimulation::turnEngine() {
    const bool starting = m_state.gear == 1 && m_state.throttle > 0.2;
    const double slipping = starting ? kLaunch : kIdle;
    const double target = m_state.time < kStandingTime
                              ? kIdle + 40 * m_random.noise()
                              : std::max(engineSpeedIn(m_state.gear, m_state.speed), slipping);
    approach(m_state.engineSpeed, std::min(target, kTopEngineSpeed), 0.035);
    const double used = m_shiftLeft > 0 ? 0.05 : m_state.throttle;
    m_state.power = m_state.time < kStandingTime ? 0 : used * powerAt(m_state.engineSpeed);
}

void CarSimulation::moveCar() {
    CarState& car = m_state;
    const double drive = std::min(kBestPower * car.power / kMass / std::max(car.speed, 4.0), kTraction);
    const double resistance = (kDrag * car.speed * car.speed + kRolling) / kMass;
    const double engineBraking = car.throttle < 0.05 ? 0.6 : 0;
    const double sum = drive - resistance - engineBraking - car.brake * kGrip.braking;
    const double speed = car.time < kStandingTime ? 0 : std::max(car.speed + sum * kStep, 0.0);
    approach(car.longitudinal, (speed - car.speed) / kStep, 0.03);
    car.distance += (car.speed + speed) / 2 * kStep;
    car.speed = speed;
    car.place = m_track.at(car.distance);
}

void CarSimulation::steer() {
    const double curvature = m_state.place.curvature;
    const double squared = m_state.speed * m_state.speed;
    const double angle = curvature * (kWheelbase + 0.0018 * squared) * kRadian * kSteeringRatio;
    const double corrections = m_random.noise() * std::min(std::abs(curvature) * squared, 15.0) * 0.9;
    approach(m_state.steering, angle + corrections, 0.07);
    approach(m_state.lateral, curvature * squared, 0.05);
}

/// Everything that follows the load on the engine, each with its own lag.
void CarSimulation::runFluids() {
    CarState& car = m_state;
    const double load = car.power;
    const double revs = car.engineSpeed / kTopEngineSpeed;
    const double cooling = std::min(car.speed / 40, 1.0);
    approach(car.coolant, 84 + 16 * load - 4 * cooling, 55);
    approach(car.oil, 92 + 26 * load, 95);
    car.air += 0.003 * load * kStep;
    approach(car.exhaust, 430 + 440 * load + 60 * revs, 2.2);
    const double thickness = 1 + (100 - car.oil) * 0.005;
    const double oilPressure = 0.6 + 5.6 * thickness * revs / (revs + 0.4) - 0.02 * std::abs(car.lateral);
    approach(car.oilPressure, std::clamp(oilPressure, 0.0, 7.2), 0.15);
    approach(car.fuelPressure, 4.05 - 0.3 * load, 0.1);
    const bool overrun = car.throttle < 0.05 && car.engineSpeed > 2000;
    approach(car.lambda, overrun ? 1.32 : 1.0 - 0.12 * car.throttle, overrun ? 0.25 : 0.12);
    approach(car.voltage, revs > 0.2 ? 13.95 : 13.2, 0.8);
    approach(car.fuelFlow, overrun ? 0.4 : 2.6 + 112 * load, 0.08);
    car.fuelLevel = std::max(car.fuelLevel - car.fuelFlow / 3600 * kStep, 0.0);
}

} // namespace vistor
