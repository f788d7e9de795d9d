#include "tools/StreamDump.h"

#include "acquisition/StreamDecoder.h"
#include "acquisition/StreamEncoder.h"
#include "variables/Constants.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <map>
#include <ostream>
#include <string_view>

namespace vistor {
namespace {

constexpr std::string_view kReasons[] = {"none",         "outside a frame", "too long",
                                         "wrong escape", "wrong length",    "wrong checksum"};

/// The shortest text that reads back as the same number of the same width.
template <typename Number>
struct Shortest {
    Number value;
    friend std::ostream& operator<<(std::ostream& out, Shortest number) {
        char text[32];
        const auto end = std::to_chars(text, text + sizeof text, number.value).ptr;
        return out << std::string_view(text, static_cast<std::size_t>(end - text));
    }
};
template <class Number>
Shortest(Number) -> Shortest<Number>;

struct Item {
    std::int32_t position = 0;
    std::int32_t number = 0;
    std::int32_t count = 0;
    std::int32_t junkBytes = 0;
    JunkReason reason = JunkReason::none;
    bool isMessage = false;
    bool wide = false;
    std::array<double, 21> values{};
    std::array<std::int32_t, 21> channels{};
};

/// Where the stream begins: behind the head of a run file when there is one.
std::int32_t streamStart(const std::vector<std::uint8_t>& bytes) {
    const std::vector<std::uint8_t> head = runFileHead(); // of which the kind may be another
    const bool isRunFile =
        bytes.size() >= head.size() && std::equal(head.begin(), head.begin() + 4, bytes.begin());
    return isRunFile ? static_cast<std::int32_t>(head.size()) : 0;
}

/// Calls `use` with each message and each run of junk; answers where reading stopped.
template <typename Use>
std::int32_t eachItem(const std::vector<std::uint8_t>& bytes, Use use) {
    StreamDecoder decoder;
    Item item;
    std::span<const std::uint8_t> raw;
    std::int32_t position = streamStart(bytes), third = 0, status = 0;
    const auto last = static_cast<std::int32_t>(
        std::min<std::size_t>(bytes.size(), std::numeric_limits<std::int32_t>::max()) - 1);
    while (status != kNoMessageNow) {
        item.position = position;
        decoder.DecodeMessage(bytes, position, last, item.values, item.channels, item.count, raw,
                              item.junkBytes, third, item.number, status, true);
        item.reason = static_cast<JunkReason>(third);
        item.isMessage = status == kMessageDecoded;
        item.wide = item.isMessage && (raw[1] & kWideValuesFlag) != 0;
        if (item.isMessage || item.reason != JunkReason::none) use(item);
    }
    return position;
}

/// What is left from there on, without zeros and the opening delimiter.
std::ptrdiff_t unreadBytes(const std::vector<std::uint8_t>& bytes, std::int32_t position) {
    return std::count_if(bytes.begin() + std::min<std::ptrdiff_t>(position, std::ssize(bytes)), bytes.end(),
                         [](std::uint8_t byte) { return byte != 0 && byte != kFrameDelimiter; });
}

void printHead(const std::vector<std::uint8_t>& bytes, std::ostream& out) {
    if (streamStart(bytes) > 0)
        out << "run file, version " << bytes[4] + 256 * bytes[5] << '\n';
    else
        out << "no run file head\n";
}

struct ChannelSummary {
    std::int64_t count = 0;
    double least = 0, most = 0, last = 0;

    void add(double value) {
        least = count == 0 ? value : std::min(least, value);
        most = count == 0 ? value : std::max(most, value);
        last = value;
        ++count;
    }
};

struct Summary {
    std::map<std::int32_t, std::int64_t> messages;
    std::map<std::int32_t, ChannelSummary> channels;
    std::map<JunkReason, std::pair<std::int64_t, std::int64_t>> junk; ///< times and bytes
    ChannelSummary time;

    void add(const Item& item) {
        if (!item.isMessage) {
            auto& [times, size] = junk[item.reason];
            ++times;
            size += item.junkBytes;
            return;
        }
        ++messages[item.number];
        for (std::size_t i = 0; i < static_cast<std::size_t>(item.count); ++i)
            channels[item.channels[i]].add(item.values[i]);
        if (item.count == 1 && item.channels[0] == kTimeVariable) time.add(item.values[0]);
    }
};

void printSummary(const Summary& summary, std::ostream& out) {
    std::int64_t messages = 0, values = 0, junk = 0;
    for (const auto& [number, count] : summary.messages) messages += count;
    for (const auto& [channel, one] : summary.channels) values += one.count;
    for (const auto& [reason, one] : summary.junk) junk += one.first;
    out << messages << " messages, " << values << " values, " << junk << " skipped\n";
    if (summary.time.count > 0)
        out << "time " << Shortest{summary.time.least} << " to " << Shortest{summary.time.most} << " s\n";
    for (const auto& [number, count] : summary.messages) out << "message " << number << ": " << count << '\n';
    for (const auto& [channel, one] : summary.channels)
        out << "channel " << channel << ": " << one.count << " values, " << Shortest{one.least} << " to "
            << Shortest{one.most} << ", last " << Shortest{one.last} << '\n';
    for (const auto& [reason, one] : summary.junk)
        out << "skipped, " << kReasons[static_cast<std::size_t>(reason)] << ": " << one.first << " times, "
            << one.second << " bytes\n";
}

} // namespace

void dumpMessages(const std::vector<std::uint8_t>& bytes, std::ostream& out) {
    printHead(bytes, out);
    const std::int32_t stopped = eachItem(bytes, [&out](const Item& item) {
        out << item.position << ": ";
        if (!item.isMessage) {
            out << "skipped " << item.junkBytes << " bytes, "
                << kReasons[static_cast<std::size_t>(item.reason)] << '\n';
            return;
        }
        out << "message " << item.number;
        for (std::size_t i = 0; i < static_cast<std::size_t>(item.count); ++i) {
            out << (i == 0 ? "  " : ", ") << item.channels[i] << '=';
            if (item.wide)
                out << Shortest{item.values[i]};
            else
                out << Shortest{static_cast<float>(item.values[i])};
        }
        out << '\n';
    });
    if (const auto rest = unreadBytes(bytes, stopped); rest > 0)
        out << stopped << ": " << rest << " bytes without a closing delimiter\n";
}

void dumpSummary(const std::vector<std::uint8_t>& bytes, std::ostream& out) {
    printHead(bytes, out);
    Summary summary;
    const std::int32_t stopped = eachItem(bytes, [&summary](const Item& item) { summary.add(item); });
    printSummary(summary, out);
    if (const auto rest = unreadBytes(bytes, stopped); rest > 0)
        out << rest << " bytes at the end without a closing delimiter\n";
}

} // namespace vistor
