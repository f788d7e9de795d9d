// Any bytes as the file of car constants: each key has one finite number, and the file stays as it is.
#include "fuzz/Harness.h"
#include "maths/FileSupportFunctions.h"

#include <cmath>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace vistor;
    const QString path = fileOf("Car.cfg", data, size);
    for (const char* key : {"IGNTIONPULSESREV", "CDAVAL", "CARCONSTANT10", ""}) {
        if (!std::isfinite(ReadConfigValue(path, QLatin1String(key)))) std::abort();
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.readAll() != bytesOf(data, size)) std::abort();
    return 0;
}
