// The recogniser on diagrams that are drawn here: our own men, those of DejaVu Sans, and those of FreeSerif, which
// it never saw in its training; dark fields plain, grey and hatched; boards of 200 to 800 pixels; margins,
// frames, coordinates, noise and blur.
//
// TARNWICK_DIAGRAM_TABLE=1 prints the rates by kind, TARNWICK_DIAGRAM_FOLDER=FOLDER saves the diagrams that were
// read wrongly.

#include <gtest/gtest.h>

#include <QFont>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <map>
#include <string>
#include <vector>

#include "base/chess_exception.h"

#include "app/shell/icon_set.h"
#include "chess/fields.h"
#include "diagram/recognition.h"
#include "drawn_diagrams.h"

namespace tarnwick {
namespace {

struct TSet {
    std::string name;
    std::unique_ptr<CDrawnMen> men;
};

std::unique_ptr<CDrawnMen> MenOfFamily(const char* family, double halo) {
    const QRawFont font = QRawFont::fromFont(QFont(family, 100));
    return font.familyName() == family ? MenOfFont(font, UnicodeMen(), halo) : nullptr;
}

std::vector<TSet> AllSets() {
    LoadPictures();
    std::vector<TSet> sets;
    sets.push_back({"own men", MenOfPictures(":/pieces/%1.svg")});
    sets.push_back({"DejaVu", MenOfFamily("DejaVu Sans", 0)});
    sets.push_back({"FreeSerif", MenOfFamily("FreeSerif", 0.03)});
    return sets;
}

/// What was read of one kind of diagrams, or of all.
struct TRates {
    int boards = 0;
    int rightBoards = 0;
    int rightOrMarkedBoards = 0;  ///< Every wrong field is marked as doubtful.
    int rightFields = 0;
    int doubtfulFields = 0;
    long milliseconds = 0;  ///< Of the processor: other programs may be busy.
    long longest = 0;

