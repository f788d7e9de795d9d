// The car's numbers: those that a person measures and enters. In: the car file, or what was entered. Out: the
// file with them, and the running program's own numbers.
#pragma once

#include <QString>

#include <array>
#include <optional>
#include <span>

namespace vistor {

struct CarSetting {
    const char* key;     ///< in the car file
    int constant;        ///< its place in CarConstants; -1 for the ignition pulses, which formulas do not see
    const char* name;    ///< in formulas
    const char* caption; ///< in plain words
    const char* unit;
    double low; ///< what it may be
    double high;
};

inline constexpr std::size_t kCarSettings = 14;
/// Ignition pulses, then air drag, rolling resistance and mass, then the ten constants of formulas.
std::span<const CarSetting, kCarSettings> carSettings();

/// In the order of the settings; no value for one that the file does not have.
using CarNumbers = std::array<std::optional<double>, kCarSettings>;

QString carFile();
CarNumbers readCarNumbers();
/// Writes the numbers that differ from the file's and leaves all else in it as it is. Empty when that is
/// done, else why not, in words; then the file stands as it was.
QString writeCarNumbers(const CarNumbers& numbers);
/// Brings the numbers of the file into the running program: into the pipeline, formulas and scripts.
void takeCarNumbers();
/// Tells the person which numbers of the car are missing and what that does.
void tellMissingCarNumbers();

} // namespace vistor
