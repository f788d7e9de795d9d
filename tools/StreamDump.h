// What a stream holds, in words. In: the bytes of a run file or of a captured line. Out: text, one line a
// message.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <vector>

namespace vistor {

/// Prints every message and every skipped run of bytes.
void dumpMessages(const std::vector<std::uint8_t>& bytes, std::ostream& out);

/// Prints counts alone: of messages by number, of values by channel with their ranges, of junk by its reason.
void dumpSummary(const std::vector<std::uint8_t>& bytes, std::ostream& out);

} // namespace vistor
