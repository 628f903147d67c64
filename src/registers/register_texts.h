#pragma once
// What the registers say to the user. The slips of the fixed texts stay: reports quote them.

#include "base/language.h"

namespace tarnwick {

inline constexpr TUserText IncoherentAnswerText = {
    .pl = "Sprzeczna informacja w TChessboardRegister::Insert()",
    .en = "Incoherent information in TChessboardRegister::Insert()",
    .uk = nullptr};
inline constexpr TUserText IncoherentDefenceText = {
    .pl = "Sprzeczna informacja w TChessboardRegister::InsertDefence()",
    .en = "Incoherent information in TChessboardRegister::Insert()",
    .uk = nullptr};

}  // namespace tarnwick
