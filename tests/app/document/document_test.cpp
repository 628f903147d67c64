#include "app/document/document.h"

#include <gmock/gmock.h>

#include <chrono>

#include "base/chess_exception.h"

#include "app/document/played_line.h"
#include "app/document/text_folding.h"
#include "app/document/variants.h"
#include "chess/legal_moves.h"
#include "document_support.h"
#include "problems/cp_file_reader.h"
#include "problems/problem_transforms.h"
#include "support/random_positions.h"

namespace tarnwick {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

int CurrentId(const CDocument& document) {
    return document.Current() == nullptr ? -1 : document.Current()->m_id;
}

TEST(Document, StepsThroughNumbersWithGapsAndStopsAtTheEnds) {
    TOpenFile file(ThreeProblems());
    CDocument& document = file.document;
    EXPECT_EQ(CurrentId(document), 3);
    EXPECT_FALSE(document.GoToPrevious());
    EXPECT_TRUE(document.GoToNext() && document.GoToNext());
    EXPECT_EQ(CurrentId(document), 9);
    EXPECT_FALSE(document.GoToNext());
    EXPECT_FALSE(document.GoTo(4));
    EXPECT_EQ(CurrentId(document), 9);
    EXPECT_TRUE(document.GoToPrevious());
    EXPECT_EQ(CurrentId(document), 5);
}

TEST(Document, ViewedProblemsComeBackAsInABrowser) {
    TOpenFile file(ThreeProblems());
    CDocument& document = file.document;
    EXPECT_FALSE(document.GoBack());
    document.GoTo(9);
    document.GoTo(5);
    EXPECT_TRUE(document.GoBack() && document.GoBack());
    EXPECT_EQ(CurrentId(document), 3);
    EXPECT_TRUE(document.GoForward());
    EXPECT_EQ(CurrentId(document), 9);
    document.Take(5);
    EXPECT_FALSE(document.GoForward()) << "the only problem that lay forward is gone";
    EXPECT_TRUE(document.GoBack());
    document.GoToLast();
    EXPECT_FALSE(document.GoForward()) << "another way was taken";
}

TEST(Document, FilterWantsAllWordsWithoutCaseAndAccents) {
    TOpenFile file(ThreeProblems());
    CDocument& document = file.document;
    EXPECT_THAT(document.Filtered(L""), ElementsAre(3, 5, 9));
    EXPECT_THAT(document.Filtered(L"GES zolw"), ElementsAre(3));
    EXPECT_THAT(document.Filtered(L"zolw second"), IsEmpty());
    document.GoTo(9);
    document.Edit([](TChessProblem& p) { AddTag(p, L"Їжак"); });
    EXPECT_THAT(document.Filtered(L"їжа"), ElementsAre(9))
        << "tags, and edits since the last filter";
    document.Undo();
    EXPECT_THAT(document.Filtered(L"їжа"), IsEmpty());
    EXPECT_EQ(FoldedText(L"ÆŻŚŹĆŃŁÓĄĘ ŠČř Ґанок Ω"), FoldedText(L"ażśźćńłóąę SCR ганок ω"));
}

TEST(Document, UnsavedEndsWhereUndoReachesTheSavedState) {
    TOpenFile file(ThreeProblems());
    CDocument& document = file.document;
    Describe(document, L"one");
    EXPECT_FALSE(document.Edit([](TChessProblem&) {})) << "no difference, no step";
    EXPECT_TRUE(document.HasUnsavedChanges());
    EXPECT_TRUE(document.Undo());
    EXPECT_FALSE(document.HasUnsavedChanges());
    EXPECT_FALSE(document.Undo());
    document.Redo();
    document.MarkSaved(file.path);
    EXPECT_FALSE(document.HasUnsavedChanges());
    document.Undo();
    EXPECT_TRUE(document.HasUnsavedChanges()) << "the file has the later state";
    Describe(document, L"another way: the saved state is cut off");
    EXPECT_FALSE(document.CanRedo());
    Describe(document, L"one");
    EXPECT_FALSE(document.HasUnsavedChanges()) << "the same again, although by another way";
}

TEST(Document, AnEditThatThrowsLeavesTheProblemAsItWas) {
    TOpenFile file(ThreeProblems());
    const std::string before = ProblemToText(*file.document.Current());
    EXPECT_THROW(file.document.Edit([](TChessProblem& problem) {
        SetDescription(problem, L"half done");
        ShiftPosition(problem, 8);  // the black king leaves the board
    }),
                 ChessException);
    EXPECT_EQ(ProblemToText(*file.document.Current()), before);
    EXPECT_FALSE(file.document.HasUnsavedChanges() || file.document.CanUndo());
}

TEST(Document, NewProblemsStandBehindTheLastAndAreUnsaved) {
    TOpenFile file(ThreeProblems());
    CDocument& document = file.document;
    EXPECT_EQ(document.AddNewProblem().m_id, 10);
    EXPECT_EQ(CurrentId(document), 10);
    EXPECT_TRUE(document.HasUnsavedPosition(10) && document.HasUnsavedChanges());
    EXPECT_FALSE(document.CanUndo());
    document.Take(10);
    EXPECT_EQ(CurrentId(document), 9);
    EXPECT_FALSE(document.HasUnsavedChanges()) << "the file never had it";
    document.PutBack(document.Take(5));
    EXPECT_FALSE(document.HasUnsavedChanges());
    document.Take(5);
    EXPECT_TRUE(document.HasUnsavedChanges());
}

/// One of all kinds of edits, which may also be impossible here.
void EditAtRandom(CDocument& document, slow::CDice& dice, const std::string& placement) {
    document.Edit([&](TChessProblem& problem) {
        CPlayedLine line;
        switch (dice.Below(8)) {
            case 0:
                return SetDescription(problem, std::to_wstring(dice.Below(1000)));
            case 1:
                return SetPlies(problem, PliesOfStipulation(problem.m_type, dice.Below(9) + 1));
            case 2:
                AddTag(problem, std::to_wstring(dice.Below(9)));
                return;
            case 3:
                RotatePosition(problem);
                return;
            case 4:
                SwapColours(problem);
                return;
            case 5:
                ShiftPosition(problem, dice.Chance(50) ? 1 : -8);
                return;
            case 6: {
                TProblemList other;
                ReadProblemText(ProblemOf(1, 3, placement), "", other);
                *problem.m_pBoard = *other.Find(1)->m_pBoard;
                return SetPlies(problem, problem.m_shPlies);
            }
            default:
                line.Start(problem);
                for (const TMove move : LegalMoves(line.Board())) {
                    if (line.Play(move) == TMoveRefusal::None) {
                        break;
                    }
                }
                SaveVariant(problem, std::to_wstring(dice.Below(3)), line);
                SetMoveComment(problem, line.Moves(), L"note " + std::to_wstring(dice.Below(9)));
        }
    });
}

TEST(Document, UndoAndRedoAreExactOverAnyRowOfEdits) {
    const std::uint64_t seed = slow::TestSeed();
    slow::CRandomPositions positions(seed);
    slow::CDice dice(seed);
    TOpenFile file(ThreeProblems());
    CDocument& document = file.document;
    SCOPED_TRACE(positions.Story());
    for (int round = 0; round < 20; ++round) {
        std::vector<std::string> texts{ProblemToText(*document.Current())};
        for (int i = 0; i < 30; ++i) {
            try {
                EditAtRandom(document, dice, positions.Next());
            } catch (const ChessException&) {
                EXPECT_EQ(ProblemToText(*document.Current()), texts.back());
            }
            if (const std::string text = ProblemToText(*document.Current()); text != texts.back()) {
                texts.push_back(text);
            }
        }
        for (std::size_t i = texts.size() - 1; i > 0; --i) {
            ASSERT_TRUE(document.Undo());
            ASSERT_EQ(ProblemToText(*document.Current()), texts[i - 1]);
        }
        for (std::size_t i = 1; i < texts.size(); ++i) {
            ASSERT_TRUE(document.Redo());
            ASSERT_EQ(ProblemToText(*document.Current()), texts[i]);
        }
    }
}

double MillisecondsOf(const std::function<void()>& action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

TEST(Document, StaysQuickWithAHundredThousandProblems) {
    constexpr int Count = 100'000;
    auto pList = std::make_unique<TProblemList>();
    for (int id = 1; id <= Count; ++id) {
        auto pProblem = std::make_unique<TChessProblem>();
        pProblem->m_id = id;
        SetDescription(*pProblem, L"Józef Łągiewka, Szachy " + std::to_wstring(1900 + id % 99) +
                                      L", 2nd Prize, problem of the year");
        pList->Insert(std::move(pProblem));
    }
    CDocument document;
    document.Replace("many.cp", std::move(pList), {});
    document.GoTo(Count / 2);
    const double step = MillisecondsOf([&] {
                            for (int i = 0; i < 1000; ++i) {
                                document.GoToNext();
                            }
                        }) /
                        1000;
    const double first = MillisecondsOf([&] { document.Filtered(L"lagiewka 1950"); });
    const double next = MillisecondsOf([&] { document.Filtered(L"prize 1951"); });
    RecordProperty("step_us", static_cast<int>(step * 1000));
    RecordProperty("first_filter_ms", static_cast<int>(first));
    RecordProperty("filter_ms", static_cast<int>(next));
    EXPECT_EQ(document.Filtered(L"1950, LAGIEWKA").size(), 1010U);
    // Ten times what the machine at hand needs: a change of the order of growth shows, noise does not.
    EXPECT_LT(step, 1);
    EXPECT_LT(first, 1000);
    EXPECT_LT(next, 200);
}

}  // namespace
}  // namespace tarnwick
