// `tables list`, `info`, `stats`, `longest` and `probe`: what is there and what is in it.

#include <algorithm>
#include <map>
#include <set>

#include "base/chess_exception.h"

#include "chess/board_text.h"
#include "chess/castling.h"
#include "chess/fen.h"
#include "cli/json_line.h"
#include "cli/problem_input.h"
#include "cli/tables_support.h"
#include "cli/text_style.h"
#include "tables/generation/table_factory.h"
#include "tables/position_type.h"

namespace tarnwick {
namespace {

constexpr int MostMen = 7;
constexpr std::size_t BarWidth = 40;

std::string Padded(const std::string& text, std::size_t width) {
    return text + std::string(text.size() < width ? width - text.size() : 1, ' ');
}

std::vector<std::string> FormNames(const std::vector<TTableFile>& files) {
    std::vector<std::string> names;
    for (const TTableFile& file : files) {
        names.emplace_back(NameOfMode(file.mode));
    }
    return names;
}

std::uint64_t SumOfBytes(const std::vector<TTableFile>& files) {
    std::uint64_t sum = 0;
    for (const TTableFile& file : files) {
        sum += file.bytes;
    }
    return sum;
}

/// How many positions have which value; those that cannot arise are left out.
struct TMateCounts {
    std::map<unsigned, std::uint64_t> byMoves;
    std::uint64_t none = 0;
    std::uint64_t unknown = 0;
    std::uint64_t impossible = 0;
};

TMateCounts CountMates(const TTable& table) {
    TMateCounts counts;
    for (std::uint64_t i = 1; i < table.index.GetIndexCount(); ++i) {
        const unsigned value = table.pValues->ValueAt(i);
        if (value != 0 && value != NotGenerated) {
            ++counts.byMoves[value];
        } else if (!BoardOfIndex(table.index, i)) {
            ++counts.impossible;
        } else {
            ++(value == 0 ? counts.none : counts.unknown);
        }
    }
    return counts;
}

/// The index that a position has first among those of its like men's orders.
std::uint64_t FirstOrder(const CTableIndex& index, std::uint64_t number) {
    TTablePlace place;
    index.PlaceOfIndex(number, place);
    index.SortLikeMen(place);
    return index.IndexOfFolded(place);
}

/// The positions with the longest mates, longest first, each once.
std::vector<std::pair<unsigned, std::uint64_t>> LongestMates(const TTable& table,
                                                             std::size_t count) {
    std::map<unsigned, std::set<std::uint64_t>, std::greater<>> longest;
    std::size_t kept = 0;
    for (std::uint64_t i = 1; i < table.index.GetIndexCount(); ++i) {
        const unsigned value = table.pValues->ValueAt(i);
        const bool bWanted = value != 0 && value != NotGenerated &&
                             (kept < count || value >= longest.rbegin()->first);
        if (!bWanted || !longest[value].insert(FirstOrder(table.index, i)).second) {
            continue;
        }
        ++kept;
        // A shorter length whose positions are not needed any more goes as a whole.
        const std::size_t shortest = longest.rbegin()->second.size();
        if (kept - shortest >= count) {
            kept -= shortest;
            longest.erase(std::prev(longest.end()));
        }
    }
    std::vector<std::pair<unsigned, std::uint64_t>> mates;
    for (const auto& [value, indices] : longest) {
        for (const std::uint64_t index : indices) {
            if (mates.size() < count) {
                mates.emplace_back(value, index);
            }
        }
    }
    return mates;
}

}  // namespace

TExitStatus RunTablesList(const TTablesArguments& arguments, TConsole& console) {
    const CTableFolders folders = FoldersOf(arguments);
    std::size_t tables = 0;
    std::uint64_t sum = 0;
    for (int men = 3; men <= MostMen; ++men) {
        for (const bool bWithPawns : {false, true}) {
            for (const std::string& type : AllTypes(men - 2, bWithPawns)) {
                const auto files = FilesOf(folders, type);
                if (files.empty()) {
                    continue;
                }
                ++tables;
                sum += SumOfBytes(files);
                if (arguments.bJson) {
                    console.out << CJsonLine()
                                       .Add("type", type)
                                       .Add("men", men)
                                       .Add("forms", FormNames(files))
                                       .Add("bytes", SumOfBytes(files))
                                       .Add("file", files[0].path.string())
                                       .Line();
                } else {
                    console.out << Padded(type, 8) << Padded(BytesText(SumOfBytes(files)), 14)
                                << Joined(FormNames(files), ", ") << '\n';
                }
            }
        }
    }
    if (!arguments.bJson) {
        console.out << CountText(tables, "table") << ", " << BytesText(sum) << '\n';
    }
    console.out << std::flush;
    return TExitStatus::Success;
}

TExitStatus RunTablesInfo(const TTablesArguments& arguments, TConsole& console) {
    const CTableFolders folders = FoldersOf(arguments);
    for (const std::string& type : TypesOf(arguments)) {
        const CTableIndex index(type);
        const auto files = FilesOf(folders, type);
        std::vector<std::string> missing;
        for (const std::string& other : TypesReachedFrom(type)) {
            if (other[0] < 'a' && !IsPositionTypeWithoutData(other) &&
                FilesOf(folders, other).empty()) {
                missing.push_back(other);
            }
        }
        if (arguments.bJson) {
            console.out << CJsonLine()
                               .Add("type", type)
                               .Add("men", static_cast<int>(type.size()) + 2)
                               .Add("indices", index.GetIndexCount())
                               .Add("needed", !IsPositionTypeWithoutData(type))
                               .Add("forms", FormNames(files))
                               .Add("bytes", SumOfBytes(files))
                               .Add("missing_dependencies", missing)
                               .Line()
                        << std::flush;
            continue;
        }
        console.out << console.style.Bold(type) << ": " << type.size() + 2 << " men, "
                    << GroupedNumber(index.GetIndexCount()) << " indices\n";
        for (const TTableFile& file : files) {
            console.out << "  " << Padded(NameOfMode(file.mode), 12)
                        << Padded(BytesText(file.bytes), 14) << file.path.string() << '\n';
        }
        if (files.empty()) {
            console.out
                << (IsPositionTypeWithoutData(type)
                        ? "  no table, and none is needed: White cannot force mate, or hardly\n"
                        : "  no table; it would take " + BytesText(index.GetIndexCount()) + "\n");
        }
        console.out << "  needs, and has not: "
                    << (missing.empty() ? "nothing" : Joined(missing, " ")) << "\n"
                    << std::flush;
    }
    return TExitStatus::Success;
}

TExitStatus RunTablesStats(const TTablesArguments& arguments, TConsole& console) {
    const CTableFolders folders = FoldersOf(arguments);
    for (const std::string& type : TypesOf(arguments)) {
        const TTable table = OpenTable(folders, type);
        const TMateCounts counts = CountMates(table);
        std::uint64_t mates = 0;
        std::uint64_t most = 1;
        std::vector<CJsonLine> lengths;
        for (const auto& [moves, positions] : counts.byMoves) {
            mates += positions;
            most = std::max(most, positions);
            lengths.push_back(
                CJsonLine().Add("mate", static_cast<int>(moves)).Add("positions", positions));
        }
        if (arguments.bJson) {
            console.out << CJsonLine()
                               .Add("type", type)
                               .Add("mates", mates)
                               .Add("no_mate", counts.none)
                               .Add("not_generated", counts.unknown)
                               .Add("impossible", counts.impossible)
                               .Add("lengths", lengths)
                               .Line()
                        << std::flush;
            continue;
        }
        console.out << console.style.Bold(type) << ": " << GroupedNumber(mates)
                    << " positions with a mate, " << GroupedNumber(counts.none) << " without";
        if (counts.unknown > 0) {
            console.out << ", " << GroupedNumber(counts.unknown) << " not generated";
        }
        console.out << '\n';
        for (const auto& [moves, positions] : counts.byMoves) {
            const auto width = static_cast<std::size_t>(positions * BarWidth / most);
            console.out << Padded("  #" + std::to_string(moves), 7)
                        << Padded(GroupedNumber(positions), 14)
                        << std::string(std::max<std::size_t>(width, 1), '#') << '\n';
        }
        console.out << std::flush;
    }
    return TExitStatus::Success;
}

TExitStatus RunTablesLongest(const TTablesArguments& arguments, TConsole& console) {
    const CTableFolders folders = FoldersOf(arguments);
    for (const std::string& type : TypesOf(arguments)) {
        const TTable table = OpenTable(folders, type);
        for (const auto& [moves, index] :
             LongestMates(table, static_cast<std::size_t>(arguments.count))) {
            const auto board = BoardOfIndex(table.index, index);
            if (!board) {
                continue;
            }
            if (arguments.bJson) {
                console.out << CJsonLine()
                                   .Add("type", type)
                                   .Add("mate", static_cast<int>(moves))
                                   .Add("fen", WriteFen(*board, false))
                                   .Add("index", index)
                                   .Line();
            } else {
                console.out << console.style.Bold(type + " #" + std::to_string(moves)) << "  "
                            << WriteFen(*board, true) << "  index " << index << '\n'
                            << DrawBoard(*board, console.boardStyle) << '\n';
            }
        }
        console.out << std::flush;
    }
    return TExitStatus::Success;
}

TExitStatus RunTablesProbe(const TTablesArguments& arguments, TConsole& console) {
    const TTypedPosition typed = ReadTypedPosition(arguments.fen);
    const TChessboard& board = typed.board;
    const std::string type = PositionTypeOf(board);
    if (typed.bBlackToMove || type.empty()) {
        throw ChessException(typed.bBlackToMove
                                 ? "Tables hold positions with White to move."
                                 : "Tables hold positions of one to five men beside the kings.");
    }
    for (const TCastling castling : {TCastling::WhiteShort, TCastling::WhiteLong,
                                     TCastling::BlackShort, TCastling::BlackLong}) {
        if (HasCastlingRight(board, castling)) {
            throw ChessException(
                "A castling is possible in this position, and tables know of none.");
        }
    }
    const bool bWhiteAlone = type[0] >= 'a';
    unsigned moves = 0;
    std::uint64_t index = 0;
    if (!bWhiteAlone) {
        const TTable table = OpenTable(FoldersOf(arguments), type);
        index = table.index.IndexOfPosition(board);
        moves = table.pValues->ValueAt(index);
    }
    if (moves == NotGenerated) {
        throw ChessException("This position has not been generated: the table of " + type +
                             " is partial. Complete it: tarnwick-cli tables generate " + type);
    }
    if (arguments.bJson) {
        console.out << CJsonLine()
                           .Add("type", type)
                           .Add("fen", WriteFen(board, true))
                           .Add("mate", static_cast<int>(moves))
                           .Add("index", index)
                           .Line();
    } else {
        console.out << (moves == 0 ? "No mate" : "Mate in " + std::to_string(moves)) << "  ("
                    << type << ", index " << index << ")\n";
    }
    console.out << std::flush;
    return moves == 0 ? TExitStatus::NoMate : TExitStatus::Success;
}

}  // namespace tarnwick
