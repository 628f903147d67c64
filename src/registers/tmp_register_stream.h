#pragma once

// Sizes and marks of the stream in a ".tmpReg" file; tmp_register_file.h describes it.

#include <cstddef>
#include <cstdint>

namespace tarnwick {

inline constexpr std::size_t SectionBytes = 12;
inline constexpr std::size_t RecordBytes = 68;
/// Begins a section.
inline constexpr std::uint32_t SectionMark = 0xFFFFFFFF;
/// Key of the exact layer's section.
inline constexpr std::int64_t ExactKey = 0;

}  // namespace tarnwick
