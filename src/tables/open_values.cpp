#include "tables/open_values.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/filled_text.h"
#include "platform/page_memory.h"

#include "tables/lz4e_stream.h"
#include "tables/memory_values.h"
#include "tables/random_access_lzw_buffer.h"
#include "tables/tables_texts.h"

namespace tarnwick {
namespace {

using RandomAccessLZWBuffer::CRandomAccessPackedBufferBase;

unsigned ValueOfElement(const std::uint8_t* pBytes, std::size_t elementSize) {
    if (elementSize == 1) {
        return pBytes[0] == 0xFF ? NotGenerated : pBytes[0];
    }
    return static_cast<unsigned>(pBytes[0] | pBytes[1] << 8);
}

class CDiskValues final : public CTableValues {
  public:
    CDiskValues(CRandomAccessFile file, std::size_t elementSize)
        : m_file(std::move(file)), m_elementSize(elementSize) {}

    unsigned ValueAt(std::uint64_t index) const override {
        std::array<std::uint8_t, 2> element{};
        if (!m_file.ReadAt(index * m_elementSize, std::span(element).first(m_elementSize))) {
            return NotGenerated;
        }
        return ValueOfElement(element.data(), m_elementSize);
    }

  private:
    CRandomAccessFile m_file;
    std::size_t m_elementSize;
};

class CPackedValues final : public CTableValues {
  public:
    explicit CPackedValues(std::unique_ptr<CRandomAccessPackedBufferBase> pBuffer)
        : m_pBuffer(std::move(pBuffer)), m_mark(m_pBuffer->GetElementSize() == 1 ? 0xFF : 0xFFFF) {}

    unsigned ValueAt(std::uint64_t index) const override {
        const unsigned value = m_pBuffer->GetValue(index, false);
        return value == m_mark ? NotGenerated : value;
    }

  private:
    std::unique_ptr<CRandomAccessPackedBufferBase> m_pBuffer;
    unsigned m_mark;
};

std::shared_ptr<CTableValues> ValuesInMemory(std::shared_ptr<void> pOwner, void* pData,
                                             int elementSize) {
    if (elementSize == 2) {
        return std::make_shared<CMemoryValues<std::uint16_t>>(std::move(pOwner),
                                                              static_cast<std::uint16_t*>(pData));
    }
    return std::make_shared<CMemoryValues<std::uint8_t>>(std::move(pOwner),
                                                         static_cast<std::uint8_t*>(pData));
}

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
            return {std::make_shared<CDiskValues>(std::move(file),
                                                  static_cast<std::size_t>(elementSize)),
                    0};
        }
        auto pMemory = std::make_shared<CPageMemory>(bytes, true);
        auto* pBytes = static_cast<std::uint8_t*>(pMemory->Data());
        if (!file.ReadAt(0, {pBytes, bytes})) {
            throw ChessException(FilledText(MissingTableText, {m_index.Type()}));
        }
        CheckComplete({pBytes, bytes}, elementSize, true);
        return {ValuesInMemory(pMemory, pBytes, elementSize), bytes};
    }

    TOpenedValues Lz4(const std::filesystem::path& path) const {
        if (!CRandomAccessFile(path).IsOpen()) {
            return {};
        }
        auto pBytes = std::make_shared<std::vector<std::uint8_t>>(
            ReadLz4eFile(path, m_index.GetIndexCount()));
        const int elementSize = ElementSize(pBytes->front());
        CheckComplete(*pBytes, elementSize, true);
        return {ValuesInMemory(pBytes, pBytes->data(), elementSize), pBytes->size()};
    }

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
        const int elementSize = ElementSize(static_cast<std::uint8_t>(opened.flags));
        const std::uint64_t bytes =
            m_index.GetIndexCount() * static_cast<std::uint64_t>(elementSize);
        if (bytes > m_budget) {
            return {std::make_shared<CPackedValues>(std::move(opened.pBuffer)), 0};
        }
        auto table = opened.pBuffer->DecompressAll();
        if (table.first == nullptr) {
            throw ChessException(FilledText(MissingTableText, {m_index.Type()}));
        }
        std::uint8_t* pBytes = table.first.get();
        CheckComplete({pBytes, bytes}, elementSize, true);
        return {ValuesInMemory(std::shared_ptr<std::uint8_t[]>(std::move(table.first)), pBytes,
                               elementSize),
                bytes};
    }

  private:
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
            if (ValueOfElement(&bytes[at], size) == NotGenerated) {
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
