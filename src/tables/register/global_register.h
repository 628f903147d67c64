#pragma once
// TGlobalRegister: the table of one position type, ready to be asked.
//
// It knows the arithmetic of its type and where the values are. Made by register_load.h; whoever got it from
// TGlobalRegisterSet may use it until he gives it back. After loading it changes no more but for
// repairs, so any thread may ask.

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "tables/custom_type.h"
#include "tables/register/table_store.h"
#include "tables/table_files.h"
#include "tables/table_index.h"

namespace tarnwick {

/// Plies of a position of which the table says nothing.
inline constexpr std::uint16_t UnknownPlies = 0xFFFF;

struct TGlobalRegister {
    /// A plain type, in its order.
    TGlobalRegister(const std::string& type, std::uint64_t key);
    /// A type with fixed men.
    TGlobalRegister(CCustomType type, std::uint64_t key);

    const std::string& Type() const { return m_name.type; }
    std::uint64_t Key() const { return m_key; }
    const TTableName& Name() const { return m_name; }
    bool IsCustom() const { return m_custom.has_value(); }
    /// Of a plain type; the flags follow from the data.
    const CTableIndex& PlainIndex() const { return *m_plain; }
    const CCustomType& CustomType() const { return *m_custom; }
    /// Men that an index tells of, the kings of a plain type left out.
    std::size_t Letters() const {
        return m_plain ? m_plain->Letters() : static_cast<std::size_t>(m_custom->FreeMen());
    }

    std::uint64_t GetIndexCount() const {
        return m_plain ? m_plain->GetIndexCount() : m_custom->GetIndexCount();
    }
    std::uint64_t IndexOfPosition(const TChessboard& board) const noexcept {
        return m_plain ? m_plain->IndexOfPosition(board) : m_custom->IndexOfPosition(board);
    }
    /// The 64 fields of the board; false if the index names no position.
    bool PositionOfIndex(std::uint64_t index, TChessboard& board) const noexcept {
        return index < GetIndexCount() && (m_plain ? m_plain->PositionOfIndex(index, board)
                                                   : m_custom->PositionOfIndex(index, board));
    }
    int ElementSize() const { return m_plain ? m_plain->ElementSize() : 1; }

    /// Plies to White's mate from a board of this type with White to move: 0 for none, UnknownPlies where the
    /// table does not say. Of a two-bit table the stored value itself.
    std::uint16_t IsMateByIndex(const TChessboard& board) const {
        return PliesAt(IndexOfPosition(board));
    }
    std::uint16_t PliesAt(std::uint64_t index) const {
        const std::uint8_t* pElements = m_pBytes;
        if (pElements != nullptr) {  // The search's way, without a virtual call.
            return PliesOf(pElements[index] == 0xFF ? NotGenerated : pElements[index]);
        }
        return m_pStore->HasLengths() ? PliesOf(m_pStore->ValueAt(index))
                                      : static_cast<std::uint16_t>(m_pStore->ValueAt(index));
    }
    /// Stores moves to mate; for repairs only. Throws ChessException where the table cannot be changed.
    void SetMateByIndex(std::uint64_t index, unsigned value) { m_pStore->SetValueAt(index, value); }

    const CTableStore& Store() const { return *m_pStore; }
    /// Whether an answer costs no more than a load from memory.
    bool IsInMemory() const { return m_pStore->Elements() != nullptr; }
    /// Bytes of memory as the quota counts them.
    std::uint64_t ResidentSize() const;

    // ---- For the loader.

    /// The type's arithmetic as these flags have it; false if the type cannot have them all for lack of memory.
    bool SetFlags(std::uint8_t flags);
    void SetStore(std::unique_ptr<CTableStore> pStore);

    // ---- For the set: who uses it. Raised under the set's lock only.
    std::atomic<int> m_useCount{0};
    std::atomic<std::int64_t> m_lastAccessMs{0};  ///< Of the clock, when it was last given back.

  private:
    static std::uint16_t PliesOf(unsigned moves) {
        return static_cast<std::uint16_t>(moves == 0 || moves == NotGenerated ? moves
                                                                              : 2 * moves - 1);
    }

    TTableName m_name;
    std::uint64_t m_key;
    std::optional<CTableIndex> m_plain;
    std::optional<CCustomType> m_custom;
    std::unique_ptr<CTableStore> m_pStore;
    const std::uint8_t* m_pBytes = nullptr;  ///< One-byte elements in memory, or null.
};

}  // namespace tarnwick
