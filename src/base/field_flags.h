#pragma once
// Flag words whose bits belong to one enumeration. A TFlagWord compiles to the bare mask test, but a
// bit of one word cannot be set in another by mistake. Trivially copyable, the size of its enumeration.

#include <type_traits>

namespace tarnwick {

template <typename TFlag>
class TFlagWord {
  public:
    using TRaw = std::underlying_type_t<TFlag>;

    constexpr TFlagWord() = default;
    constexpr explicit TFlagWord(TRaw raw) : m_raw(raw) {}

    constexpr bool Has(TFlag flag) const { return (m_raw & static_cast<TRaw>(flag)) != 0; }
    /// True when any bit of the mask is set.
    constexpr bool HasAny(TRaw mask) const { return (m_raw & mask) != 0; }
    constexpr void Set(TFlag flag) { m_raw = static_cast<TRaw>(m_raw | static_cast<TRaw>(flag)); }
    constexpr void Clear(TFlag flag) {
        m_raw = static_cast<TRaw>(m_raw & ~static_cast<TRaw>(flag));
    }
    constexpr void Assign(TFlag flag, bool bOn) {
        if (bOn) {
            Set(flag);
        } else {
            Clear(flag);
        }
    }
    constexpr TRaw Raw() const { return m_raw; }
    constexpr void SetRaw(TRaw raw) { m_raw = raw; }
    constexpr bool operator==(const TFlagWord&) const = default;

  private:
    TRaw m_raw = 0;
};

}  // namespace tarnwick
