#include "tools/SimulatedStream.h"

#include "acquisition/StreamEncoder.h"

namespace vistor {
namespace {

constexpr double kAfterTheLine = 2; // s, so that the last times are sent several times
constexpr int kStepsPerMessage = 2;
static_assert(kStepsPerMessage * CarSimulation::kStep * 1000 == kMessageMilliseconds);

} // namespace

SimulatedStream::SimulatedStream(const SimulationOptions& options)
    : m_options(options), m_car(options.seed), m_messages(options.seed + 1), m_random(options.seed + 2) {}

std::vector<std::uint8_t> SimulatedStream::next() {
    const bool quiet = silent();
    std::vector<std::uint8_t> bytes;
    for (std::vector<std::uint8_t>& frame : m_messages.next(m_car)) {
        if (m_random.uniform() * 100 < m_options.corruptPercent) damage(frame);
        if (!quiet) bytes.insert(bytes.end(), frame.begin(), frame.end());
    }
    for (int i = 0; i < kStepsPerMessage; ++i) m_car.step();
    if (m_lapsDone < 0 && m_options.laps > 0 && m_car.times().lap > m_options.laps) m_lapsDone = time();
    return bytes;
}

bool SimulatedStream::finished() const {
    return m_lapsDone >= 0 && time() >= m_lapsDone + kAfterTheLine;
}

/// What lines do to bytes: change one, lose one, or put one more in.
void SimulatedStream::damage(std::vector<std::uint8_t>& frame) {
    const auto place = static_cast<std::ptrdiff_t>(m_random.bits() % frame.size());
    const auto byte = static_cast<std::uint8_t>(1 + m_random.bits() % 255); // a zero would do no harm
    const auto kind = m_random.bits() % 3;
    if (kind == 0)
        frame[static_cast<std::size_t>(place)] ^= byte;
    else if (kind == 1)
        frame.erase(frame.begin() + place);
    else
        frame.insert(frame.begin() + place, byte);
}

bool SimulatedStream::silent() {
    if (!m_options.dropOut) return false;
    if (time() >= m_silenceEnds) {
        m_silenceBegins = time() + 8 + 12 * m_random.uniform();
        m_silenceEnds = m_silenceBegins + 0.5 + 2 * m_random.uniform();
    }
    return time() >= m_silenceBegins;
}

std::vector<std::uint8_t> simulateRunFile(const SimulationOptions& options) {
    SimulatedStream stream(options);
    std::vector<std::uint8_t> file = runFileHead();
    while (!stream.finished()) {
        const double time = stream.time();
        std::vector<std::uint8_t> bytes = stream.next();
        if (bytes.empty()) bytes = CarMessages::timeFrame(time); // a recording's pace goes on in a drop-out
        file.insert(file.end(), bytes.begin(), bytes.end());
    }
    return file;
}

} // namespace vistor
