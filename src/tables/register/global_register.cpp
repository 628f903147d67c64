#include "tables/register/global_register.h"

#include <new>
#include <utility>

namespace tarnwick {
namespace {

/// Tables of fewer men count in full, whatever their form: they are small, and mostly all in use.
constexpr int LeastMenOfCountedForms = 5;

}  // namespace

TGlobalRegister::TGlobalRegister(const std::string& type, std::uint64_t key)
    : m_name{.type = type,
             .men = static_cast<int>(type.size()) + 2,
             .bPawns = HasPawns(type),
             .bFixedMen = false,
             .wholeFileName = {}},
      m_key(key) {
    m_plain.emplace(type);
}

TGlobalRegister::TGlobalRegister(CCustomType type, std::uint64_t key)
    : m_name{.type = type.Text(),
             .men = type.Men(),
             .bPawns = HasPawns(type.Text()),
             .bFixedMen = true,
             .wholeFileName = {}},
      m_key(key),
      m_custom(std::move(type)) {}

std::uint64_t TGlobalRegister::ResidentSize() const {
    const std::uint64_t count = GetIndexCount();
    if (m_pStore->IsOnDisk()) {
        return 0;
    }
    return IsCustom() || m_name.men < LeastMenOfCountedForms ? count
                                                             : m_pStore->ResidentSize(count);
}

bool TGlobalRegister::SetFlags(std::uint8_t flags) {
    if (IsCustom()) {
        return true;
    }
    try {
        m_plain.emplace(m_name.type, flags);
        return true;
    } catch (const std::bad_alloc&) {
        m_plain.emplace(m_name.type);
        return false;
    }
}

void TGlobalRegister::SetStore(std::unique_ptr<CTableStore> pStore) {
    m_pStore = std::move(pStore);
    m_pBytes = ElementSize() == 1 ? m_pStore->Elements() : nullptr;
}

}  // namespace tarnwick
