#include "tables/register/register_load.h"

#include <cstring>
#include <filesystem>
#include <span>
#include <system_error>
#include <utility>
#include <vector>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/filled_text.h"
#include "platform/atomic_file.h"
#include "platform/memory_info.h"

#include "tables/register/recompression.h"
#include "tables/register/register_texts.h"
#include "tables/register/table_forms.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

enum class TPlace : std::uint8_t {
    Program,
    PrecalcPath
};

/// Scattered reads of larger tables are limited by the small pages of usual memory.
constexpr std::uint64_t HugePagesFrom = std::uint64_t{1} << 21;

bool FileExists(const fs::path& path) {
    std::error_code error;
    return !path.empty() && fs::is_regular_file(path, error);
}

/// False if the disk refuses.
bool SaveTable(const fs::path& path, std::span<const std::uint8_t> table) {
    try {
        SaveFileAtomically(path, {reinterpret_cast<const char*>(table.data()), table.size()});
        return true;
    } catch (const ChessException&) {
        return false;
    }
}

/// One load, from the candidates' names to the end.
class CLoader {
  public:
    CLoader(TGlobalRegister& subregister, const TLoadContext& context)
        : m_register(subregister), m_context(context) {
        const std::uint64_t memory = MemoryOfMachine();
        m_limit = context.bVerifying ? memory / 4 * 3 : memory / 2;
    }

    bool Load();

  private:
    fs::path FileOf(TTableFileMode mode, TPlace place, bool bDetails = false) const {
        return m_context.folders.MakeFileName(m_register.Name(), mode, bDetails,
                                              place == TPlace::PrecalcPath);
    }
    bool HasPackedLz4() const;
    bool HasMemory();
    bool MayStayInMemory(std::uint64_t bytes) {
        return m_context.bVerifying || m_context.reserve(bytes);
    }
    std::optional<bool> TryUnpackedForms();
    std::optional<bool> TryPackedLzw();
    bool LoadPackedAndExpand();

    bool ExpandLz4File(const fs::path& path);
    void KeepExpandedCopy(const fs::path& path, std::span<const std::uint8_t> table) const;

    bool LoadUnpacked(const fs::path& path, TPlace place);
    bool LoadTwoBit(const fs::path& path, TPlace place);
    bool LoadWhole(const CRandomAccessFile& file, const fs::path& path);
    bool UseOnDisk(CRandomAccessFile file, const fs::path& path);
    void WarnIfPartial(std::span<const std::uint8_t> table) const;

    bool LoadPackedFile(const fs::path& path, bool bOnDisk);
    bool ExpandPacked(const fs::path& path);

    TGlobalRegister& m_register;
    const TLoadContext& m_context;
    std::uint64_t m_limit;  ///< Bytes of a table in memory at most, whatever the quota.
    bool m_bOnDisk = false;
};

bool CLoader::HasPackedLz4() const {
    return FileExists(FileOf(TTableFileMode::PackedLz4, TPlace::Program)) ||
           FileExists(FileOf(TTableFileMode::PackedLz4, TPlace::PrecalcPath));
}

/// Whether the table may come into memory, by what is free before anybody is asked to make room.
bool CLoader::HasMemory() {
    if (m_context.bVerifying) {
        return true;
    }
    const std::uint64_t bytes = m_register.GetIndexCount();
    return bytes < m_context.quota && m_context.isFree(bytes);
}

bool CLoader::Load() {
    const TTableOptions& options = m_context.options;
    m_bOnDisk = options.bGlobalRegisterForceDiskAccess && !m_context.bWantMemory;
    if (!m_bOnDisk && !HasMemory()) {
        m_bOnDisk = true;
    } else if (!m_bOnDisk) {
        if (const auto loaded = TryUnpackedForms()) {
            return *loaded;
        }
    }
    if (options.useDataPackedForRandomAccess >= 2) {
        if (const auto loaded = TryPackedLzw()) {
            return *loaded;
        }
    }
    if (options.useDataPackedForRandomAccess > 2 && HasPackedLz4()) {
        return false;
    }
    if (m_bOnDisk) {
        const auto loaded = TryUnpackedForms();
        if (loaded || !m_context.bVerifying) {
            return loaded.value_or(false);
        }
    }
    return options.useDataPackedForRandomAccess < 2 && LoadPackedAndExpand();
}

