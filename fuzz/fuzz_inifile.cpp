// Any bytes as an initialisation file: parsing ends, and writing what was read is stable from the second time
// on.
#include "platform/IniFile.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using vistor::IniFile;
    const auto parse = [](const QByteArray& bytes) {
        return IniFile::parse({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    };
    IniFile file = IniFile::parse({reinterpret_cast<const char*>(data), size});
    file.setValue(QStringLiteral("VXVISTOR"), QStringLiteral("GRIDSIZE"), QStringLiteral("120"));
    const QByteArray once = file.toBytes();
    const IniFile again = parse(once);
    if (again.toBytes() != once) std::abort();
    if (again.value(QStringLiteral("vxvistor"), QStringLiteral("gridsize"), {}, 10) != QStringLiteral("120"))
        std::abort();
    vistor::leadingNumber(again.value(QStringLiteral("A"), QStringLiteral("B"), {}, 200));
    return 0;
}
