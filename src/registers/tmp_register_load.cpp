#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>
#include <memory>
#include <new>
#include <set>
#include <system_error>
#include <vector>

#include "base/byte_source.h"
#include "base/chess_exception.h"
#include "base/little_endian.h"
#include "base/lz4_block.h"

#include "registers/register_file_texts.h"
#include "registers/register_record_check.h"
#include "registers/tmp_register_file.h"
#include "registers/tmp_register_log.h"
#include "registers/tmp_register_stream.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

using TAggregate = TAggregatedTemporaryChessboardRegister;

constexpr const char* ScratchName = "UncompressedTmpRegLoadData.tmpReg";
/// Each layer has a table of megabytes, and 12 bytes of a hostile file are enough to ask for one. A job
/// has a layer for each set of heuristics that a pass used: some dozens.
constexpr std::size_t MostLayers = 1024;

/// Passes an unpacked stream on and keeps a copy of it in a file, as long as that can be written.
class CCopyingSource final : public TByteSource {
  public:
    CCopyingSource(TByteSource& source, const fs::path& copy)
        : m_source(source), m_copy(copy, std::ios::binary | std::ios::trunc) {}

    std::size_t Read(std::span<std::uint8_t> bytes) override {
        const std::size_t count = m_source.Read(bytes);
        m_copy.write(reinterpret_cast<const char*>(bytes.data()),
                     static_cast<std::streamsize>(count));
        return count;
    }

  private:
    TByteSource& m_source;
    std::ofstream m_copy;
};

/// The stream, record by record. A fault in the source counts as its end.
class CRecordStream {
  public:
    explicit CRecordStream(TByteSource& source) : m_source(source), m_buffer(BufferSize) {}

    /// The next bytes, as many as asked for (at most a record's) or fewer at the end.
    std::span<const std::uint8_t> Peek(std::size_t count) {
        if (m_end - m_at < count) {
            Refill();
        }
        return std::span(m_buffer).subspan(m_at, std::min(count, m_end - m_at));
    }
    void Skip(std::size_t count) { m_at += count; }

    /// Of the next byte, from the start of the stream.
    [[nodiscard]] std::uint64_t Offset() const { return m_bufferOffset + m_at; }
    /// What the source said when it failed; empty if it has not.
    [[nodiscard]] const std::string& Fault() const { return m_fault; }

  private:
    static constexpr std::size_t BufferSize = 64 * 1024;

    void Refill() {
        std::memmove(m_buffer.data(), m_buffer.data() + m_at, m_end - m_at);
        m_bufferOffset += m_at;
        m_end -= m_at;
        m_at = 0;
        try {
            while (m_fault.empty() && m_end < RecordBytes) {
                const std::size_t count = m_source.Read(std::span(m_buffer).subspan(m_end));
                if (count == 0) {
                    break;
                }
                m_end += count;
            }
        } catch (const ChessException& exception) {
            m_fault = exception.what();
        }
    }

    TByteSource& m_source;
    std::vector<std::uint8_t> m_buffer;
    std::size_t m_at = 0;
    std::size_t m_end = 0;
    std::uint64_t m_bufferOffset = 0;
    std::string m_fault;
};

class CLoader {
  public:
    CLoader(TAggregate& target, const fs::path& path, const TTmpRegisterLoadOptions& options)
        : m_target(target),
          m_file(path),
          m_scratch(options.scratchFolder / ScratchName),
          m_progress(options.progress) {
        const std::vector<std::int64_t> keys = target.DoubtfulKeys();
        m_keys.insert(keys.begin(), keys.end());
        if (options.bLogRecords) {
            m_pLog = std::make_unique<CTmpRegisterLog>(options.logFolder);
        }
        // A copy that an earlier load left may be the file to load, and must not be cut to nothing.
        std::error_code ignored;
        m_bCopy = !fs::equivalent(path, m_scratch, ignored);
    }

    TTmpRegisterLoaded Load(std::uint32_t bucketCount) {
        m_target.SetBucketCount(bucketCount, true);
        std::array<std::uint8_t, Lz4HeadBytes> start{};
        const std::size_t count = ReadFully(m_file, start);
        if (const auto head = ParseLz4Head(std::span(start).first(count))) {
            m_file.Seek(head->dataOffset);
            LoadPacked(*head);
        } else {
            m_file.Seek(0);
            LoadRecords(m_file, m_file.Size());
        }
        m_loaded.bStopped = m_progress.IsStopped();
        if (m_loaded.firstFaultOffset) {
            m_loaded.message += Summary();
        }
        return m_loaded;
    }

  private:
    void LoadPacked(const TLz4Head& head) {
        CLz4Unpacker unpacker(m_file, head, m_file.Name());
        const std::uint64_t size = head.bSizeModulo32 ? 0 : head.unpackedSize;
        if (!m_bCopy) {
            LoadRecords(unpacker, size);
            return;
        }
        CCopyingSource source(unpacker, m_scratch);
        LoadRecords(source, size);
        if (!m_loaded.firstFaultOffset) {
            std::error_code ignored;
            fs::remove(m_scratch, ignored);
        }
    }

