// Any bytes as a Profile: reading ends within its bounds, and what was read comes back from being written as
// it was.
#include "dashboard/ProfileFile.h"

#include <array>
#include <cstdlib>

namespace {

using namespace vistor;

QByteArray written(const Profile& profile) {
    IniFile file;
    WriteProfileLayout(profile, file);
    WriteProfileInstruments(profile, file);
    return file.toBytes();
}

/// Gives what a window gives that has loaded it: a size, and instruments with numbers of their own.
void takeIn(Profile& profile) {
    profile.width = profile.width.value_or(0);
    profile.height = profile.height.value_or(0);
    std::array<int, kInstrumentKinds.size()> counts{};
    for (ProfileInstrument& instrument : profile.instruments)
        instrument.index = ++counts.at(static_cast<std::size_t>(instrument.kind));
}

std::size_t itemsOf(const Profile& profile) {
    std::size_t items = 0;
    for (const ProfileInstrument& instrument : profile.instruments)
        items += static_cast<std::size_t>(instrument.list.size());
    return items;
}

bool inBounds(const Profile& profile, std::size_t size) {
    for (const ProfileInstrument& instrument : profile.instruments)
        if (instrument.tab < 0 || instrument.tab >= kMostTabs) return false;
    const std::size_t items = itemsOf(profile);
    return items <= size + 4096 && profile.captions.size() <= kMostTabs &&
           profile.instruments.size() <= static_cast<std::size_t>(kMostInstruments);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const IniFile file = IniFile::parse({reinterpret_cast<const char*>(data), size});
    Profile profile = readProfile(file);
    if (!inBounds(profile, size)) std::abort();
    if (profile.instruments.size() >= 100) return 0; // longer numbers do not fit in the names of sections
    // Pages and items that are only declared are written out one by one; some inputs are enough for them.
    const bool isLarge = profile.captions.size() > 20 || itemsOf(profile) > size;
    if (isLarge && size % 64 != 0) return 0;
    takeIn(profile);
    const QByteArray once = written(profile);
    Profile again = readProfile(IniFile::parse({once.constData(), static_cast<std::size_t>(once.size())}));
    takeIn(again);
    if (written(again) != once) std::abort();
    return 0;
}
