// The tables of three men against those of Gaviota, which were made by other people with another program: every
// legal position with White to move.

#include <gtb-probe.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/table_folder.h"
#include "tables/table_positions.h"

namespace tarnwick {
namespace {

/// Where Debian's package has the tables, in their strongest compression.
constexpr const char* GaviotaFolder = "/usr/share/gaviotatb/gtb4";

/// The one Gaviota of the process, opened for as long as this object lives.
class CGaviota {
  public:
    CGaviota() : m_paths(tbpaths_add(tbpaths_init(), GaviotaFolder)) {
        tb_init(0, tb_CP4, m_paths);
        tbcache_init(std::size_t{1} << 22, 0);
    }
    CGaviota(const CGaviota&) = delete;
    CGaviota& operator=(const CGaviota&) = delete;
    ~CGaviota() {
        tbcache_done();
        tb_done();
        tbpaths_done(m_paths);
    }

    static bool HasAllOfThreeMen() { return (tb_availability() & 2U) != 0; }

    /// Plies to mate by White, to move; 0 for a draw, -1 where the tables tell nothing.
    static int PliesToMate(const TEndingPosition& position) {
        const unsigned whiteFields[] = {Field(position.whiteKing), Field(position.fields[0]),
                                        tb_NOSQUARE};
        const unsigned blackFields[] = {Field(position.blackKing), tb_NOSQUARE};
        const unsigned char whiteMen[] = {tb_KING, ManOf(position.letters[0]), tb_NOPIECE};
        const unsigned char blackMen[] = {tb_KING, tb_NOPIECE};
        unsigned verdict = tb_UNKNOWN;
        unsigned plies = 0;
        const bool bKnown = tb_probe_hard(tb_WHITE_TO_MOVE, tb_NOSQUARE, tb_NOCASTLE, whiteFields,
                                          blackFields, whiteMen, blackMen, &verdict, &plies) != 0;
        if (bKnown && verdict == tb_WMATE) {
            return static_cast<int>(plies);
        }
        return bKnown && verdict == tb_DRAW ? 0 : -1;
    }

  private:
    static unsigned Field(int field) { return static_cast<unsigned>(field); }
    static unsigned char ManOf(char letter) {
        return static_cast<unsigned char>(std::string(" PNBRQ").find(letter));
    }

    const char** m_paths;
};

TEST(Gaviota, HasTheSameMatesOfThreeMen) {
    const CGaviota gaviota;
    if (!CGaviota::HasAllOfThreeMen()) {
        GTEST_SKIP() << "NOT COMPARED: no tables in " << GaviotaFolder
                     << "; install the package gaviotatb";
    }
    const CTableFolder folder({"Q", "R", "B", "N", "P"});
    const CTableFolders folders(folder.Path(), {});
    for (const char* type : {"Q", "R", "B", "N", "P"}) {
        ExpectSameEverywhere(folders, type, &CGaviota::PliesToMate);
    }
}

}  // namespace
}  // namespace tarnwick
