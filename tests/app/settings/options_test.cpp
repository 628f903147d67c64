#include "app/settings/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "base/chess_exception.h"

#include "app/settings/machine_defaults.h"
#include "app/settings/second_instance.h"
#include "support/temp_folder.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class OptionsTest : public testing::Test {
  protected:
    TReadOptions Read(std::string_view content) const {
        WriteBytes(m_file, content);
        return ReadOptions(m_file);
    }

    CTempFolder m_folder;
    std::filesystem::path m_file = m_folder / "options.ini";
};

TEST_F(OptionsTest, MissingFileGivesTheDefaults) {
    const TReadOptions read = ReadOptions(m_file);
    EXPECT_THAT(read.notes, IsEmpty());
    EXPECT_EQ(read.options.languageId, LanguageId::English);
    EXPECT_TRUE(read.options.quickMode);
    EXPECT_EQ(read.options.schedulerLevels, 6);
    EXPECT_EQ(read.options.multithreadingLevels, 1);
    EXPECT_EQ(read.options.minimizeToTray, TMinimizeToTray::WithCtrl);
}

TEST_F(OptionsTest, EveryKindOfValueIsRead) {
    const TOptions options = Read(
                                 "[chess]\nLanguageId=2\nQuickMode=0\nSchedulerLevels=-1\n"
                                 "LogMoves=-7\nLichessLevels=-1\nMinimizeToTray=1 ; always\n"
                                 "WarnAboutSecondInstanceOfProgram=+1\n"
                                 "PrecalcPath=\"D:\\tables, old=1;2\"\n")
                                 .options;
    EXPECT_EQ(options.languageId, LanguageId::Ukrainian);
    EXPECT_FALSE(options.quickMode);
    EXPECT_EQ(options.schedulerLevels, 0);
    EXPECT_TRUE(options.logMoves);
    EXPECT_EQ(options.lichessLevels, -1);
    EXPECT_EQ(options.minimizeToTray, TMinimizeToTray::Always);
    EXPECT_EQ(options.warnAboutSecondInstanceOfProgram, TSecondInstanceWarning::StatusLine);
    EXPECT_EQ(options.precalcPath, "D:\\tables, old=1;2");
}

TEST_F(OptionsTest, SillyValuesAreReplacedAndNoted) {
    const TReadOptions read = Read(
        "[chess]\nQuickMode=yes\nMaxMemRatioForTempReg=900\nLanguageId=7\n"
        "SchedulerLevels=99999999999999999999\nMultithreadingLevels=1x\nLichessLevels=\n"
        "PrecalcPath=" +
        std::string(256, 'a') + "\n");
    EXPECT_TRUE(read.options.quickMode);
    EXPECT_EQ(read.options.maxMemRatioForTempReg, 100);
    EXPECT_EQ(read.options.languageId, LanguageId::Ukrainian);
    EXPECT_EQ(read.options.schedulerLevels, 9);
    EXPECT_EQ(read.options.multithreadingLevels, 1);
    EXPECT_EQ(read.options.lichessLevels, 1);
    EXPECT_EQ(read.options.precalcPath, "");
    EXPECT_EQ(read.notes.size(), 7U);

    const TReadOptions english = Read("[chess]\n\nSchedulerLevels=\x1B[31m\n");
    ASSERT_EQ(english.notes.size(), 1U);
    EXPECT_THAT(english.notes[0], HasSubstr("options.ini, line 3: SchedulerLevels = \"?[31m\""));
    EXPECT_THAT(english.notes[0], HasSubstr("5")) << "the value of the file, not of the memory";
}

TEST_F(OptionsTest, HostileFilesGiveDefaultsAndStayAsTheyAre) {
    const std::string contents[] = {std::string(3 << 20, 'x'), "\xFF\xFE[\0c\0", "\xFE\xFF"};
    for (const std::string& content : contents) {
        const TReadOptions read = Read(content);
        EXPECT_EQ(read.notes.size(), 1U);
        EXPECT_TRUE(read.options.quickMode);
        EXPECT_THROW(WriteOptions(m_file, TOptions()), ChessException);
        EXPECT_EQ(ReadBytes(m_file), content);
    }
    std::filesystem::remove(m_file);
    ASSERT_EQ(::mkfifo(m_file.c_str(), 0600), 0);
    EXPECT_EQ(ReadOptions(m_file).notes.size(), 1U) << "must not wait for a writer";
}

TEST_F(OptionsTest, WarningsSpeakTheLanguageOfTheFile) {
    const TReadOptions read = Read(
        "[chess]\nLanguageId=0\nLogMoves=1\nUseDataPackedForRandomAccess=2\n"
        "AskForGlobalRegisterRecompression=3\n");
    EXPECT_EQ(read.options.askForGlobalRegisterRecompression, 2);
    EXPECT_THAT(read.warnings,
                ElementsAre(HasSubstr("nie powinna"), HasSubstr("nie jest zalecana")));
}

