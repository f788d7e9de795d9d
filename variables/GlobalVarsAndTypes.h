// The program-wide data: the table of variables, their running state and what else every subsystem reads. One
// thread, one owner: the application. Nothing here is locked. Tests start from ResetGlobals().
#pragma once

#include "variables/Constants.h"

#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace vistor {

class FormulaEvaluator;
class ScriptFunctions;

/// A Boolean as it stands in records: 16 bits, true is -1, whatever else is not 0 counts as true and is kept
/// as it is.
using Bool16 = std::int16_t;
inline constexpr Bool16 kTrue16 = -1;
inline constexpr Bool16 kFalse16 = 0;

/// One row of the table. What every sample reads stands together at the head, in one cache line but for the
/// last text.
struct alignas(64) VariableDefinition {
    Bool16 UseCustomTrans = kFalse16;
    Bool16 Available = kFalse16; ///< rewritten by SetupVariables after every load
    float MaximumROC = 0;        ///< setting of the rate stage; not above 0 is off
    float SmoothingTime = 0;     ///< time constant in seconds; not above 0 is off
    std::int32_t Calculus = 0;   ///< 0 none, 1 and 2 integrate and differentiate by time, 3 and 4 by distance
    float DefaultMin = 0;        ///< limits of the clamp; none unless the upper is above the lower
    float DefaultMax = 0;
    QString ApplyTransformation;   ///< key of the unit conversion in use
    QString CustomTransformation;  ///< the person's own formula; "0" is none
    std::int32_t IndexNumber = 0;  ///< the variable's number; 0 marks an empty row
    std::int32_t VariableType = 0; ///< group 1 to 9
    Bool16 Enabled = kFalse16;     ///< shown in the tree; rewritten by SetupVariables
    Bool16 AlwaysOn = kFalse16;
    QString ConstantName; ///< BaseName and unit text in brackets, derived by SetupVariables
    QString PhysicalName; ///< the stable key by which pins and profiles refer to the variable
    QString BaseName;     ///< the name a person sees and edits
    std::int32_t FilterDesign =
        0;                   ///< 0 none, 4 Butterworth, 5 Chebyshev; kept and shown, no stage of the pipeline
    float FilterLowVal = 0;  ///< Hz
    float FilterHighVal = 0; ///< Hz
    float FilterRipple = 0;  ///< dB
    std::int32_t FilterOrder = 0;
    /// Keys of the conversions to choose from. No value: never allocated, which files tell from an empty
    /// list.
    std::optional<QStringList> AllowTransformations;
    std::int32_t allowLowerBound = 0; ///< lower bound of that array as its file had it
    QString CustomUnits;
    QString Description;
    std::uint8_t Misc = 0;

    bool operator==(const VariableDefinition&) const = default;
};

/// One row of the unit conversions table.
struct UnitConversion {
    QString UnitName;    ///< the key that ApplyTransformation and AllowTransformations hold
    QString Description; ///< the unit's long name
    QString Conversion;  ///< a formula
    QString Uniit;       ///< the short label
};

extern std::vector<VariableDefinition>
    VariableTable; ///< the live table; written by loads and committed edits
extern std::vector<VariableDefinition> VariableTableEdit; ///< the working copy of tree and dialogs
extern std::vector<UnitConversion> UnitConversions;       ///< written together with VariableTable

extern std::array<QString, 25>
    VariableSlots; ///< texts of the block that the reader of text files is in; kept between its calls
extern std::array<QString, 4> UnitSlots; ///< the same for a unit conversion

extern std::array<double, kVariableCount>
    SampleTime; ///< the program's clock at the last sample, a timeStamp(), 0: none; by the pipeline
extern std::array<double, kVariableCount> SampleDistance; ///< distance at the last sample; by the pipeline
extern std::array<float, kVariableCount> LastValue; ///< last output of the pipeline; by the decoding loop
extern std::array<std::int32_t, kVariableCount>
    IndexNumbers; ///< copy of each row's IndexNumber, filled at start-up

extern std::vector<std::uint8_t>
    StreamBytes;                     ///< bytes not yet discarded, empty: no storage; by source and loop
extern std::int32_t StreamPos;       ///< 0 to the last byte of StreamBytes; by the decoding loop
extern std::int32_t EmptyReadCount;  ///< serial reads in a row that brought nothing; by the data source
extern QString DataSourceDescriptor; ///< "SER,...", "GSM,..." or "FIL,..."; by the source window
extern std::int16_t RunFileHandle;   ///< above 0 while a run file is open, else -1; by the data source
extern float TimeBase;   ///< -99 live, -1 recorded and not started, else the program's clock at the start
extern bool PlayMode;    ///< true while acquisition runs; written by the dashboard's mode commands
extern bool TagsVisible; ///< the labels command's state; written by TagsOn
extern bool PropertiesWindowShown;         ///< the properties window follows the mouse
extern float IgnitionPulsesPerRev;         ///< 0.1 to 20; from the car file
extern std::array<float, 16> CarConstants; ///< CdA, Roll, Mass, Temp, Press, Humid, CAR_1 to 10; by start-up
extern QString DecimalSeparator;           ///< of the person's locale; by start-up
extern QString VariableFilePath;           ///< the definition file in use; empty when none was found
extern QString WorkingFolder;              ///< where the program keeps its files; ends in "/"
extern QString SettingsPath;               ///< "vxvis.cfg" in the working folder
extern QString LibraryPath;                ///< "VisControl.cfg" in the working folder

/// One evaluator a row, made at start-up and kept to the end.
extern std::vector<std::shared_ptr<FormulaEvaluator>> FormulaEvaluators;
extern std::shared_ptr<ScriptFunctions> ScriptObject; ///< what scripts see as "Math"; made at start-up

/// Counts the changes of the two tables. Whoever changes names, types or conversions calls tableChanged()
/// (the set-up pass does), and indexes built from the tables compare this number before they answer.
extern std::uint64_t tableRevision;
void tableChanged();

/// Puts everything above back to what it is before start-up.
void ResetGlobals();

} // namespace vistor
