#include "diagram/recognition.h"

#include <algorithm>
#include <vector>

#include "base/chess_exception.h"

#include "chess/fields.h"
#include "diagram/board_search.h"
#include "diagram/man_classifier.h"
#include "diagram/recognition_texts.h"

namespace tarnwick {
namespace {

/// Shorter sides have fields of less than eight pixels, on which men are no more than blots.
constexpr int ShortestSide = 64;
/// Below this chance a field is doubtful.
constexpr float SureChance = 0.95F;
/// Above this chance a man may be the king that a side lacks.
constexpr float LeastKingChance = 0.01F;
/// Of grey values from 0 to 1. The palest of 60,000 drawn men had 0.0022.
constexpr float PlainVariance = 0.0008F;
constexpr std::size_t MostMen = 16;
constexpr std::size_t MostPawns = 8;

TBoardFrame FindBoard(const TGreyImage& image, const CGreySums& sums, int lightThreshold) {
    if (std::min(image.width, image.height) >= ShortestSide) {
        // The edges that the runs tell are those of columns without a man in the way, a little inside of the
        // board; on a picture that is no clean print they may be anything.
        if (const auto byRuns = FrameByRuns(image, lightThreshold)) {
            const TBoardFrame refined = Refined(sums, *byRuns);
            if (IsBoard(PatternFit(sums, refined))) {
                return refined;
            }
        }
        // Hatched fields have no dark runs, specks cut the runs of noisy ones, and beside wide margins the fields
        // are shorter than a run must be: their pattern is still there.
        if (const auto byPattern = FrameByPattern(image, sums)) {
            return *byPattern;
        }
    }
    throw ChessException(UserText(NotRecognizedText));
}

/// Whether a field shows nothing but its own colour. Boards differ more in that colour than the classifier has
/// learned, and a man of any print stands out from it.
bool IsPlain(const TFieldImage& image) {
    float sum = 0;
    float squares = 0;
    for (const float grey : image) {
        sum += grey;
        squares += grey * grey;
    }
    const float average = sum / static_cast<float>(image.size());
    return squares / static_cast<float>(image.size()) - average * average < PlainVariance;
}

/// The choice among the classifier's chances, field by field and then for the board as a whole.
class CReading {
  public:
    explicit CReading(const std::vector<TFieldImage>& images);

    void SettleKings(TFigureCode colour);
    void DoubtTooManyMen(TFigureCode colour);

    const std::array<TRecognizedField, FieldCount>& Fields() const { return m_fields; }

  private:
    float Chance(std::size_t field, TFigureCode man) const;
    void ChooseBest(std::size_t field);
    /// Leaves the most sure of the chosen fields alone and doubts the others.
    void DoubtAllBut(std::vector<std::size_t> chosen, std::size_t count);

    std::array<TManChances, FieldCount> m_chances;
    std::array<TRecognizedField, FieldCount> m_fields;
};

CReading::CReading(const std::vector<TFieldImage>& images) {
    for (std::size_t field = 0; field < FieldCount; ++field) {
        m_chances[field] = IsPlain(images[field]) ? TManChances{1} : ClassifyMan(images[field]);
        const int rank = RankOf(static_cast<int>(field));
        for (std::size_t i = 0; i < ClassifiedMen.size(); ++i) {
            if (TypeOf(ClassifiedMen[i]) == TypePawn && (rank == 0 || rank == 7)) {
                m_chances[field][i] = 0;
            }
        }
        ChooseBest(field);
    }
}

float CReading::Chance(std::size_t field, TFigureCode man) const {
    const auto index = std::ranges::find(ClassifiedMen, man) - ClassifiedMen.begin();
    return m_chances[field][static_cast<std::size_t>(index)];
}

void CReading::ChooseBest(std::size_t field) {
    std::array<TFigureCode, ClassifiedMen.size()> men = ClassifiedMen;
    std::ranges::partial_sort(men, men.begin() + 2, [&](TFigureCode one, TFigureCode other) {
        return Chance(field, one) > Chance(field, other);
    });
    m_fields[field] = {
        .man = men[0],
        .secondMan = men[1],
        .bDoubtful = m_fields[field].bDoubtful || Chance(field, men[0]) < SureChance};
}

void CReading::SettleKings(TFigureCode colour) {
    const auto king = static_cast<TFigureCode>(colour | TypeKing);
    std::size_t best = 0;
    for (std::size_t field = 1; field < FieldCount; ++field) {
        if (Chance(field, king) > Chance(best, king)) {
            best = field;
        }
    }
    const bool bMen = std::ranges::any_of(
        m_fields, [](const TRecognizedField& field) { return field.man != EmptyField; });
    if (bMen && m_fields[best].man != king && Chance(best, king) >= LeastKingChance) {
        m_fields[best] = {.man = king, .secondMan = m_fields[best].man, .bDoubtful = true};
    }
    for (std::size_t field = 0; field < FieldCount; ++field) {
        if (field != best && m_fields[field].man == king) {
            m_chances[field][static_cast<std::size_t>(std::ranges::find(ClassifiedMen, king) -
                                                      ClassifiedMen.begin())] = 0;
            m_fields[field].bDoubtful = true;
            ChooseBest(field);
        }
    }
}

void CReading::DoubtAllBut(std::vector<std::size_t> chosen, std::size_t count) {
    if (chosen.size() <= count) {
        return;
    }
    std::ranges::sort(chosen, std::ranges::greater(),
                      [this](std::size_t field) { return Chance(field, m_fields[field].man); });
    for (std::size_t i = count; i < chosen.size(); ++i) {
        m_fields[chosen[i]].bDoubtful = true;
    }
}

void CReading::DoubtTooManyMen(TFigureCode colour) {
    std::vector<std::size_t> men;
    std::vector<std::size_t> pawns;
    for (std::size_t field = 0; field < FieldCount; ++field) {
        if (ColourOf(m_fields[field].man) == colour) {
            men.push_back(field);
            if (TypeOf(m_fields[field].man) == TypePawn) {
                pawns.push_back(field);
            }
        }
    }
    DoubtAllBut(std::move(men), MostMen);
    DoubtAllBut(std::move(pawns), MostPawns);
}

TBoardFrame Enlarged(const TBoardFrame& frame, int factor) {
    return {frame.left * factor, frame.top * factor, frame.right * factor, frame.bottom * factor};
}

}  // namespace

TRecognizedDiagram RecognizeDiagram(const TBitmap& bitmap) {
    const TGreyImage image = ToGrey(bitmap);
    const CGreySums sums(image);
    const int lightThreshold = LightThreshold(image);
    const TBoardFrame frame = FindBoard(image, sums, lightThreshold);
    const TGreyLevels levels = GreyLevels(image, frame);
    CReading reading(FieldImages(sums, frame, levels));
    for (const TFigureCode colour : {WhiteFlag, BlackFlag}) {
        reading.SettleKings(colour);
        reading.DoubtTooManyMen(colour);
    }
    return {.fields = reading.Fields(),
            .frame = Enlarged(frame, image.factor),
            .lightThreshold = lightThreshold,
            .levels = levels};
}

}  // namespace tarnwick
