#include "tables/open_values.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/filled_text.h"
#include "platform/page_memory.h"

#include "tables/lz4e_stream.h"
#include "tables/random_access_lzw_buffer.h"
#include "tables/tables_texts.h"

namespace tarnwick {
namespace {

/// The bits of the flags that say where an index stands.
constexpr std::uint8_t LayoutFlags = CompactPawnsFlag | CombinationsFlag;

/// Tries the forms of one type's table in one of the two places.
class COpener {
  public:
    COpener(const CTableIndex& index, std::uint64_t budget, bool bCompleteOnly)
        : m_index(index), m_budget(budget), m_bCompleteOnly(bCompleteOnly) {}

    TOpenedValues Unpacked(const std::filesystem::path& path) const {
        CRandomAccessFile file(path);
        if (!file.IsOpen()) {
            return {};
        }
        const int elementSize = ElementSize(ReadTableFlags(file).value_or(0));
        const std::uint64_t bytes =
            m_index.GetIndexCount() * static_cast<std::uint64_t>(elementSize);
        if (file.Size() != bytes) {
            throw ChessException(FilledText(
                DamagedTableText,
                {ToValidUtf8(path.string()), std::to_string(file.Size()), std::to_string(bytes)}));
        }
        if (bytes > m_budget) {
            CheckComplete(file, elementSize);
            return {std::make_shared<CDiskStore>(std::move(file), elementSize), 0};
        }
        CPageMemory memory(bytes, true);
        if (!file.ReadAt(0, {static_cast<std::uint8_t*>(memory.Data()), bytes})) {
            throw ChessException(FilledText(MissingTableText, {m_index.Type()}));
        }
        return InMemory(std::move(memory), bytes, elementSize);
    }

    TOpenedValues Lz4(const std::filesystem::path& path) const {
        if (!CRandomAccessFile(path).IsOpen()) {
            return {};
        }
        std::vector<std::uint8_t> table = ReadLz4eFile(path, m_index.GetIndexCount());
        const int elementSize = ElementSize(table.front());
        const std::size_t bytes = table.size();
        return InMemory(std::move(table), bytes, elementSize);
    }

    /// What stays packed is not looked through: a position without a value shows when it is asked for.
    TOpenedValues PackedLzw(const std::filesystem::path& path) const {
        if (!CRandomAccessFile(path).IsOpen()) {
            return {};
        }
        RandomAccessLZWBuffer::TPackedTableDemand demand;
        demand.letters = m_index.Letters();
        demand.elementCount = m_index.GetIndexCount();
        demand.quota = m_budget;
        auto opened = OpenPackedTable(path, demand, nullptr);
        if (!opened.pBuffer) {
            throw ChessException(opened.reason);
        }
        // The head does not tell how pawns are counted; the table's own first element does.
        const int elementSize =
            ElementSize(static_cast<std::uint8_t>(opened.pBuffer->GetValue(0, false)));
        const std::uint64_t bytes =
            m_index.GetIndexCount() * static_cast<std::uint64_t>(elementSize);
        if (bytes > m_budget) {
            return {std::make_shared<CPackedStore>(std::move(opened.pBuffer)), 0};
        }
        auto table = opened.pBuffer->DecompressAll();
        if (table.first == nullptr) {
            throw ChessException(FilledText(MissingTableText, {m_index.Type()}));
        }
        return InMemory(std::move(table.first), bytes, elementSize);
    }

  private:
    TOpenedValues InMemory(CMemoryStore::TOwner owner, std::uint64_t bytes, int elementSize) const {
        auto pStore = std::make_shared<CMemoryStore>(std::move(owner), elementSize);
        CheckComplete({pStore->Elements(), bytes}, elementSize, true);
        return {std::move(pStore), bytes};
    }

    int ElementSize(std::uint8_t flags) const {
        const bool bMeant = m_index.Letters() >= 4;
        const auto layout = static_cast<std::uint8_t>(
            flags & (bMeant ? LayoutFlags : LayoutFlags & ~CombinationsFlag));
        const bool bSame = layout == (m_index.Flags() & LayoutFlags) ||
                           (!m_index.HasPawns() &&
                            (layout & ~CompactPawnsFlag) == (m_index.Flags() & ~CompactPawnsFlag));
        if (!bSame) {
            throw ChessException(FilledText(OtherFormTableText, {m_index.Type()}));
        }
        return bMeant && (flags & TwoByteElementsFlag) != 0 ? 2 : 1;
    }

    /// Element 0 holds the flags of the table and is passed over.
    void CheckComplete(std::span<const std::uint8_t> bytes, int elementSize,
                       bool bFromStart) const {
        const auto size = static_cast<std::size_t>(elementSize);
        for (std::size_t at = bFromStart ? size : 0; m_bCompleteOnly && at + size <= bytes.size();
             at += size) {
            const bool bUnknown = bytes[at] == 0xFF && bytes[at + size - 1] == 0xFF;
            if (bUnknown) {
                throw ChessException(FilledText(PartialTableText, {m_index.Type()}));
            }
        }
    }

    void CheckComplete(const CRandomAccessFile& file, int elementSize) const {
        std::vector<std::uint8_t> piece(std::size_t{1} << 22);
        for (std::uint64_t at = 0; m_bCompleteOnly && at < file.Size(); at += piece.size()) {
            piece.resize(std::min<std::uint64_t>(piece.size(), file.Size() - at));
            if (!file.ReadAt(at, piece)) {
                throw ChessException(FilledText(MissingTableText, {m_index.Type()}));
            }
            CheckComplete(piece, elementSize, at == 0);
        }
    }

    const CTableIndex& m_index;
    std::uint64_t m_budget;
    bool m_bCompleteOnly;
};

}  // namespace

TTableName TableNameOf(const std::string& type) {
    TTableName name;
    name.type = type;
    name.men = static_cast<int>(type.size()) + 2;
    name.bPawns = HasPawns(type);
    return name;
}

TOpenedValues OpenValues(const CTableFolders& folders, const CTableIndex& index,
                         std::uint64_t budget, bool bCompleteOnly) {
    const TTableName name = TableNameOf(index.Type());
    const COpener opener(index, budget, bCompleteOnly);
    using TForm = TOpenedValues (COpener::*)(const std::filesystem::path&) const;
    struct TCandidate {
        TTableFileMode mode;
        TForm open;
    };
    constexpr std::array<TCandidate, 3> Candidates = {
        {{TTableFileMode::Unpacked, &COpener::Unpacked},
         {TTableFileMode::Lz4, &COpener::Lz4},
         {TTableFileMode::PackedLzw, &COpener::PackedLzw}}};
    for (const TCandidate& candidate : Candidates) {
        for (const bool bAlternative : {false, true}) {
            const auto path = folders.MakeFileName(name, candidate.mode, false, bAlternative);
            TOpenedValues opened = path.empty() ? TOpenedValues{} : (opener.*candidate.open)(path);
            if (opened.pValues) {
                return opened;
            }
        }
    }
    return {};
}

}  // namespace tarnwick
