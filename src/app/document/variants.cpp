#include "app/document/variants.h"

#include <algorithm>
#include <utility>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/filled_text.h"

#include "app/document/play_texts.h"
#include "app/document/played_line.h"

namespace tarnwick {
namespace {

/// Fit for one line of the file: line ends become blanks, blanks at the ends go.
std::wstring OneLine(std::wstring_view text) {
    std::wstring line(text);
    std::ranges::replace(line, L'\n', L' ');
    std::ranges::replace(line, L'\r', L' ');
    constexpr std::wstring_view blanks = L" \t";
    line.erase(line.find_last_not_of(blanks) + 1);
    line.erase(0, std::min(line.find_first_not_of(blanks), line.size()));
    return line;
}

bool IsSameName(std::wstring_view a, std::wstring_view b) {
    return a == b || (IsMainVariantName(a) && IsMainVariantName(b));
}

std::wstring Insert(TChessProblem& problem, TVariant variant) {
    std::wstring key = variant.ToText();
    problem.m_variants.insert_or_assign(key, std::move(variant));
    return key;
}

/// Whether the variant plays all these moves.
bool GoesAlong(const TVariant& variant, const std::vector<TMove>& moves) {
    return variant.m_entries.size() >= moves.size() &&
           std::ranges::equal(
               moves.begin(), moves.end(), variant.m_entries.begin(),
               variant.m_entries.begin() + static_cast<std::ptrdiff_t>(moves.size()),
               [](TMove move, const TVariantEntry& entry) { return entry.m_move.SameAs(move); });
}

/// How good an entry is to stand for a move: a comment counts most, the main variant breaks ties.
int PreferenceOf(const TVariant& variant, const TVariantEntry& entry) {
    return (entry.m_comment.empty() ? 0 : 2) + (IsMainVariantName(variant.m_name) ? 1 : 0);
}

/// Key of the variant whose entry stands for the last of the moves; null if there is none.
const std::wstring* BestVariantAlong(const TChessProblem& problem,
                                     const std::vector<TMove>& moves) {
    const std::wstring* pBest = nullptr;
    int bestRank = -1;
    for (const auto& [key, variant] : problem.m_variants) {
        if (moves.empty() || !GoesAlong(variant, moves)) {
            continue;
        }
        const int rank = PreferenceOf(variant, variant.m_entries[moves.size() - 1]);
        if (rank > bestRank) {
            bestRank = rank;
            pBest = &key;
        }
    }
    return pBest;
}

void SetEntryComment(TChessProblem& problem, const std::wstring& key, std::size_t index,
                     const std::wstring& comment) {
    auto node = problem.m_variants.extract(key);
    node.mapped().m_entries[index].m_comment = comment;
    Insert(problem, std::move(node.mapped()));
}

void RemoveComments(TChessProblem& problem, const std::vector<TMove>& moves) {
    std::vector<std::wstring> keys;
    for (const auto& [key, variant] : problem.m_variants) {
        if (GoesAlong(variant, moves) && !variant.m_entries[moves.size() - 1].m_comment.empty()) {
            keys.push_back(key);
        }
    }
    for (const std::wstring& key : keys) {
        SetEntryComment(problem, key, moves.size() - 1, L"");
    }
}

}  // namespace

std::wstring CheckedVariantName(std::wstring_view name) {
    std::wstring checked = OneLine(name);
    if (checked.empty() || checked.find_first_of(L"{}") != std::wstring::npos) {
        throw ChessException(UserText(VariantNameText));
    }
    return IsMainVariantName(checked) ? MainVariantName() : checked;
}

const std::wstring* FindVariant(const TChessProblem& problem, std::wstring_view name) {
    for (const auto& [key, variant] : problem.m_variants) {
        if (IsSameName(variant.m_name, name)) {
            return &key;
        }
    }
    return nullptr;
}

const std::wstring* FindMainVariant(const TChessProblem& problem) {
    return FindVariant(problem, MainVariantName());
}

std::wstring SaveVariant(TChessProblem& problem, std::wstring_view name, const CPlayedLine& line) {
    TVariant variant{.m_name = CheckedVariantName(name), .m_entries = {}};
    const std::vector<TMove> moves = line.Moves(line.Ply());
    if (moves.empty()) {
        throw ChessException(UserText(NoMovesForVariantText));
    }
    const std::vector<const TVariantEntry*> entries = EntriesOfLine(problem, moves);
    for (std::size_t i = 0; i < moves.size(); ++i) {
        variant.m_entries.push_back({.m_text = line.MoveText(static_cast<int>(i) + 1),
                                     .m_move = moves[i],
                                     .m_comment = entries[i] ? entries[i]->m_comment : L""});
    }
    std::erase_if(problem.m_variants, [&](const auto& entry) {
        return IsSameName(entry.second.m_name, variant.m_name);
    });
    return Insert(problem, std::move(variant));
}

std::wstring SaveMainVariant(TChessProblem& problem, const CPlayedLine& line) {
    return SaveVariant(problem, MainVariantName(), line);
}

std::wstring RenameVariant(TChessProblem& problem, const std::wstring& key,
                           std::wstring_view newName) {
    std::wstring name = CheckedVariantName(newName);
    const std::wstring* pOther = FindVariant(problem, name);
    if (pOther != nullptr && *pOther != key) {
        throw ChessException(FilledText(VariantExistsText, {ToUtf8(name)}));
    }
    auto node = problem.m_variants.extract(key);
    if (node.empty()) {
        return key;
    }
    node.mapped().m_name = std::move(name);
    return Insert(problem, std::move(node.mapped()));
}

bool RemoveVariant(TChessProblem& problem, const std::wstring& key) {
    return problem.m_variants.erase(key) > 0;
}

void ShowVariant(const TVariant& variant, CPlayedLine& line) {
    std::vector<TMove> moves;
    for (const TVariantEntry& entry : variant.m_entries) {
        moves.push_back(entry.m_move);
    }
    const auto played = static_cast<std::size_t>(line.SetMoves(moves));
    if (played < moves.size()) {
        throw ChessException(FilledText(VariantIllegalText, {variant.m_entries[played].m_text}));
    }
}

std::vector<TAnimationStep> AnimationOf(const TVariant& variant, const CPlayedLine& line,
                                        int nDelayMs) {
    std::vector<TAnimationStep> steps;
    for (int ply = 0; line.Length() > 0 && ply <= line.Length(); ++ply) {
        const auto entry = static_cast<std::size_t>(ply) - 1;
        const bool bHasEntry = ply > 0 && entry < variant.m_entries.size();
        steps.push_back({.nAfterMs = ply * nDelayMs,
                         .nPly = ply,
                         .comment = bHasEntry ? variant.m_entries[entry].m_comment : L""});
    }
    return steps;
}

std::vector<const TVariantEntry*> EntriesOfLine(const TChessProblem& problem,
                                                const std::vector<TMove>& moves) {
    std::vector<const TVariantEntry*> best(moves.size(), nullptr);
    std::vector<int> ranks(moves.size(), -1);
    for (const auto& [key, variant] : problem.m_variants) {
        const std::size_t count = std::min(moves.size(), variant.m_entries.size());
        for (std::size_t i = 0; i < count; ++i) {
            const TVariantEntry& entry = variant.m_entries[i];
            if (!entry.m_move.SameAs(moves[i])) {
                break;
            }
            if (const int rank = PreferenceOf(variant, entry); rank > ranks[i]) {
                ranks[i] = rank;
                best[i] = &entry;
            }
        }
    }
    return best;
}

void SetMoveComment(TChessProblem& problem, const std::vector<TMove>& moves,
                    std::wstring_view comment) {
    if (comment.find(L']') != std::wstring_view::npos) {
        throw ChessException(UserText(CommentBracketText));
    }
    const std::wstring* pKey = BestVariantAlong(problem, moves);
    if (pKey == nullptr) {
        throw ChessException(UserText(CommentNeedsVariantText));
    }
    const std::wstring line = OneLine(comment);
    if (line.empty()) {
        RemoveComments(problem, moves);
    } else {
        SetEntryComment(problem, std::wstring(*pKey), moves.size() - 1, line);
    }
}

bool AddTag(TChessProblem& problem, std::wstring_view tag) {
    std::wstring line = OneLine(tag);
    if (line.empty()) {
        throw ChessException(UserText(EmptyTagText));
    }
    return problem.m_tags.insert(std::move(line)).second;
}

bool RemoveTag(TChessProblem& problem, const std::wstring& tag) {
    return problem.m_tags.erase(tag) > 0;
}

}  // namespace tarnwick