    double FieldPercent() const { return 100.0 * rightFields / (64.0 * boards); }
    double BoardPercent() const { return 100.0 * rightBoards / boards; }
    void Add(const TRates& one);
    void Print(const std::string& kind) const;
};

void TRates::Add(const TRates& one) {
    boards += one.boards;
    rightBoards += one.rightBoards;
    rightOrMarkedBoards += one.rightOrMarkedBoards;
    rightFields += one.rightFields;
    doubtfulFields += one.doubtfulFields;
    milliseconds += one.milliseconds;
    longest = std::max(longest, one.longest);
}

void TRates::Print(const std::string& kind) const {
    std::printf("| %-36s | %4d | %6.2f | %6.1f | %6.1f | %6.2f | %4ld | %4ld |\n", kind.c_str(),
                boards, FieldPercent(), BoardPercent(), 100.0 * rightOrMarkedBoards / boards,
                100.0 * doubtfulFields / (64.0 * boards), milliseconds / boards, longest);
}

/// Reads one diagram. A board that is not found counts as 64 wrong fields.
TRates Read(const TDrawnDiagram& drawn, const TDrawnFields& fields) {
    TRates rates{.boards = 1};
    const std::clock_t begin = std::clock();
    const auto elapsed = [begin] { return (std::clock() - begin) * 1000 / CLOCKS_PER_SEC; };
    try {
        const TRecognizedDiagram read = RecognizeDiagram(AsBitmap(drawn.image));
        rates.milliseconds = elapsed();
        int wrongAndSure = 0;
        for (std::size_t number = 0; number < FieldCount; ++number) {
            const bool bRight = read.fields[number].man == fields[number];
            rates.rightFields += bRight ? 1 : 0;
            rates.doubtfulFields += read.fields[number].bDoubtful ? 1 : 0;
            wrongAndSure += !bRight && !read.fields[number].bDoubtful ? 1 : 0;
        }
        rates.rightBoards = rates.rightFields == FieldCount ? 1 : 0;
        rates.rightOrMarkedBoards = wrongAndSure == 0 ? 1 : 0;
    } catch (const ChessException&) {
        rates.milliseconds = elapsed();
    }
    rates.longest = rates.milliseconds;
    return rates;
}

/// Diagrams of all kinds in turn; the rates by kind, and of all under "all".
std::map<std::string, TRates> ReadDiagrams(int count, unsigned seed) {
    static constexpr const char* DarkFields[] = {"plain", "grey", "hatched"};
    static constexpr int Sides[] = {200, 267, 400, 600, 800};
    std::mt19937 random(seed);
    const std::vector<TSet> sets = AllSets();
    std::map<std::string, TRates> rates;
    for (int i = 0; i < count; ++i) {
        const TSet& set = sets[static_cast<std::size_t>(i) % sets.size()];
        const int kind = i / 3 % 3;
        const int side = Sides[i % 5];
        const TDrawnFields fields = RandomFields(random);
        const TDiagramStyle style = RandomStyle(static_cast<TDarkFields>(kind), side, random);
        const TDrawnDiagram drawn = DrawDiagram(fields, style, *set.men, random);
        const TRates one = Read(drawn, fields);
        rates["all"].Add(one);
        rates[set.name + ", " + DarkFields[kind] + " dark fields"].Add(one);
        rates["side of " + std::to_string(side) + " pixels"].Add(one);
        if (one.rightBoards == 0 && qEnvironmentVariableIsSet("TARNWICK_DIAGRAM_FOLDER")) {
            drawn.image.save(QString("%1/diagram%2.png")
                                 .arg(qEnvironmentVariable("TARNWICK_DIAGRAM_FOLDER"))
                                 .arg(i));
        }
    }
    return rates;
}

void CheckRates(int count, unsigned seed, long mostMilliseconds) {
    for (const TSet& set : AllSets()) {
        ASSERT_TRUE(set.men) << set.name
                             << ": fonts-dejavu-core or fonts-freefont-ttf is not installed";
    }
    const auto rates = ReadDiagrams(count, seed);
    if (qEnvironmentVariableIsSet("TARNWICK_DIAGRAM_TABLE")) {
        std::printf(
            "| kind | diagrams | fields %% | boards %% | right or marked %% | doubtful %% | ms | "
            "longest |\n");
        for (const auto& [kind, ofKind] : rates) {
            ofKind.Print(kind);
        }
    }
    const TRates& all = rates.at("all");
    SCOPED_TRACE("seed " + std::to_string(seed));
    EXPECT_GE(all.FieldPercent(), 99);
    EXPECT_GE(all.BoardPercent(), 90);
    EXPECT_LT(all.longest, mostMilliseconds);
}

constexpr unsigned Seed = 20261;

TEST(DiagramRecognition, ReadsDiagramsOfAllKinds) {
    // Most of the builds with checks are some five times slower than the release.
    CheckRates(45, Seed, 3000);
}

TEST(SlowDiagramRecognition, ReadsThreeHundredDiagrams) {
    // Run by ./test --full in the release.
    CheckRates(300, Seed + 1, 300);
}

TEST(DiagramRecognition, FindsEmptyBoardsAndLonelyKings) {
    std::mt19937 random(Seed);
    const std::vector<TSet> sets = AllSets();
    TDrawnFields kings{};
    kings[8] = WhiteKing;
    kings[60] = BlackKing;
    for (const TDrawnFields& fields : {TDrawnFields{}, kings}) {
        for (int kind = 0; kind < 3; ++kind) {
            const TDiagramStyle style = RandomStyle(static_cast<TDarkFields>(kind), 240, random);
            const TDrawnDiagram drawn = DrawDiagram(fields, style, *sets[0].men, random);
            EXPECT_EQ(Read(drawn, fields).rightFields, FieldCount) << "kind " << kind;
        }
    }
}

TEST(DiagramRecognition, TellsWhereTheBoardIs) {
    std::mt19937 random(Seed);
    const std::vector<TSet> sets = AllSets();
    for (int kind = 0; kind < 3; ++kind) {
        TDiagramStyle style = RandomStyle(static_cast<TDarkFields>(kind), 400, random);
        style.margin = 0.6;
        style.frameLines = 2;
        style.coordinates = TCoordinates::Outside;
        const TDrawnDiagram drawn = DrawDiagram(RandomFields(random), style, *sets[0].men, random);
        const TBoardFrame frame = RecognizeDiagram(AsBitmap(drawn.image)).frame;
        EXPECT_NEAR(frame.left, drawn.board.left(), 3);
        EXPECT_NEAR(frame.top, drawn.board.top(), 3);
        EXPECT_NEAR(frame.right, drawn.board.right(), 3);
        EXPECT_NEAR(frame.bottom, drawn.board.bottom(), 3);
    }
}

TEST(DiagramRecognition, DoubtsWhatChessForbids) {
    std::mt19937 random(Seed);
    const std::vector<TSet> sets = AllSets();
    TDrawnFields fields{};
    fields[A1] = WhiteKing;
    fields[H8] = BlackKing;
    fields[35] = WhiteKing;
    fields[59] = BlackPawn;
    const TDiagramStyle style = RandomStyle(TDarkFields::Grey, 400, random);
    const TRecognizedDiagram read =
        RecognizeDiagram(AsBitmap(DrawDiagram(fields, style, *sets[0].men, random).image));
    EXPECT_EQ(std::ranges::count(read.fields, WhiteKing, &TRecognizedField::man), 1);
    EXPECT_TRUE(read.fields[A1].bDoubtful || read.fields[35].bDoubtful);
    EXPECT_NE(read.fields[59].man, BlackPawn);
    EXPECT_TRUE(read.fields[59].bDoubtful);
}

}  // namespace
}  // namespace tarnwick