    /// streamSize: how long the stream should be; 0 if unknown.
    void LoadRecords(TByteSource& source, std::uint64_t streamSize) {
        CRecordStream stream(source);
        while (m_progress.Tick(m_file.Offset(), m_file.Size())) {
            const auto bytes = stream.Peek(RecordBytes);
            if (bytes.size() >= SectionBytes &&
                LoadLittleEndian<std::uint32_t>(bytes.data()) == SectionMark) {
                StartSection(LoadLittleEndian<std::int64_t>(bytes.data() + 4));
                stream.Skip(SectionBytes);
            } else if (bytes.size() == RecordBytes) {
                TakeRecord(bytes, stream.Offset());
                stream.Skip(RecordBytes);
            } else {
                EndStream(stream, bytes.size(), streamSize);
                return;
            }
        }
    }

    void StartSection(std::int64_t key) {
        m_key = key;
        m_bKeyRefused = false;
        if (key != ExactKey && !m_keys.contains(key)) {
            m_bKeyRefused =
                m_keys.size() >= MostLayers || m_target.TotalBytesUsed() >= m_target.MemoryLimit();
            if (!m_bKeyRefused) {
                m_keys.insert(key);
            }
        }
    }

    void TakeRecord(std::span<const std::uint8_t> bytes, std::uint64_t offset) {
        const TRecordValues values = {LoadLittleEndian<std::uint16_t>(bytes.data()),
                                      LoadLittleEndian<std::uint16_t>(bytes.data() + 2)};
        TChessboardRegisterItem position;
        std::memcpy(position.m_fields, bytes.data() + 4, sizeof position.m_fields);
        const bool bCredible = values.m_first <= MostPliesOfRecord &&
                               values.m_second <= MostPliesOfRecord &&
                               CanBeStoredPosition(position);
        if (bCredible && !m_bKeyRefused) {
            Store(values, position);
        } else {
            ++m_loaded.refused;
            NoteFault(offset);
        }
        if (m_pLog) {
            m_pLog->Write(values, m_key, position);
        }
    }

    void Store(TRecordValues values, const TChessboardRegisterItem& position) {
        const TPositionHash hash = HashOf(position);
        if (values.m_first != 0) {
            StoreNumber(values.m_first, position, hash, true);
        }
        if (values.m_second != 0) {
            StoreNumber(values.m_second, position, hash, false);
        }
        ++m_loaded.records;
        m_loaded.mostPlies = std::max({m_loaded.mostPlies, values.m_first, values.m_second});
        m_loaded.bRegisterFull =
            m_loaded.bRegisterFull || m_target.ElementCount() >= m_target.MaxElements();
    }

    void StoreNumber(std::uint16_t plies, const TChessboardRegisterItem& position,
                     TPositionHash hash, bool bFirst) {
        if (m_key == ExactKey) {
            m_target.StoreLoadedResult(plies, position, hash, bFirst);
        } else {
            m_target.InsertDoubtfulResult(plies, position, hash, TAggregate::HeuristicsOf(m_key),
                                          TAggregate::HeurParamsOf(m_key), !bFirst);
        }
    }

    void NoteFault(std::uint64_t offset) {
        if (!m_loaded.firstFaultOffset) {
            m_loaded.firstFaultOffset = offset;
        }
    }

    /// The stream gives no further record, but perhaps a piece of one.
    void EndStream(const CRecordStream& stream, std::size_t pieceBytes, std::uint64_t streamSize) {
        if (pieceBytes == 0 && stream.Fault().empty()) {
            return;
        }
        const std::uint64_t missing = streamSize - std::min(streamSize, stream.Offset());
        const std::uint64_t lostBytes = std::max<std::uint64_t>(missing, pieceBytes);
        m_loaded.lost = (lostBytes + RecordBytes - 1) / RecordBytes;
        NoteFault(stream.Offset());
        m_loaded.message = std::string(TextErrorReadingRegister) + "\n";
        m_loaded.message += stream.Fault().empty() ? "" : stream.Fault() + "\n";
    }

    std::string Summary() const {
        return FaultInFile(TextDamagedRecords, m_file.Name(), *m_loaded.firstFaultOffset) +
               UserText(TextRecordsLoaded) + std::to_string(m_loaded.records) +
               UserText(TextRecordsRefused) + std::to_string(m_loaded.refused) +
               UserText(TextRecordsLost) + std::to_string(m_loaded.lost);
    }

    TAggregate& m_target;
    CFileSource m_file;
    fs::path m_scratch;
    bool m_bCopy = true;
    CFileProgress m_progress;
    std::unique_ptr<CTmpRegisterLog> m_pLog;  ///< Null if nothing is logged.
    std::set<std::int64_t> m_keys;            ///< Of all layers, those of the register included.
    std::int64_t m_key = ExactKey;            ///< Of the present section.
    bool m_bKeyRefused = false;
    TTmpRegisterLoaded m_loaded;
};

}  // namespace

TTmpRegisterLoaded LoadTmpRegister(TAggregate& target, const fs::path& path,
                                   std::uint32_t bucketCount,
                                   const TTmpRegisterLoadOptions& options) {
    try {
        return CLoader(target, path, options).Load(bucketCount);
    } catch (const std::bad_alloc&) {
        throw ChessException(TextErrorAllocatingMemory);
    }
}

}  // namespace tarnwick
