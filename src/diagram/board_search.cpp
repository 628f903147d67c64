// The search in all places and sizes runs on a copy of at most 192 pixels. For one size of field the difference
// at every point is computed once; its sum over seven points of a row, then over seven such rows, gives all
// places of the board at 14 additions each. The best is then refined in the full image.

#include "diagram/board_search.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace tarnwick {
namespace {

constexpr int PointCount = 49;
constexpr double LeastContrast = 9;
/// The best of all places in a picture of noise, with corners of one pixel.
constexpr double ChanceOfOnePixel = 100;
/// Of 49; men of some fonts cover corners.
constexpr int LeastMeetings = 36;
/// A point counts from this part of the average difference.
constexpr double ClearPart = 0.2;
/// Part of a field that is looked at beside a point.
constexpr double CornerPart = 0.22;

constexpr int CoarseSide = 192;
/// No point counts more in the search, so that black men do not outweigh the pattern of pale fields.
constexpr int LargestDifference = 40;
/// Smaller fields show no men.
constexpr double LeastField = 6;
constexpr double SizeStep = 1.025;
/// Sizes that are tried in the full image.
constexpr std::size_t RefinedCandidates = 8;

/// Light minus dark corners around (x, y), where the upper left corner is light.
double Difference(const CGreySums& sums, int x, int y, int width, int height) {
    return (sums.Average(x - width, y - height, x, y) + sums.Average(x, y, x + width, y + height) -
            sums.Average(x, y - height, x + width, y) - sums.Average(x - width, y, x, y + height)) /
           2;
}

struct TCandidate {
    int sum = 0;  ///< Of the 49 differences.
    TBoardFrame frame;
};

class CCoarseSearch {
  public:
    explicit CCoarseSearch(const TGreyImage& image) : m_sums(image) {}

    /// The best place of a board with fields of this size, in pixels.
    TCandidate BestPlace(double field);

  private:
    /// The differences at all points of the image for corners of this size.
    void ComputeDifferences(int corner);
    void SumRows(const int (&steps)[7]);

    CGreySums m_sums;
    std::vector<int> m_differences;  ///< By row and column of the point.
    std::vector<int> m_rowSums;  ///< Seven points to the right with signs in turn, starting here.
    int m_bestSum = 0;           ///< Of the 49 differences.
    TBoardFrame m_best;
};

void CCoarseSearch::ComputeDifferences(int corner) {
    const int width = m_sums.Width();
    m_differences.assign(
        static_cast<std::size_t>(width) * static_cast<std::size_t>(m_sums.Height()), 0);
    for (int y = corner; y <= m_sums.Height() - corner && y < m_sums.Height(); ++y) {
        for (int x = corner; x <= width - corner && x < width; ++x) {
            const auto at = [&](int i, int j) {
                return m_sums.Corner(x + i * corner, y + j * corner);
            };
            // Upper left + lower right - upper right - lower left, from nine corners of the sums.
            const auto sum = static_cast<std::int32_t>(at(-1, -1) - 2 * at(0, -1) + at(1, -1) -
                                                       2 * at(-1, 0) + 4 * at(0, 0) - 2 * at(1, 0) +
                                                       at(-1, 1) - 2 * at(0, 1) + at(1, 1));
            m_differences[static_cast<std::size_t>(y * width + x)] =
                std::clamp(sum / (2 * corner * corner), -LargestDifference, LargestDifference);
        }
    }
}

void CCoarseSearch::SumRows(const int (&steps)[7]) {
    const int width = m_sums.Width();
    m_rowSums.assign(m_differences.size(), 0);
    for (int y = 0; y < m_sums.Height(); ++y) {
        for (int x = 0; x + steps[6] < width; ++x) {
            const int* const first = m_differences.data() + y * width + x;
            m_rowSums[static_cast<std::size_t>(y * width + x)] =
                first[0] - first[steps[1]] + first[steps[2]] - first[steps[3]] + first[steps[4]] -
                first[steps[5]] + first[steps[6]];
        }
    }
}

TCandidate CCoarseSearch::BestPlace(double field) {
    TCandidate best;
    int steps[7];  // from the first of the seven inner points to each
    for (int i = 0; i < 7; ++i) {
        steps[i] = static_cast<int>(std::lround(i * field));
    }
    ComputeDifferences(std::max(1, static_cast<int>(field * CornerPart)));
    SumRows(steps);
    const int width = m_sums.Width();
    const int first =
        static_cast<int>(field) - 1;  // a board cut off at the edge by half a pixel is one
    for (int y = first; y + steps[6] + first < m_sums.Height(); ++y) {
        for (int x = first; x + steps[6] + first < width; ++x) {
            int sum = 0;
            for (int i = 0; i < 7; ++i) {
                const int row = m_rowSums[static_cast<std::size_t>((y + steps[i]) * width + x)];
                sum += i % 2 == 0 ? row : -row;
            }
            if (sum > best.sum) {
                best = {sum, {x - field, y - field, x + 7 * field, y + 7 * field}};
            }
        }
    }
    return best;
}

/// Places of the board at different sizes, the best ones first.
std::vector<TCandidate> Candidates(const TGreyImage& coarse) {
    const int shorter = std::min(coarse.width, coarse.height);
    CCoarseSearch search(coarse);
    std::vector<TCandidate> candidates;
    for (double field = std::max(LeastField, shorter / 32.0); field <= (shorter + 1) / 8.0;
         field *= SizeStep) {
        candidates.push_back(search.BestPlace(field));
    }
    std::ranges::sort(candidates, std::ranges::greater(), &TCandidate::sum);
    candidates.resize(std::min(candidates.size(), RefinedCandidates));
    return candidates;
}

/// The frame moved by whole fields along the colours: beside a board the white paper takes part in the pattern
/// of its edge, so that a displaced frame fits as well, only not as strongly.
TBoardFrame OnItsFields(const CGreySums& sums, const TBoardFrame& frame) {
    TBoardFrame best = frame;
    double bestContrast = PatternFit(sums, frame).contrast;
    for (int shift = 0; shift < 25; ++shift) {
        const int columns = shift % 5 - 2;
        const int rows = shift / 5 - 2;
        if ((columns + rows) % 2 != 0) {
            continue;
        }
        const double x = columns * frame.FieldWidth();
        const double y = rows * frame.FieldHeight();
        const TBoardFrame moved = {frame.left + x, frame.top + y, frame.right + x,
                                   frame.bottom + y};
        const double contrast = PatternFit(sums, moved).contrast;
        if (contrast > bestContrast) {
            best = moved;
            bestContrast = contrast;
        }
    }
    return best;
}

}  // namespace

