#include "platform/page_memory.h"

#include <sys/mman.h>

#include <cstdint>
#include <cstring>
#include <new>

namespace tarnwick {
namespace {

constexpr std::size_t HugePage = std::size_t{2} << 20;

void* Map(std::size_t bytes) {
    void* data = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (data == MAP_FAILED) {
        throw std::bad_alloc();
    }
    return data;
}

/// Only whole aligned stretches of 2 MiB can be huge pages, so the block begins at such an address.
void* MapAligned(std::size_t bytes) {
    constexpr std::size_t Page = 4096;
    const std::size_t kept = (bytes + Page - 1) / Page * Page;
    auto* data = static_cast<std::uint8_t*>(Map(kept + HugePage));
    const auto address = reinterpret_cast<std::uintptr_t>(data);
    const std::size_t before = (HugePage - address % HugePage) % HugePage;
    if (before != 0) {
        ::munmap(data, before);
    }
    ::munmap(data + before + kept, HugePage - before);
    ::madvise(data + before, kept, MADV_HUGEPAGE);  // refused is no harm: the pages stay small
    return data + before;
}

}  // namespace

CPageMemory::CPageMemory(std::size_t bytes, bool bHugePages)
    : m_pData(bHugePages ? MapAligned(bytes) : Map(bytes)), m_size(bytes) {}

void CPageMemory::Reset() noexcept {
    if (m_pData != nullptr && ::madvise(m_pData, m_size, MADV_DONTNEED) != 0) {
        std::memset(m_pData, 0, m_size);
    }
}

CPageMemory::~CPageMemory() {
    if (m_pData != nullptr) {
        ::munmap(m_pData, m_size);
    }
}

}  // namespace tarnwick
