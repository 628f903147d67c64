// Any bytes as a problem file: the reader answers with problems or one exception, and what it read is
// the same after it was written and read again, and after that written the same.
//
// A transform runs over what was read as well: it must refuse or leave a problem that keeps the law.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>

#include "base/chess_exception.h"

#include "problems/cp_file_reader.h"
#include "problems/cp_writer.h"
#include "problems/problem_transforms.h"
#include "support/problem_compare.h"

namespace {

using namespace tarnwick;

/// The fuzz target has no engine, so any word that looks like a heuristic is one.
std::uint32_t AnyHeuristic(std::string_view name) noexcept {
    return name.starts_with("SH_") ? 1U << (name.size() % 32) : 0;
}

void Read(std::string_view text, TProblemList& list) {
    ReadProblemText(text, "fuzz", list, {.heuristicBitOfName = AnyHeuristic});
}

[[noreturn]] void Fail(const std::string& why, const std::string& first,
                       const std::string& second) {
    std::fprintf(stderr, "%s\n--- first\n%s--- second\n%s", why.c_str(), first.c_str(),
                 second.c_str());
    std::abort();
}

void CheckLaw(const TProblemList& list) {
    const std::string written = ProblemListToText(list);
    TProblemList again;
    try {
        Read(written, again);
    } catch (const ChessException& e) {
        Fail(e.what(), written, "");
    }
    const std::string writtenAgain = ProblemListToText(again);
    if (written != writtenAgain) {
        Fail("written texts differ", written, writtenAgain);
    }
    for (const TChessProblem* pProblem : list.Problems()) {
        const TChessProblem* pAgain = again.Find(pProblem->m_id);
        const std::string differences =
            pAgain == nullptr ? "lost" : WrittenDifferences(*pProblem, *pAgain);
        if (!differences.empty()) {
            Fail(differences, written, writtenAgain);
        }
    }
}

void Transform(TChessProblem& problem, std::size_t choice) {
    using TOperation = TTransformNotes (*)(TChessProblem&);
    constexpr TOperation operations[] = {
        SwapColours,
        RotatePosition,
        MirrorPosition,
        [](TChessProblem& p) { return ShiftPosition(p, -1); },
        [](TChessProblem& p) { return ShiftPosition(p, 8); },
    };
    const std::string before = ProblemToText(problem);
    try {
        operations[choice % std::size(operations)](problem);
    } catch (const ChessException&) {
        const std::string after = ProblemToText(problem);
        if (before != after) {
            Fail("a refused transform changed the problem", before, after);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TProblemList list;
    try {
        Read({reinterpret_cast<const char*>(data), size}, list);
    } catch (const ChessException&) {
        // Whatever stands in front of the error was read all the same.
    }
    CheckLaw(list);
    for (TChessProblem* pProblem : list.Problems()) {
        Transform(*pProblem, size);  // the length chooses: one transform for each input is enough
    }
    CheckLaw(list);
    return 0;
}