TPatternFit PatternFit(const CGreySums& sums, const TBoardFrame& frame) {
    const int width = std::max(1, static_cast<int>(frame.FieldWidth() * CornerPart));
    const int height = std::max(1, static_cast<int>(frame.FieldHeight() * CornerPart));
    std::array<double, PointCount> differences{};
    for (int point = 0; point < PointCount; ++point) {
        const int column = point % 7 + 1;
        const int row = point / 7 + 1;
        const int x = static_cast<int>(std::lround(frame.left + column * frame.FieldWidth()));
        const int y = static_cast<int>(std::lround(frame.top + row * frame.FieldHeight()));
        const double sign = (column + row) % 2 == 0 ? 1 : -1;
        differences[static_cast<std::size_t>(point)] = sign * Difference(sums, x, y, width, height);
    }
    // A man in a corner outweighs the difference of pale hatching: none counts more than twice the middle one.
    std::array<double, PointCount> sorted = differences;
    std::ranges::nth_element(sorted, sorted.begin() + PointCount / 2);
    const double limit = std::max(0.0, 2 * sorted[PointCount / 2]);
    TPatternFit fit{.contrast = 0, .meetings = 0, .chance = ChanceOfOnePixel / (width * height)};
    for (const double difference : differences) {
        fit.contrast += std::clamp(difference, -limit, limit) / PointCount;
    }
    fit.meetings = static_cast<int>(std::ranges::count_if(
        differences, [&](double difference) { return difference > ClearPart * fit.contrast; }));
    return fit;
}

bool IsBoard(const TPatternFit& fit) {
    return fit.contrast >= LeastContrast + fit.chance && fit.meetings >= LeastMeetings;
}

TBoardFrame Refined(const CGreySums& sums, const TBoardFrame& frame) {
    // Moves of the whole board, then of one edge.
    static constexpr double Moves[][4] = {{1, 0, 1, 0}, {0, 1, 0, 1}, {1, 0, 0, 0},
                                          {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    TBoardFrame best = OnItsFields(sums, frame);
    double bestContrast = PatternFit(sums, best).contrast;
    for (double step = frame.FieldWidth() / 5; step >= 0.25; step /= 2) {
        // Few rounds move far; the bound is for pictures that are no board.
        bool bMoved = true;
        for (int round = 0; bMoved && round < 8; ++round) {
            bMoved = false;
            for (const auto& move : Moves) {
                for (const double by : {-step, step}) {
                    const TBoardFrame moved = {best.left + by * move[0], best.top + by * move[1],
                                               best.right + by * move[2],
                                               best.bottom + by * move[3]};
                    const double contrast = PatternFit(sums, moved).contrast;
                    if (contrast > bestContrast) {
                        best = moved;
                        bestContrast = contrast;
                        bMoved = true;
                    }
                }
            }
        }
    }
    return OnItsFields(sums, best);
}

std::optional<TBoardFrame> FrameByPattern(const TGreyImage& image, const CGreySums& sums) {
    const int factor = (std::max(image.width, image.height) - 1) / CoarseSide + 1;
    std::optional<TBoardFrame> best;
    double bestStrength = 0;
    for (const TCandidate& candidate : Candidates(Shrunk(image, factor))) {
        const TBoardFrame& frame = candidate.frame;
        const TBoardFrame refined = Refined(sums, {frame.left * factor, frame.top * factor,
                                                   frame.right * factor, frame.bottom * factor});
        const TPatternFit fit = PatternFit(sums, refined);
        // A few men side by side can look like a small board: of two the larger one is more likely.
        const double strength = fit.contrast * fit.meetings * std::sqrt(refined.FieldWidth());
        if (IsBoard(fit) && strength > bestStrength) {
            best = refined;
            bestStrength = strength;
        }
    }
    return best;
}

}  // namespace tarnwick
