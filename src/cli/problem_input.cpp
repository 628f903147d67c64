#include "cli/problem_input.h"

#include <algorithm>
#include <map>
#include <set>

#include "base/chess_exception.h"
#include "base/language.h"

#include "chess/fen.h"
#include "chess/field_transforms.h"
#include "chess/notation_texts.h"
#include "chess/trimmed_text.h"
#include "cli/text_style.h"
#include "engine/heuristics/heuristic_names.h"
#include "problems/cp_file_reader.h"
#include "problems/epd_reader.h"

namespace tarnwick {
namespace {

/// Line numbers of rising places in a text, all together in one walk over it.
class CLineCounter {
  public:
    explicit CLineCounter(std::string_view text) : m_text(text) {}

    int LineOf(std::size_t position) {
        const auto begin = m_text.begin();
        m_nLine +=
            static_cast<int>(std::count(begin + static_cast<std::ptrdiff_t>(m_counted),
                                        begin + static_cast<std::ptrdiff_t>(position), '\n'));
        m_counted = position;
        return m_nLine;
    }

  private:
    std::string_view m_text;
    std::size_t m_counted = 0;
    int m_nLine = 1;
};

void NoteProblem(int id, int nLine, std::map<int, int>& lines, TProblemInput& problems) {
    const auto [place, bNew] = lines.try_emplace(id, nLine);
    if (!bNew) {
        problems.remarks.push_back({nLine, false,
                                    "problem " + std::to_string(id) +
                                        " replaces the one of the same number on line " +
                                        std::to_string(place->second)});
        place->second = nLine;
    }
}

void ReadCpProblems(const TTextInput& input, TProblemInput& problems) {
    TProblemList list;
    std::map<int, int> lines;  // of each number
    CLineCounter counter(input.text);
    TCpReadOptions options;
    options.heuristicBitOfName = &HeuristicBitOfName;
    options.onProblem = [&](const TChessProblem& problem, std::size_t position) {
        NoteProblem(problem.m_id, counter.LineOf(position), lines, problems);
    };
    try {
        ReadProblemText(input.text, input.name, list, options);
    } catch (const TProblemFileError& error) {
        problems.remarks.push_back({error.Line(), true, error.what()});
    }
    for (const auto& [id, nLine] : lines) {
        problems.problems.push_back({list.Remove(id), nLine, false});
    }
}

/// False if the line cannot be read.
bool ReadEpdLine(std::string_view line, int nLine, int id, TProblemInput& problems) {
    TEpdFile read;
    try {
        ReadEpdText(line, "", read);
    } catch (const ChessException& error) {
        problems.remarks.push_back({nLine, true, error.what()});
        return false;
    }
    for (const TEpdNote& note : read.notes) {
        problems.remarks.push_back({nLine, false, note.text});
    }
    for (TEpdProblem& problem : read.problems) {
        problem.pProblem->m_id = id;
        problems.problems.push_back({std::move(problem.pProblem), nLine, problem.bColoursSwapped,
                                     std::move(problem.passedOver)});
    }
    return true;
}

/// Line by line, so that a bad line costs the user that line alone. But who gives us a text of another
/// kind does not want to read a message for each of its lines.
void ReadEpdProblems(std::string_view text, TProblemInput& problems) {
    constexpr int MaxFaults = 100;
    int id = 0;
    int faults = 0;
    for (int nLine = 1; !text.empty(); ++nLine) {
        if (faults == MaxFaults) {
            problems.remarks.push_back({nLine, true, "too many bad lines: the rest is not read"});
            return;
        }
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = Trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (!line.empty() && line.front() != '#') {
            faults += ReadEpdLine(line, nLine, ++id, problems) ? 0 : 1;
        }
    }
}

bool FenGivesBlackTheMove(std::string_view fen) {
    fen = Trimmed(fen);
    fen = Trimmed(fen.substr(std::min(fen.find_first_of(Blanks), fen.size())));
    return fen.substr(0, fen.find_first_of(Blanks)) == "b";
}

}  // namespace

bool AsksForMate(const TChessProblem& problem) {
    return problem.m_type == TProblemType::DirectMate && problem.m_lineBoards.empty();
}

const char* WhyNotForEngine(const TChessProblem& problem) {
    if (AsksForMate(problem)) {
        return nullptr;
    }
    return problem.m_type == TProblemType::SelfMate
               ? "self-mates are not solved"
               : "a position without a stipulation asks for nothing";
}

bool TProblemInput::HasFault() const {
    return std::ranges::any_of(remarks, &TInputRemark::bFault);
}

TProblemInput ReadProblems(const TTextInput& input) {
    TProblemInput problems;
    problems.name = input.name;
    if (input.form == TInputForm::Epd) {
        ReadEpdProblems(input.text, problems);
    } else {
        ReadCpProblems(input, problems);
    }
    if (problems.problems.empty() && problems.remarks.empty()) {
        problems.remarks.push_back({0, true, "there is no problem in it"});
    }
    return problems;
}

TTypedPosition ReadTypedPosition(const std::string& fen) {
    TTypedPosition typed{.board = EmptyChessboard()};
    bool bCastlingWithheld = false;
    bool bEnPassantGiven = false;
    if (!ReadFen(typed.board, fen, bCastlingWithheld, bEnPassantGiven)) {
        throw ChessException(
            "'" + ShownText(fen) +
            "' is no FEN. It has eight rows from rank 8 to rank 1 with '/' between "
            "them, like 7k/8/5K2/8/8/8/8/6R1");
    }
    typed.bBlackToMove = FenGivesBlackTheMove(fen);
    typed.bNoteDue = bCastlingWithheld || bEnPassantGiven;
    return typed;
}

TProblemInput ReadTypedProblem(const std::string& fen, int moves) {
    TTypedPosition typed = ReadTypedPosition(fen);
    TProblemInput input;
    input.name = "FEN";
    if (typed.bNoteDue) {
        input.remarks.push_back({0, false, UserText(FenNoteText)});
    }
    if (typed.bBlackToMove) {
        TransformPosition(TTransform::SwapColours, typed.board);
    }
    auto pProblem = std::make_unique<TChessProblem>();
    pProblem->m_id = 1;
    pProblem->m_type = moves > 0 ? TProblemType::DirectMate : TProblemType::Position;
    *pProblem->m_pBoard = typed.board;
    SetPlies(*pProblem, PliesOfStipulation(pProblem->m_type, std::max(moves, 1)));
    pProblem->m_originalBoard = *pProblem->m_pBoard;
    input.problems.push_back({std::move(pProblem), 0, typed.bBlackToMove});
    return input;
}

TProblemInput ReadFileOrFen(const std::string& file, const std::string& fen, int moves) {
    return file.empty() ? ReadTypedProblem(fen, moves) : ReadProblems(ReadTextInput(file));
}

bool SelectProblems(TProblemInput& input, const CIdList& ids, CConsoleDialog& dialog) {
    std::vector<int> numbers;
    numbers.reserve(input.problems.size());
    for (const TInputProblem& problem : input.problems) {
        numbers.push_back(problem.pProblem->m_id);
    }
    const std::vector<std::string> missing = ids.RangesWithout(numbers);
    std::erase_if(input.problems, [&ids](const TInputProblem& problem) {
        return !ids.Contains(problem.pProblem->m_id);
    });
    if (!missing.empty()) {
        const std::string there = numbers.empty()
                                      ? "there is none"
                                      : "the numbers go from " + std::to_string(numbers.front()) +
                                            " to " + std::to_string(numbers.back());
        dialog.Tell(input.name + ": no problem " + Joined(missing, ", ") + "; " + there);
    }
    return !input.problems.empty();
}

void TellLostOperations(const TProblemInput& input, CConsoleDialog& dialog) {
    std::set<std::string> names;
    std::uint64_t count = 0;
    for (const TInputProblem& problem : input.problems) {
        names.insert(problem.lost.begin(), problem.lost.end());
        count += problem.lost.empty() ? 0 : 1;
    }
    if (!names.empty()) {
        dialog.Tell(input.name + ": operations of " + CountText(count, "line") +
                    " are lost: " + Joined({names.begin(), names.end()}, ", "));
    }
}

void TellExchangedColours(const TProblemInput& input, CConsoleDialog& dialog) {
    for (const TInputProblem& problem : input.problems) {
        if (problem.bColoursSwapped) {
            dialog.Tell(
                PlacedText(input.name, problem.nLine,
                           "Black was to mate: colours are exchanged, so that White mates"));
        }
    }
}

void TellRemarks(const TProblemInput& input, CConsoleDialog& dialog) {
    for (const TInputRemark& remark : input.remarks) {
        dialog.Tell(PlacedText(input.name, remark.nLine, remark.text));
    }
}

std::string PlacedText(const std::string& name, int nLine, const std::string& text) {
    return name + (nLine == 0 ? "" : ':' + std::to_string(nLine)) + ": " + text;
}

}  // namespace tarnwick
