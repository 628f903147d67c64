#include "problems/pgn_game_tree.h"

#include <algorithm>

namespace tarnwick {
namespace {

constexpr std::string_view WhiteSpace = " \t\r\n\v\f";
constexpr std::size_t MaxLine = 79;

}  // namespace

/// Puts tokens into lines and knows when the number of a move must be told.
class CPgnGameTree::CWriter {
  public:
    void Comment(std::string_view text);
    /// The moves behind the node; nPly counts half-moves from 0.
    void Moves(const TNode& node, int nPly);
    std::string Finished(std::string_view result);

  private:
    void Token(const std::string& token);
    void Move(const TNode& node, int nPly);
    void Variation(const TNode& node, int nPly);

    std::string m_text;
    std::size_t m_lineStart = 0;
    std::string m_opening;  ///< Brackets that wait for the next token.
    bool m_bNumberNeeded =
        true;  ///< Black's next move needs its number: something stands before it.
};

/// A line may not begin with "%", which makes it a remark for other programs.
void CPgnGameTree::CWriter::Token(const std::string& token) {
    const std::string whole = m_opening + token;
    m_opening.clear();
    const std::size_t used = m_text.size() - m_lineStart;
    if (used > 0 && used + 1 + whole.size() > MaxLine && whole.front() != '%') {
        m_text += '\n';
        m_lineStart = m_text.size();
    } else if (used > 0) {
        m_text += ' ';
    }
    m_text += whole;
}

/// Word by word. A comment ends with the first closing brace, so there may be none in it.
void CPgnGameTree::CWriter::Comment(std::string_view text) {
    std::string clean(text);
    std::ranges::replace(clean, '{', '(');
    std::ranges::replace(clean, '}', ')');
    std::ranges::replace_if(
        clean, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    std::string_view rest = clean;
    std::string word;
    m_opening += '{';
    while (true) {
        rest.remove_prefix(std::min(rest.find_first_not_of(WhiteSpace), rest.size()));
        const std::string_view next = rest.substr(0, rest.find_first_of(WhiteSpace));
        rest.remove_prefix(next.size());
        if (next.empty()) {
            break;
        }
        if (!word.empty()) {
            Token(word);
        }
        word = next;
    }
    Token(word + '}');
    m_bNumberNeeded = true;
}

void CPgnGameTree::CWriter::Move(const TNode& node, int nPly) {
    const std::string number = std::to_string(nPly / 2 + 1);
    if (nPly % 2 == 0) {
        Token(number + '.');
    } else if (m_bNumberNeeded) {
        Token(number + "...");
    }
    Token(node.move.san);
    m_bNumberNeeded = false;
    if (!node.move.comment.empty()) {
        Comment(node.move.comment);
    }
}

void CPgnGameTree::CWriter::Variation(const TNode& node, int nPly) {
    m_opening += '(';
    m_bNumberNeeded = true;
    if (!node.name.empty()) {
        Comment(node.name);
    }
    Move(node, nPly);
    Moves(node, nPly + 1);
    m_text += ')';
    m_bNumberNeeded = true;
}

void CPgnGameTree::CWriter::Moves(const TNode& node, int nPly) {
    const TNode* pNode = &node;
    for (; !pNode->next.empty(); ++nPly) {
        const TNode& main = *pNode->next.front();
        if (!main.name.empty()) {
            Comment(main.name);
        }
        Move(main, nPly);
        for (std::size_t i = 1; i < pNode->next.size(); ++i) {
            Variation(*pNode->next[i], nPly);
        }
        pNode = &main;
    }
}

std::string CPgnGameTree::CWriter::Finished(std::string_view result) {
    Token(std::string(result));
    return m_text + '\n';
}

void CPgnGameTree::AddComment(std::string& comments, std::string_view comment) {
    if (!comment.empty() && comments.find(comment) == std::string::npos) {
        comments += comments.empty() ? "" : "; ";
        comments += comment;
    }
}

CPgnGameTree::TNode& CPgnGameTree::ChildWith(TNode& node, const TPgnMove& move, bool& bNew) {
    const auto found = std::ranges::find_if(
        node.next, [&](const auto& pChild) { return pChild->move.san == move.san; });
    bNew = found == node.next.end();
    if (!bNew) {
        AddComment((*found)->move.comment, move.comment);
        return **found;
    }
    node.next.push_back(std::make_unique<TNode>());
    node.next.back()->move = move;
    return *node.next.back();
}

void CPgnGameTree::AddLine(const std::vector<TPgnMove>& moves, std::string_view name) {
    TNode* pNode = &m_start;
    bool bNamed = false;
    for (const TPgnMove& move : moves) {
        bool bNew = false;
        pNode = &ChildWith(*pNode, move, bNew);
        if (bNew && !bNamed) {
            pNode->name = name;
            bNamed = true;
        }
    }
    if (!bNamed && !moves.empty()) {
        AddComment(pNode->move.comment, name);  // all its moves belong to lines before it
    }
}

std::string CPgnGameTree::LastMove() const {
    const TNode* pNode = &m_start;
    while (!pNode->next.empty()) {
        pNode = pNode->next.front().get();
    }
    return pNode->move.san;
}

int CPgnGameTree::Length() const {
    int length = 0;
    for (const TNode* pNode = &m_start; !pNode->next.empty(); pNode = pNode->next.front().get()) {
        ++length;
    }
    return length;
}

std::string CPgnGameTree::Text(std::string_view startComment, std::string_view result) const {
    CWriter writer;
    if (!startComment.empty()) {
        writer.Comment(startComment);
    }
    writer.Moves(m_start, 0);
    return writer.Finished(result);
}

}  // namespace tarnwick
