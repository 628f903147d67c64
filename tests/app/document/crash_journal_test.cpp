#include "app/document/crash_journal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include "document_support.h"
#include "support/child_process.h"
#include "support/fake_clock.h"

namespace tarnwick {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace fs = std::filesystem;

/// Another instance of the program that edits, writes its journal and dies.
void CrashAfterEdits(const fs::path& path, const fs::path& journals) {
    const int status = StatusOfChild([&] {
        CScriptedUser user;
        const TFileHost host{.dialog = user};
        CDocument document;
        CCrashJournal journal(journals);
        if (!OpenProblemFile(document, path, host)) {
            return 1;
        }
        Describe(document, L"edited before the crash");
        document.AddNewProblem();
        document.Take(9);
        journal.WriteNow(document);
        ::raise(SIGKILL);
        return 2;
    });
    ASSERT_EQ(status, -1);
}

TEST(CrashJournal, EditsOfADeadProcessComeBackAsUnsavedEdits) {
    TOpenFile file(ThreeProblems());
    const fs::path journals = file.folder / "journals";
    CrashAfterEdits(file.path, journals);
    CrashAfterEdits(file.path, journals);
    CCrashJournal journal(journals);
    file.user.WillAnswer({true, false});
    EXPECT_TRUE(journal.OfferLostWork(file.document, file.host));
    EXPECT_THAT(file.user.Heard(),
                ElementsAre(HasSubstr("Changed problems: 3"), HasSubstr("Changed problems: 3")));
    EXPECT_THAT(file.document.Ids(), ElementsAre(3, 5, 10));
    EXPECT_EQ(file.document.Problems().Find(3)->m_description, L"edited before the crash");
    EXPECT_THAT(file.document.UnsavedIds(), ElementsAre(3, 10));
    EXPECT_EQ(ReadBytes(file.path), ThreeProblems());
    file.document.GoTo(3);
    EXPECT_TRUE(file.document.Undo()) << "the recovered edit is a step like any other";
    EXPECT_EQ(file.document.Current()->m_description, L"Żółw i gęś");

    EXPECT_TRUE(fs::exists(journal.Path())) << "still unsaved, so still in a journal";
    ASSERT_TRUE(SaveProblemFile(file.document, file.path, file.host));
    journal.WriteNow(file.document);
    EXPECT_TRUE(fs::is_empty(journals));
}

TEST(CrashJournal, OpensTheFileOfTheLostWorkAlsoIfItIsGone) {
    TOpenFile file(ThreeProblems());
    const fs::path other = file.folder / "other 100%\n.cp";
    const fs::path journals = file.folder / "journals";
    WriteBytes(other, ThreeProblems());
    CrashAfterEdits(other, journals);
    fs::remove(other);
    CCrashJournal journal(journals);
    file.user.WillAnswer({true});
    EXPECT_TRUE(journal.OfferLostWork(file.document, file.host));
    EXPECT_EQ(file.document.Path(), other);
    EXPECT_EQ(file.document.Count(), 2U);
    EXPECT_TRUE(SaveProblemFile(file.document, other, file.host));
    EXPECT_THAT(ReadBytes(other), HasSubstr("edited before the crash"));
}

TEST(CrashJournal, LeavesLivingProcessesAndForeignFilesAlone) {
    TOpenFile file(ThreeProblems());
    const fs::path journals = file.folder / "journals";
    CCrashJournal ours(journals);
    Describe(file.document, L"not lost");
    ASSERT_TRUE(ours.WriteNow(file.document));
    WriteBytes(journals / "notes.cp", "mine");
    WriteBytes(journals / "unsaved-99999999-1.cp", "damaged");
    CCrashJournal other(journals);
    EXPECT_FALSE(other.OfferLostWork(file.document, file.host));
    EXPECT_THAT(file.user.Heard(), IsEmpty());
    EXPECT_TRUE(fs::exists(ours.Path()) && fs::exists(journals / "notes.cp"));
}

TEST(CrashJournal, NeverTouchesAnotherProblemOfTheSameNumber) {
    TOpenFile file(ThreeProblems());
    const fs::path journals = file.folder / "journals";
    CrashAfterEdits(file.path, journals);  // changed 3, added 10, removed 9
    const std::string meanwhile = "UTF-8\n\n" + ProblemOf(3, 2, PlacementD, "other") +
                                  ProblemOf(9, 3, PlacementD) + ProblemOf(10, 2, PlacementB);
    WriteBytes(file.path, meanwhile);
    ASSERT_TRUE(ReloadProblemFile(file.document, file.host));
    CCrashJournal journal(journals);
    file.user.WillAnswer({true});
    EXPECT_TRUE(journal.OfferLostWork(file.document, file.host));
    EXPECT_THAT(file.user.Heard(), ElementsAre(HasSubstr("recover"), HasSubstr("3 → 11")));
    EXPECT_THAT(file.document.Ids(), ElementsAre(3, 9, 10, 11, 12));
    EXPECT_THAT(file.document.UnsavedIds(), ElementsAre(11, 12));
    EXPECT_EQ(file.document.Problems().Find(3)->m_description, L"other");
    EXPECT_EQ(file.document.Problems().Find(11)->m_description, L"edited before the crash");
    EXPECT_EQ(file.document.Problems().Find(11)->m_id, 11);
}

TEST(CrashJournal, ReadsJournalsOfOlderVersions) {
    TOpenFile file(ThreeProblems());
    const fs::path journals = file.folder / "journals";
    fs::create_directory(journals);
    WriteBytes(journals / "unsaved-99999999-1.cp",
               "UTF-8\n// unsaved edits of: " + file.path.string() + "\n// removed: 9\n\n" +
                   ProblemOf(3, 2, PlacementA, "edited") + ProblemOf(5, 1, PlacementD, "new"));
    CCrashJournal journal(journals);
    file.user.WillAnswer({true});
    EXPECT_TRUE(journal.OfferLostWork(file.document, file.host));
    EXPECT_THAT(file.document.Ids(), ElementsAre(3, 5, 9, 10));
    EXPECT_EQ(file.document.Problems().Find(3)->m_description, L"edited");
    EXPECT_EQ(file.document.Problems().Find(5)->m_description, L"Second");
}

TEST(CrashJournal, LeavesJournalsOfOtherMachinesAloneAndLogsThem) {
    TOpenFile file(ThreeProblems());
    const fs::path journals = file.folder / "journals";
    CrashAfterEdits(file.path, journals);
    const fs::path ours = fs::directory_iterator(journals)->path();
    const fs::path theirs = journals / "unsaved-99999999-1-othermachine-otherboot-1.cp";
    fs::rename(ours, theirs);
    CCrashJournal journal(journals, file.folder / "log.txt");
    EXPECT_FALSE(journal.OfferLostWork(file.document, file.host));
    EXPECT_TRUE(fs::exists(theirs));
    EXPECT_THAT(ReadBytes(file.folder / "log.txt"), HasSubstr(theirs.filename().string()));
}

TEST(CrashJournal, IsWrittenAtMostEveryTwoSecondsAndNeverStopsTheUser) {
    CFakeClock time;
    TOpenFile file(ThreeProblems());
    CCrashJournal journal(file.folder / "journals");
    EXPECT_TRUE(journal.Update(file.document));
    EXPECT_FALSE(fs::exists(journal.Path())) << "nothing to keep";
    time.Advance(5000);
    Describe(file.document, L"first");
    journal.Update(file.document);
    EXPECT_THAT(ReadBytes(journal.Path()), HasSubstr("first"));
    Describe(file.document, L"second");
    time.Advance(1999);
    journal.Update(file.document);
    EXPECT_THAT(ReadBytes(journal.Path()), HasSubstr("first"));
    time.Advance(1);
    journal.Update(file.document);
    EXPECT_THAT(ReadBytes(journal.Path()), HasSubstr("second"));
    file.document.Undo();
    file.document.Undo();
    time.Advance(2000);
    journal.Update(file.document);
    EXPECT_FALSE(fs::exists(journal.Path()));

    CCrashJournal homeless("/proc/nowhere");
    file.document.Redo();
    EXPECT_FALSE(homeless.Update(file.document));
}

}  // namespace
}  // namespace tarnwick
