#include "problems/pgn_writer.h"

#include <algorithm>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/filled_text.h"

#include "chess/fen.h"
#include "chess/move_text.h"
#include "chess/trimmed_text.h"
#include "problems/export_texts.h"
#include "problems/pgn_game_tree.h"
#include "problems/standard_lines.h"

namespace tarnwick {
namespace {

/// What the tags say; "?" for what nobody knows.
struct TPgnHeading {
    std::string event = "?";
    std::string date = "????.??.??";
    std::string white = "?";
};

/// Cuts the part up to the next comma off, without blanks around; empty at the end.
std::string TakePart(std::string_view& rest) {
    const std::size_t comma = std::min(rest.find(','), rest.size());
    const std::string part(Trimmed(rest.substr(0, comma)));
    rest.remove_prefix(std::min(comma + 1, rest.size()));
    return part;
}

/// The year at the end of the text; empty if there is none.
std::string YearAtEnd(const std::string& text) {
    const std::string last = text.substr(text.find_last_of(' ') + 1);
    const bool bDigits =
        last.size() == 4 && last.find_first_not_of("0123456789") == std::string::npos;
    return bDigits && (last.front() == '1' || last.front() == '2') ? last : "";
}

/// "Paul Morphy, New York Clipper, 1856: what happens". Without a comma it names a source, at most.
TPgnHeading HeadingOf(const std::wstring& description) {
    TPgnHeading heading;
    const std::string text = ToUtf8(description);
    const std::string_view head = std::string_view(text).substr(0, text.find(": "));
    std::string_view rest = head;
    const std::string composer = TakePart(rest);
    if (rest.empty()) {
        heading.event = composer.empty() ? heading.event : composer;
        return heading;
    }
    heading.white = composer.empty() ? heading.white : composer;
    std::string source(Trimmed(rest));
    if (const std::string year = YearAtEnd(source); !year.empty()) {
        heading.date = year + ".??.??";
        source.erase(source.size() - year.size());
        source.erase(source.find_last_not_of(", ") + 1);
    }
    heading.event = source.empty() ? heading.event : source;
    return heading;
}

std::string Stipulation(const TChessProblem& problem) {
    const std::string moves = std::to_string(MovesOfStipulation(problem));
    switch (problem.m_type) {
        case TProblemType::DirectMate:
            return "mate in " + moves;
        case TProblemType::SelfMate:
            return "self-mate in " + moves;
        default:
            return "?";
    }
}

/// A tag's line. Values have no more than 255 characters by the rules of PGN; some readers insist.
std::string Tag(const char* name, const std::string& value) {
    constexpr std::size_t MaxCharacters = 200;
    std::string text = '[' + std::string(name) + " \"";
    for (const char c : ToUtf8(FromUtf8(value).substr(0, MaxCharacters))) {
        text += c == '"' || c == '\\' ? "\\" : "";
        text += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
    return text + "\"]\n";
}

/// The game tree of a problem, filled line by line.
class CProblemGame {
  public:
    explicit CProblemGame(const TChessProblem& problem) : m_problem(problem), m_lines(problem) {
        for (const bool bMain : {true, false}) {
            AddVariants(bMain);
            if (bMain) {
                AddLineOfPlay();
                AddKeys();
            }
        }
    }

    std::string Text() const;
    const std::vector<std::string>& Lost() const { return m_lost; }

  private:
    void AddVariants(bool bMain);
    void AddLineOfPlay();
    void AddKeys();
    std::string Result() const;

    const TChessProblem& m_problem;
    CStandardLines m_lines;
    CPgnGameTree m_tree;
    std::vector<std::string> m_lost;
};

void CProblemGame::AddVariants(bool bMain) {
    for (const auto& [key, variant] : m_problem.m_variants) {
        if (IsMainVariantName(variant.m_name) != bMain) {
            continue;
        }
        std::vector<TMove> moves;
        for (const TVariantEntry& entry : variant.m_entries) {
            moves.push_back(entry.m_move);
        }
        const std::vector<std::string> texts = m_lines.Texts(moves);
        std::vector<TPgnMove> line;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            line.push_back({texts[i], ToUtf8(variant.m_entries[i].m_comment)});
        }
        m_tree.AddLine(line, bMain ? "" : ToUtf8(variant.m_name));
        if (texts.size() < moves.size()) {
            m_lost.push_back(
                FilledText(LostVariantEndText,
                           {ToUtf8(variant.m_name), variant.m_entries[texts.size()].m_text}));
        }
    }
}

void CProblemGame::AddLineOfPlay() {
    std::vector<TMove> moves;
    for (const auto& pBoard : m_problem.m_lineBoards) {
        moves.push_back(pBoard->m_lastMove);
    }
    std::vector<TPgnMove> line;
    for (const std::string& text : m_lines.Texts(moves)) {
        line.push_back({text, ""});
    }
    m_tree.AddLine(line, "");
}

void CProblemGame::AddKeys() {
    if (!m_problem.m_shOptions.Has(TProblemOption::HasAnswers)) {
        return;
    }
    for (const TMove& key : m_problem.m_answers) {
        const std::vector<std::string> texts = m_lines.Texts({&key, 1});
        if (texts.empty()) {
            m_lost.push_back(FilledText(LostKeyText, {MoveToDisplayText(key, m_lines.Start())}));
        } else {
            m_tree.AddLine({{texts.front(), ""}}, "");
        }
    }
}

std::string CProblemGame::Result() const {
    switch (m_problem.m_type) {
        case TProblemType::DirectMate:
            return "1-0";
        case TProblemType::SelfMate:
            return "0-1";
        default:
            if (!m_tree.LastMove().ends_with('#')) {
                return "*";
            }
            return m_tree.Length() % 2 == 1 ? "1-0" : "0-1";
    }
}

std::string CProblemGame::Text() const {
    const TPgnHeading heading = HeadingOf(m_problem.m_description);
    const std::string result = Result();
    return Tag("Event", heading.event) + Tag("Site", "?") + Tag("Date", heading.date) +
           Tag("Round", std::to_string(m_problem.m_id)) + Tag("White", heading.white) +
           Tag("Black", Stipulation(m_problem)) + Tag("Result", result) +
           Tag("FEN", WriteFen(m_lines.Start(), false)) + Tag("SetUp", "1") + '\n' +
           m_tree.Text(ToUtf8(m_problem.m_description), result);
}

}  // namespace

TExportedText PgnOfProblems(std::span<const TChessProblem* const> problems) {
    TExportedText exported;
    for (const TChessProblem* const pProblem : problems) {
        try {
            const CProblemGame game(*pProblem);
            exported.text += (exported.text.empty() ? "" : "\n") + game.Text();
            std::vector<std::string> lost = LossesOfAnyExport(*pProblem);
            lost.insert(lost.end(), game.Lost().begin(), game.Lost().end());
            AddLoss(exported, *pProblem, lost);
        } catch (const ChessException& refused) {
            exported.losses.push_back({pProblem->m_id, true, refused.what()});
        }
    }
    return exported;
}

}  // namespace tarnwick
