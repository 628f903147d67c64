#include "cli/solve_report.h"

#include "base/encoding.h"

#include "chess/fen.h"
#include "chess/move_text.h"
#include "cli/json_line.h"

namespace tarnwick {
namespace {

constexpr const char* ScoutPassName = "scout";

const TChessProblem& Record(const TSolvedProblem& solved) {
    return *solved.pInput->pProblem;
}

std::vector<std::string> MoveTexts(const std::vector<TMove>& moves, const TChessboard& board) {
    std::vector<std::string> texts;
    texts.reserve(moves.size());
    for (const TMove move : moves) {
        texts.push_back(MoveToDisplayText(move, board));
    }
    return texts;
}

std::string MovesText(const std::vector<TMove>& moves, const TSolvedProblem& solved) {
    return Joined(MoveTexts(moves, *Record(solved).m_pBoard), ", ");
}

const char* StatusName(TSolveStatus status) {
    switch (status) {
        case TSolveStatus::Mate:
            return "mate";
        case TSolveStatus::NoMate:
            return "no-mate";
        case TSolveStatus::Stopped:
            return "stopped";
        case TSolveStatus::Open:
            return "open";
        default:
            return "refused";
    }
}

/// Whether what the result says is proved: keys are keys also after a stop.
bool IsExact(const TSolveResult& result) {
    return (result.status == TSolveStatus::NoMate && result.bSafeMode) || !result.keys.empty();
}

/// "Only key: Qd1-d8" when there is no other, "Key" when nobody looked.
std::string KeysText(const TSolvedProblem& solved, const CTextStyle& style) {
    const std::vector<TMove>& keys = solved.result.keys;
    const std::string moves = style.Bold(MovesText(keys, solved));
    if (keys.size() > 1) {
        return std::to_string(keys.size()) + " keys: " + moves;
    }
    const bool bOnly = solved.bAll && solved.result.bComplete;
    return (bOnly ? "Only key: " : "Key: ") + moves;
}

std::string VerdictText(const TSolvedProblem& solved, const CTextStyle& style) {
    const TSolveResult& result = solved.result;
    std::string text;
    if (!result.keys.empty()) {
        text = KeysText(solved, style);
    } else if (result.status == TSolveStatus::NoMate) {
        text = style.Warning("No " + StipulationText(Record(solved)));
        text += result.bSafeMode ? "" : " found in quick mode, which is no proof: try --safe";
    } else if (result.status == TSolveStatus::Refused) {
        return style.Bad("Refused: ") + ShownText(result.message);
    } else {
        text = style.Warning("No key found");
    }
    return text + (result.message.empty() ? "" : " (" + ShownText(result.message) + ')');
}

/// "Qa1-a8 is missing" and what was found too much; empty unless they differ.
std::string DifferenceText(const TSolvedProblem& solved) {
    std::vector<std::string> parts;
    if (!solved.answers.missing.empty()) {
        parts.push_back("not found: " + MovesText(solved.answers.missing, solved));
    }
    if (!solved.answers.extra.empty()) {
        parts.push_back("not given: " + MovesText(solved.answers.extra, solved));
    }
    return Joined(parts, "; ");
}

/// ", key found in pass 1b"; empty without a key.
std::string PassFoundText(const TSolveResult& result) {
    if (result.passFound.empty()) {
        return "";
    }
    return result.passFound == ScoutPassName ? ", key found by the scout"
                                             : ", key found in pass " + result.passFound;
}

std::string EffortText(const TSolveResult& result) {
    const std::string speed = SpeedText(result.workNodes, result.elapsedMs);
    return DurationText(result.elapsedMs) + ", " + CountText(result.workNodes, "node") +
           (speed.empty() ? "" : ", " + speed) + PassFoundText(result);
}

const char* ResultName(const TPassReport& pass) {
    if (pass.keysFound > 0) {
        return "mate";
    }
    return pass.bComplete ? "none" : "stopped";
}

std::vector<CJsonLine> PassesJson(const TSolveResult& result) {
    std::vector<CJsonLine> passes;
    for (const TPassReport& pass : result.passes) {
        passes.push_back(CJsonLine()
                             .Add("name", pass.name)
                             .Add("heuristics", pass.heuristics)
                             .Add("nodes", pass.nodes)
                             .Add("ms", pass.ms)
                             .Add("keys", pass.keysFound)
                             .Add("result", ResultName(pass))
                             .Add("complete", pass.bComplete));
    }
    return passes;
}

TExitStatus StatusOf(const TSolveResult& result) {
    switch (result.status) {
        case TSolveStatus::Mate:
            return TExitStatus::Success;
        case TSolveStatus::NoMate:
            return TExitStatus::NoMate;
        case TSolveStatus::Stopped:
        case TSolveStatus::Open:
            return TExitStatus::Stopped;
        default:
            return TExitStatus::Unreadable;
    }
}

/// "12, 45, 101 and 8 more".
std::string NumbersText(const std::vector<int>& numbers) {
    constexpr std::size_t MaxShown = 20;
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < numbers.size() && i < MaxShown; ++i) {
        texts.push_back(std::to_string(numbers[i]));
    }
    const std::string more = numbers.size() > MaxShown
                                 ? " and " + GroupedNumber(numbers.size() - MaxShown) + " more"
                                 : "";
    return Joined(texts, ", ") + more;
}

}  // namespace

std::string StipulationText(const TChessProblem& problem) {
    const std::string moves = std::to_string(MovesOfStipulation(problem));
    if (AsksForMate(problem)) {
        return "mate in " + moves;
    }
    return problem.m_type == TProblemType::SelfMate ? "self-mate in " + moves : "";
}

