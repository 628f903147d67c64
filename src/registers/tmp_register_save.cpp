// The register is visited once for each number of plies, from the greatest down. Ordering a table takes
// time, so a first look at all values finds out which numbers occur at all, and only those are visited.

#include <algorithm>
#include <array>
#include <bitset>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <new>

#include "base/chess_exception.h"
#include "base/little_endian.h"
#include "base/lz4_block.h"
#include "platform/atomic_file.h"

#include "registers/register_file_texts.h"
#include "registers/tmp_register_file.h"
#include "registers/tmp_register_stream.h"

namespace tarnwick {
namespace {

/// The head of a packed file has 32 bits for the stream's size. What is kept free below them is more than
/// all sections without records can take.
constexpr std::uint64_t LargestPackedStream = 0xFF000000;

using TAggregate = TAggregatedTemporaryChessboardRegister;
using TOccurringPlies = std::bitset<std::numeric_limits<std::uint16_t>::max() + 1>;

std::string_view AsText(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// The record belongs to the visit for the greater of its two numbers.
std::uint16_t PliesOf(TRecordValues values) {
    return std::max(values.m_first, values.m_second);
}

class CSaver {
  public:
    CSaver(const TAggregate& source, const std::filesystem::path& path, std::uint16_t plies,
           const TTmpRegisterSaveOptions& options)
        : m_source(source),
          m_plies(plies),
          m_keys(source.DoubtfulKeys()),
          m_progress(options.progress),
          m_file(path) {
        // A doubtful layer without heuristics would be read back as exact, and believed.
        std::erase(m_keys, ExactKey);
        m_total = std::min(options.maxBytes, LargestStreamSize());
        m_saved.bCompressed = options.bCompress && m_total <= LargestPackedStream;
        m_maxBytes = m_saved.bCompressed ? std::min(options.maxBytes, LargestPackedStream)
                                         : options.maxBytes;
    }

    TTmpRegisterSaved Save() {
        if (m_saved.bCompressed) {
            AppendToFile(FormatLz4Head(0));
            m_pPacker = std::make_unique<CLz4Packer>(
                [this](std::span<const std::uint8_t> bytes) { AppendToFile(bytes); });
        }
        FindOccurringPlies();
        bool bGoOn = m_progress.Tick(0, m_total);
        for (int limit = (m_plies + 1) / 2 * 2 - 1; bGoOn && limit >= 1; limit -= 2) {
            bGoOn = SaveLimit(static_cast<std::uint16_t>(limit));
        }
        m_saved.bStopped = m_progress.IsStopped();
        if (!m_saved.bStopped) {
            Finish();
        }
        return m_saved;
    }

  private:
    /// An upper bound: every element, and all sections.
    std::uint64_t LargestStreamSize() const {
        const std::uint64_t limits = (m_plies + 1U) / 2U;
        return std::uint64_t{m_source.ElementCount()} * RecordBytes +
               limits * (m_keys.size() + 1) * SectionBytes;
    }

    void FindOccurringPlies() {
        NoteOccurringPlies(m_source, ExactKey);
        for (const std::int64_t key : m_keys) {
            if (const auto* const pLayer = m_source.FindDoubtful(key)) {
                NoteOccurringPlies(*pLayer, key);
            }
        }
    }

    template <typename TLayer>
    void NoteOccurringPlies(const TLayer& layer, std::int64_t key) {
        TOccurringPlies& occurring = m_occurring[key];
        const auto note = [&occurring](TRecordValues values) {
            occurring.set(PliesOf(values));
            return false;
        };
        layer.VisitInFileOrder(note, [](const auto&, TRecordValues) { return false; });
    }

    /// All records of so many plies. False if the saving ends here.
    bool SaveLimit(std::uint16_t limit) {
        WriteSection(ExactKey);
        if (!SaveLayer(m_source, ExactKey, limit)) {
            return false;
        }
        return std::ranges::all_of(m_keys, [this, limit](std::int64_t key) {
            WriteSection(key);
            const auto* const pLayer = m_source.FindDoubtful(key);
            return pLayer == nullptr || SaveLayer(*pLayer, key, limit);
        });
    }

    template <typename TLayer>
    bool SaveLayer(const TLayer& layer, std::int64_t key, std::uint16_t limit) {
        if (!m_occurring[key].test(limit)) {
            return true;
        }
        const auto isWanted = [limit](TRecordValues values) { return PliesOf(values) == limit; };
        const auto write = [this, limit](const TChessboardRegisterItem& position,
                                         TRecordValues values) {
            if (HasRoom(limit)) {
                WriteRecord(position, values);
            }
            return HasRoom(limit) && m_progress.Tick(m_saved.streamBytes, m_total);
        };
        return layer.VisitInFileOrder(isWanted, write);
    }

    /// Whether another record keeps within the size limit; if not, this is where the file ends.
    bool HasRoom(std::uint16_t limit) {
        const bool bRoom = m_saved.streamBytes + RecordBytes <= m_maxBytes;
        if (!bRoom) {
            m_saved.stoppedAtPlies = limit;
        }
        return bRoom;
    }

    void WriteSection(std::int64_t key) {
        std::array<std::uint8_t, SectionBytes> bytes{};
        StoreLittleEndian(bytes.data(), SectionMark);
        StoreLittleEndian(bytes.data() + 4, key);
        m_pFailureText = TextCannotWriteSection;
        Write(bytes);
    }

    void WriteRecord(const TChessboardRegisterItem& position, TRecordValues values) {
        std::array<std::uint8_t, RecordBytes> bytes{};
        StoreLittleEndian(bytes.data(), values.m_first);
        StoreLittleEndian(bytes.data() + 2, values.m_second);
        std::memcpy(bytes.data() + 4, position.m_fields, sizeof position.m_fields);
        m_pFailureText = TextCannotWriteRecord;
        Write(bytes);
        ++m_saved.records;
    }

    void Write(std::span<const std::uint8_t> bytes) {
        m_saved.streamBytes += bytes.size();
        if (m_pPacker) {
            m_pPacker->Append(bytes);
        } else {
            AppendToFile(bytes);
        }
    }

    void AppendToFile(std::span<const std::uint8_t> bytes) {
        NamingTheOperation([&] { m_file.Append(AsText(bytes)); });
        m_saved.fileBytes += bytes.size();
    }

    void Finish() {
        if (m_pPacker) {
            m_pPacker->Finish();
        }
        NamingTheOperation([this] {
            if (m_saved.bCompressed) {
                const auto head = FormatLz4Head(static_cast<std::uint32_t>(m_saved.streamBytes));
                m_file.Overwrite(0, AsText(head));
            }
            m_file.Commit();
        });
    }

    template <typename TBody>
    void NamingTheOperation(TBody body) {
        try {
            body();
        } catch (const ChessException& exception) {
            throw ChessException(std::string(m_pFailureText) + "\n" + exception.what());
        }
    }

    const TAggregate& m_source;
    std::uint16_t m_plies;
    std::vector<std::int64_t> m_keys;
    CFileProgress m_progress;
    CAtomicFileWriter m_file;
    std::uint64_t m_total = 0;  ///< Bytes of the stream at most.
    std::uint64_t m_maxBytes = 0;
    std::unique_ptr<CLz4Packer> m_pPacker;  ///< Null for a plain file.
    std::map<std::int64_t, TOccurringPlies> m_occurring;
    const char* m_pFailureText = TextCannotWriteSection;
    TTmpRegisterSaved m_saved;
};

}  // namespace

TTmpRegisterSaved SaveTmpRegister(const TAggregate& source, const std::filesystem::path& path,
                                  std::uint16_t plies, const TTmpRegisterSaveOptions& options) {
    try {
        return CSaver(source, path, plies, options).Save();
    } catch (const std::bad_alloc&) {
        throw ChessException(TextErrorAllocatingMemory);
    }
}

}  // namespace tarnwick
