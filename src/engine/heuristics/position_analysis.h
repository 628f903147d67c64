#pragma once
// The automatic choice of heuristics: a look at the root before a job starts, or before the user sees the
// dialog of heuristics. A long list of rules over the material, the place of the black king and short
// trial searches fills the set of the first pass and its parameters. A poor choice costs passes, never a
// solution: the last pass runs without heuristics.

#include <cstdint>
#include <functional>

#include "chess/chessboard.h"

namespace tarnwick {

struct TSolveTask;

/// What AnalyzePosition says of the kind of position.
enum class TPositionFlag : std::uint16_t {
    Analysed = 0x2,              ///< Always.
    FreeKing = 0x4,              ///< The black king has room, and little else helps it.
    FiguresToSpare = 0x8,        ///< White can afford to lose a figure.
    OppositeBishops = 0x10,      ///< One bishop each, on different colours.
    SafeModeForced = 0x80,       ///< Quick mode would overlook too much.
    BlackAhead = 0x100,          ///< Black has clearly more material.
    BareBlackKing = 0x400,       ///< Black has only the king.
    GlobalRegisterAsked = 0x800  ///< The caller asked for this bit.
};
constexpr std::uint16_t Bit(TPositionFlag flag) {
    return static_cast<std::uint16_t>(flag);
}

struct TAnalysisOptions {
    bool bTrials = true;           ///< Short trial searches, some ten milliseconds each.
    bool bForcedMate = true;       ///< A long problem may start with SH_FINDFORCEDMATE.
    bool bUnblockDynamic = true;   ///< SH_DONTLETFIGUREUNBLOCK may be set during the search.
    bool bGlobalRegister = false;  ///< GlobalRegisterAsked is wanted in the answer.
    /// Receives a text for the progress display. May be empty.
    std::function<void(const char* text)> tell{};
};

/// Proposes the heuristics of the first pass: sets mask, key, pass, marks and if need be the followed men
/// of the board, and the parameters of its thread. White to move at the root, prepared, on a thread whose slots
/// below are free. Switches the job to safe mode where that is needed, unless bFromDialog, when there is
/// no job yet. bSecondCall: the user has been told already. pOptions may be null: all defaults.
///
/// Answers TPositionFlag bits. Never fails; with trials it takes up to some tenths of a second.
std::uint16_t AnalyzePosition(TChessboard& board, bool bFromDialog, bool bSecondCall,
                              const TAnalysisOptions* pOptions = nullptr);

/// The marks of a root whose passes run under heuristics, whoever chose them: light ordering further from
/// the leaves, and whether Black has only the king. The relaxation goes by them.
void MarkForHeuristics(TChessboard& root) noexcept;

/// From now on repetitions are judged with care, in the search and in the register.
void ForceSafeMode(TSolveTask& task) noexcept;

}  // namespace tarnwick
