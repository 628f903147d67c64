#include "tables/generation/unfinished_file.h"

#include <array>
#include <cstring>
#include <fstream>
#include <string_view>

#include "base/encoding.h"
#include "platform/atomic_file.h"

namespace tarnwick {
namespace {

constexpr std::string_view Magic = "TWunfin1";

/// Of pieces of any length, each mixed in as 64-bit words: damage is found, not malice.
class CChecksum {
  public:
    void Add(const void* pData, std::size_t size) {
        const auto* pBytes = static_cast<const unsigned char*>(pData);
        for (; size >= 8; pBytes += 8, size -= 8) {
            std::uint64_t word;
            std::memcpy(&word, pBytes, sizeof(word));
            Mix(word);
        }
        for (; size > 0; ++pBytes, --size) {
            Mix(*pBytes);
        }
    }
    std::uint64_t Value() const { return m_value; }

  private:
    void Mix(std::uint64_t word) {
        m_value = (m_value ^ word) * 0x9E3779B97F4A7C15ULL;
        m_value ^= m_value >> 29;
    }
    std::uint64_t m_value = 0xCBF29CE484222325ULL;
};

}  // namespace

std::filesystem::path UnfinishedPathOf(const std::filesystem::path& tablePath) {
    std::filesystem::path path = tablePath;
    path += ".unfinished";
    return path;
}

template <typename Element>
void SaveUnfinished(const std::filesystem::path& path, const std::string& type,
                    const CRetrograde<Element>& retrograde) {
    CAtomicFileWriter writer(path);
    CChecksum checksum;
    const auto write = [&](const void* pData, std::size_t size) {
        writer.Append({static_cast<const char*>(pData), size});
        checksum.Add(pData, size);
    };
    const std::uint64_t head[] = {sizeof(Element), type.size()};
    write(Magic.data(), Magic.size());
    write(head, sizeof(head));
    write(type.data(), type.size());
    retrograde.Save(write);
    const std::uint64_t sum = checksum.Value();
    writer.Append({reinterpret_cast<const char*>(&sum), sizeof(sum)});
    writer.Commit();
}

template <typename Element>
bool LoadUnfinished(const std::filesystem::path& path, const std::string& type,
                    CRetrograde<Element>& retrograde) {
    std::ifstream file(path, std::ios::binary);
    CChecksum checksum;
    const auto read = [&](void* pData, std::size_t size) {
        file.read(static_cast<char*>(pData), static_cast<std::streamsize>(size));
        checksum.Add(pData, size);
        return file.good();
    };
    std::array<char, Magic.size()> magic{};
    std::uint64_t head[2]{};
    if (!read(magic.data(), magic.size()) ||
        std::string_view(magic.data(), magic.size()) != Magic || !read(head, sizeof(head)) ||
        head[0] != sizeof(Element) || head[1] != type.size()) {
        return false;
    }
    std::string name(type.size(), ' ');
    if (!read(name.data(), name.size()) || name != type || !retrograde.Load(read)) {
        return false;
    }
    const std::uint64_t expected = checksum.Value();
    std::uint64_t sum = 0;
    file.read(reinterpret_cast<char*>(&sum), sizeof(sum));
    if (!file.good() || sum != expected) {
        retrograde.Forget();
        return false;
    }
    return true;
}

template void SaveUnfinished(const std::filesystem::path&, const std::string&,
                             const CRetrograde<std::uint8_t>&);
template void SaveUnfinished(const std::filesystem::path&, const std::string&,
                             const CRetrograde<std::uint16_t>&);
template bool LoadUnfinished(const std::filesystem::path&, const std::string&,
                             CRetrograde<std::uint8_t>&);
template bool LoadUnfinished(const std::filesystem::path&, const std::string&,
                             CRetrograde<std::uint16_t>&);

}  // namespace tarnwick
