#include "tables/table_files.h"

#include <gtest/gtest.h>

#include "base/chess_exception.h"

#include "support/temp_folder.h"
#include "tables/max_mate_cache.h"
#include "tables/table_contents.h"
#include "tables/two_bit_table.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;
using enum TTableFileMode;

TEST(TableFiles, LowerCaseLettersStayApartFromUpperCaseOnes) {
    EXPECT_EQ(StemOfTable("QR"), "QR");
    EXPECT_EQ(StemOfTable("Qr"), "Qr_");
    EXPECT_EQ(StemOfTable("RBpp"), "RBp_p_");
    EXPECT_EQ(StemOfTable("Kkp(a7)p(h5)+Ra1b1+pa2h2"), "Kk_p_(a7)p_(h5)+Ra1b1+p_a2h2");
}

TEST(TableFiles, StandInTheSubFolderOfTheirMenIfThereIsOne) {
    const CTempFolder folder;
    const fs::path program = folder / "program";
    const CTableFolders folders(program, folder / "other");
    const TTableName name = {.type = "Qr", .men = 4};
    const TTableName pawn = {.type = "P", .men = 3, .bPawns = true};
    const TTableName fixed = {.type = "Kk+Ra1", .men = 3, .bFixedMen = true};
    EXPECT_EQ(folders.MakeFileName(name, Unpacked, false, false), program / "Precalc/Qr_.precalc");
    EXPECT_EQ(folders.MakeFileName(name, Unpacked, true, true),
              folder / "other/Qr_.precalc.details");
    EXPECT_EQ(folders.MakeFileName(fixed, Lz4, false, true),
              program / "CustomPrecalc/Kk_+Ra1.precalc.lz4");
    EXPECT_EQ(folders.FolderOfNewTable(name), program / "Precalc/4pieces-pawns");
    fs::create_directories(folders.FolderOfNewTable(name));
    fs::create_directories(folder / "other/3pieces+pawns");
    EXPECT_EQ(folders.MakeFileName(name, PackedLzw, false, false),
              program / "Precalc/4pieces-pawns/Qr_.precalc.packed.lzw");
    EXPECT_EQ(folders.MakeFileName(pawn, PackedLz4, false, true),
              folder / "other/3pieces+pawns/P.precalc.packed.lz4");
    EXPECT_EQ(folders.MakeFileName(pawn, Lz4, false, false), program / "Precalc/P.precalc.lz4");
    EXPECT_EQ(CTableFolders(program, "").MakeFileName(name, Lz4, false, true), "");
    EXPECT_EQ(folders.MaxMateFile(name), program / "MaxMateIndexesCache/Qr_.idx");
}

TEST(TableFiles, AGivenNameAnswersToItsOwnFormAlone) {
    const CTableFolders folders("/program", "/other");
    const auto form = [&](const wchar_t* file) {
        TTableName name;
        name.wholeFileName = file;
        std::string answers;
        for (const TTableFileMode mode : {Unpacked, Lz4, PackedLzw, PackedLz4}) {
            const std::string path = folders.MakeFileName(name, mode, false, false).string();
            answers += path.ends_with("_SKIPTHIS") ? '-' : '+';
            EXPECT_TRUE(path.starts_with("/program/CustomPrecalc/P_no_move.precalc")) << path;
        }
        return answers;
    };
    EXPECT_EQ(form(L"CustomPrecalc\\P_no_move.precalc"), "+---");
    EXPECT_EQ(form(L"CustomPrecalc\\P_no_move.precalc.lz4"), "-+--");
    EXPECT_EQ(form(L"CustomPrecalc/P_no_move.precalc.packed.lzw"), "--+-");
    EXPECT_EQ(form(L"CustomPrecalc\\P_no_move.precalc.packed.lz4"), "---+");
}

TEST(TableFiles, APackedNameReplacesNoExtensionButOneInCapitals) {
    EXPECT_EQ(MakePackedFileName("a.b/Q.precalc", true), "a.b/Q.precalc.packed.lzw");
    EXPECT_EQ(MakePackedFileName("Q.precalc.lz4", false), "Q.precalc.lz4.packed.lz4");
    EXPECT_EQ(MakePackedFileName("Q.precalc.LZ4", true), "Q.precalc.packed.lzw");
}

