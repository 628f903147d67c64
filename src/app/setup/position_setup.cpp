#include "app/setup/position_setup.h"

#include <algorithm>

namespace tarnwick {
namespace {

constexpr TFigureCode FirstRank[8] = {TypeRook, TypeKnight, TypeBishop, TypeQueen,
                                      TypeKing, TypeBishop, TypeKnight, TypeRook};

TSetupFields StartingArray() {
    TSetupFields fields{};
    const auto put = [&](int file, int rank, TFigureCode code) {
        fields[FieldAt(file, rank)] = code;
    };
    for (int file = 0; file < 8; ++file) {
        put(file, 0, static_cast<TFigureCode>(WhiteFlag | FirstRank[file]));
        put(file, 1, WhitePawn);
        put(file, 6, BlackPawn);
        put(file, 7, static_cast<TFigureCode>(BlackFlag | FirstRank[file]));
    }
    return fields;
}

std::size_t Index(int field) {
    return static_cast<std::size_t>(field);
}

}  // namespace

void CPositionSetup::Start(const TChessProblem& problem) {
    m_first = {};
    std::ranges::transform(
        problem.m_pBoard->m_fields, m_first.setupFields.begin(),
        [](TFigureCode code) { return static_cast<TFigureCode>(ColourOf(code) | TypeOf(code)); });
    m_first.nMoves = MovesOfStipulation(problem);
    m_present = m_first;
    m_before.clear();
    m_behind.clear();
}

bool CPositionSetup::Step(const TState& next) {
    if (next == m_present) {
        return false;
    }
    m_before.push_back(m_present);
    m_behind.clear();
    m_present = next;
    return true;
}

bool CPositionSetup::Put(int field, TFigureCode man) {
    TState next = m_present;
    next.setupFields[Index(field)] = man;
    next.doubtful &= ~FieldBit(field);
    return Step(next);
}

bool CPositionSetup::Move(int from, int to) {
    if (from == to || ManOn(from) == EmptyField) {
        return false;
    }
    TState next = m_present;
    next.setupFields[Index(to)] = ManOn(from);
    next.setupFields[Index(from)] = EmptyField;
    next.doubtful &= ~(FieldBit(from) | FieldBit(to));
    return Step(next);
}

bool CPositionSetup::Confirm(int field) {
    return Put(field, ManOn(field));
}

bool CPositionSetup::ClearAll() {
    return PutAll({}, 0);
}

bool CPositionSetup::PutStartingArray() {
    return PutAll(StartingArray(), 0);
}

bool CPositionSetup::PutAll(const TSetupFields& fields, TFieldSet doubtful) {
    TState next = m_present;
    next.setupFields = fields;
    next.doubtful = doubtful;
    return Step(next);
}

bool CPositionSetup::ChangeMoves(int nDelta) {
    return SetMoves(std::clamp(Moves() + nDelta, 1, std::max(MaxMoves, Moves())));
}

bool CPositionSetup::SetMoves(int nMoves) {
    if (Moves() == 0) {
        return false;
    }
    TState next = m_present;
    next.nMoves = nMoves;
    return Step(next);
}

bool CPositionSetup::Undo() {
    if (m_before.empty()) {
        return false;
    }
    m_behind.push_back(m_present);
    m_present = m_before.back();
    m_before.pop_back();
    return true;
}

bool CPositionSetup::Redo() {
    if (m_behind.empty()) {
        return false;
    }
    m_before.push_back(m_present);
    m_present = m_behind.back();
    m_behind.pop_back();
    return true;
}

}  // namespace tarnwick
