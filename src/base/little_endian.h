#pragma once

// Integers in the byte order of all our files, whatever the processor's own order and alignment.
// The loops compile to one load or store on x86-64.

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace tarnwick {

/// Reads sizeof(T) bytes from bytes. The caller has checked that they are there.
template <std::integral T>
constexpr T LoadLittleEndian(const std::uint8_t* bytes) noexcept {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        value |= std::uint64_t{bytes[i]} << (8 * i);
    }
    return static_cast<T>(value);
}

/// Writes sizeof(T) bytes to bytes. The caller has checked that they have room.
template <std::integral T>
constexpr void StoreLittleEndian(std::uint8_t* bytes, T value) noexcept {
    const auto bits = static_cast<std::uint64_t>(static_cast<std::make_unsigned_t<T>>(value));
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        bytes[i] = static_cast<std::uint8_t>(bits >> (8 * i));
    }
}

}  // namespace tarnwick