std::string ProblemName(const TInputProblem& problem) {
    return problem.nLine == 0 ? "Your position"
                              : "Problem " + std::to_string(problem.pProblem->m_id);
}

std::string ProblemHeadText(const TInputProblem& problem, const CTextStyle& style,
                            TBoardStyle boardStyle) {
    const TChessProblem& record = *problem.pProblem;
    const std::string task = StipulationText(record);
    std::string head = style.Bold(ProblemName(problem) + (task.empty() ? "" : ": " + task)) + '\n';
    if (!record.m_description.empty()) {
        head += ShownText(ToUtf8(record.m_description)) + '\n';
    }
    if (problem.bColoursSwapped) {
        head += "Black was to move: shown and solved with colours exchanged.\n";
    }
    return head + DrawBoard(*record.m_pBoard, boardStyle);
}

std::string OutcomeText(const TSolvedProblem& solved, const CTextStyle& style) {
    std::string text = VerdictText(solved, style) + '\n';
    if (solved.answers.verdict == TAnswerVerdict::Agree) {
        text += style.Good("Agrees with the answer of the file") + '\n';
    } else if (solved.answers.verdict == TAnswerVerdict::Differ) {
        text += style.Bad("Differs from the answer of the file: ") + DifferenceText(solved) + '\n';
    }
    if (solved.result.status != TSolveStatus::Refused) {
        text += style.Faint(EffortText(solved.result)) + '\n';
    }
    return text;
}

std::string BriefText(const TSolvedProblem& solved, const CTextStyle& style) {
    const std::string task = StipulationText(Record(solved));
    std::string text = std::to_string(Record(solved).m_id) + "  " +
                       (task.empty() ? "no stipulation" : task) + "  " + VerdictText(solved, style);
    if (solved.pInput->bColoursSwapped) {
        text += "  colours exchanged";
    }
    if (solved.answers.verdict == TAnswerVerdict::Agree) {
        text += "  " + style.Good("agrees");
    } else if (solved.answers.verdict == TAnswerVerdict::Differ) {
        text += "  " + style.Bad("differs") + ": " + DifferenceText(solved);
    }
    return text + "  " + style.Faint(EffortText(solved.result));
}

std::string OutcomeJson(const TSolvedProblem& solved) {
    const TChessProblem& record = Record(solved);
    const TSolveResult& result = solved.result;
    std::vector<std::string> messages;
    if (!result.message.empty()) {
        messages.push_back(result.message);
    }
    if (solved.pInput->bColoursSwapped) {
        messages.emplace_back("Black was to move: solved with colours exchanged");
    }
    if (solved.answers.verdict == TAnswerVerdict::Differ) {
        messages.push_back("differs from the answer of the file: " + DifferenceText(solved));
    }
    return CJsonLine()
        .Add("id", record.m_id)
        .Add("fen", WriteFen(*record.m_pBoard, true))
        .Add("mate", MovesOfStipulation(record))
        .Add("status", StatusName(result.status))
        .Add("keys", MoveTexts(result.keys, *record.m_pBoard))
        .Add("all", solved.bAll)
        .Add("exact", IsExact(result))
        .Add("nodes", result.workNodes)
        .Add("ms", result.elapsedMs)
        .Add("message", Joined(messages, "; "))
        .Add("safe_mode", result.bSafeMode)
        .Add("register", result.registerElements)
        .Add("table_hits", result.tableHits)
        .Add("passes", PassesJson(result))
        .Add("pass_found", result.passFound)
        .Line();
}

void CSolveSummary::Add(const TSolvedProblem& solved) {
    m_mates += solved.result.status == TSolveStatus::Mate ? 1 : 0;
    m_noMates += solved.result.status == TSolveStatus::NoMate ? 1 : 0;
    m_stopped += solved.result.status == TSolveStatus::Stopped ? 1 : 0;
    m_open += solved.result.status == TSolveStatus::Open ? 1 : 0;
    m_refused += solved.result.status == TSolveStatus::Refused ? 1 : 0;
    m_agree += solved.answers.verdict == TAnswerVerdict::Agree ? 1 : 0;
    if (solved.answers.verdict == TAnswerVerdict::Differ) {
        m_differ.push_back(Record(solved).m_id);
    }
    m_status = WorseOf(m_status, StatusOf(solved.result));
    if (!solved.bSaved) {
        m_status = WorseOf(m_status, TExitStatus::Unreadable);
    }
}

std::uint64_t CSolveSummary::Count() const {
    return m_mates + m_noMates + m_stopped + m_open + m_refused;
}

std::string CSolveSummary::Text(const CTextStyle& style, std::uint64_t elapsedMs) const {
    std::string text = CountText(Count(), "problem") + " in " + DurationText(elapsedMs) + ": " +
                       GroupedNumber(m_mates) + " solved, " + GroupedNumber(m_noMates) +
                       " without mate, " + GroupedNumber(m_stopped) + " stopped, " +
                       GroupedNumber(m_refused) + " refused" +
                       (m_open > 0 ? ", " + GroupedNumber(m_open) + " left open" : "") + '\n';
    if (m_agree + m_differ.size() > 0) {
        text += "Answers of the file: " + style.Good(GroupedNumber(m_agree) + " agree");
        if (!m_differ.empty()) {
            text += ", " + style.Bad(GroupedNumber(m_differ.size()) + " differ") + " (problem " +
                    NumbersText(m_differ) + ')';
        }
        text += '\n';
    }
    return text;
}

}  // namespace tarnwick
