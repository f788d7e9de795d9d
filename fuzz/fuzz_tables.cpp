// Any text as the two readable tables of definitions, parted by a form feed: they are read, and what is
// printed of them reads back as the same, or the fault has a line and words.
#include "fuzz/Harness.h"
#include "maths/DefinitionTables.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace vistor;
    const QByteArray text = bytesOf(data, size);
    const qsizetype end = text.indexOf('\f');
    const DefinitionTables tables{end < 0 ? QByteArray() : text.mid(end + 1), text.left(end)};
    TableFault fault;
    const auto read = readTables(tables, fault);
    if (!read) {
        if (fault.line < 1 || fault.message.isEmpty() || fault.file.isEmpty()) std::abort();
        return 0;
    }
    const DefinitionTables printed = printTables(*read);
    const auto again = readTables(printed, fault);
    if (!again || again->variables != read->variables) std::abort();
    return 0;
}
