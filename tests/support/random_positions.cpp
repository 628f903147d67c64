#include "support/random_positions.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <numeric>

namespace tarnwick::slow {
namespace {

constexpr char Empty = '.';

/// A board that is being filled. Men that find no room are left out: the caller counts at the end.
struct TSetup {
    CDice& dice;
    TSlowBoard board{};
    int men = 0;

    bool Put(char man, int file, int rank) {
        const bool isPawnOnEdge = (man == 'P' || man == 'p') && (rank == 0 || rank == 7);
        if (file < 0 || file > 7 || rank < 0 || rank > 7 || isPawnOnEdge ||
            board[8 * rank + file] != Empty) {
            return false;
        }
        board[8 * rank + file] = man;
        ++men;
        return true;
    }

    void PutAnywhere(char man) {
        while (!Put(man, dice.Below(8), dice.Below(8))) {
        }
    }

    /// Within `distance` files and ranks of a field, or anywhere if that is crowded.
    void PutNear(char man, int field, int distance) {
        for (int attempt = 0; attempt < 20; ++attempt) {
            const int file = field % 8 - distance + dice.Below(2 * distance + 1);
            const int rank = field / 8 - distance + dice.Below(2 * distance + 1);
            if (Put(man, file, rank)) {
                return;
            }
        }
        PutAnywhere(man);
    }

