#pragma once
// A position while it is being set up: the men on the 64 fields, the stipulation, the fields that a
// recognised picture left in doubt, and undo of every single step. Nothing of the problem changes before
// the mode is left (setup_result.h).

#include <vector>

#include "app/setup/position_faults.h"
#include "problems/chess_problem.h"

namespace tarnwick {

class CPositionSetup {
  public:
    /// Longest stipulation that can be set; a longer one of a file stays as long as it is not changed.
    static constexpr int MaxMoves = 300;

    /// The problem's start position; forgets all steps. doubtful marks fields for the user to check.
    void Start(const TChessProblem& problem);

    const TSetupFields& Fields() const { return m_present.setupFields; }
    TFigureCode ManOn(int field) const { return Fields()[static_cast<std::size_t>(field)]; }
    /// Of the stipulation; 0 for a position that asks for nothing.
    int Moves() const { return m_present.nMoves; }
    TFieldSet Doubtful() const { return m_present.doubtful; }
    bool HasNewMen() const { return Fields() != m_first.setupFields; }
    bool IsChanged() const { return HasNewMen() || Moves() != m_first.nMoves; }

    // Steps. Each settles the doubt about the fields that it touches. False if nothing is different.

    bool Put(int field, TFigureCode man);  ///< EmptyField clears the field.
    bool Move(int from, int to);
    /// The field is right as it is.
    bool Confirm(int field);
    bool ClearAll();
    bool PutStartingArray();
    /// All men at once, as they were pasted; doubtful marks the fields to be checked.
    bool PutAll(const TSetupFields& fields, TFieldSet doubtful);
    /// Keeps the stipulation between 1 and MaxMoves. Nothing where there is none.
    bool ChangeMoves(int nDelta);
    bool SetMoves(int nMoves);

    bool CanUndo() const { return !m_before.empty(); }
    bool CanRedo() const { return !m_behind.empty(); }
    bool Undo();
    bool Redo();

  private:
    struct TState {
        TSetupFields setupFields{};
        int nMoves = 0;
        TFieldSet doubtful = 0;
        bool operator==(const TState&) const = default;
    };
    bool Step(const TState& next);

    TState m_first;
    TState m_present;
    std::vector<TState> m_before;
    std::vector<TState> m_behind;
};

}  // namespace tarnwick
