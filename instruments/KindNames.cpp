// The kinds by name, which files need without any window.
#include "instruments/InstrumentKinds.h"

#include <algorithm>

namespace vistor {

std::optional<Kind> kindOf(const QString& className) {
    const auto* found =
        std::find_if(kInstrumentKinds.begin(), kInstrumentKinds.end(),
                     [&](const KindInfo& info) { return className == QLatin1String(info.className); });
    if (found == kInstrumentKinds.end()) return {};
    return found->kind;
}

} // namespace vistor
