#include "tools/Track.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace vistor {
namespace {

constexpr double kDegree = 0.017453292519943295; // rad

struct Section {
    double length; ///< m, of a straight
    double angle;  ///< degrees, of a corner; to the right is positive
    double radius; ///< m
};

/// From the start line on. The corners add up to one full turn and the straights bring the road back to its
/// start.
constexpr Section kSections[] = {
    {546, 0, 0},     {0, 95, 54.6},  {234, 0, 0},     {0, -60, 97.5}, {182, 0, 0}, {0, 130, 35.1},
    {145.985, 0, 0}, {0, -45, 169},  {78, 0, 0},      {0, 100, 80.6}, {286, 0, 0}, {0, 50, 44.2},
    {0, -50, 44.2},  {494.99, 0, 0}, {0, 140, 104.0}, {208, 0, 0},
};

/// Height above the start line in m, at even parts of the lap.
constexpr double kHills[] = {0, 2, 9, 14, 8, -3, -6, -1};

constexpr int kTransition = 12; // points on each side over which a corner opens and closes

double lengthOf(const Section& section) {
    return section.angle == 0 ? section.length : std::abs(section.angle) * kDegree * section.radius;
}

double mix(double from, double to, double part) {
    return from + (to - from) * part;
}

} // namespace

Track::Track() {
    for (const Section& section : kSections) m_length += lengthOf(section);
    m_points.resize(static_cast<std::size_t>(m_length));
    m_step = m_length / static_cast<double>(m_points.size());
    layRoad();
    smoothCurvature();
    close();
    raiseHills();
}

void Track::layRoad() {
    std::size_t section = 0;
    double end = lengthOf(kSections[0]);
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        while ((static_cast<double>(i) + 0.5) * m_step > end && section + 1 < std::size(kSections))
            end += lengthOf(kSections[++section]);
        const Section& now = kSections[section];
        m_points[i].curvature = now.angle == 0 ? 0 : (now.angle > 0 ? 1 : -1) / now.radius;
    }
}

void Track::smoothCurvature() {
    const auto size = static_cast<std::ptrdiff_t>(m_points.size());
    std::vector<double> smooth(m_points.size());
    double turned = 0;
    for (std::ptrdiff_t i = 0; i < size; ++i) {
        double sum = 0;
        for (std::ptrdiff_t k = -kTransition; k <= kTransition; ++k)
            sum += m_points[static_cast<std::size_t>((i + k + size) % size)].curvature;
        smooth[static_cast<std::size_t>(i)] = sum / (2 * kTransition + 1);
        turned += smooth[static_cast<std::size_t>(i)] * m_step;
    }
    const double correction = 360 * kDegree / turned; // corners begin and end on whole points only
    for (std::size_t i = 0; i < m_points.size(); ++i) m_points[i].curvature = smooth[i] * correction;
}

void Track::close() {
    double sine = 0, cosine = 1, heading = 0, east = 0, north = 0;
    for (TrackPoint& point : m_points) {
        point.east = east;
        point.north = north;
        point.heading = heading / kDegree;
        const double turn = point.curvature * m_step;
        const double turnedSine = sine + cosine * turn - sine * turn * turn / 2;
        const double turnedCosine = cosine - sine * turn - cosine * turn * turn / 2;
        const double norm = std::sqrt(turnedSine * turnedSine + turnedCosine * turnedCosine);
        east += (sine + turnedSine / norm) / 2 * m_step;
        north += (cosine + turnedCosine / norm) / 2 * m_step;
        sine = turnedSine / norm;
        cosine = turnedCosine / norm;
        heading += turn;
    }
    for (std::size_t i = 0; i < m_points.size(); ++i) { // what is left open is shared out over the lap
        const double part = static_cast<double>(i) / static_cast<double>(m_points.size());
        m_points[i].east -= east * part;
        m_points[i].north -= north * part;
    }
}

void Track::raiseHills() {
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        const double place =
            static_cast<double>(i * std::size(kHills)) / static_cast<double>(m_points.size());
        const auto hill = static_cast<std::size_t>(place);
        const double part = place - static_cast<double>(hill);
        m_points[i].height =
            mix(kHills[hill], kHills[(hill + 1) % std::size(kHills)], part * part * (3 - 2 * part));
    }
}

TrackPoint Track::at(double distance) const {
    const double laps = std::floor(distance / m_length);
    const double place = (distance - laps * m_length) / m_step;
    const std::size_t index = std::min(static_cast<std::size_t>(std::max(place, 0.0)), m_points.size() - 1);
    const double part = place - static_cast<double>(index);
    const TrackPoint& from = m_points[index];
    TrackPoint to = m_points[(index + 1) % m_points.size()];
    if (index + 1 == m_points.size()) to.heading += 360;
    return {mix(from.east, to.east, part), mix(from.north, to.north, part), mix(from.height, to.height, part),
            mix(from.heading, to.heading, part) + 360 * laps, mix(from.curvature, to.curvature, part)};
}

std::vector<double> Track::speedProfile(const Grip& grip) const {
    const std::size_t size = m_points.size();
    std::vector<double> speeds(size);
    for (std::size_t i = 0; i < size; ++i) {
        const double left = std::abs(m_points[i].curvature) - grip.lateralPerSpeedSquared;
        const double squared = left > 0 ? grip.lateral / left : grip.topSpeed * grip.topSpeed;
        speeds[i] = std::min(std::sqrt(squared), grip.topSpeed);
    }
    // Backwards, twice round, so that the last braking zone reaches over the start line. What the tyres need
    // for the corner is not there for braking.
    for (std::size_t k = 2 * size; k-- > 0;) {
        const std::size_t i = k % size;
        const double ahead = speeds[(i + 1) % size];
        const double limit = grip.lateral + grip.lateralPerSpeedSquared * ahead * ahead;
        const double share = std::min(std::abs(m_points[i].curvature) * ahead * ahead / limit, 1.0);
        const double braking = grip.braking * std::sqrt(1 - share * share);
        speeds[i] = std::min(speeds[i], std::sqrt(ahead * ahead + 2 * braking * m_step));
    }
    return speeds;
}

} // namespace vistor
