#include "support/slow_solver.h"

#include <algorithm>

namespace tarnwick::slow {
namespace {

/// Tells of one move whether it mates. The test for check comes first because it refuses most moves.
bool MatesAtOnce(const TSlowPosition& position, const TSlowMove& move) {
    const TSlowPosition next = Play(position, move);
    return InCheck(next) && IsLegal(position, move) && !HasLegalMove(next);
}

bool MateInOne(const TSlowPosition& position) {
    const std::vector<TSlowMove> moves = PseudoLegalMoves(position);
    return std::any_of(moves.begin(), moves.end(),
                       [&](const TSlowMove& move) { return MatesAtOnce(position, move); });
}

std::string FlawInLine(const TSlowPosition& position, int n, const TNamedMove& nameMove,
                       const std::string& line) {
    if (n == 0) {
        return line + ": no mate within the moves allowed";
    }
    const std::string text = nameMove(position, n);
    const std::optional<TSlowMove> move = FindMove(position, text);
    if (!move) {
        return line + " \"" + text + "\": no legal move in " + PlacementText(position);
    }
    const TSlowPosition next = Play(position, *move);
    const std::vector<TSlowMove> replies = LegalMoves(next);
    if (replies.empty() && !InCheck(next)) {
        return line + " " + text + ": stalemate";
    }
    for (const TSlowMove& reply : replies) {
        std::string longer = line;
        longer.append(" ").append(text).append(" ").append(FullText(next, reply));
        std::string flaw = FlawInLine(Play(next, reply), n - 1, nameMove, longer);
        if (!flaw.empty()) {
            return flaw;
        }
    }
    return "";
}

}  // namespace

bool MateIn(const TSlowPosition& position, int n) {
    if (n <= 1) {
        return n == 1 && MateInOne(position);
    }
    const std::vector<TSlowMove> moves = LegalMoves(position);
    return std::any_of(moves.begin(), moves.end(), [&](const TSlowMove& move) {
        return IsMateForced(Play(position, move), n - 1);
    });
}

bool IsMateForced(const TSlowPosition& position, int n) {
    if (n < 1) {
        return IsMate(position);
    }
    const std::vector<TSlowMove> replies = LegalMoves(position);
    if (replies.empty()) {
        return InCheck(position);
    }
    return std::all_of(replies.begin(), replies.end(),
                       [&](const TSlowMove& reply) { return MateIn(Play(position, reply), n); });
}

int ShortestMate(const TSlowPosition& position, int maxN) {
    for (int n = 1; n <= maxN; ++n) {
        if (MateIn(position, n)) {
            return n;
        }
    }
    return 0;
}

std::vector<std::string> AllKeys(const TSlowPosition& position, int n) {
    std::vector<std::string> keys;
    for (const TSlowMove& move : LegalMoves(position)) {
        if (n >= 1 && IsMateForced(Play(position, move), n - 1)) {
            keys.push_back(FullText(position, move));
        }
    }
    std::sort(keys.begin(), keys.end());
    return keys;
}

std::string FindFlaw(const TSlowPosition& position, int n, const TNamedMove& nameMove) {
    return FlawInLine(position, n, nameMove, "Line:");
}

}  // namespace tarnwick::slow
