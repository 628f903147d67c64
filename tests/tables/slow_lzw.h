#pragma once

// LZW by the book, with strings in sorted maps: what the packer and the unpacker of blocks are compared with.
// It shares nothing with them.

#include <algorithm>
#include <cstdint>
#include <map>
#include <stdexcept>
#include <vector>

namespace tarnwick {

template <typename TElement>
class CSlowLzw {
  public:
    using TString = std::vector<TElement>;

    /// The initial strings by code, and how many there may be.
    CSlowLzw(std::vector<TString> initial, std::size_t mostEntries)
        : m_initial(std::move(initial)), m_mostEntries(mostEntries) {}

    std::vector<std::uint8_t> Pack(const TString& elements) const {
        std::map<TString, std::size_t> codes;
        for (const TString& entry : m_initial) {
            codes.emplace(entry, codes.size());
        }
        std::vector<bool> bits;
        TString present;
        for (const TElement element : elements) {
            TString longer = present;
            longer.push_back(element);
            if (codes.contains(longer)) {
                present = std::move(longer);
                continue;
            }
            AppendCode(codes.at(present), WidthFor(codes.size()), bits);
            if (codes.size() < m_mostEntries) {
                codes.emplace(std::move(longer), codes.size());
            }
            present = {element};
        }
        AppendCode(codes.at(present), WidthFor(codes.size()), bits);
        return Bytes(bits);
    }

    /// Throws std::out_of_range for a code that cannot be.
    TString Unpack(const std::vector<std::uint8_t>& packed, std::size_t count) const {
        std::vector<TString> entries = m_initial;
        TString unpacked;
        TString last;
        std::size_t bit = 0;
        while (unpacked.size() < count) {
            const bool bAdds = !last.empty() && entries.size() < m_mostEntries;
            std::size_t code = 0;
            const std::size_t width = WidthFor(entries.size() + (bAdds ? 1 : 0));
            for (std::size_t i = 0; i < width; ++i, ++bit) {
                code |= std::size_t{(packed.at(bit / 8) >> (bit % 8)) & 1U} << i;
            }
            if (bAdds) {
                TString entry = last;
                entry.push_back(code < entries.size() ? entries[code].front() : last.front());
                entries.push_back(entry);
            }
            last = entries.at(code);
            unpacked.insert(unpacked.end(), last.begin(), last.end());
        }
        return unpacked;
    }

  private:
    static std::size_t WidthFor(std::size_t entries) {
        std::size_t width = 0;
        while ((std::size_t{1} << width) <= entries) {
            ++width;
        }
        return width;
    }

    static void AppendCode(std::size_t code, std::size_t width, std::vector<bool>& bits) {
        for (std::size_t i = 0; i < width; ++i) {
            bits.push_back((code >> i & 1) != 0);
        }
    }

    static std::vector<std::uint8_t> Bytes(const std::vector<bool>& bits) {
        std::vector<std::uint8_t> bytes((bits.size() + 7) / 8);
        for (std::size_t i = 0; i < bits.size(); ++i) {
            bytes[i / 8] |= static_cast<std::uint8_t>((bits[i] ? 1 : 0) << (i % 8));
        }
        return bytes;
    }

    std::vector<TString> m_initial;
    std::size_t m_mostEntries;
};

/// The initial strings of older files: small values with the mark behind them, and runs of the mark.
template <typename TElement>
std::vector<std::vector<TElement>> SlowSeeds(bool bPlain) {
    const auto mark = static_cast<TElement>(-1);
    const int values = sizeof(TElement) == 1 ? 256 : 1024;
    std::vector<std::vector<std::int64_t>>
        strings;  // the mark as -1, so that 16-bit ones sort first
    for (int value = 0; value < values; ++value) {
        strings.push_back({value});
        if (!bPlain && value >= 1 && value <= 20) {
            strings.push_back({value, sizeof(TElement) == 1 ? 255 : -1});
        }
    }
    for (std::size_t length = sizeof(TElement) == 1 ? 2 : 1; !bPlain && length <= 128; ++length) {
        strings.emplace_back(length, sizeof(TElement) == 1 ? 255 : -1);
    }
    std::ranges::sort(strings);
    std::vector<std::vector<TElement>> seeds;
    for (const auto& string : strings) {
        std::vector<TElement> seed;
        for (const std::int64_t element : string) {
            seed.push_back(element < 0 ? mark : static_cast<TElement>(element));
        }
        seeds.push_back(seed);
    }
    return seeds;
}

}  // namespace tarnwick
