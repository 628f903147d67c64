#include "tables/generation/type_graph.h"

#include <algorithm>

#include "base/chess_exception.h"
#include "base/filled_text.h"

#include "tables/tables_texts.h"

namespace tarnwick {
namespace {

bool HasWhiteMan(const std::string& type) {
    return std::ranges::any_of(type, [](char letter) { return IsWhite(FigureOfLetter(letter)); });
}

}  // namespace

CTypeNode::CTypeNode(std::string type, const TTableFinder& finder)
    : m_index(std::move(type)), m_finder(finder) {
    m_links.resize((Letters() + 1) * (Letters() * 4 + 1));
}

const CTableValues& CTypeNode::Values() const {
    std::call_once(m_found, [this] { m_pValues = m_finder(m_index.Type()); });
    return *m_pValues;
}

unsigned CTypeNode::ValueAt(const TTablePlace& place) const {
    const auto slice =
        std::ranges::find_if(m_slices, [&](const auto& pSlice) { return pSlice->Holds(place); });
    const unsigned value = slice != m_slices.end() ? (*slice)->ValueAt(place)
                                                   : Values().ValueAt(m_index.IndexOfPlace(place));
    if (value == NotGenerated) {
        throw ChessException(FilledText(PartialTableText, {m_index.Type()}));
    }
    return value;
}

void CTypeNode::HoldSlice(CEdgeSlice::TLetters onEdge, int threads) {
    const CTableValues& values = Values();
    m_slices.push_back(
        std::make_unique<CEdgeSlice>(m_index, onEdge, values, values.ElementSize(), threads));
}

std::uint64_t CTypeNode::BytesOfSlice(CEdgeSlice::TLetters onEdge) const {
    return CEdgeSlice::BytesOf(m_index, onEdge, Values().ElementSize());
}

CTypeGraph::CTypeGraph(const std::string& type, TTableFinder finder)
    : m_finder(std::move(finder)), m_pRoot(&NodeOf(type)) {}

CTypeNode& CTypeGraph::NodeOf(const std::string& type) {
    std::unique_ptr<CTypeNode>& pNode = m_nodes[type];
    if (!pNode) {
        pNode = std::make_unique<CTypeNode>(type, m_finder);
        CTypeNode& node = *pNode;
        MakeLinks(node);
        return node;
    }
    return *pNode;
}

std::uint64_t CTypeGraph::BytesOfSmallerTables() const {
    std::uint64_t bytes = 0;
    for (const auto& [type, pNode] : m_nodes) {
        bytes += type.size() < m_pRoot->Letters() ? pNode->Index().GetIndexCount() : 0;
    }
    return bytes;
}

void CTypeGraph::MakeLinks(CTypeNode& node) {
    const int letters = static_cast<int>(node.Letters());
    for (int captured = NoMan; captured < letters; ++captured) {
        if (captured != NoMan) {
            SetLink(node, captured, NoMan, 0);
        }
        for (int pawn = 0; pawn < letters; ++pawn) {
            const TFigureCode code = node.Index().ManOf(static_cast<std::size_t>(pawn));
            const bool bOther =
                captured == NoMan ||
                IsWhite(node.Index().ManOf(static_cast<std::size_t>(captured))) != IsWhite(code);
            for (std::size_t figure = 0; TypeOf(code) == TypePawn && bOther && figure < 4;
                 ++figure) {
                SetLink(node, captured, pawn, figure);
            }
        }
    }
}

void CTypeGraph::SetLink(CTypeNode& node, int captured, int promoted, std::size_t figure) {
    struct TMan {
        char letter;
        std::uint8_t source;
    };
    std::vector<TMan> men;
    for (int i = 0; i < static_cast<int>(node.Letters()); ++i) {
        if (i == captured) {
            continue;
        }
        TFigureCode code = node.Index().ManOf(static_cast<std::size_t>(i));
        if (i == promoted) {
            code = static_cast<TFigureCode>(ColourOf(code) | PromotionTypes[figure]);
        }
        men.push_back({LetterOfFigure(code), static_cast<std::uint8_t>(i)});
    }
    std::ranges::stable_sort(men, {}, [](const TMan& man) { return TypeLetters.find(man.letter); });
    std::string type;
    for (const TMan& man : men) {
        type += man.letter;
    }
    TTypeLink& link = node.m_links[node.LinkNumber(captured, promoted, figure)];
    if (!HasWhiteMan(type)) {
        return;
    }
    link.pNode = &NodeOf(type);
    for (std::size_t i = 0; i < men.size(); ++i) {
        link.source[i] = men[i].source;
    }
}

}  // namespace tarnwick