    bool Has(char man) const { return Find(man) < 64; }
    int Find(char man) const {
        return static_cast<int>(std::find(board.begin(), board.end(), man) - board.begin());
    }
};

/// In a corner, at the edge or inside, in about equal shares.
void PutBlackKing(TSetup& setup) {
    const int along = setup.dice.Below(8);
    const int edge = setup.dice.Chance(50) ? 0 : 7;
    switch (setup.dice.Below(4)) {
        case 0:
            setup.Put('k', setup.dice.Chance(50) ? 0 : 7, edge);
            return;
        case 1:
            setup.Put('k', along, edge);
            return;
        case 2:
            setup.Put('k', edge, along);
            return;
        default:
            setup.PutAnywhere('k');
    }
}

void PutMissingKings(TSetup& setup) {
    if (!setup.Has('k')) {
        PutBlackKing(setup);
    }
    if (setup.Has('K')) {
        return;
    }
    if (setup.dice.Chance(60)) {
        setup.PutNear('K', setup.Find('k'), 3);
    } else {
        setup.PutAnywhere('K');
    }
}

/// Fills up to the number of men: white ones mostly around the black king, black ones anywhere.
void Fill(TSetup& setup, int men, int percentWhite, std::string_view whiteBag,
          std::string_view blackBag) {
    PutMissingKings(setup);
    while (setup.men < men) {
        if (!setup.dice.Chance(percentWhite)) {
            setup.PutAnywhere(setup.dice.Letter(blackBag));
        } else if (setup.dice.Chance(60)) {
            setup.PutNear(setup.dice.Letter(whiteBag), setup.Find('k'), 3);
        } else {
            setup.PutAnywhere(setup.dice.Letter(whiteBag));
        }
    }
}

void SetMatingNet(TSetup& setup, int men) {
    PutMissingKings(setup);
    const int flights = setup.dice.Below(4);
    for (int i = 0; i < flights && setup.men < men; ++i) {
        setup.PutNear(setup.dice.Letter("pppnbr"), setup.Find('k'), 1);
    }
    Fill(setup, men, 72, "QQRRBBNNP", "pppprbn");
}

void SetPromotion(TSetup& setup, int men) {
    PutMissingKings(setup);
    const int pawns = std::min(1 + setup.dice.Below(4), men - 2);
    for (int i = 0; i < pawns; ++i) {
        const bool isWhite = setup.dice.Chance(70);
        const int steps = 1 + setup.dice.Below(2);
        setup.Put(isWhite ? 'P' : 'p', setup.dice.Below(8), isWhite ? 7 - steps : steps);
    }
    Fill(setup, men, 60, "QRBNPP", "pprbn");
}

void PutHomeRooks(TSetup& setup, char rook, int rank) {
    const int choice = setup.dice.Below(3);
    if (choice != 0) {
        setup.Put(rook, 0, rank);
    }
    if (choice != 1) {
        setup.Put(rook, 7, rank);
    }
}

void SetCastling(TSetup& setup, int men) {
    const int sides = 1 + setup.dice.Below(3);
    if ((sides & 1) != 0) {
        setup.Put('K', 4, 0);
        PutHomeRooks(setup, 'R', 0);
    }
    if ((sides & 2) != 0) {
        setup.Put('k', 4, 7);
        PutHomeRooks(setup, 'r', 7);
    } else {
        const int file = 2 + setup.dice.Below(5);
        setup.Put('k', file, setup.dice.Below(4));
    }
    Fill(setup, men, 70, "QQRBNP", "pppbn");
}

/// A pawn on a fifth rank and an enemy pawn at home on a neighbouring file: its double step may be
/// answered by en passant. The black king often stands where White's pawn gives check by it.
void PutPassingPawns(TSetup& setup, bool isWhiteTaking) {
    const int file = setup.dice.Below(8);
    const int neighbour = file == 0 || (file < 7 && setup.dice.Chance(50)) ? file + 1 : file - 1;
    if (!setup.Has('k') && setup.dice.Chance(70)) {
        const int side = setup.dice.Chance(50) ? neighbour - 1 : neighbour + 1;
        setup.Put('k', side, isWhiteTaking ? 6 : 4);
    }
    setup.Put(isWhiteTaking ? 'P' : 'p', file, isWhiteTaking ? 4 : 3);
    setup.Put(isWhiteTaking ? 'p' : 'P', neighbour, isWhiteTaking ? 6 : 1);
}

void SetEnPassant(TSetup& setup, int men) {
    const bool isWhiteTaking = setup.dice.Chance(50);
    PutPassingPawns(setup, isWhiteTaking);
    PutMissingKings(setup);
    if (setup.men + 2 <= men && setup.dice.Chance(30)) {
        PutPassingPawns(setup, setup.dice.Chance(50));
    }
    // With few black men the double step is often all that Black has left.
    Fill(setup, men, isWhiteTaking ? 90 : 80, "QQRRBN", "pprb");
}

void SetPromotedMen(TSetup& setup, int men) {
    PutMissingKings(setup);
    switch (setup.dice.Below(4)) {
        case 0:
            setup.PutAnywhere('Q');
            setup.PutAnywhere('Q');
            break;
        case 1:
        case 2: {
            const char man = setup.dice.Letter("NR");
            for (int i = 0; i < 3; ++i) {
                setup.PutNear(man, setup.Find('k'), 3);
            }
            break;
        }
        default: {
            setup.PutAnywhere('B');
            const int first = setup.Find('B');
            const int step = setup.dice.Chance(50) ? 9 : 7;  // along a diagonal: the same colour
            const int second = (first + step) % 64;
            setup.Put('B', second % 8, second / 8);
        }
    }
    Fill(setup, men, 50, "RBNP", "pppnrbq");
}

void SetNearlyBare(TSetup& setup, int men) {
    if (setup.dice.Chance(60)) {
        const int corner = 7 * setup.dice.Below(2) + 56 * setup.dice.Below(2);
        setup.Put('k', corner % 8, corner / 8);
        setup.PutNear('K', corner, 2);
    }
    PutMissingKings(setup);
    constexpr std::array<std::string_view, 7> Materials{"B", "N", "NN", "P", "BP", "P", "BP"};
    for (const char man : Materials[setup.dice.Below(Materials.size())]) {
        const bool isRookPawn = man == 'P' && setup.dice.Chance(50);
        if (!isRookPawn ||
            !setup.Put(man, setup.dice.Chance(50) ? 0 : 7, 3 + setup.dice.Below(4))) {
            setup.PutNear(man, setup.Find('k'), 3);
        }
    }
    const int blackMen = setup.dice.Below(5);
    for (int i = 0; i < blackMen && setup.men < men; ++i) {
        setup.PutNear(setup.dice.Letter("ppppnbr"), setup.Find('k'), 1);
    }
}

void Set(TSetting setting, TSetup& setup, int men) {
    switch (setting) {
        case TSetting::MatingNet:
            return SetMatingNet(setup, men);
        case TSetting::Promotion:
            return SetPromotion(setup, men);
        case TSetting::Castling:
            return SetCastling(setup, men);
        case TSetting::EnPassant:
            return SetEnPassant(setup, men);
        case TSetting::PromotedMen:
            return SetPromotedMen(setup, men);
        case TSetting::NearlyBare:
            return SetNearlyBare(setup, men);
        case TSetting::Anything:
            return Fill(setup, men, 50, "QRBNPP", "qrbnpp");
    }
}

/// Men of one colour that the eight pawns and the promotions can account for.
bool IsPossibleMaterial(const TSlowBoard& board, bool isWhite) {
    const auto man = [&](char letter) {
        return isWhite ? letter : static_cast<char>(std::tolower(letter));
    };
    const auto count = [&](char letter) {
        return static_cast<int>(std::count(board.begin(), board.end(), man(letter)));
    };
    std::array<int, 2> bishops{};
    for (int field = 0; field < 64; ++field) {
        if (board[field] == man('B')) {
            ++bishops[(field / 8 + field % 8) % 2];
        }
    }
    const int promoted = std::max(0, count('Q') - 1) + std::max(0, count('R') - 2) +
                         std::max(0, count('N') - 2) + std::max(0, bishops[0] - 1) +
                         std::max(0, bishops[1] - 1);
    return count('K') == 1 && count('P') + promoted <= 8;
}

bool IsSpecial(const TSlowPosition& position, const TSlowMove& move) {
    const char man = position.board[move.from];
    const bool isDoubleStep = (man == 'P' || man == 'p') && std::abs(move.to - move.from) == 16;
    return move.promotion != 0 || isDoubleStep || IsCastling(position, move) ||
           IsEnPassant(position, move);
}

}  // namespace

std::uint64_t TestSeed() {
    const char* text = std::getenv("TARNWICK_TEST_SEED");
    return text != nullptr ? std::strtoull(text, nullptr, 10) : 20240607;
}

CRandomPositions::CRandomPositions(std::uint64_t seed, const TRandomPositionOptions& options)
    : m_seed(seed), m_options(options), m_dice(seed) {}

std::string CRandomPositions::Next() {
    const auto& weights = m_options.weights;
    int ticket = m_dice.Below(std::accumulate(weights.begin(), weights.end(), 0));
    int setting = 0;
    while (ticket >= weights[setting]) {
        ticket -= weights[setting];
        ++setting;
    }
    return Next(static_cast<TSetting>(setting));
}

std::string CRandomPositions::Next(TSetting setting) {
    ++m_count;
    while (true) {
        const int men = m_options.minMen + m_dice.Below(m_options.maxMen - m_options.minMen + 1);
        TSetup setup{m_dice};
        setup.board.fill(Empty);
        Set(setting, setup, men);
        TSlowPosition position;
        position.board = setup.board;
        if (setup.men >= m_options.minMen && setup.men <= m_options.maxMen &&
            IsLegalSetting(position) && (!InCheck(position) || m_dice.Chance(40))) {
            return PlacementText(position);
        }
    }
}

std::string CRandomPositions::Story() const {
    return "seed " + std::to_string(m_seed) + ", position " + std::to_string(m_count);
}

bool IsLegalSetting(const TSlowPosition& position) {
    const TSlowBoard& board = position.board;
    if (!IsPossibleMaterial(board, true) || !IsPossibleMaterial(board, false)) {
        return false;
    }
    for (int file = 0; file < 8; ++file) {
        for (const int field : {file, 56 + file}) {
            if (board[field] == 'P' || board[field] == 'p') {
                return false;
            }
        }
    }
    const int whiteKing =
        static_cast<int>(std::find(board.begin(), board.end(), 'K') - board.begin());
    const int blackKing =
        static_cast<int>(std::find(board.begin(), board.end(), 'k') - board.begin());
    return !IsAttacked(position, blackKing, true) &&
           CountAttackers(position, whiteKing, false) <= 2;
}

std::vector<TGameStep> RandomGame(std::uint64_t seed, const std::string& startFen, int plies) {
    CDice dice(seed);
    TSlowPosition position = FromFen(startFen);
    std::vector<TGameStep> game;
    while (static_cast<int>(game.size()) < plies) {
        std::vector<TSlowMove> moves = LegalMoves(position);
        if (moves.empty()) {
            break;
        }
        const auto special =
            std::stable_partition(moves.begin(), moves.end(),
                                  [&](const TSlowMove& move) { return IsSpecial(position, move); });
        const int specials = static_cast<int>(special - moves.begin());
        const bool isSpecial = specials > 0 && dice.Chance(40);
        const TSlowMove move =
            moves[dice.Below(isSpecial ? specials : static_cast<int>(moves.size()))];
        const TSlowPosition next = Play(position, move);
        game.push_back({position, move, FullText(position, move), next});
        position = next;
    }
    return game;
}

}  // namespace tarnwick::slow
