#include "chess/make_hooks.h"

namespace tarnwick {

const TMakeHooks NoMakeHooks = {
    .m_pMayWhitePlayInOneColour = [](const TChessboard&, TMove) { return true; },
    .m_pMayWhiteKingEnter = [](const TChessboard&, int) { return true; },
    .m_pUpdateKingArea = [](TChessboard&) {},
    .m_pUpdateKeyField = [](TChessboard&, int) {},
};

}  // namespace tarnwick
