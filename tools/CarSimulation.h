// A racing car and its driver on a closed track. In: a seed. Out: the state of the car, one step of 10
// milliseconds after the other; the same for the same seed on every machine.
#pragma once

#include "tools/LapTimer.h"
#include "tools/Random.h"
#include "tools/Track.h"

#include <vector>

namespace vistor {

struct CarState {
    double time = 0;         ///< s
    double distance = 0;     ///< m since the start line of the first lap
    double speed = 0;        ///< m/s
    double longitudinal = 0; ///< m/s², positive when accelerating
    double lateral = 0;      ///< m/s², positive in right-hand corners
    double throttle = 0;     ///< 0 to 1
    double brake = 0;        ///< 0 to 1
    double steering = 0;     ///< degrees at the steering wheel, positive to the right
    int gear = 1;            ///< 0 is neutral
    double engineSpeed = 0;  ///< rpm
    double power = 0;        ///< share of the engine's best, 0 to 1
    TrackPoint place;

    double coolant = 0, oil = 0, air = 0, exhaust = 0; ///< °C
    double oilPressure = 0, fuelPressure = 0;          ///< bar
    double lambda = 1;
    double voltage = 0;
    double fuelFlow = 0;  ///< l/h
    double fuelLevel = 0; ///< l
};

class CarSimulation {
public:
    static constexpr double kStep = 0.01; ///< s

    explicit CarSimulation(std::uint64_t seed);

    void step();
    const CarState& state() const { return m_state; }
    const LapTimes& times() const { return m_timer.times(); }
    const Track& track() const { return m_track; }

private:
    double wantedAcceleration();
    void movePedals(double wanted);
    void changeGear();
    void turnEngine();
    void moveCar();
    void steer();
    void runFluids();

    Track m_track;
    std::vector<double> m_profile; ///< m/s at each metre of the lap
    LapTimer m_timer;
    Random m_random;
    CarState m_state;
    long m_steps = 0;
    double m_skill = 1;     ///< share of the possible speed that the driver dares
    double m_shiftLeft = 0; ///< s until the clutch is closed again
};

} // namespace vistor
