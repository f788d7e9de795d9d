// Numbers and names that the whole program agrees on.
#pragma once

namespace vistor {

inline constexpr int kVariableCount =
    8001;                                 ///< elements 0 to 8000 of every array addressed by variable number
inline constexpr int kTimeVariable = 1;   ///< the logger's time in seconds; paces recorded data
inline constexpr int kDistanceRow = 17;   ///< its IndexNumber names the distance variable
inline constexpr int kNoVariable = 8000;  ///< the inert row on which failed look-ups land
inline constexpr int kCalculatedType = 4; ///< VariableType of the calculated rows
inline constexpr int kFileMark = 7576;    ///< ends a definition file and begins a run file
inline constexpr float kLiveTimeBase = -99.0F; ///< TimeBase of a live source, or of none
inline constexpr float kNotStartedTimeBase = -1.0F;
inline constexpr int kTickMilliseconds = 20;

} // namespace vistor
