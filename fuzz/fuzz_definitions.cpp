// Any bytes as a definition file: reading ends, takes no more memory than the bytes allow, and what was read
// is written as the same bytes again. What can be told in tables survives them.
#include "maths/DefinitionTables.h"
#include "maths/LoadAndSaveVariableDefinitions.h"

#include <algorithm>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace vistor;
    const auto read = readDefinitions({reinterpret_cast<const char*>(data), size});
    if (!read) return 0;
    const QByteArray bytes = definitionBytes(read->units, read->variables);
    if (static_cast<std::size_t>(bytes.size()) > size) std::abort();
    if (!std::equal(bytes.begin(), bytes.end(), reinterpret_cast<const char*>(data))) std::abort();

    if (size % 16 != 0) return 0; // tables of 8001 rows take long; some inputs are enough for them
    TableFault fault;
    const DefinitionTables tables = printTables(*read);
    const auto again = readTables(tables, fault);
    if (!again) return 0; // keys and names that clash or dangle
    const DefinitionTables twice = printTables(*again);
    if (twice.variables != tables.variables || twice.units != tables.units) std::abort();
    return 0;
}
