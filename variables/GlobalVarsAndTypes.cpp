#include "variables/GlobalVarsAndTypes.h"

namespace vistor {

std::vector<VariableDefinition> VariableTable;
std::vector<VariableDefinition> VariableTableEdit;
std::vector<UnitConversion> UnitConversions;
std::array<QString, 25> VariableSlots;
std::array<QString, 4> UnitSlots;
std::array<double, kVariableCount> SampleTime{};
std::array<double, kVariableCount> SampleDistance{};
std::array<float, kVariableCount> LastValue{};
std::array<std::int32_t, kVariableCount> IndexNumbers{};
std::vector<std::uint8_t> StreamBytes;
std::int32_t StreamPos = 0;
std::int32_t EmptyReadCount = 0;
QString DataSourceDescriptor;
std::int16_t RunFileHandle = -1;
float TimeBase = kLiveTimeBase;
bool PlayMode = false;
bool TagsVisible = false;
bool PropertiesWindowShown = false;
float IgnitionPulsesPerRev = 1;
std::array<float, 16> CarConstants{};
QString DecimalSeparator = QStringLiteral(".");
QString VariableFilePath;
QString WorkingFolder;
QString SettingsPath;
QString LibraryPath;
std::vector<std::shared_ptr<FormulaEvaluator>> FormulaEvaluators;
std::shared_ptr<ScriptFunctions> ScriptObject;
std::uint64_t tableRevision = 1;

void tableChanged() {
    ++tableRevision;
}

void ResetGlobals() {
    VariableTable.clear();
    VariableTableEdit.clear();
    UnitConversions.clear();
    VariableSlots.fill({});
    UnitSlots.fill({});
    SampleTime.fill(0);
    SampleDistance.fill(0);
    LastValue.fill(0);
    IndexNumbers.fill(0);
    StreamBytes.clear();
    StreamPos = 0;
    EmptyReadCount = 0;
    DataSourceDescriptor.clear();
    RunFileHandle = -1;
    TimeBase = kLiveTimeBase;
    PlayMode = false;
    TagsVisible = false;
    PropertiesWindowShown = false;
    IgnitionPulsesPerRev = 1;
    CarConstants.fill(0);
    DecimalSeparator = QStringLiteral(".");
    VariableFilePath.clear();
    WorkingFolder.clear();
    SettingsPath.clear();
    LibraryPath.clear();
    FormulaEvaluators.clear();
    ScriptObject.reset();
    tableChanged();
}

} // namespace vistor
