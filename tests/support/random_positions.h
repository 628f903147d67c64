#pragma once

// Random positions and random games for laws that must hold everywhere.
//
// A seed gives the same positions on every machine and library. Positions come in settings, because
// uniformly random men almost never meet what breaks programs: a castling that mates, an en passant that
// refutes, a promotion to a knight, a draw for lack of material. A test prints the seed when it fails:
//
//     CRandomPositions positions(TestSeed());
//     SCOPED_TRACE(positions.Story());

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "support/slow_rules.h"

namespace tarnwick::slow {

/// The seed of random tests: the number in the environment variable TARNWICK_TEST_SEED, else a fixed
/// one, so that a failure of the usual run stays until it is repaired.
std::uint64_t TestSeed();

enum class TSetting {
    MatingNet,    ///< Strong white men near a black king at the edge or in a corner.
    Promotion,    ///< Pawns of both colours one or two steps before promotion.
    Castling,     ///< Kings and rooks at home with nothing between them.
    EnPassant,    ///< Pawns that may step past each other, the kings in their lines.
    PromotedMen,  ///< Two queens, three knights or rooks, two bishops of one field colour.
    NearlyBare,   ///< White has no more than K, B, N, NN, P or BP: mostly a draw, rarely a mate.
    Anything,     ///< Men and fields without any plan.
};
inline constexpr int SettingCount = 7;

struct TRandomPositionOptions {
    int minMen = 3;   ///< Both kings included.
    int maxMen = 12;  ///< At most 20.
    /// How often each setting is drawn, in the order of TSetting; only the ratios count.
    std::array<int, SettingCount> weights{36, 12, 14, 12, 8, 10, 8};
};

/// Random numbers that do not depend on the standard library's distributions.
class CDice {
  public:
    explicit CDice(std::uint64_t seed) : m_engine(seed) {}

    /// Uniform in [0, count).
    int Below(int count) { return static_cast<int>(m_engine() % static_cast<unsigned>(count)); }
    bool Chance(int percent) { return Below(100) < percent; }
    char Letter(std::string_view bag) { return bag[Below(static_cast<int>(bag.size()))]; }

  private:
    std::mt19937_64 m_engine;
};

/// An endless row of legal positions with White to move, as FEN placements: one king each, Black not
/// in check, no pawn on a first or last rank, at most two men checking White, no more promoted men than
/// missing pawns.
class CRandomPositions {
  public:
    explicit CRandomPositions(std::uint64_t seed, const TRandomPositionOptions& options = {});

    /// The next position, of a setting drawn by the weights.
    std::string Next();

    /// The next position of this setting.
    std::string Next(TSetting setting);

    /// "seed 1234, position 17": what a failing test should print.
    std::string Story() const;

  private:
    std::uint64_t m_seed;
    TRandomPositionOptions m_options;
    CDice m_dice;
    int m_count = 0;
};

/// A position that CRandomPositions may return.
bool IsLegalSetting(const TSlowPosition& position);

struct TGameStep {
    TSlowPosition before;
    TSlowMove move;
    std::string text;  ///< FullText of the move.
    TSlowPosition after;
};

/// Random legal play from a root, White to move; shorter than `plies` if it ends in mate or stalemate.
/// Castlings, en passant, promotions and double steps are played far more often than they come up.
std::vector<TGameStep> RandomGame(std::uint64_t seed, const std::string& startFen, int plies);

}  // namespace tarnwick::slow