/// The ".lz4" and the plain table. Nothing where there is neither.
std::optional<bool> CLoader::TryUnpackedForms() {
    for (const TPlace place : {TPlace::Program, TPlace::PrecalcPath}) {
        const fs::path path = FileOf(TTableFileMode::Lz4, place);
        if (FileExists(path)) {
            if (ExpandLz4File(path)) {
                return true;
            }
            m_bOnDisk = true;  // What did not fit unpacked will not fit in another form.
        }
    }
    for (const TPlace place : {TPlace::PrecalcPath, TPlace::Program}) {
        const fs::path path = FileOf(TTableFileMode::Unpacked, place);
        if (FileExists(path)) {
            return LoadUnpacked(path, place);
        }
    }
    return std::nullopt;
}

std::optional<bool> CLoader::TryPackedLzw() {
    for (const TPlace place : {TPlace::PrecalcPath, TPlace::Program}) {
        const fs::path path = FileOf(TTableFileMode::PackedLzw, place);
        if (FileExists(path)) {
            return LoadPackedFile(path, m_bOnDisk);
        }
    }
    return std::nullopt;
}

bool CLoader::LoadPackedAndExpand() {
    for (const TPlace place : {TPlace::PrecalcPath, TPlace::Program}) {
        const fs::path path = FileOf(TTableFileMode::PackedLzw, place);
        if (FileExists(path)) {
            return LoadPackedFile(path, m_bOnDisk) && ExpandPacked(path);
        }
    }
    return false;
}

// ---- Whole LZ4 files

bool CLoader::ExpandLz4File(const fs::path& path) {
    if (m_register.GetIndexCount() > m_limit || !m_context.reserve(m_register.GetIndexCount())) {
        return false;
    }
    std::optional<std::vector<std::uint8_t>> table = ReadLz4Table(m_register, path);
    if (!table) {
        return false;
    }
    KeepExpandedCopy(path, *table);
    m_register.SetStore(
        std::make_unique<CMemoryStore>(std::move(*table), m_register.ElementSize()));
    return true;
}

void CLoader::KeepExpandedCopy(const fs::path& path, std::span<const std::uint8_t> table) const {
    if (!m_context.options.bKeepExpandedCopies) {
        return;
    }
    fs::path copy = path;
    copy += ".unpacked";
    SaveTable(copy, table);
}

// ---- Unpacked files

bool CLoader::LoadUnpacked(const fs::path& path, TPlace place) {
    CRandomAccessFile file(path);
    const auto flags = ReadTableFlags(file);
    if (!flags || !m_register.SetFlags(*flags)) {
        return false;
    }
    const TTableFileKind kind = CheckTableFileSize(file, path, m_register.GetIndexCount(),
                                                   m_register.ElementSize(), m_context.dialog);
    if (kind == TTableFileKind::TwoBit) {
        return LoadTwoBit(path, place);
    }
    const bool bLarge = !m_context.bVerifying && file.Size() >= m_context.quota / 4;
    const bool bMemory = !m_bOnDisk && !bLarge && file.Size() <= m_limit &&
                         file.Size() >= TableBytes(m_register) && m_context.reserve(file.Size());
    return (bMemory && LoadWhole(file, path)) || UseOnDisk(std::move(file), path);
}

