#include "tables/simple_rle.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <new>

#include "base/chess_exception.h"
#include "base/filled_text.h"
#include "base/little_endian.h"

#include "tables/lz4e_stream.h"
#include "tables/table_file_texts.h"

namespace tarnwick {
namespace {

constexpr std::uint64_t GroupElements = 2048;
constexpr std::size_t HeadBytes = 8;
constexpr std::uint8_t MarkOfUnknownByte = 255;
/// A repeat byte is the run's length and this; the shortest run is of two.
constexpr std::uint8_t RepeatBase = 126;
constexpr std::uint8_t FirstRepeat = 128;
constexpr std::uint64_t LongestRun = 128;

constexpr bool IsRepeat(std::uint8_t byte) {
    return byte >= FirstRepeat && byte != MarkOfUnknownByte;
}

/// The runs of one group.
void AppendGroup(std::span<const std::uint8_t> group, std::vector<std::uint8_t>& stream) {
    for (std::size_t at = 0; at < group.size();) {
        const auto sameUntil =
            std::find_if(group.begin() + static_cast<std::ptrdiff_t>(at), group.end(),
                         [&](std::uint8_t value) { return value != group[at]; });
        const auto run = std::min<std::uint64_t>(
            LongestRun, static_cast<std::uint64_t>(sameUntil - group.begin()) - at);
        stream.push_back(group[at]);
        if (run > 1) {
            stream.push_back(static_cast<std::uint8_t>(run + RepeatBase));
        }
        at += run;
    }
}

std::string PercentOf(std::size_t part, std::size_t whole) {
    char text[40];
    std::snprintf(text, sizeof text, "%0.2f",
                  whole == 0 ? 0.0 : static_cast<double>(part) * 100 / static_cast<double>(whole));
    return text;
}

}  // namespace

std::optional<std::vector<std::uint8_t>> MakeSimpleRle(std::span<const std::uint8_t> table) {
    if (std::ranges::any_of(table, IsRepeat)) {
        return std::nullopt;
    }
    const std::uint64_t groups = (table.size() + GroupElements - 1) / GroupElements;
    const std::uint64_t streamAt = HeadBytes + 4 * groups;
    std::vector<std::uint8_t> bytes(streamAt);
    for (std::uint64_t group = 0; group < groups; ++group) {
        const std::uint64_t start = bytes.size() - streamAt;
        StoreLittleEndian(&bytes[HeadBytes + 4 * group], static_cast<std::uint32_t>(start));
        const auto elements = table.subspan(group * GroupElements);
        AppendGroup(elements.first(std::min(elements.size(), GroupElements)), bytes);
        if (bytes.size() > std::numeric_limits<std::uint32_t>::max()) {
            return std::nullopt;
        }
    }
    StoreLittleEndian(&bytes[0], static_cast<std::uint32_t>(bytes.size()));
    StoreLittleEndian(&bytes[4], static_cast<std::uint32_t>(groups));
    return bytes;
}

// --- Reading ---

std::optional<CSimpleRle> CSimpleRle::FromBytes(std::vector<std::uint8_t> bytes) {
    if (bytes.size() < HeadBytes || LoadLittleEndian<std::uint32_t>(&bytes[0]) != bytes.size()) {
        return std::nullopt;
    }
    CSimpleRle table(std::move(bytes));
    const std::uint64_t streamAt = HeadBytes + std::uint64_t{4} * table.Groups();
    if (streamAt > table.m_bytes.size()) {
        return std::nullopt;
    }
    const std::uint64_t streamSize = table.m_bytes.size() - streamAt;
    std::uint32_t last = 0;
    for (std::uint32_t group = 0; group < table.Groups(); ++group) {
        const std::uint32_t start = table.GroupStart(group);
        if (start < last || start > streamSize) {
            return std::nullopt;
        }
        last = start;
    }
    return table;
}

std::uint32_t CSimpleRle::Groups() const noexcept {
    return LoadLittleEndian<std::uint32_t>(&m_bytes[4]);
}

std::uint32_t CSimpleRle::GroupStart(std::uint32_t group) const noexcept {
    return LoadLittleEndian<std::uint32_t>(&m_bytes[HeadBytes + std::size_t{4} * group]);
}

std::optional<std::uint8_t> CSimpleRle::ValueAt(std::uint64_t index) const noexcept {
    const std::uint64_t group = index / GroupElements;
    if (group >= Groups()) {
        return std::nullopt;
    }
    const auto number = static_cast<std::uint32_t>(group);
    const auto stream = std::span(m_bytes).subspan(HeadBytes + std::size_t{4} * Groups());
    const std::size_t end = number + 1 < Groups() ? GroupStart(number + 1) : stream.size();
    std::uint64_t before = 0;  // elements that the bytes so far stand for
    std::optional<std::uint8_t> value;
    for (std::size_t at = GroupStart(number); at < end; ++at) {
        if (!IsRepeat(stream[at])) {
            value = stream[at];
            ++before;
        } else if (value) {
            before += stream[at] - RepeatBase - 1U;
        } else {
            return std::nullopt;  // nothing to repeat
        }
        if (before > index % GroupElements) {
            return value;
        }
    }
    return std::nullopt;
}

std::optional<std::uint16_t> CSimpleRle::PliesAt(std::uint64_t index) const noexcept {
    const std::optional<std::uint8_t> value = ValueAt(index);
    if (!value || *value == 0) {
        return value;
    }
    return static_cast<std::uint16_t>(2 * *value - 1);
}

// --- Packing ---

bool PackSimple(std::span<const std::uint8_t> table, const std::filesystem::path& path,
                TUserDialog& dialog) {
    try {
        const auto packed = MakeSimpleRle(table);
        if (!packed || !dialog.Ask(FilledText(TextPossibleSaving,
                                              {PercentOf(packed->size(), table.size())}))) {
            return false;
        }
        WriteLz4eFile(path, *packed);
        return true;
    } catch (const std::bad_alloc&) {
        dialog.Tell(UserText(TextNotEnoughMemory));
    } catch (const ChessException& exception) {
        dialog.Tell(UserText(TextErrorOccurred) + (std::string(": ") + exception.what()));
    }
    return false;
}

bool PackSimple(const CRandomAccessFile& file, std::uint64_t elementCount,
                const std::filesystem::path& path, TUserDialog& dialog) {
    if (elementCount > file.Size()) {
        dialog.Tell(UserText(TextErrorReadingTable));
        return false;
    }
    std::vector<std::uint8_t> table;
    try {
        table.resize(elementCount);
    } catch (const std::exception&) {  // bad_alloc, or a length that no vector has
        dialog.Tell(UserText(TextNotEnoughMemory));
        return false;
    }
    if (!file.ReadAt(0, table)) {
        dialog.Tell(UserText(TextErrorReadingTable));
        return false;
    }
    return PackSimple(table, path, dialog);
}

}  // namespace tarnwick
