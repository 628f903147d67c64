#include "chess/board_tables.h"

#include "chess/lines.h"

namespace tarnwick {
namespace {

constexpr std::array<std::uint8_t, 32> BuildFigureValues() {
    std::array<std::uint8_t, 32> values{};
    values[TypeKing] = 10;
    values[TypePawn] = 1;
    values[TypeBishop] = 3;
    values[TypeRook] = 5;
    values[TypeQueen] = 9;
    values[TypeKnight] = 3;
    return values;
}

constexpr std::array<TFigureCode, 256> BuildLetterToCode() {
    std::array<TFigureCode, 256> codes{};
    constexpr const char* letters = "KPBRQN";
    constexpr TFigureCode types[6] = {TypeKing, TypePawn,  TypeBishop,
                                      TypeRook, TypeQueen, TypeKnight};
    for (std::size_t i = 0; i < 6; ++i) {
        const auto upper = static_cast<std::size_t>(letters[i]);
        codes[upper] = WhiteFlag | types[i];
        codes[upper + 32] = BlackFlag | types[i];
    }
    return codes;
}

constexpr std::array<char, 256> BuildCodeToLetter() {
    std::array<char, 256> letters{};
    for (std::size_t code = 0; code < 256; ++code) {
        char letter = 'E';
        switch (code & TypeMask) {
            case TypeKing:
                letter = 'K';
                break;
            case TypePawn:
                letter = 'P';
                break;
            case TypeBishop:
                letter = 'B';
                break;
            case TypeRook:
                letter = 'R';
                break;
            case TypeQueen:
                letter = 'Q';
                break;
            case TypeKnight:
                letter = 'N';
                break;
            default:
                break;
        }
        letters[code] = code < 128 ? letter : static_cast<char>(letter + 32);
    }
    return letters;
}

constexpr int KnightClassOfCoordinate(int c) {
    if (c <= 1) {
        return c;
    }
    return c >= 6 ? c - 3 : 2;
}

constexpr std::array<std::uint8_t, 64> BuildKnightClassOfField() {
    std::array<std::uint8_t, 64> classes{};
    for (int field = 0; field < 64; ++field) {
        classes[static_cast<std::size_t>(field)] = static_cast<std::uint8_t>(
            KnightClassOfCoordinate(FileOf(field)) + 5 * KnightClassOfCoordinate(RankOf(field)));
    }
    return classes;
}

constexpr bool IsKnightJump(int from, int to) {
    const int df = FileOf(to) - FileOf(from);
    const int dr = RankOf(to) - RankOf(from);
    return (df * dr == 2) || (df * dr == -2);
}

constexpr std::array<TKnightJumps, 25> BuildKnightJumpClasses() {
    std::array<TKnightJumps, 25> classes{};
    constexpr int differences[8] = {-17, -15, -10, -6, 6, 10, 15, 17};
    for (int field = 0; field < 64; ++field) {
        TKnightJumps jumps{};
        for (const int difference : differences) {
            const int to = field + difference;
            if (to >= 0 && to < 64 && IsKnightJump(field, to)) {
                jumps.differences[static_cast<std::size_t>(jumps.count++)] =
                    static_cast<std::int8_t>(difference);
            }
        }
        for (auto i = static_cast<std::size_t>(jumps.count); i < 8; ++i) {
            jumps.differences[i] = jumps.differences[i - 1];
        }
        classes[BuildKnightClassOfField()[static_cast<std::size_t>(field)]] = jumps;
    }
    return classes;
}

template <typename TPredicate>
constexpr std::array<TFieldSet, 64> BuildFieldSets(TPredicate belongs) {
    std::array<TFieldSet, 64> sets{};
    for (int from = 0; from < 64; ++from) {
        for (int to = 0; to < 64; ++to) {
            if (from != to && belongs(from, to)) {
                sets[static_cast<std::size_t>(from)] |= FieldBit(to);
            }
        }
    }
    return sets;
}

constexpr int Distance(int a, int b) {
    return a < b ? b - a : a - b;
}
constexpr bool IsKingStep(int from, int to) {
    return Distance(FileOf(from), FileOf(to)) <= 1 && Distance(RankOf(from), RankOf(to)) <= 1;
}
constexpr bool IsOnDiagonal(int from, int to) {
    return Distance(FileOf(from), FileOf(to)) == Distance(RankOf(from), RankOf(to));
}
constexpr bool IsOnStraight(int from, int to) {
    return FileOf(from) == FileOf(to) || RankOf(from) == RankOf(to);
}
constexpr bool IsWhitePawnTarget(int from, int to) {
    return RankOf(to) == RankOf(from) + 1 && Distance(FileOf(from), FileOf(to)) == 1;
}

constexpr std::array<std::array<TFieldSet, 64>, 64> BuildFieldsBetween() {
    std::array<std::array<TFieldSet, 64>, 64> between{};
    for (int from = 0; from < 64; ++from) {
        for (const TStep step : KingSteps) {
            TFieldSet passed = 0;
            int file = FileOf(from) + step.file;
            int rank = RankOf(from) + step.rank;
            for (; OnBoard(file, rank); file += step.file, rank += step.rank) {
                const TField to = FieldAt(file, rank);
                between[static_cast<std::size_t>(from)][to] = passed;
                passed |= FieldBit(to);
            }
        }
    }
    return between;
}

constexpr std::array<TLineMasks, 64> BuildLineMasks() {
    std::array<TLineMasks, 64> masks{};
    for (int from = 0; from < 64; ++from) {
        TLineMasks& m = masks[static_cast<std::size_t>(from)];
        for (int to = 0; to < 64; ++to) {
            const int df = FileOf(to) - FileOf(from);
            const int dr = RankOf(to) - RankOf(from);
            if (from == to) {
                continue;
            }
            m.file |= df == 0 ? FieldBit(to) : 0;
            m.diagonal |= df == dr ? FieldBit(to) : 0;
            m.antiDiagonal |= df == -dr ? FieldBit(to) : 0;
        }
    }
    return masks;
}

constexpr std::array<std::array<std::uint8_t, 64>, 8> BuildRankReach() {
    std::array<std::array<std::uint8_t, 64>, 8> reach{};
    for (int file = 0; file < 8; ++file) {
        for (int inner = 0; inner < 64; ++inner) {
            const int occupied = inner << 1;
            int reached = 0;
            for (int f = file + 1; f < 8; ++f) {
                reached |= 1 << f;
                if (occupied & (1 << f)) {
                    break;
                }
            }
            for (int f = file - 1; f >= 0; --f) {
                reached |= 1 << f;
                if (occupied & (1 << f)) {
                    break;
                }
            }
            reach[static_cast<std::size_t>(file)][static_cast<std::size_t>(inner)] =
                static_cast<std::uint8_t>(reached);
        }
    }
    return reach;
}

}  // namespace

constinit const std::array<std::uint8_t, 32> FigureValues = BuildFigureValues();
constinit const std::array<TFigureCode, 256> LetterToCode = BuildLetterToCode();
constinit const std::array<char, 256> CodeToLetter = BuildCodeToLetter();
constinit const std::array<std::uint8_t, 64> KnightClassOfField = BuildKnightClassOfField();
constinit const std::array<TKnightJumps, 25> KnightJumpClasses = BuildKnightJumpClasses();
constinit const std::array<TFieldSet, 64> KnightFields = BuildFieldSets(IsKnightJump);
constinit const std::array<TFieldSet, 64> KingFields = BuildFieldSets(IsKingStep);
constinit const std::array<TFieldSet, 64> WhitePawnTargets = BuildFieldSets(IsWhitePawnTarget);
constinit const std::array<TFieldSet, 64> BlackPawnTargets =
    BuildFieldSets([](int from, int to) { return IsWhitePawnTarget(to, from); });
constinit const std::array<TFieldSet, 64> DiagonalRays = BuildFieldSets(IsOnDiagonal);
constinit const std::array<TFieldSet, 64> StraightRays = BuildFieldSets(IsOnStraight);
constinit const std::array<std::array<TFieldSet, 64>, 64> FieldsBetween = BuildFieldsBetween();
constinit const std::array<TLineMasks, 64> LineMasks = BuildLineMasks();
constinit const std::array<std::array<std::uint8_t, 64>, 8> RankReach = BuildRankReach();

}  // namespace tarnwick