bool CLoader::LoadTwoBit(const fs::path& path, TPlace place) {
    if (!m_context.reserve(m_register.GetIndexCount() / 4)) {
        return false;
    }
    try {
        m_register.SetStore(std::make_unique<CTwoBitStore>(std::make_unique<CTwoBitTable>(
            path, FileOf(TTableFileMode::Unpacked, place, true), m_register.GetIndexCount())));
        return true;
    } catch (const ChessException& error) {
        m_context.dialog.Tell(error.what());
        return false;
    }
}

/// False where memory or the disk fails; the table is then asked on disk.
bool CLoader::LoadWhole(const CRandomAccessFile& file, const fs::path& path) {
    try {
        const std::uint64_t bytes = TableBytes(m_register);
        CPageMemory memory(bytes, bytes >= HugePagesFrom);
        const std::span table(static_cast<std::uint8_t*>(memory.Data()), bytes);
        if (!file.ReadAt(0, table)) {
            return false;
        }
        WarnIfPartial(table);
        m_register.SetStore(
            std::make_unique<CMemoryStore>(std::move(memory), m_register.ElementSize()));
    } catch (const std::bad_alloc&) {
        return false;
    }
    OfferRecompression(m_register, path, m_context.options, m_context.dialog);
    return true;
}

bool CLoader::UseOnDisk(CRandomAccessFile file, const fs::path& path) {
    m_register.SetStore(std::make_unique<CDiskStore>(std::move(file), m_register.ElementSize()));
    OfferRecompression(m_register, path, m_context.options, m_context.dialog);
    return true;
}

/// A table of which the rest is missing is of use all the same: what it says is right.
void CLoader::WarnIfPartial(std::span<const std::uint8_t> table) const {
    if (m_context.bVerifying || m_register.ElementSize() != 1 ||
        std::memchr(table.data() + 1, 0xFF, table.size() - 1) == nullptr) {
        return;
    }
    m_context.dialog.Tell(FilledText(PartialDataText, {m_register.Type()}));
}

// ---- Packed files

bool CLoader::LoadPackedFile(const fs::path& path, bool bOnDisk) {
    auto pBuffer = OpenPackedFor(m_register, path, bOnDisk, m_context.quota, m_context.dialog);
    if (pBuffer == nullptr || !MayStayInMemory(pBuffer->GetMemoryUsed())) {
        return false;
    }
    m_register.SetStore(std::make_unique<CPackedStore>(std::move(pBuffer)));
    return true;
}

/// The table plain in memory instead of packed. In a verification that lacks the memory the user may want
/// to go on with the packed one.
bool CLoader::ExpandPacked(const fs::path& path) {
    auto& buffer = static_cast<const CPackedStore&>(m_register.Store()).Buffer();
    const bool bFits = TableBytes(m_register) <= m_limit && MayStayInMemory(TableBytes(m_register));
    RandomAccessLZWBuffer::TUnpackedTable table;
    if (bFits) {
        table = buffer.DecompressAll();
    }
    if (table.first == nullptr) {
        if (m_context.bVerifying && !m_context.keepPacked) {
            m_context.keepPacked = m_context.dialog.Ask(UserText(AskKeepPackedText));
        }
        return m_context.bVerifying && *m_context.keepPacked;
    }
    if (m_context.options.bAskIfSaveAfterDecompressAllToMem) {
        const fs::path plain = path.parent_path() / path.stem().stem();
        const std::string name = ToValidUtf8(plain.string());
        if (m_context.dialog.Ask(FilledText(AskSaveDecompressedText, {name}))) {
            const bool bSaved = SaveTable(plain, {table.first.get(), TableBytes(m_register)});
            m_context.dialog.Tell(bSaved ? UserText(FileSavedText)
                                         : FilledText(ErrorSavingFileText, {name}));
        }
    }
    m_register.SetStore(
        std::make_unique<CMemoryStore>(std::move(table.first), m_register.ElementSize()));
    return true;
}

}  // namespace

bool LoadFromDisk(TGlobalRegister& subregister, const TLoadContext& context) {
    return CLoader(subregister, context).Load();
}

}  // namespace tarnwick
