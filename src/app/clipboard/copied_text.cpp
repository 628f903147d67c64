#include "app/clipboard/copied_text.h"

#include "base/chess_exception.h"

#include "app/clipboard/clipboard_texts.h"
#include "app/document/problem_state.h"
#include "chess/fen.h"
#include "chess/prepare_position.h"
#include "problems/cp_writer.h"

namespace tarnwick {

std::string CopiedProblem(const TChessProblem& problem, TCopiedParts parts) {
    if (parts == TCopiedParts::All) {
        return ProblemToText(problem);
    }
    TProblemState state = StateOf(problem);
    state.variants.clear();
    if (parts == TCopiedParts::NoVariantsOrTags) {
        state.tags.clear();
    }
    TChessProblem copy;
    copy.m_id = problem.m_id;
    RestoreState(copy, state);
    return ProblemToText(copy);
}

std::string CopiedFen(const TSetupFields& fields, bool bPlacementOnly) {
    TChessboard board = BoardOfFields(fields);
    if (!bPlacementOnly && !PreparePositionNoThrow(board, true)) {
        throw ChessException(UserText(NoFenText));
    }
    return WriteFen(board, bPlacementOnly);
}

}  // namespace tarnwick
