#pragma once
// The moves of a game with variations and comments, and their text: what stands in a PGN file below the
// tags.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

/// One move of a line that is added.
struct TPgnMove {
    std::string san;      ///< Standard notation; tells the moves of one position apart.
    std::string comment;  ///< UTF-8; may be empty.
};

class CPgnGameTree {
  public:
    /// Adds a line from the start, White's move first. Moves that are there already are shared, and comments
    /// of both lines kept. The first line is the game, every other a variation from where it leaves. A name,
    /// which may be empty, is a comment in front of the line's own moves.
    void AddLine(const std::vector<TPgnMove>& moves, std::string_view name);

    /// The last move of the game itself; empty without moves.
    std::string LastMove() const;
    /// Half-moves of the game itself.
    int Length() const;

    /// Comment of the start, moves and result, in lines of at most 79 characters where words allow it, with
    /// the last line's end.
    std::string Text(std::string_view startComment, std::string_view result) const;

  private:
    struct TNode {
        TPgnMove move;
        std::string name;  ///< Of the line that begins here.
        std::vector<std::unique_ptr<TNode>> next;
    };
    class CWriter;

    static void AddComment(std::string& comments, std::string_view comment);
    static TNode& ChildWith(TNode& node, const TPgnMove& move, bool& bNew);

    TNode m_start;
};

}  // namespace tarnwick
