#include "registers/register_record_check.h"

#include <algorithm>
#include <array>

namespace tarnwick {
namespace {

constexpr std::array<bool, 256> FigureCodes() {
    std::array<bool, 256> known{};
    known[EmptyField] = true;
    for (const TFigureCode colour : {WhiteFlag, BlackFlag}) {
        for (const TFigureCode type :
             {TypeKing, TypePawn, TypeBishop, TypeRook, TypeQueen, TypeKnight}) {
            known[colour | type] = true;
        }
        known[colour | TypePawn | MarkBit] = true;
    }
    return known;
}

constexpr std::array<bool, 256> IsFigureCode = FigureCodes();

}  // namespace

bool CanBeStoredPosition(const TChessboardRegisterItem& item) noexcept {
    return std::ranges::all_of(item.m_fields,
                               [](TFigureCode code) { return IsFigureCode[code]; }) &&
           std::ranges::count(item.m_fields, WhiteKing) == 1 &&
           std::ranges::count(item.m_fields, BlackKing) == 1;
}

}  // namespace tarnwick
