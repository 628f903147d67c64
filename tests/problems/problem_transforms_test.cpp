#include "problems/problem_transforms.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "base/chess_exception.h"

#include "chess/fen.h"
#include "problems/cp_file_reader.h"
#include "problems/cp_writer.h"
#include "support/problem_compare.h"

namespace tarnwick {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::ThrowsMessage;

std::unique_ptr<TChessProblem> Problem(const std::string& text) {
    TProblemList list;
    ReadProblemText("UTF-8\n" + text, "", list);
    return list.Remove(1);
}

const std::string Full =
    "1 #2\n//!VARIANTS\n//!{a} Ra1-b1[comment] Kg8-h8 b7-b8Q\n//!ENDVARIANTS\n"
    "//@SortIndications: Ra1:a8; ~b2\n"
    "{D: text\nFEN: 6k1/1P6/8/3p4/8/8/8/R2K4\n A: Ra1-a8, b7-b8Q}";

TEST(ProblemTransforms, MirrorTakesEveryPartAlong) {
    const auto p = Problem(Full);
    MirrorPosition(*p);
    const std::string mirrored =
        "1 #2\n//!VARIANTS\n//!{a} Rh1-g1[comment] Kb8-a8 g7-g8Q\n//!ENDVARIANTS\n"
        "//@SortIndications: Rh1:h8; ~g2\n"
        "{\n\tDescription: text\n\tFEN: 1k6/6P1/8/4p3/8/8/8/4K2R\n\tAnswer:  Rh1-h8,  g7-g8Q\n}\n";
    EXPECT_EQ(ProblemToText(*p), mirrored);
    EXPECT_TRUE(SameFields(p->m_originalBoard, *p->m_pBoard));
    EXPECT_EQ(p->m_pBoard->m_shPlies, 3);
    MirrorPosition(*p);
    EXPECT_EQ(WrittenDifferences(*p, *Problem(Full)), "");
}

TEST(ProblemTransforms, SwappingColoursTurnsTheBoardTopToBottomAndSaysSo) {
    const auto p = Problem(Full);
    SwapColours(*p);
    EXPECT_EQ(WriteFen(*p->m_pBoard, true), "r2k4/8/8/8/3P4/8/1p6/6K1");
    EXPECT_EQ(p->m_description, L"B&Wh.swapped: text");
    EXPECT_THAT(ProblemToText(*p), HasSubstr("{a} Ra8-b8[comment] Kg1-h1 b2-b1Q\n"));
    EXPECT_THAT(ProblemToText(*p), HasSubstr("\tAnswer:  Ra8-a1,  b2-b1Q\n"));
}

TEST(ProblemTransforms, FourRotationsGiveBackPositionAndDescription) {
    for (const std::string description : {"text", "Rotated by hand", "Rotated 45\xC2\xB0: x", ""}) {
        const std::string text =
            "1 #2 {D: " + description + "\nFEN: 6k1/8/3p4/8/8/2P5/8/R2K4\n A: Ra1-a8}";
        const auto p = Problem(text);
        for (const wchar_t* prefix :
             {L"Rotated 90\u00B0:", L"Rotated 180\u00B0:", L"Rotated 270\u00B0:"}) {
            RotatePosition(*p);
            EXPECT_TRUE(p->m_description.starts_with(prefix));
        }
        EXPECT_EQ(WriteFen(*p->m_pBoard, true), "8/k7/8/8/2p4K/5P2/8/7R");
        EXPECT_NE(WrittenDifferences(*p, *Problem(text)), "");
        RotatePosition(*p);
        EXPECT_EQ(WrittenDifferences(*p, *Problem(text)), "") << description;
    }
}

TEST(ProblemTransforms, AShiftLosesWhatItPushesOffTheBoard) {
    const auto p = Problem(
        "1 #2\n//!VARIANTS\n//!{a} Rb1-b2 Kg8-f8 Rb2-a2 Kf8-g8\n//!ENDVARIANTS\n"
        "//@SortIndications: Rb1-a1; ~a2; b2\n"
        "{D: text\nFEN: 6k1/8/p7/8/8/8/8/1R1K4\n A: Rb1-a1, Rb1-b8}");
    ShiftPosition(*p, -1);
    EXPECT_EQ(ProblemToText(*p),
              "1 #2\n//!VARIANTS\n//!{a} Ra1-a2 Kf8-e8\n//!ENDVARIANTS\n//@SortIndications: a2\n"
              "{\n\tDescription: text\n\tFEN: 5k2/8/8/8/8/8/8/R1K5\n\tAnswer:  Ra1-a8\n}\n");
    ShiftPosition(*p, 1);
    EXPECT_EQ(WriteFen(*p->m_pBoard, true), "6k1/8/8/8/8/8/8/1R1K4");
    const auto last = Problem("1 #2 {FEN: 6k1/8/8/8/8/8/8/1R1K4\n A: Rb1-a1}");
    ShiftPosition(*last, -1);
    EXPECT_THAT(ProblemToText(*last), Not(HasSubstr("Answer")));
}

TEST(ProblemTransforms, ARefusedTransformChangesNothing) {
    const auto p = Problem(Full);
    const std::string before = ProblemToText(*p);
    const char* pawns = "Pawns cannot occupy 1st nor 8th line of the chessboard.";
    EXPECT_THAT([&] { ShiftPosition(*p, -8); },
                ThrowsMessage<ChessException>("Illegal number of kings."));
    EXPECT_THAT([&] { ShiftPosition(*p, 8); }, ThrowsMessage<ChessException>(pawns));
    const auto onEdge = Problem("1 #2 {FEN: 6k1/8/p7/8/8/8/8/R2K4\n A: Ra1-a8}");
    EXPECT_THAT([&] { RotatePosition(*onEdge); }, ThrowsMessage<ChessException>(pawns));
    EXPECT_EQ(ProblemToText(*p), before);
}

TEST(ProblemTransforms, CastlingsBecomeKingsMovesAndAreReported) {
    const auto p = Problem(
        "1 #2\n//!VARIANTS\n//!{a} 0-0 0-0-0\n//!ENDVARIANTS\n{FEN: r3k3/8/8/8/8/8/8/4K2R\n}");
    const TTransformNotes notes = MirrorPosition(*p);
    EXPECT_TRUE(notes.bVariantHadCastling);
    EXPECT_TRUE(notes.bHadCastlingRights);
    EXPECT_THAT(ProblemToText(*p), HasSubstr("{a} Kd1-b1 Kd8-f8\n"));
    const TTransformNotes again = MirrorPosition(*p);
    EXPECT_FALSE(again.bVariantHadCastling);
    EXPECT_FALSE(again.bHadCastlingRights);
}

TEST(ProblemTransforms, ALineOfPlayIsKeptAsFarAsItIsLegal) {
    const std::string text =
        "1 {FEN: r3k2r/p7/8/8/8/8/P7/R3K2R\nMoves: a2-a4 Rh8-g8 Ra1-a3 0-0-0 a4-a5}";
    const auto p = Problem(text);
    MirrorPosition(*p);
    EXPECT_THAT(ProblemToText(*p), HasSubstr("Moves:     h2-h4 Ra8-b8 Rh1-h3\n"));
    EXPECT_EQ(p->m_pLastBoard, p->m_lineBoards.back().get());
    SwapColours(*p);
    EXPECT_TRUE(p->m_lineBoards.empty());
    EXPECT_EQ(p->m_pLastBoard, p->m_pBoard);
}

}  // namespace
}  // namespace tarnwick
