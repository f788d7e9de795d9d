// Any bytes as a text file of variables or of unit conversions: reading ends and keeps the table's size, and
// a document that was read and can be written again comes back the same.
#include "maths/modXML.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace vistor;
    XmlDocument document;
    if (!document.parse({reinterpret_cast<const char*>(data), size})) return 0;
    UnitSlots.fill({});
    storeUnits(document);
    VariableSlots.fill({});
    storeVariables(document);
    if (VariableTable.size() != static_cast<std::size_t>(kVariableCount)) std::abort();

    // What was written is what a second round writes: nothing is lost that could be read.
    const QByteArray bytes = xvrBytes(VariableTable);
    XmlDocument again;
    if (!again.parse({bytes.constData(), static_cast<std::size_t>(bytes.size())})) return 0; // "<" in a text
    VariableSlots.fill({});
    storeVariables(again);
    if (VariableTable[kNoVariable].IndexNumber == kNoVariable && xvrBytes(VariableTable) != bytes)
        std::abort();
    return 0;
}