TEST(TableFiles, AnUnpackedFileShowsItsKindByItsSize) {
    const CTempFolder folder;
    CKeptDialog dialog;
    const auto kind = [&](std::size_t size, int elementSize) {
        WriteBytes(folder / "Q", std::string(size, '\5'));
        return CheckTableFileSize(CRandomAccessFile(folder / "Q"), folder / "Q", 40, elementSize,
                                  dialog);
    };
    EXPECT_EQ(kind(40, 1), TTableFileKind::Elements);
    EXPECT_EQ(kind(80, 2), TTableFileKind::Elements);
    EXPECT_EQ(kind(10, 2), TTableFileKind::TwoBit);
    EXPECT_EQ(ReadTableFlags(CRandomAccessFile(folder / "Q")), 5);
    EXPECT_TRUE(dialog.told.empty());
    EXPECT_EQ(kind(40, 2), TTableFileKind::Improper);
    EXPECT_EQ(dialog.told.at(0), "Data file size and/or its header seems improper:\n\n" +
                                     (folder / "Q").string() +
                                     "\n\nFile size=40\nExpected file size=80");
    const CRandomAccessFile none(folder / "none");
    EXPECT_EQ(CheckTableFileSize(none, "none", 0, 1, dialog), TTableFileKind::Improper);
    EXPECT_NE(dialog.told.at(1).find("File size=-1\n"), std::string::npos);
    EXPECT_EQ(ReadTableFlags(none), std::nullopt);
}

TEST(TwoBitTable, NeedsItsDetailsAndItsSize) {
    const CTempFolder folder;
    WriteBytes(folder / "t", "\xE4\x01");
    WriteBytes(folder / "d", "\x05 anything");
    CTwoBitTable table(folder / "t", folder / "d", 8);
    EXPECT_EQ(table.ElementSize(), 2);
    for (std::uint8_t i = 0; i < 8; ++i) {
        EXPECT_EQ(table.ValueAt(i), i < 4 ? i : (i == 4 ? 1 : 0));
    }
    table.Add(4, 2);
    table.Add(7, 1);
    EXPECT_EQ(table.ValueAt(4), 3);
    EXPECT_EQ(table.ValueAt(7), 1);
    EXPECT_THROW(CTwoBitTable(folder / "t", folder / "none", 8), ChessException);
    WriteBytes(folder / "empty", "");
    EXPECT_THROW(CTwoBitTable(folder / "t", folder / "empty", 8), ChessException);
    EXPECT_THROW(CTwoBitTable(folder / "t", folder / "d", 12), ChessException);
    EXPECT_THROW(CTwoBitTable(folder / "t", folder / "d", std::uint64_t{1} << 63), ChessException);
}

TEST(MaxMateCache, KeepsWhatItWasGivenAndBelievesNothingElse) {
    const CTempFolder folder;
    const TMaxMates mates = {.moves = 35, .indexes = {3, 70, 900}};
    ASSERT_TRUE(WriteMaxMates(folder / "Qr_.idx", mates));
    const auto read = ReadMaxMates(folder / "Qr_.idx", 901, MostMaxMates);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->moves, 35U);
    EXPECT_EQ(read->indexes, mates.indexes);
    EXPECT_EQ(ReadMaxMates(folder / "Qr_.idx", 901, 2)->indexes.size(), 2U);
    EXPECT_FALSE(ReadMaxMates(folder / "Qr_.idx", 900, MostMaxMates));
    EXPECT_FALSE(WriteMaxMates(folder / "no folder" / "x", mates));
    const std::string good = ReadBytes(folder / "Qr_.idx");
    for (std::size_t size = 0; size < good.size(); ++size) {
        WriteBytes(folder / "cut", good.substr(0, size));
        EXPECT_EQ(ReadMaxMates(folder / "cut", 901, MostMaxMates).has_value(),
                  size >= 16 && size % 8 == 0)
            << size;
    }
    for (const TMaxMates& wrong : {TMaxMates{1024, {1}}, TMaxMates{1, {0, 1}}, TMaxMates{1, {5, 5}},
                                   TMaxMates{1, {6, 5}}, TMaxMates{1, {}}}) {
        ASSERT_TRUE(WriteMaxMates(folder / "wrong", wrong));
        EXPECT_FALSE(ReadMaxMates(folder / "wrong", 901, MostMaxMates));
    }
}

}  // namespace
}  // namespace tarnwick
