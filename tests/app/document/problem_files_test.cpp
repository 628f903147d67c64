#include "app/document/problem_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <random>
#include <set>

#include "base/chess_exception.h"

#include "app/document/played_line.h"
#include "app/document/problem_merge.h"
#include "app/document/problem_reading.h"
#include "app/document/variants.h"
#include "document_support.h"
#include "support/child_process.h"

namespace tarnwick {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

namespace fs = std::filesystem;

TEST(ProblemFiles, NewFileIsTheSameToTheByteAndReplacesOnlyWithConsent) {
    const CTempFolder folder;
    CScriptedUser user;
    const TFileHost host{.dialog = user};
    const fs::path path = folder / "new.cp";
    EXPECT_TRUE(NewProblemFile(path, host));
    EXPECT_EQ(ReadBytes(path),
              "UTF-8\n1 #2\n{\n\tDesc: Click here to change problem description\n"
              "\tWhite: Ke1\n\tBlack: Ke8\n}\n");
    EXPECT_THAT(user.Heard(), IsEmpty());
    WriteBytes(path, "mine");
    EXPECT_FALSE(NewProblemFile(path, host));
    EXPECT_THAT(user.Heard(), ElementsAre(HasSubstr(" already exists.\nDo you want to replace")));
    EXPECT_EQ(ReadBytes(path), "mine");
    user.WillAnswer({true});
    EXPECT_TRUE(NewProblemFile(path, host));
    EXPECT_EQ(ReadBytes(folder / "new.cp.BAK"), "mine");
}

TEST(ProblemFiles, SavedFileIsReadAgainAsTheSameAndTheOldOneStaysAsBackup) {
    TOpenFile file(ThreeProblems());
    Describe(file.document, L"Ďábel {1} // \"x\"");
    ASSERT_TRUE(SaveProblemFile(file.document, file.path, file.host));
    EXPECT_FALSE(file.document.HasUnsavedChanges());
    EXPECT_THAT(file.user.Heard(), IsEmpty());
    EXPECT_EQ(ReadBytes(file.path.string() + ".BAK"), ThreeProblems());
    const std::string saved = ProblemListToText(file.document.Problems());
    EXPECT_EQ(ReadBytes(file.path), saved);
    ASSERT_TRUE(OpenProblemFile(file.document, file.path, file.host));
    EXPECT_EQ(ProblemListToText(file.document.Problems()), saved);
}

TEST(ProblemFiles, FaultyFileIsNeverSavedOverWithoutAQuestion) {
    const std::string text = "UTF-8\n\n" + ProblemOf(1, 2, PlacementA) + ProblemOf(2, 2, "8/8") +
                             ProblemOf(3, 2, PlacementB) + ProblemOf(4, 2, PlacementC);
    TOpenFile file(text);
    EXPECT_THAT(file.user.Heard(), ElementsAre(HasSubstr("front of that place: 1. Not read (approx"
                                                         "imately): 3.")));
    EXPECT_EQ(file.document.Count(), 1U);
    Describe(file.document, L"changed");
    EXPECT_FALSE(SaveProblemFile(file.document, file.path, file.host));
    EXPECT_THAT(file.user.Heard(), ElementsAre(HasSubstr("(approximately: 3)")));
    EXPECT_EQ(ReadBytes(file.path), text);
    EXPECT_TRUE(SaveProblemFile(file.document, file.folder / "other.cp", file.host));
    EXPECT_THAT(file.user.Heard(), IsEmpty()) << "another file loses nothing";
}

TEST(ProblemFiles, NumberGivenTwiceIsALossToo) {
    TOpenFile file("UTF-8\n\n" + ProblemOf(1, 2, PlacementA) + ProblemOf(1, 2, PlacementB));
    EXPECT_THAT(file.user.Heard(), ElementsAre(HasSubstr("problems left out: 1")));
    EXPECT_FALSE(SaveProblemFile(file.document, file.path, file.host));
    EXPECT_THAT(ReadBytes(file.path), HasSubstr(PlacementA));
}

TEST(ProblemFiles, RepeatedPositionIsAskedAboutOnlyWhereItIsNew) {
    TOpenFile file("UTF-8\n\n" + ProblemOf(1, 2, PlacementA, "Twin a") +
                   ProblemOf(2, 2, PlacementA, "Twin b") + ProblemOf(3, 2, PlacementB));
    Describe(file.document, L"Twin A");
    EXPECT_TRUE(SaveProblemFile(file.document, file.path, file.host));
    EXPECT_THAT(file.user.Heard(), IsEmpty()) << "these two were in the file before";
    file.document.AddNewProblem();
    EXPECT_TRUE(SaveProblemFile(file.document, file.path, file.host));
    file.document.AddNewProblem();
    EXPECT_FALSE(SaveProblemFile(file.document, file.path, file.host));
    EXPECT_THAT(
        file.user.Heard(),
        ElementsAre("The same position already exists in this file as the following problems:"
                    "\n4: #2 Click here to change problem description"
                    "\n\nDo you want to save changes anyway?"));
    EXPECT_TRUE(file.document.HasUnsavedChanges());
}

TEST(ProblemFiles, WhatSomebodyElseWroteIsNotOverwrittenUnasked) {
    TOpenFile file(ThreeProblems());
    const auto time = fs::last_write_time(file.path);
    std::string foreign = ThreeProblems();
    foreign.back() = ' ';
    WriteBytes(file.path, foreign);
    fs::last_write_time(file.path, time);  // the same time and size: only the content tells
    Describe(file.document, L"mine");
    EXPECT_FALSE(SaveProblemFile(file.document, file.path, file.host));
    EXPECT_THAT(file.user.Heard(), ElementsAre(HasSubstr("changed by another program")));
    EXPECT_EQ(ReadBytes(file.path), foreign);

    WriteBytes(file.folder / "b.cp", "somebody's");
    EXPECT_FALSE(SaveProblemFile(file.document, file.folder / "b.cp", file.host));
    EXPECT_EQ(ReadBytes(file.folder / "b.cp"), "somebody's");
    file.user.WillAnswer({true});
    EXPECT_TRUE(SaveProblemFile(file.document, file.path, file.host));
    EXPECT_EQ(ReadBytes(file.path.string() + ".BAK"), foreign);
}

TEST(ProblemFiles, ForeignChangeWarnsOrReloadsOnce) {
    TOpenFile file(ThreeProblems());
    file.document.GoTo(5);
    EXPECT_FALSE(HandleForeignChange(file.document, file.host));
    WriteBytes(file.path, ThreeProblems() + ProblemOf(12, 2, PlacementD));
    file.user.WillAnswer({true});
    EXPECT_TRUE(HandleForeignChange(file.document, file.host));
    EXPECT_THAT(file.user.Heard(), ElementsAre(HasSubstr("Do you want to reload")));
    EXPECT_EQ(file.document.Count(), 4U);
    EXPECT_EQ(file.document.Current()->m_id, 5);

    Describe(file.document, L"mine");
    WriteBytes(file.path, "UTF-8\n");
    EXPECT_FALSE(HandleForeignChange(file.document, file.host));
    EXPECT_THAT(file.user.Heard(), ElementsAre(HasSubstr("Any unsaved changes")));
    EXPECT_FALSE(HandleForeignChange(file.document, file.host));
    EXPECT_THAT(file.user.Heard(), IsEmpty()) << "each change is told once";
    EXPECT_EQ(file.document.Current()->m_description, L"mine");
}

TEST(ProblemFiles, UnsavedChangesAreSettledBeforeAnotherFileOpens) {
    TOpenFile file(ThreeProblems());
    WriteBytes(file.folder / "b.cp", "UTF-8\n\n" + ProblemOf(1, 2, PlacementD));
    Describe(file.document, L"mine");
    EXPECT_FALSE(OpenProblemFile(file.document, file.folder / "b.cp", file.host)) << "no, and no";
    EXPECT_EQ(file.document.Current()->m_description, L"mine");
    EXPECT_FALSE(OpenProblemFile(file.document, file.folder / "missing.cp", file.host));
    EXPECT_EQ(file.document.Count(), 3U);
    file.user.WillAnswer({true});
    EXPECT_TRUE(OpenProblemFile(file.document, file.folder / "b.cp", file.host));
    EXPECT_THAT(ReadBytes(file.path), HasSubstr("mine"));
    bool bStopped = false;
    file.host.isSolving = [&] { return !bStopped; };
    file.host.stopSolving = [&] { bStopped = true; };
    EXPECT_FALSE(OpenProblemFile(file.document, file.path, file.host));
    file.user.WillAnswer({true});
    EXPECT_TRUE(OpenProblemFile(file.document, file.path, file.host) && bStopped);
}

TEST(ProblemFiles, FailedSaveTellsAndStaysUnsaved) {
    TOpenFile file(ThreeProblems());
    const auto failsAt = [&](const fs::path& path) {
        EXPECT_FALSE(SaveProblemFile(file.document, path, file.host)) << path;
        EXPECT_TRUE(file.document.HasUnsavedChanges());
        EXPECT_EQ(file.document.Path(), file.path);
        EXPECT_THAT(file.user.Heard(), ElementsAre(StartsWith("Error saving to file")));
    };
    Describe(file.document, L"mine");
    failsAt("/proc/problems.cp");
    failsAt(file.path / "in_a_file.cp");
    failsAt(file.folder / "no folder" / "x.cp");
}

TEST(ProblemFiles, FullDiskLosesNeitherTheFileNorTheEdits) {
    TOpenFile file(ThreeProblems());
    const int status = StatusOfChild([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {200, 200};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        Describe(file.document, std::wstring(500, L'x'));
        const bool bSaved = SaveProblemFile(file.document, file.path, file.host);
        return bSaved || !file.document.HasUnsavedChanges() ? 1 : 0;
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(ReadBytes(file.path), ThreeProblems());
    EXPECT_EQ(file.folder.Count(), 1U);
}

TEST(ProblemFiles, EpdFilesAreReadLineByLineAndSavedWithConsent) {
    const CTempFolder folder;
    const fs::path path = folder / "some.epd";
    WriteBytes(path, std::string(PlacementA) + " w - - bm #2; id \"one\";\nnonsense\n" +
                         PlacementB + " w - - bm #1; id \"two\";\n");
    CScriptedUser user;
    const TFileHost host{.dialog = user};
    CDocument document;
    ASSERT_TRUE(OpenProblemFile(document, path, host));
    EXPECT_THAT(user.Heard(), ElementsAre(HasSubstr("line 2")));
    EXPECT_THAT(document.Ids(), ElementsAre(1, 2));
    ASSERT_TRUE(SaveProblemFile(document, folder / "other.epd", host));
    EXPECT_EQ(ReadAnyProblemFile(folder / "other.epd").pList->Size(), 2U);
    document.Edit([](TChessProblem& problem) { AddTag(problem, L"lost in EPD"); });
    EXPECT_FALSE(SaveProblemFile(document, folder / "other.epd", host));  // the answer is no
    EXPECT_THAT(user.Heard(), testing::Contains(HasSubstr("1: tags")));
    EXPECT_TRUE(SaveProblemFile(document, folder / "some.cp", host));
    EXPECT_EQ(document.Path(), folder / "some.cp");
    EXPECT_EQ(ReadAnyProblemFile(folder / "some.cp").pList->Size(), 2U);
}

TEST(ProblemFiles, CompatibilityModeKeepsCommentsInATwin) {
    TOpenFile file(ThreeProblems());
    CPlayedLine line;
    line.Start(*file.document.Current());
    line.Play({.from = A1, .to = B1});
    file.document.Edit([&](TChessProblem& problem) {
        SaveMainVariant(problem, line);
        SetMoveComment(problem, line.Moves(), L"a waiting move");
    });
    file.host.bCommentCompatibilityMode = true;
    ASSERT_TRUE(SaveProblemFile(file.document, file.path, file.host));
    EXPECT_THAT(ReadBytes(file.path), Not(HasSubstr("waiting")));
    EXPECT_THAT(ReadBytes(file.path), HasSubstr("{Main variant} Ra1-b1\n"));
    EXPECT_THAT(ReadBytes(file.path.string() + "x"), HasSubstr("waiting"));
    ASSERT_TRUE(OpenProblemFile(file.document, file.path, file.host));
    EXPECT_THAT(ProblemToText(*file.document.Current()), HasSubstr("waiting"));
    Describe(file.document, L"again");
    EXPECT_TRUE(SaveProblemFile(file.document, file.path, file.host));
    EXPECT_THAT(file.user.Heard(), IsEmpty()) << "both files are ours";
}

TEST(ProblemFiles, AFileThatWasChangedWithoutItsTwinIsAskedAbout) {
    TOpenFile file(ThreeProblems());
    file.host.bCommentCompatibilityMode = true;
    CPlayedLine line;
    line.Start(*file.document.Current());
    line.Play({.from = A1, .to = B1});
    file.document.Edit([&](TChessProblem& problem) {
        SaveMainVariant(problem, line);
        SetMoveComment(problem, line.Moves(), L"a waiting move");
        SetDescription(problem, L"in both");
    });
    ASSERT_TRUE(SaveProblemFile(file.document, file.path, file.host));
    ASSERT_TRUE(ReloadProblemFile(file.document, file.host));
    EXPECT_THAT(file.user.Heard(), IsEmpty()) << "the twin is written first, and still up to date";
    const fs::path twin = file.path.string() + "x";
    WriteBytes(file.path, ThreeProblems());
    fs::last_write_time(file.path, fs::last_write_time(twin) + std::chrono::hours(1));

    ASSERT_TRUE(ReloadProblemFile(file.document, file.host));
    EXPECT_THAT(file.user.Heard(), ElementsAre(HasSubstr("is newer than file problems.cpx")));
    EXPECT_EQ(file.document.Current()->m_description, L"in both") << "the user said no";
    file.user.WillAnswer({true});
    ASSERT_TRUE(ReloadProblemFile(file.document, file.host));
    EXPECT_EQ(file.document.Current()->m_description, L"Żółw i gęś");
    file.user.Heard();
    EXPECT_FALSE(SaveProblemFile(file.document, file.path, file.host));
    EXPECT_THAT(file.user.Heard(), ElementsAre(HasSubstr("problems.cpx already exists")));
}

TEST(ProblemFiles, AfterSaveAsTheNewFileAloneIsWatched) {
    TOpenFile file(ThreeProblems());
    const fs::path copy = file.folder / "copy.cp";
    ASSERT_TRUE(SaveProblemFile(file.document, copy, file.host));
    WriteBytes(file.path, "somebody else's now");
    EXPECT_FALSE(HandleForeignChange(file.document, file.host));
    EXPECT_THAT(file.user.Heard(), IsEmpty());
    WriteBytes(copy, ThreeProblems());
    EXPECT_FALSE(HandleForeignChange(file.document, file.host));
    EXPECT_THAT(file.user.Heard(), ElementsAre(HasSubstr("changed by an external application")));
}

TEST(ProblemFiles, WhatIsEditedDuringASaveStaysUnsaved) {
    TOpenFile file(ThreeProblems());
    Describe(file.document, L"saved");
    TSaveJob job{.path = file.path,
                 .text = ProblemListToText(file.document.Problems()),
                 .nRevision = file.document.Revision(),
                 .watch = file.document.Watch(),
                 .contents = {}};
    Describe(file.document, L"edited meanwhile");
    ASSERT_TRUE(RunSave(job, file.host));
    FinishSave(file.document, std::move(job), true);
    EXPECT_THAT(ReadBytes(file.path), HasSubstr("Description: saved"));
    EXPECT_TRUE(file.document.HasUnsavedChanges());
    EXPECT_TRUE(SaveProblemFile(file.document, file.path, file.host));
    EXPECT_THAT(file.user.Heard(), IsEmpty()) << "the file is our own";
}

TEST(ProblemMerge, AppendsNewPositionsAndTellsOtherStipulations) {
    TOpenFile file(ThreeProblems());
    const fs::path other = file.folder / "other.cp";
    WriteBytes(other, "UTF-8\n\n" + ProblemOf(1, 4, PlacementA) + ProblemOf(2, 1, PlacementB) +
                          ProblemOf(3, 2, PlacementD) + ProblemOf(4, 2, PlacementD));
    const char* const result =
        "Appended problems: 1\nMoreover some problems differ only by stipulation (#n): \n"
        "3: #2 vs. #4\n\n\nDo you want to save changes? (select 'No' to reject them)";
    Describe(file.document, L"unsaved before");
    EXPECT_FALSE(AppendProblems(file.document, other, file.host));
    EXPECT_THAT(file.user.Heard(), ElementsAre(result));
    EXPECT_THAT(file.document.Ids(), ElementsAre(3, 5, 9));
    EXPECT_EQ(file.document.Current()->m_description, L"unsaved before");
    EXPECT_THAT(file.document.UnsavedIds(), ElementsAre(3))
        << "only the appended ones are rejected";
    file.user.WillAnswer({true});
    EXPECT_TRUE(AppendProblems(file.document, other, file.host));
    EXPECT_THAT(file.document.Ids(), ElementsAre(3, 5, 9, 10));
    EXPECT_FALSE(file.document.HasUnsavedChanges());
    EXPECT_FALSE(AppendProblems(file.document, file.path, file.host)) << "to itself";
    EXPECT_EQ(file.document.Count(), 4U);
}

TEST(ProblemMerge, RemovesAllButTheCurrentProblem) {
    TOpenFile file(ThreeProblems());
    file.document.GoTo(5);
    const std::string before = ProblemListToText(file.document.Problems());
    EXPECT_FALSE(RemoveProblems(file.document, file.path, file.host));
    EXPECT_EQ(ProblemListToText(file.document.Problems()), before) << "rejected";
    EXPECT_FALSE(file.document.HasUnsavedChanges());
    file.user.Heard();
    file.user.WillAnswer({true});
    EXPECT_TRUE(RemoveProblems(file.document, file.path, file.host));
    EXPECT_THAT(
        file.user.Heard(),
        ElementsAre(StartsWith("Removed problems: 2\nWarning: the current problem cannot be "
                               "removed.")));
    EXPECT_EQ(ReadAnyProblemFile(file.path).pList->Size(), 1U);
    EXPECT_EQ(file.document.Current()->m_id, 5);
}

TEST(ProblemMerge, FenCodesAreFoundInAnyText) {
    TOpenFile file(ThreeProblems());
    const fs::path text = file.folder / "page.html";
    const auto check = [&](const std::string& content) {
        WriteBytes(text, content);
        file.user.WillAnswer({true});
        EXPECT_TRUE(CheckFenCodes(file.document, text, file.host));
        return file.user.Heard().back();
    };
    EXPECT_THAT(check("and/or 1/2/3/4/5/6/7/8 8/8/8/8/8/8/8/8\xFF"), StartsWith("No FEN codes"));
    EXPECT_THAT(check(std::string("[FEN \"") + PlacementA + " w - - 0 1\"]"),
                StartsWith("All FEN codes"));
    EXPECT_THAT(check(std::string("<b>") + PlacementD + "</b>, " + PlacementD + ";" + PlacementB),
                StartsWith("2 FEN code(s) found.\n\n1 of them were not found"));
    EXPECT_EQ(ReadBytes(text.string() + ".FENNotFound.txt"), std::string(PlacementD) + "\n");
}

TEST(ProblemFiles, TemporaryProblemsGetFreeNumbers) {
    TOpenFile file(ThreeProblems());
    const fs::path home = file.folder.Path();
    const fs::path first = WriteTemporaryProblem(*file.document.Current(), home);
    const fs::path second = WriteTemporaryProblem(*file.document.Current(), home);
    EXPECT_EQ(first, home / "tmp" / "1.cp");
    EXPECT_NE(first, second);
    EXPECT_EQ(ReadBytes(second), "UTF-8\n\n" + ProblemToText(*file.document.Current()));
    EXPECT_THROW(WriteTemporaryProblem(*file.document.Current(), first), ChessException);
}

/// Kills a process that saves all the time, at random moments.
void KillDuringSaves(int kills) {
    TOpenFile file(ThreeProblems());
    const auto saveForever = [&file] {
        const std::wstring texts[] = {std::wstring(20'000, L'a'), L"short"};
        for (std::size_t round = 0;; ++round) {
            Describe(file.document, texts[round % 2]);
            SaveProblemFile(file.document, file.path, file.host);
        }
    };
    std::set<std::string> allowed{ThreeProblems()};
    for (const std::wstring& text : {std::wstring(20'000, L'a'), std::wstring(L"short")}) {
        Describe(file.document, text);
        allowed.insert(ProblemListToText(file.document.Problems()));
    }
    int interrupted = 0;
    std::mt19937 random(static_cast<unsigned>(kills));
    for (int kill = 0; kill < kills; ++kill) {
        const pid_t child = ::fork();
        if (child == 0) {
            file.user.WillAnswer(std::deque<bool>(1000, true));
            saveForever();
        }
        ::usleep(static_cast<useconds_t>(random() % 8000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ASSERT_TRUE(allowed.contains(ReadBytes(file.path))) << "kill " << kill;
        for (const auto& entry : fs::directory_iterator(file.folder.Path())) {
            if (entry.path().filename().string().starts_with(".tarnwick-")) {
                ++interrupted;
                fs::remove(entry.path());
            }
        }
    }
    EXPECT_GT(interrupted, 0) << "no kill met a save: the test proved nothing";
}

TEST(ProblemFiles, KillsDuringSavesLeaveTheOldFileOrTheNewOne) {
    KillDuringSaves(50);
}

TEST(SlowSaves, AThousandKillsLeaveTheOldFileOrTheNewOne) {
    KillDuringSaves(1000);
}

}  // namespace
}  // namespace tarnwick
