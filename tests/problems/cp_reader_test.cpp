#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "chess/fen.h"
#include "engine/heuristics/heuristic_names.h"
#include "problems/cp_file_reader.h"
#include "support/case_name.h"
#include "support/problem_compare.h"
#include "support/temp_folder.h"

namespace tarnwick {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using ::testing::ThrowsMessage;

constexpr const char* TestData = TARNWICK_TEST_DATA;
const TCpReadOptions WithHeuristics{.heuristicBitOfName = HeuristicBitOfName};

/// The error of a text as "LINE: TEXT"; empty if it reads.
std::string ErrorOf(std::string_view text, TProblemList& list) {
    try {
        ReadProblemText(text, "name.cp", list, WithHeuristics);
    } catch (const TProblemFileError& e) {
        EXPECT_EQ(e.File(), "name.cp");
        return std::to_string(e.Line()) + ": " + e.what();
    }
    return "";
}

std::string ErrorOf(std::string_view text) {
    TProblemList list;
    return ErrorOf(text, list);
}

/// Reads a text of one problem, number 1.
const TChessProblem& ReadOne(const std::string& text, TProblemList& list) {
    EXPECT_EQ(ErrorOf(text, list), "");
    const TChessProblem* pProblem = list.Find(1);
    if (pProblem == nullptr) {
        throw std::runtime_error("no problem 1");
    }
    return *pProblem;
}

std::vector<std::string> Texts(const std::vector<TMove>& moves) {
    std::vector<std::string> texts;
    for (const TMove move : moves) {
        texts.push_back(FieldName(move.from) + FieldName(move.to) +
                        (move.promotion == 0 ? "" : "/" + std::to_string(move.promotion)));
    }
    return texts;
}

TEST(CpReader, ReadsEveryPartOfAProblem) {
    TProblemList list;
    ReadProblemFile(std::string(TestData) + "/problems/everything.cp", list, WithHeuristics);
    ASSERT_EQ(list.Size(), 3U);
    EXPECT_THAT(list.Tags(), ElementsAre(L"miniature", L"za\u017C\u00F3\u0142\u0107"));

    const TChessProblem& p = *list.Find(7);
    EXPECT_EQ(p.m_type, TProblemType::SelfMate);
    EXPECT_EQ(p.m_shPlies, 7);
    EXPECT_EQ(p.m_pBoard->m_shRootPlies, 7);
    EXPECT_EQ(p.m_shOptions.Raw(), 0x79FF);
    EXPECT_EQ(p.m_threads, 4);
    EXPECT_EQ(p.m_threadsAux, 2);
    EXPECT_EQ(p.m_schedulerLevels, 2);
    EXPECT_EQ(p.m_lichessLevels, 1);
    EXPECT_EQ(p.m_globRegMB, 64);
    EXPECT_EQ(p.m_shGuiCheckCount, 1);  // the last of the two words
    EXPECT_TRUE(p.m_bStopRelaxHeuristicsOnFirstSolution);
    EXPECT_THAT(p.m_requires, ElementsAre("KQk"));
    EXPECT_THAT(p.m_allSolutionsRequires, ElementsAre("KRk"));
    EXPECT_THAT(p.m_heuristicSettings.at(0x1000), ElementsAre("a", ",", "b"));
    EXPECT_THAT(p.m_heuristicSettings.at(0x4000), ElementsAre("OFF"));
    EXPECT_EQ(p.m_description, L"A description");
    EXPECT_EQ(p.m_variants.size(), 2U);
    EXPECT_EQ(p.m_variants.at(L"{other} e7-e8Q").m_entries.size(), 1U);
    EXPECT_EQ(p.m_sortIndications.size(), 2U);
    EXPECT_THAT(Texts(p.m_answers), ElementsAre("e1g1", "e1c1", "a1a8", "e2e4"));
    EXPECT_EQ(p.m_pLastBoard, p.m_pBoard);
    EXPECT_TRUE(SameFields(p.m_originalBoard, *p.m_pBoard));
}

TEST(CpReader, PlaysTheLineWithCastlingAndEnPassantOnBoardsOfItsOwn) {
    TProblemList list;
    ReadProblemFile(std::string(TestData) + "/problems/everything.cp", list, WithHeuristics);
    const TChessProblem& p = *list.Find(9);
    EXPECT_EQ(p.m_type, TProblemType::Position);
    EXPECT_EQ(p.m_shPlies, 255);
    ASSERT_EQ(p.m_lineBoards.size(), 7U);
    EXPECT_EQ(WriteFen(*p.m_pLastBoard, false), "r4rk1/ppp2ppp/4P3/8/8/8/PPPP1PPP/2KR3R b - - 0 4");
    EXPECT_EQ(p.m_pLastBoard->m_pThread, nullptr);
    EXPECT_EQ(WriteFen(*p.m_pBoard, true), "r3k2r/pppppppp/8/8/8/8/PPPPPPPP/R3K2R");
}

TEST(CpReader, ALineMayGoOnWhereWhiteCanNoLongerMate) {
    TProblemList list;
    const TChessProblem& bare =
        ReadOne("1 {FEN: 8/8/8/8/8/1k6/1n6/K1B5\n Moves: Bc1:b2 Kb3-b4 Bb2-c1}", list);
    EXPECT_EQ(WriteFen(*bare.m_pLastBoard, true), "8/8/8/8/1k6/8/8/K1B5");
    EXPECT_EQ(bare.m_pLastBoard->m_pPrevious, bare.m_lineBoards[1].get());
    const TChessProblem& knights =
        ReadOne("1 {FEN: 8/8/8/8/8/kn6/8/K1NN4\n Moves: Nc1:b3 Ka3:b3 Nd1-e3}", list);
    EXPECT_EQ(WriteFen(*knights.m_pLastBoard, true), "8/8/8/8/8/1k2N3/8/K7");
    const TChessProblem& twoKnights = ReadOne(
        "1 {FEN: 8/8/8/8/8/k7/8/K1NN1q2\n Moves: Nd1-e3 Ka3-b4 Ne3:f1 Kb4-c5 Nf1-g3 Kc5-d4}", list);
    EXPECT_EQ(WriteFen(*twoKnights.m_pLastBoard, true), "8/8/8/8/3k4/6N1/8/K1N5");
}

struct TReads {
    const char* name;
    const char* head;  ///< In front of the section in braces.
    bool (*holds)(const TChessProblem&);
};

class CpHead : public ::testing::TestWithParam<TReads> {};

TEST_P(CpHead, Reads) {
    TProblemList list;
    EXPECT_TRUE(
        GetParam().holds(ReadOne(std::string(GetParam().head) + "{White: Ke1 Black: Ke8}", list)));
}

INSTANTIATE_TEST_SUITE_P(
    Heads, CpHead,
    ::testing::Values(
        TReads{"MateInN", "1 #40", [](const TChessProblem& p) { return p.m_shPlies == 79; }},
        TReads{"LongestMate", "1#32767",
               [](const TChessProblem& p) { return p.m_shPlies == 65533; }},
        TReads{"LongestSelfMate", "1 s # 32767",
               [](const TChessProblem& p) { return p.m_shPlies == 65535; }},
        TReads{"SWithoutMateIsAPosition", "1 s SAFEMODE",
               [](const TChessProblem& p) {
                   return p.m_type == TProblemType::Position && p.m_shPlies == 255;
               }},
        TReads{"DefaultOfItsLength",
               "//!default  #3 allsolutions\n//!default #2 AllSolutions\n1 #3",
               [](const TChessProblem& p) { return p.m_shOptions.Raw() == 2; }},
        TReads{"DefaultOfAnotherLength", "//!default #2 AllSolutions\n1 #3",
               [](const TChessProblem& p) { return p.m_shOptions.Raw() == 0; }},
        TReads{"PositionHasNoDefault", "//!default #128 AllSolutions\n1",
               [](const TChessProblem& p) { return p.m_shOptions.Raw() == 0; }},
        TReads{"WrongDefaultOfAnotherLength", "//!default #4 nonsense\n1 #3",
               [](const TChessProblem& p) { return p.m_shPlies == 5; }},
        TReads{"GuiCheckInFrontOfBracket", "1 #2 GUICHECK",
               [](const TChessProblem& p) {
                   return p.m_shGuiCheckCount == 1 && p.m_shOptions.Raw() == 0x1000;
               }},
        TReads{"GuiCheckInFrontOfOption", "1 #2 guicheckbestdefenceandaux SAFEMODE",
               [](const TChessProblem& p) {
                   return p.m_shGuiCheckCount == 1 && p.m_shOptions.Raw() == 0x1080;
               }},
        TReads{"GuiCheckWithNumber", "1 #2 GUICHECKBESTDEFENCE 12",
               [](const TChessProblem& p) {
                   return p.m_shGuiCheckCount == 12 && p.m_shOptions.Raw() == 0x800;
               }},
        TReads{"OtherNameOfRequires", "1 #2 OnlyIfAvail KQk requires KRk",
               [](const TChessProblem& p) { return p.m_requires.size() == 2; }},
        TReads{"HeuristicsAddUp", "1 #2 sh_KeyLine(a) SH_KEYLINE off",
               [](const TChessProblem& p) {
                   return p.m_heuristicSettings.at(0x1000) == std::vector<std::string>{"a", "OFF"};
               }},
        TReads{"HeuristicWithSlashAndComment", "1 #2 sh_savequeen/rook//comment\n()",
               [](const TChessProblem& p) { return p.m_heuristicSettings.at(0x4000).empty(); }},
        TReads{
            "EmptySections", "1 #2 //#TAGS\n//!variants\n//!endvariants \n//@SortIndications: \n",
            [](const TChessProblem& p) { return p.m_tags.empty() && p.m_sortIndications.empty(); }},
        TReads{"TagsWithCarriageReturnsAndANote",
               "1 #2\r\n//#TAGS\r\n//#a b\r\n//@ note\r\n//#\r\n",
               [](const TChessProblem& p) {
                   return p.m_tags == std::set<std::wstring>{L"", L"a b"};
               }},
        TReads{"VariantsWithoutTheirEnd",
               "1 #2\n//!VARIANTS\n//!{a}\n//!{b} Ke1-e2\n//@SortIndications: Ke2\n",
               [](const TChessProblem& p) {
                   return p.m_variants.size() == 2 && p.m_sortIndications.size() == 1;
               }}),
    CaseName);

struct TBroken {
    const char* name;
    std::string text;
    std::string error;  ///< "LINE: TEXT"
};

class BrokenCp : public ::testing::TestWithParam<TBroken> {};

TEST_P(BrokenCp, IsRefusedWithItsLine) {
    EXPECT_EQ(ErrorOf(GetParam().text), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    Heads, BrokenCp,
    ::testing::Values(
        TBroken{"NoNumber", "\n#2", "2: Alphanumeric identifier expected. Found: #"},
        TBroken{"WordForNumber", "abc #2", "1: Invalid number (allowed: 0-2147483647): abc"},
        TBroken{"NumberTooLarge", "2147483648 #2",
                "1: Invalid number (allowed: 0-2147483647): 2147483648"},
        TBroken{"MateInNought", "1 #0", "1: Invalid number (allowed: 1-32767): 0"},
        TBroken{"MateTooLong", "1 #40000", "1: Invalid number (allowed: 1-32767): 40000"},
        TBroken{"UnknownOption", "1 #2\nFOO",
                "2: Opening bracket expected { or unrecognized option encountered: FOO"},
        TBroken{"ThreadsTooMany", "1 #2 THREADS 256", "1: Invalid number (allowed: 0-255): 256"},
        TBroken{"ThreadsAuxMissing", "1 #2 THREADS 4^", "1: Invalid number (allowed: 0-255): "},
        TBroken{"GuiCheckTooLarge", "1 #2 GUICHECK 65536",
                "1: Invalid number (allowed: 0-65535): 65536"},
        TBroken{"HeuristicAlone", "1 #2 SH_KEYLINE\nSAFEMODE",
                "2: Unexpected lexem after SH_KEYLINE: SAFEMODE (expected opening bracket or OFF)"},
        TBroken{"HeuristicNotClosed", "1 #2 SH_KEYLINE(a\n", "1: Unexpected end of file."},
        TBroken{"DefaultOfTwoWords", "//!default #3\n1 #3", "1: Incorrect 'default' clause."},
        TBroken{"DefaultWithoutSign", "UTF-8\n//!default 3 AllSolutions",
                "2: Error in 'default' clause."},
        TBroken{"DefaultUnknown", "//!default #3 NoMirror\n\n1 #3",
                "3: Unrecognizable option: NoMirror"},
        TBroken{"VariantsInFrontOfTags", "1 #2\n//!VARIANTS\n//!ENDVARIANTS\n//#TAGS\n{",
                "4: Opening bracket expected."},
        TBroken{"VariantNoMove", "1 #2\n//!VARIANTS\n//!{a} e4\n{", "3: Improper string length"},
        TBroken{"SortIndicationsBad", "1 #2\n//@SortIndications: 0-1\n{",
                "2: Invalid description of SortIndication: 0-1"}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    Positions, BrokenCp,
    ::testing::Values(
        TBroken{"NothingInBraces", "1 #2 {\n}", "2: Alphanumeric identifier expected. Found: }"},
        TBroken{"DescriptionWithoutColon", "1 #2 {\nDesc text\n",
                "2: Colon ':' expected after description identifier."},
        TBroken{"TwoDescriptions", "1 #2 {\nD: a\nD: b\n",
                "3: White figures identifier expected (W, WH or WHITE)."},
        TBroken{"FenWithoutColon", "1 #2 {FEN 8/8", "1: Colon ':' expected after FEN identifier."},
        TBroken{"FenEmpty", "1 #2 {\nFEN:\nk7/8/8/8/8/8/8/K7 }", "2: Improper FEN code"},
        TBroken{"FenWithItsOtherFields", "1 #2 {\nFEN: k7/8/8/8/8/8/8/K7 w - - 0 1\n}",
                "2: Closing bracket expected."},
        TBroken{"FenWithoutKings", "1 #2 {\nFEN: 8/8/8/8/8/8/8/K7\n}",
                "2: Illegal number of kings."},
        TBroken{"FenWithPawnOnLastRank", "1 #2 {\nFEN: kP6/8/8/8/8/8/8/K7\n}",
                "2: Pawns cannot occupy 1st nor 8th line of the chessboard."},
        TBroken{"WhiteWithoutColon", "1 #2 {White Ke1",
                "1: Colon ':' expected after white figures identifier."},
        TBroken{"NoWhiteMen", "1 #2 {White: }",
                "1: Black figures identifier expected (B, BL or BLACK)."},
        TBroken{"WhiteFigureOfOneLetter", "1 #2 {W: K, a2",
                "1: White figure specification is invalid: K"},
        TBroken{"WhiteFigureUnknown", "1 #2 {W: Xe1", "1: Unknown figure letter: X"},
        TBroken{"WhiteFieldOffBoard", "1 #2 {W: Ke1, i2",
                "1: White figure position is invalid: i2"},
        TBroken{"WhiteFieldTwice", "1 #2 {W: Ke1, Qe1", "1: Field e1 already occupied."},
        TBroken{"BlackWithoutColon", "1 #2 {W: Ke1 B Ke8",
                "1: Colon expected after black figures identifier."},
        TBroken{"BlackFigure", "1 #2 {W: Ke1 BL: e", "1: Black figure specification is invalid: e"},
        TBroken{"BlackFieldOffBoard", "1 #2 {W: Ke1 BLACK: Ke9",
                "1: Black figure position is invalid: Ke9"},
        TBroken{"BlackFieldTaken", "1 #2 {W: Ke1 BLACK: KE1", "1: Field E1 already occupied."},
        TBroken{"NotClosed", "1 #2 {W: Ke1 B: Ke8\n\n", "1: Unexpected end of file."}),
    CaseName);

const std::string Start = "1 {FEN: r3k2r/8/8/8/8/8/P7/R3K2R\n";

INSTANTIATE_TEST_SUITE_P(
    Moves, BrokenCp,
    ::testing::Values(
        TBroken{"MovesWithoutColon", Start + "Moves a2-a4",
                "2: Colon expected after Moves section start."},
        TBroken{"CastlingWithoutHyphen", Start + "Moves: 0 0", "2: Hyphen expected."},
        TBroken{"CastlingOfLetters", Start + "Moves: 0-O", "2: Incorrect castling symbol: O"},
        TBroken{"MoveFromNowhere", Start + "Moves: a2-a4 z9-a1", "2: Invalid 'from' position: z9"},
        TBroken{"MoveWithX", Start + "Moves: Ra1 x a8", "2: Invalid lexem encountered: x"},
        TBroken{"MoveToNowhere", Start + "Moves: a2-a9", "2: Invalid 'to' position: a9"},
        TBroken{"MoveOfTheOtherSide", Start + "Moves: Ra8-a7",
                "2: Illegal move in the Moves section: a8-a7"},
        TBroken{"CastlingThroughCheck", Start + "Moves: a2-a4\n Rh8-f8 0-0 }",
                "3: Illegal move in the Moves section: e1-g1"},
        TBroken{"PromotionToKing", "1 {FEN: 8/P6k/8/8/8/8/8/K7\nMoves: a7-a8K",
                "2: Invalid 'to' position: a8K"}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    Answers, BrokenCp,
    ::testing::Values(
        TBroken{"AnswerWithoutColon", Start + "Answer a2-a4",
                "2: Colon expected after correct answer identifier."},
        TBroken{"AnswerNoField", Start + "A: Rook-a8",
                "2: Invalid correct answer ('from' element): Rook"},
        TBroken{"AnswerOffBoard", Start + "A: Ri1-a8", "2: Error in String2Field() i1"},
        TBroken{"AnswerWithoutHyphen", Start + "A: Ra1 a8",
                "2: Hyphen expected to separate correct answer elements"},
        TBroken{"AnswerPromotionToPawn", Start + "A: a7-a8P",
                "2: Invalid correct answer ('to' element): a8P"},
        TBroken{"AnswerStandingStill", Start + "A: a2-a2",
                "2: Invalid correct answer ('to' element): a2"},
        TBroken{"AnswerCastlingWithoutHyphen", Start + "A: 0 0",
                "2: Hyphen expected to separate correct answer elements"},
        TBroken{"AnswerCastlingShort", Start + "A: 0-1", "2: Invalid correct answer: 1"},
        TBroken{"AnswersWithoutComma", Start + "A: a2-a4 b2-b4",
                "2: Comma should separate various solutions of the problem, but encountered: b2"}),
    CaseName);

TEST(CpReader, ExpectedMovesAreNoAnswers) {
    TProblemList list;
    const TChessProblem& swm = ReadOne(Start + "SWM: a2-a4, 0-0}", list);
    EXPECT_EQ(swm.m_shOptions.Raw(), 0x200);
    EXPECT_THAT(Texts(swm.m_expectedSortWhiteMoves), ElementsAre("a2a4", "e1g1"));
    EXPECT_THAT(swm.m_answers, IsEmpty());
    const TChessProblem& only = ReadOne(Start + "expectedsortwhitemovesonly: Ra1:a8}", list);
    EXPECT_EQ(only.m_shOptions.Raw(), 0x600);
    const TChessProblem& solution = ReadOne(Start + "Solution: g7:h8N}", list);
    EXPECT_EQ(solution.m_shOptions.Raw(), 4);
    EXPECT_THAT(Texts(solution.m_answers), ElementsAre("g7h8/16"));
}

TEST(CpReader, ListedMenNeedMakeNoPosition) {
    TProblemList list;
    const TChessProblem& p = ReadOne("1 #2 {wh: Ke1,Ke2,a8 bl:}", list);
    EXPECT_EQ(WriteFen(*p.m_pBoard, true), "P7/8/8/8/8/8/4K3/4K3");
    EXPECT_EQ(p.m_pBoard->m_shPlies, 3);
    EXPECT_EQ(ErrorOf("1 #2 {wh: Ke1,Ke2,a8 bl: Kd8 moves: a8-a8}"),
              "1: Pawns cannot occupy 1st nor 8th line of the chessboard.");
}

TEST(CpReader, TheMarkAtTheStartTellsTheEncoding) {
    const std::string body = "1 #2\n{D: \xC5\x82\n W:Ke1 B:Ke8}";
    TProblemList list;
    EXPECT_EQ(ReadOne(body, list).m_description, L"\u0139\u201A");
    for (const char* mark : {"UTF-8\n", " \tUTF-8 ", "\xEF\xBB\xBF", "\xEF\xBB\xBF UTF-8\r\n"}) {
        EXPECT_EQ(ReadOne(mark + body, list).m_description, L"\u0142");
    }
    EXPECT_THAT(ErrorOf("\n"
                        "UTF-8\n" +
                        body),
                StartsWith("2: Invalid number"));
    for (const char* nothing : {"", "UTF-8", " \t", "// comment", "/* open", "UTF-8\n//!foo"}) {
        EXPECT_EQ(ErrorOf(nothing), "") << nothing;
    }
}

TEST(CpReader, DescriptionTakesItsWholeLineWithoutTheBlanksAround) {
    TProblemList list;
    const TChessProblem& p = ReadOne(
        "1 #2\r\n{\r\n\tDesc: \t a // b } /* c\t \r\n FEN: k7/8/8/8/8/8/8/K7\r\n}\r\n", list);
    EXPECT_EQ(p.m_description, L"a // b } /* c");
}

TEST(CpReader, TheLastProblemOfANumberStaysAndTheUserIsWarned) {
    std::vector<std::string> warnings;
    std::vector<std::string> log;
    TProblemList list;
    ReadProblemText("5 #2 {W:Ke1 B:Ke8} 5 #3 {W:Ke1 B:Ke8}", "", list,
                    {.warning = [&](const std::string& line) { warnings.push_back(line); },
                     .debugLine = [&](const std::string& line) { log.push_back(line); }});
    EXPECT_THAT(warnings, ElementsAre("WARINING: Problem id=5 redefinition - overwriting."));
    EXPECT_THAT(log, ElementsAre("Problem 5 read from file.", "Problem 5 read from file."));
    EXPECT_EQ(list.Size(), 1U);
    EXPECT_EQ(list.Find(5)->m_shPlies, 5);
}

TEST(CpReader, ProblemsInFrontOfAnErrorStay) {
    TProblemList list;
    EXPECT_EQ(ErrorOf("1 #2 {W:Ke1 B:Ke8}\n2 #3 {W:Ke1 B:Ke8}\n3 #? {", list),
              "3: Alphanumeric identifier expected. Found: ?");
    EXPECT_EQ(list.Size(), 2U);
}

TEST(CpReader, AFileCutAnywhereReadsOrIsRefusedButKeepsWhatWasWhole) {
    const std::string text = ReadBytes(std::string(TestData) + "/problems/everything.cp");
    ASSERT_GT(text.size(), 800U);
    std::size_t read = 0;
    for (std::size_t size = 0; size <= text.size(); ++size) {
        TProblemList list;
        ErrorOf(std::string_view(text).substr(0, size), list);
        EXPECT_GE(list.Size(), read) << "cut at " << size;
        read = list.Size();
    }
    EXPECT_EQ(read, 3U);
}

TEST(CpReader, AFileThatCannotBeReadIsNamed) {
    const CTempFolder folder;
    TProblemList list;
    const std::string missing = (folder / "missing.cp").string();
    EXPECT_THAT([&] { ReadProblemFile(missing, list); },
                ThrowsMessage<ChessException>("Error opening file: " + missing));
    EXPECT_THAT([&] { ReadProblemFile(folder.Path(), list); },
                ThrowsMessage<ChessException>("Error opening file: " + folder.Path().string()));
    ReadProblemFile(missing, list, {.offerToCreate = [](const std::filesystem::path& path) {
                        WriteBytes(path, "3 #2 {W:Ke1 B:Ke8}");
                    }});
    EXPECT_NE(list.Find(3), nullptr);
}

// --- Hostile input: time proportional to length, memory for little more than the text ---

TEST(CpReader, HugeTokensAndOpenCommentsAreRefusedWithShortMessages) {
    const std::string million(1'000'000, 'x');
    EXPECT_EQ(ErrorOf("1 #2 " + million),
              "1: Opening bracket expected { or unrecognized option encountered: " +
                  million.substr(0, 200) + "...");
    EXPECT_EQ(ErrorOf("1 #2 { FEN: " + million), "1: Improper FEN code");
    EXPECT_EQ(ErrorOf("1 #2 /* " + million), "1: Unexpected end of file before comment closed.");
    EXPECT_LT(ErrorOf("1 #2\n//!VARIANTS\n//!{a} " + million).size(), 100U);
    EXPECT_LT(ErrorOf("1 #2\n//@SortIndications: " + million).size(), 300U);
    TProblemList list;
    EXPECT_EQ(ReadOne("1 #2 { D: " + million + "\nW:Ke1 B:Ke8}", list).m_description.size(),
              1'000'000U);
}

TEST(CpReader, ALineOfPlayHasALimit) {
    std::string moves;
    for (int i = 0; i < 64; ++i) {
        moves += "Ka1-a2 Ka8-a7\nKa2-a1 Ka7-a8 ";
    }
    const std::string text = "1 {FEN: k7/8/8/8/8/8/8/KR6\nMoves: " + moves;
    EXPECT_EQ(ErrorOf(text + "}"),
              "66: A Moves section may have at most 255 moves (White's and Black's together).");
    TProblemList list;
    EXPECT_EQ(ReadOne(text.substr(0, text.size() - 7) + "}", list).m_lineBoards.size(), 255U);
}

TEST(CpReader, MegabytesOfGarbageTakeNoLongerThanTheirLength) {
    for (const char* piece :
         {"/", "//", "//\n", "/*", "{", "\xFF", "\n", "1 ", "//!default #1 a\n", "(", "a^"}) {
        std::string garbage;
        garbage.reserve(10'000'000);
        while (garbage.size() < 10'000'000 - 16) {
            garbage += piece;
        }
        ErrorOf(garbage);
        ErrorOf("1 #2 GUICHECK " + garbage);
    }
}

}  // namespace
}  // namespace tarnwick
