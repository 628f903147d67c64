#pragma once

// Bytes in memory as a source of bytes.

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "base/byte_source.h"

namespace tarnwick {

/// Returns at most pieceSize bytes at once, as a source may.
class CMemorySource final : public TByteSource {
  public:
    explicit CMemorySource(std::span<const std::uint8_t> bytes, std::size_t pieceSize = 1 << 20)
        : m_bytes(bytes), m_pieceSize(pieceSize) {}

    std::size_t Read(std::span<std::uint8_t> bytes) override {
        const std::size_t count = std::min({bytes.size(), m_bytes.size(), m_pieceSize});
        std::copy_n(m_bytes.begin(), count, bytes.begin());
        m_bytes = m_bytes.subspan(count);
        return count;
    }

  private:
    std::span<const std::uint8_t> m_bytes;
    std::size_t m_pieceSize;
};

}  // namespace tarnwick
