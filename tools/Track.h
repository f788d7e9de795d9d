// The circuit on which the simulated car drives: some three kilometres, eight corners, closed. In: nothing
// but the tables in the source. Out: where the road runs, and how fast a car can be on it.
#pragma once

#include <vector>

namespace vistor {

struct TrackPoint {
    double east = 0;      ///< m from the start line
    double north = 0;     ///< m
    double height = 0;    ///< m
    double heading = 0;   ///< degrees, clockwise from north; goes on beyond 360
    double curvature = 0; ///< 1/m, positive in right-hand corners
};

/// What a car's tyres and brakes can do, in m/s².
struct Grip {
    double lateral = 0;
    double lateralPerSpeedSquared = 0; ///< what downforce adds, for each (m/s)²
    double braking = 0;
    double topSpeed = 0; ///< m/s
};

/// Only +, -, *, / and square roots are used, so that a lap is the same to the last bit on every machine.
class Track {
public:
    Track();

    double length() const { return m_length; } ///< m
    /// The road at a distance from the start line; any distance, laps and all.
    TrackPoint at(double distance) const;

    /// The highest speed in m/s at each metre of the lap from which every corner ahead can still be made.
    std::vector<double> speedProfile(const Grip& grip) const;

private:
    void layRoad();
    void smoothCurvature();
    void close();
    void raiseHills();

    std::vector<TrackPoint> m_points; ///< one each m_step
    double m_length = 0;
    double m_step = 0; ///< about 1 m
};

} // namespace vistor