TEST_F(OptionsTest, WritingKeepsWhatOthersWrote) {
    const TReadOptions read =
        Read("; mine\r\n[chess]\r\nQuickMode = 1 ; fast\r\nUnknown=a,\\b\r\n");
    TOptions options = read.options;
    options.quickMode = false;
    options.languageId = LanguageId::Polish;  // has its own command
    // Meanwhile the user edits the file.
    WriteBytes(m_file,
               "; mine\r\n[chess]\r\nQuickMode = 1 ; fast\r\nUnknown=a,\\b\r\n"
               "PrecalcPath=/t\r\nSchedulerLevels=05\r\n[other]\r\nx\r\n");
    WriteOptions(m_file, options);
    const std::string text = ReadBytes(m_file);
    EXPECT_TRUE(
        text.starts_with("; mine\r\n[chess]\r\nQuickMode = 0 ; fast\r\nUnknown=a,\\b\r\n"
                         "PrecalcPath=/t\r\nSchedulerLevels=05\r\n"));
    EXPECT_TRUE(text.ends_with("[other]\r\nx\r\n"));
    EXPECT_THAT(text, Not(HasSubstr("LanguageId")));

    WriteOption(m_file, "LanguageId", 0);
    EXPECT_EQ(ReadOptions(m_file).options.languageId, LanguageId::Polish);
    EXPECT_FALSE(ReadOptions(m_file).options.quickMode);
}

TEST_F(OptionsTest, WhatIsWrittenIsReadAgainAndNotWrittenTwice) {
    TOptions options;
    options.schedulerLevels = 0;
    options.lichessLevels = -1;
    options.minimizeToTray = TMinimizeToTray::Never;
    options.logMoves = true;
    m_file = m_folder / "new/folder/options.ini";
    WriteOptions(m_file, options);
    const TOptions again = ReadOptions(m_file).options;
    EXPECT_EQ(again.schedulerLevels, 0);
    EXPECT_EQ(again.lichessLevels, -1);
    EXPECT_EQ(again.minimizeToTray, TMinimizeToTray::Never);
    EXPECT_TRUE(again.logMoves);

    struct stat before {};
    struct stat after {};
    ASSERT_EQ(::stat(m_file.c_str(), &before), 0);
    WriteOptions(m_file, again);
    ASSERT_EQ(::stat(m_file.c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino) << "an unchanged file must not be replaced";
}

TEST_F(OptionsTest, MemoryLimitsHoldOnHugeMachines) {
    TOptions options;
    options.maxMemRatioForTempReg = 50;
    options.maxMemRatioForPrecalculatedData = 100;
    const TMemoryLimits small = MemoryLimits(options, std::uint64_t{1000} << 20);
    EXPECT_EQ(small.temporaryMiB, 500U);
    EXPECT_EQ(small.temporaryMiBByDefault, 200U);
    EXPECT_EQ(MemoryLimits(options, ~std::uint64_t{0}).precalculatedBytes, ~std::uint64_t{0});
}

TEST_F(OptionsTest, SecondInstanceIsToldAsTheOptionsSay) {
    TSecondInstanceNotice notice = SecondInstanceNotice(m_file);
    ASSERT_TRUE(notice.box.has_value());
    EXPECT_TRUE(notice.box->starts_with("Uwaga:")) << "no language named";
    Read("[chess]\nLanguageId=1\n");
    EXPECT_TRUE(SecondInstanceNotice(m_file).box->starts_with("Note:\nProgram will be opened"));

    Read("[chess]\nWarnAboutSecondInstanceOfProgram=1\n");
    notice = SecondInstanceNotice(m_file);
    EXPECT_FALSE(notice.box.has_value());
    EXPECT_TRUE(notice.statusLine.starts_with("WARNING: ") && notice.statusLine.ends_with("\n"));
    Read("[chess]\nWarnAboutSecondInstanceOfProgram=0\n");
    notice = SecondInstanceNotice(m_file);
    EXPECT_TRUE(!notice.box.has_value() && notice.statusLine.empty());
}

TEST(MachineDefaults, LargeMachinesSpreadTwoLevelsOfMoves) {
    struct TCase {
        TProcessors processors;
        int threads;
        int levels;
    };
    const TCase cases[] = {{{0, 0}, 1, 1},  {{4, 8}, 4, 1},   {{6, 6}, 6, 1},
                           {{6, 11}, 6, 1}, {{6, 12}, 4, 2},  {{7, 14}, 4, 2},
                           {{8, 8}, 4, 2},  {{36, 72}, 6, 2}, {{35, 70}, 5, 2}};
    for (const TCase& machine : cases) {
        SCOPED_TRACE(machine.processors.physical);
        TOptions options;
        EXPECT_EQ(ApplyMachineDefaults(machine.processors, options), machine.threads);
        EXPECT_EQ(options.multithreadingLevels, machine.levels);
    }
}

}  // namespace
}  // namespace tarnwick
