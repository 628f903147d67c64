// `tables verify`, `pack` and `unpack`.

#include <limits>

#include "base/chess_exception.h"
#include "platform/atomic_file.h"
#include "platform/clock.h"

#include "cli/json_line.h"
#include "cli/tables_support.h"
#include "cli/text_style.h"
#include "tables/lz4e_stream.h"
#include "tables/random_access_lzw_buffer.h"
#include "tables/verification/table_verifier.h"

namespace tarnwick {
namespace {

std::filesystem::path FileOf(const CTableFolders& folders, const std::string& type,
                             TTableFileMode mode) {
    return folders.MakeFileName(TableNameOf(type), mode, false, false);
}

CRandomAccessFile OpenUnpacked(const std::filesystem::path& path, const std::string& type) {
    CRandomAccessFile file(path);
    if (!file.IsOpen()) {
        throw ChessException("There is no unpacked table of " + type + ": " + path.string());
    }
    return file;
}

std::uint64_t PackAsLzw(const CTableFolders& folders, const CTableIndex& index) {
    const auto source = FileOf(folders, index.Type(), TTableFileMode::Unpacked);
    const CRandomAccessFile file = OpenUnpacked(source, index.Type());
    const std::uint8_t flags = ReadTableFlags(file).value_or(0);
    const bool bTwoBytes = (flags & TwoByteElementsFlag) != 0 && index.Letters() >= 4;
    const auto target = MakePackedFileName(source, true);
    const auto pWriter = RandomAccessLZWBuffer::MakePackedTableWriter(bTwoBytes ? 2 : 1, nullptr);
    if (!pWriter->PackFile(target, file, index.GetIndexCount(),
                           flags & (CombinationsFlag | TwoByteElementsFlag))) {
        throw ChessException("The table could not be packed: " + source.string());
    }
    return std::filesystem::file_size(target);
}

std::uint64_t PackAsLz4(const CTableFolders& folders, const CTableIndex& index) {
    const auto source = FileOf(folders, index.Type(), TTableFileMode::Unpacked);
    const CRandomAccessFile file = OpenUnpacked(source, index.Type());
    std::vector<std::uint8_t> bytes(file.Size());
    if (!file.ReadAt(0, bytes)) {
        throw ChessException("The table could not be read: " + source.string());
    }
    const auto target = FileOf(folders, index.Type(), TTableFileMode::Lz4);
    WriteLz4eFile(target, bytes);
    return std::filesystem::file_size(target);
}

void WriteValues(const std::filesystem::path& path, const TTable& table, std::uint8_t flags,
                 bool bTwoBytes) {
    CAtomicFileWriter writer(path);
    std::string piece;
    for (std::uint64_t i = 0; i < table.index.GetIndexCount(); ++i) {
        const unsigned value = i == 0 ? flags : table.pValues->ValueAt(i);
        piece += static_cast<char>(value & 0xFF);
        if (bTwoBytes) {
            piece += static_cast<char>(value >> 8);
        }
        if (piece.size() >= (1U << 20)) {
            writer.Append(piece);
            piece.clear();
        }
    }
    writer.Append(piece);
    writer.Commit();
}

}  // namespace

TExitStatus RunTablesVerify(const TTablesArguments& arguments, TConsole& console) {
    const CTableFolders folders = FoldersOf(arguments);
    const CStopFlag stop;
    TExitStatus status = TExitStatus::Success;
    for (const std::string& type : TypesOf(arguments)) {
        TVerifyOptions options;
        options.bPartial = arguments.bPartial;
        options.repair = arguments.bFix ? TRepair::Yes : TRepair::No;
        options.bBoardRules = arguments.bBoardRules;
        options.threads = ThreadsOf(arguments);
        options.pControl = &stop.Control();
        const std::int64_t startMs = NowMs();
        const TVerifyCounts counts = CTableVerifier(folders, console.dialog, options).Verify(type);
        const auto elapsed = static_cast<std::uint64_t>(NowMs() - startMs);
        if (arguments.bJson) {
            console.out << CJsonLine()
                               .Add("type", type)
                               .Add("indices", counts.indices)
                               .Add("faults", counts.faults)
                               .Add("fixable", counts.fixable)
                               .Add("fixed", counts.fixed)
                               .Add("by_board", counts.byBoard)
                               .Add("disputed", counts.disputed)
                               .Add("stopped", counts.bStopped)
                               .Add("ms", elapsed)
                               .Line()
                        << std::flush;
        } else {
            console.out << type << ": " << VerifyEndText(counts) << "  " << DurationText(elapsed)
                        << '\n';
            if (counts.faults > 0) {
                console.out << "The faults stand in PrecalcFailures" << type
                            << ".txt: index, position, plies stored, plies expected.\n";
            }
            console.out << std::flush;
        }
        if (counts.bStopped) {
            return TExitStatus::Stopped;
        }
        const bool bDisputed = counts.faults == 0 && counts.disputed > 0;
        status = counts.faults > counts.fixed || bDisputed ? TExitStatus::Unreadable : status;
    }
    return status;
}

TExitStatus RunTablesPack(const TTablesArguments& arguments, TConsole& console) {
    const CTableFolders folders = FoldersOf(arguments);
    for (const std::string& type : TypesOf(arguments)) {
        const CTableIndex index(type);
        const std::int64_t startMs = NowMs();
        const std::uint64_t bytes =
            arguments.form == "lzw" ? PackAsLzw(folders, index) : PackAsLz4(folders, index);
        const auto elapsed = static_cast<std::uint64_t>(NowMs() - startMs);
        if (arguments.bJson) {
            console.out << CJsonLine()
                               .Add("type", type)
                               .Add("form", arguments.form)
                               .Add("bytes", bytes)
                               .Add("unpacked_bytes", index.GetIndexCount())
                               .Add("ms", elapsed)
                               .Line();
        } else {
            console.out << type << ": " << BytesText(bytes) << " of "
                        << BytesText(index.GetIndexCount()) << "  " << DurationText(elapsed)
                        << ". The unpacked file is still there; delete it if you like.\n";
        }
        console.out << std::flush;
    }
    return TExitStatus::Success;
}

TExitStatus RunTablesUnpack(const TTablesArguments& arguments, TConsole& console) {
    const CTableFolders folders = FoldersOf(arguments);
    for (const std::string& type : TypesOf(arguments)) {
        const auto target = FileOf(folders, type, TTableFileMode::Unpacked);
        if (std::filesystem::exists(target)) {
            throw ChessException("The table of " + type +
                                 " is unpacked already: " + target.string());
        }
        TTable table = OpenTable(folders, type);
        const unsigned flags = table.pValues->ValueAt(0);
        WriteValues(target, table, static_cast<std::uint8_t>(flags),
                    type.size() >= 4 && (flags & TwoByteElementsFlag) != 0);
        if (arguments.bJson) {
            console.out << CJsonLine().Add("type", type).Add("file", target.string()).Line();
        } else {
            console.out << type << ": " << target.string() << '\n';
        }
        console.out << std::flush;
    }
    return TExitStatus::Success;
}

}  // namespace tarnwick
